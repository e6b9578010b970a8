#pragma once

#include <QString>

// Numbers as the user types and reads them. Typed: one decimal mark, a comma
// or a point, whichever the keyboard gives, and no grouping, so that "45,5"
// and "45.5" are the same number whatever the locale. Text with two marks
// ("1.000,5", "1,000.5") is refused: it cannot be told whether the first
// mark groups thousands or is a mistyped decimal. Shown: the locale's
// decimal mark and never a group separator, which would read as a decimal
// mark in the other convention ("1,000" as 1 instead of 1000).
class DecimalText
{
public:
    // False for no number, more than one decimal mark, or a value that is
    // not finite; *value is left alone then.
    static bool parse(const QString &text, double *value);
    // The number as QLocale::toString() gives it, without group separators.
    static QString toString(double value, char format = 'g', int precision = 6);
};
