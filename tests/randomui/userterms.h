#pragma once

#include "model/motionpoint.h"

#include <QSize>
#include <QString>

#include <cmath>

// What the user reads and types, written out here and not taken from the
// classes that show it, so that a wrong text in the editor is seen.
namespace UserTerms {

// Segment types by their type value, the combo boxes' entries by index.
const char *const TypeNames[] = { "Rast", "Konstante Geschwindigkeit", "Umkehrpunkt", "Beschleunigung" };
const int TypeOfComboIndex[] = { MotionPoint::rest, MotionPoint::speed, MotionPoint::acceleration,
                                 MotionPoint::turningPoint };
const char *const LawNames[] = { "Polynom fünften Grades", "Kubischer Spline" };
const char *const MasterAxisNames[] = { "Master-Einheit", "Zykluszeit" };
const char *const VelocityNames[] = { "Master-Slave", "Upm-Abtrieb", "Upm-Motor" };
// The example curve tables and the index of their format in the dialog.
const struct {
    const char *file;
    int format;
} ExampleCurves[] = { { "curve-servosoft.csv", 0 }, { "curve-twincat2.txt", 1 },
                      { "curve-codesys.txt", 2 }, { "curve-free-tab.txt", 3 } };
// The example tables: 145 points, 2.5 apart.
constexpr int ExamplePoints = 145;
constexpr double ExampleSpacing = 2.5;
// The drive keeps a position in 32 bits with three decimals.
constexpr double PositionMinimum = -2147483.648;
constexpr double PositionMaximum = 2147483.647;
const char TooLargeMaster[] = "3000000";
const char TooSmallSlave[] = "-2147484";
// Texts that are no position; a comma or a point is a decimal mark, both
// together are refused.
const char *const NoNumbers[] = { "abc", "1.000,5", "1,000.5", "--3", "1.2.3", "nan", "inf" };
const QSize WindowSize(1200, 900);

const char InvalidInput[] = "Ungültige Eingabe";
const char MasterTaken[] = "Master-Position schon vorhanden";
// A cyclic cam holds its points below the circular length.
const char BeyondCycle[] = "Master-Position außerhalb der Umlauflänge";
const char SeamJump[] = "Sprung an der Nahtstelle";

inline QString fixed(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

inline double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

inline QString typeName(int type)
{
    return QString::fromUtf8(TypeNames[type]);
}

} // namespace UserTerms
