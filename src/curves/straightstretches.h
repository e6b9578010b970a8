#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

// A closed interval of master positions; empty when first > second.
using MasterInterval = std::pair<double, double>;

namespace StraightStretches {

// The empty interval: no straight stretch here.
constexpr MasterInterval None{ 1.0, 0.0 };

// Which end of a piece evaluates at its bounds. Closed: every piece owns both
// bounds. OpenLeft: piece i serves bounds[i] < x <= bounds[i + 1], and only
// the first piece owns its left bound too, since otherwise the piece before
// evaluates there.
enum class Bounds { Closed, OpenLeft };

// Groups runs of straight pieces, piece i running from bounds[i] to
// bounds[i + 1], into stretches: per piece, the interval of the run it belongs
// to, None for a piece that bends. The caller makes sure that the bounds
// ascend wherever a stretch may be found.
std::vector<MasterInterval> find(const std::vector<double> &bounds, Bounds owner,
                                 const std::function<bool(std::size_t piece)> &isStraight);

} // namespace StraightStretches
