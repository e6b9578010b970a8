// Feeds arbitrary text to the curve text converter under every format and
// separator choice, including the out-of-table indices the setters accept,
// and follows a converted table where the import and the export take it:
// written back as text in the same format, and into a cam table of a
// simulated drive through the parameter model, as the import dialog hands it.
//
// Input layout: byte 0 the format choice, byte 1 the decimal separator,
// byte 2 the value separator, the rest the text. The digits '0'..'5' in the
// first bytes give readable seeds ("000" is SERVOsoft, "313" the free format
// with comma decimals and blanks); a format byte of '6' to ';' reads the text
// as UTF-16 ("900" the free format with point and semicolon).
#include <messagebox.h>
#include "import/curvetextconverter.h"
#include "import/curvetextwriter.h"
#include "parameters/parametermodelimplementation.h"
#include "simulateddrive.h"

#include <QPolygonF>
#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

const size_t ChoiceBytes = 3;
// The import needs two pairs. Larger tables take the drive long to write
// under the sanitizers; the cam plan harness writes those.
const int FewestPairs = 2;
const int MostPairsWritten = 256;
const unsigned short Table = 3;
const int LivingSpace = 1;
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
    return CurveTextConverter::decodedText(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
}

// The export writes what it can read back, or says why not.
void writeBack(const CurveTextConverter &converter, const QPolygonF &points)
{
    CurveTextWriter writer;
    writer.setDecimalSeparator(converter.decimalSeparator());
    writer.setValueSeparator(converter.valueSeparator());
    writer.setFormat(converter.format());
    QString error;
    const QString text = writer.toText(points, &error);
    if (text.isEmpty() == error.isEmpty())
        std::abort();
}

void importIntoDrive(const QPolygonF &points)
{
    if (points.size() < FewestPairs || points.size() > MostPairsWritten)
        return;
    MxSimulation::SimulatedDrive drive;
    ParameterModelImplementation model(nullptr, &drive, Table, LivingSpace);
    model.writeGridPoints(points);
    model.storedGridPoints();
    model.storedTableSummary();
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
    // Each line gives a pair, is skipped or is blank; the first skipped line
    // is named, cut to its shown length.
    const QString &text = converter.text();
    const int lines = text.count(QLatin1Char('\n')) + text.count(QLatin1Char('\r')) + 1;
    const int skipped = converter.skippedLineCount();
    if (skipped < 0 || points.size() + skipped > lines)
        std::abort();
    if ((skipped == 0) != converter.firstSkippedLine().isEmpty() || (skipped == 0) != (converter.firstSkippedLineNumber() == 0)
        || (skipped == 0) != converter.skippedLinesMessage().isEmpty())
        std::abort();
    if (converter.firstSkippedLine().size() > CurveTextConverter::ShownLineLength + 1
        || converter.firstSkippedLineNumber() > lines)
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
    writeBack(converter, first);
    importIntoDrive(first);
    converter.setFormat(CurveTextConverter::FreeFormat);
    check(converter, converter.convert());
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // A refused import is told through the message box seam; without a
    // widget application no box may be shown.
    MessageBox::setHandler([](QWidget *, const MessageBox::Message &) { return QMessageBox::Ok; });
    return 0;
}
