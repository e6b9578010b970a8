#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

// std::lower_bound over ascending values (equal ones allowed, no NaN) that
// starts from a place found recently and gallops outwards. Sampling walks the
// curve upwards in two interleaved runs (a position and the position one
// master unit earlier), so it remembers two places and starts from the nearer.
// The result is always that of std::lower_bound; the cost grows with the
// logarithm of the distance walked, not of the number of values.
// Not thread-safe, like the plans using it.
class AscendingSearch
{
public:
    std::size_t lowerBound(const std::vector<double> &values, double x) const
    {
        const std::size_t count = values.size();
        if (count == 0 || std::isnan(x))
            return std::size_t(std::lower_bound(values.begin(), values.end(), x) - values.begin());
        std::size_t &hint = nearerHint(values, x);
        const std::size_t found = gallop(values, std::min(hint, count - 1), x);
        hint = found;
        return found;
    }

private:
    std::size_t &nearerHint(const std::vector<double> &values, double x) const
    {
        const std::size_t last = values.size() - 1;
        const double first = std::abs(values[std::min(m_hints[0], last)] - x);
        const double second = std::abs(values[std::min(m_hints[1], last)] - x);
        return second < first ? m_hints[1] : m_hints[0];
    }

    static std::size_t gallop(const std::vector<double> &values, std::size_t start, double x)
    {
        const auto begin = values.begin();
        const std::size_t count = values.size();
        std::size_t step = 1;
        if (values[start] < x) {
            // Everything up to start lies below x.
            std::size_t low = start + 1;
            while (low < count) {
                const std::size_t probe = std::min(low + step - 1, count - 1);
                if (!(values[probe] < x))
                    return std::size_t(std::lower_bound(begin + std::ptrdiff_t(low), begin + std::ptrdiff_t(probe), x) - begin);
                low = probe + 1;
                step *= 2;
            }
            return count;
        }
        // values[high] is not below x.
        std::size_t high = start;
        while (high > 0) {
            const std::size_t probe = high > step ? high - step : 0;
            if (values[probe] < x)
                return std::size_t(std::lower_bound(begin + std::ptrdiff_t(probe + 1), begin + std::ptrdiff_t(high), x) - begin);
            high = probe;
            step *= 2;
        }
        return 0;
    }

    mutable std::array<std::size_t, 2> m_hints{ { 0, 0 } };
};
