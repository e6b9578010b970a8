#include "straightstretches.h"

#include <cmath>

namespace StraightStretches {

std::vector<MasterInterval> find(const std::vector<double> &bounds, Bounds owner,
                                 const std::function<bool(std::size_t piece)> &isStraight)
{
    const std::size_t pieces = bounds.empty() ? 0 : bounds.size() - 1;
    std::vector<MasterInterval> stretches(pieces, None);
    std::size_t i = 0;
    while (i < pieces) {
        if (!isStraight(i)) {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end + 1 < pieces && isStraight(end + 1))
            ++end;
        const double from =
            owner == Bounds::OpenLeft && i > 0 ? std::nextafter(bounds[i], bounds[i + 1]) : bounds[i];
        const MasterInterval stretch(from, bounds[end + 1]);
        for (std::size_t j = i; j <= end; ++j)
            stretches[j] = stretch;
        i = end + 1;
    }
    return stretches;
}

} // namespace StraightStretches
