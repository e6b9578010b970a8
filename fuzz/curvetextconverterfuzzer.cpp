// Feeds arbitrary text to the curve text converter under every format and
// separator choice, including the out-of-table indices the setters accept.
//
// Input layout: byte 0 the format choice, byte 1 the decimal separator,
// byte 2 the value separator, the rest the text. The digits '0'..'5' in the
// first bytes give readable seeds ("000" is SERVOsoft, "313" the free format
// with comma decimals and blanks); a format byte of '6' to ';' reads the text
// as UTF-16 ("900" the free format with point and semicolon).
#include "import/curvetextconverter.h"

#include <QPolygonF>
#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

const size_t ChoiceBytes = 3;
// Selector indices 0 to 3 are the formats; 4 and -1 are not in the table.
const int FormatChoices[] = { 0, 1, 2, 3, 4, -1 };

QString textOf(const uint8_t *data, size_t size, bool utf16)
{
    // UTF-16 mode reaches code units that no file decoding gives, such as
    // lone surrogates, which an edited text in the dialog still may hold.
    if (utf16) {
        // Copied bytewise: the text starts at an odd offset of the input.
        QString text(static_cast<int>(size / 2), Qt::Uninitialized);
        std::memcpy(text.data(), data, size / 2 * sizeof(QChar));
        return text;
    }
    return QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

void check(const CurveTextConverter &converter, const QPolygonF &points)
{
    // A failed value is 0, never infinity; no pairs means no error either.
    for (const QPointF &point : points) {
        if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
            std::abort();
    }
    if (points.isEmpty() && !converter.errorMessage().isEmpty())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < ChoiceBytes)
        return 0;
    const int formatChoice = static_cast<uint8_t>(data[0] - '0') % 12;
    const int format = FormatChoices[formatChoice % 6];
    const bool utf16 = formatChoice >= 6;
    const int decimalSeparator = static_cast<uint8_t>(data[1] - '0') % 3;
    const int valueSeparator = static_cast<uint8_t>(data[2] - '0') % 5;

    CurveTextConverter converter;
    converter.setDecimalSeparator(decimalSeparator);
    converter.setValueSeparator(valueSeparator);
    converter.setFormat(format);
    converter.setText(textOf(data + ChoiceBytes, size - ChoiceBytes, utf16));
    const QPolygonF first = converter.convert();
    check(converter, first);

    // The same text again gives the same pairs (the compiled pattern is
    // reused), and switching to the free format recompiles.
    if (converter.convert() != first)
        std::abort();
    converter.setFormat(CurveTextConverter::FreeFormat);
    check(converter, converter.convert());
    return 0;
}
