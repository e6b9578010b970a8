#include "positionrounding.h"

#include <algorithm>
#include <cmath>

namespace PositionRounding {

double scale(int decimals)
{
    return std::pow(10.0, std::clamp(decimals, 0, 15));
}

double units(double value, int decimals)
{
    // Adding zero turns a negative zero into a positive one, so that no
    // "-0.000" is ever shown or written.
    return std::round(value * scale(decimals)) + 0.0;
}

double rounded(double value, int decimals)
{
    return units(value, decimals) / scale(decimals) + 0.0;
}

bool sameUnit(double a, double b, int decimals)
{
    return units(a, decimals) == units(b, decimals);
}

} // namespace PositionRounding
