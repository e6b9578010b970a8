#pragma once

#include "model/decimaltext.h"

#include <qwt_scale_draw.h>

// Axis labels without group separators: "1,000" reads as one to a German
// engineer and "1.000" as one to everybody else.
class PlainScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override { return DecimalText::toString(value); }
};
