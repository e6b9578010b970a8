#pragma once

// Positions as the drive keeps them: whole units of its last decimal place,
// rounded half away from zero. Every place that rounds a position to the
// drive's decimal places (the check and the write, the comparison tables, the
// text export, the point editors, the step size) goes through these, so that
// the editor, its tables and the drive never disagree by one unit.
namespace PositionRounding {

// 10 to the power of the decimal places (taken as 0..15).
double scale(int decimals);
// The value in whole units of the last decimal place, as a double so that
// values far beyond 64 bits stay defined; never a negative zero.
double units(double value, int decimals);
// The value rounded to the decimal places; never a negative zero.
double rounded(double value, int decimals);
// True when both values round to the same unit.
bool sameUnit(double a, double b, int decimals);

} // namespace PositionRounding
