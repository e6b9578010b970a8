#pragma once

#include <QCommandLineOption>

class QCommandLineParser;

namespace CamTool {

// --format, --decimal and --separator of the verbs that read or write curve
// text, by the names the user types, numbered as CurveTextConverter numbers
// them (CurveTextWriter takes the same numbers).
class TextFormatOptions
{
public:
    explicit TextFormatOptions(const QString &formatDescription);
    void addTo(QCommandLineParser &parser) const;
    const QCommandLineOption &formatOption() const { return m_format; }

    // Applies the options given to a converter or writer: -1 to go on,
    // otherwise the usage error (printed with the usage). The separators
    // apply to the free format only (also the default one).
    template<class Target>
    int applyTo(const QCommandLineParser &parser, Target &target) const
    {
        Choice choice;
        const int read = this->read(parser, &choice);
        if (read >= 0)
            return read;
        if (choice.format >= 0)
            target.setFormat(choice.format);
        // After the format, which presets the separators.
        if (choice.decimalSeparator >= 0)
            target.setDecimalSeparator(choice.decimalSeparator);
        if (choice.valueSeparator >= 0)
            target.setValueSeparator(choice.valueSeparator);
        return -1;
    }

private:
    // -1 where the option is not given.
    struct Choice {
        int format = -1;
        int decimalSeparator = -1;
        int valueSeparator = -1;
    };
    int read(const QCommandLineParser &parser, Choice *choice) const;

    QCommandLineOption m_format;
    QCommandLineOption m_decimal;
    QCommandLineOption m_separator;
};

} // namespace CamTool
