#include "simulateddrive.h"

#include <QLocale>

#include <cmath>

namespace MxSimulation {

using MxParameterDefinition::ParameterAddress;
using MxParameterDefinition::ParameterCoordinate;

namespace {

// Doubles hold whole numbers exactly up to 2^53; stay well below.
constexpr double LargestScaledValue = 9.0e15;

qint64 powerOfTen(int exponent)
{
    qint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

QString formatNative(qint64 native, int decimals, QChar point)
{
    const bool negative = native < 0;
    const quint64 magnitude = negative ? quint64(0) - quint64(native) : quint64(native);
    const quint64 scale = quint64(powerOfTen(decimals));
    QString text = negative ? QStringLiteral("-") : QString();
    text += QString::number(magnitude / scale);
    if (decimals > 0)
        text += point + QStringLiteral("%1").arg(magnitude % scale, decimals, 10, QLatin1Char('0'));
    return text;
}

bool parseScaled(const QString &text, int decimals, qint64 *native)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        *native = 0;  // an empty text clears a number
        return true;
    }
    bool ok = false;
    double value = trimmed.toDouble(&ok);
    if (!ok)
        value = QLocale::system().toDouble(trimmed, &ok);
    if (!ok || !std::isfinite(value))
        return false;
    const double scaled = value * double(powerOfTen(decimals));
    if (std::fabs(scaled) > LargestScaledValue)
        return false;
    *native = std::llround(scaled);
    return true;
}

} // namespace

// The definition object of one parameter; reads its data from the drive.
class SimulatedParameter : public MxParameterInstance::ParameterInformation
{
public:
    SimulatedParameter(SimulatedDrive *drive, const ParameterCoordinate &coordinate)
        : ParameterInformation(drive)
        , m_drive(drive)
        , m_coordinate(coordinate)
    {
    }

    ParameterAddress address() const override { return ParameterAddress(-1, m_coordinate); }
    int elementCount() const override { return entry().elementCount; }
    bool setElementCount(int count) override
    {
        if (m_drive->isOnline())
            return false;
        return m_drive->resize(m_drive->m_entries[m_coordinate.toNumber()], count);
    }
    QString lowerLimit(MxParameterDefinition::eLivingSpace) const override { return limitText(entry().info.nativeMinimum); }
    QString upperLimit(MxParameterDefinition::eLivingSpace) const override { return limitText(entry().info.nativeMaximum); }
    MxMultilingual::ParameterText text(int element) const override
    {
        const CatalogueEntry &info = entry().info;
        // Texts exist for every element the parameter can have, also for
        // those beyond its present size.
        if (element < 0 || element >= info.maximumElementCount)
            return MxMultilingual::ParameterText();
        return MxMultilingual::ParameterText(info.shortText,
                                             QStringLiteral("%1, Element %2").arg(info.shortText).arg(element));
    }
    QString toNative(const QString &valueText) const override
    {
        const CatalogueEntry &info = entry().info;
        if (info.kind == CatalogueEntry::Text)
            return valueText;
        bool ok = false;
        const double value = valueText.trimmed().toDouble(&ok);
        if (!ok || !std::isfinite(value))
            return QString();
        const double scaled = value * double(powerOfTen(info.decimalPlaces));
        if (std::fabs(scaled) > LargestScaledValue)
            return QString();
        return QString::number(std::llround(scaled));
    }

    void announceValue(int axis) { emit valueChanged(ParameterAddress(axis, m_coordinate)); }
    void announceDefinition() { emit definitionChanged(); }

private:
    const SimulatedDrive::Entry &entry() const { return *m_drive->entry(m_coordinate); }
    QString limitText(qint64 native) const
    {
        const CatalogueEntry &info = entry().info;
        if (info.kind == CatalogueEntry::Text)
            return QString();
        return formatNative(native, info.decimalPlaces, QLatin1Char('.'));
    }

    SimulatedDrive *m_drive;
    ParameterCoordinate m_coordinate;
};

SimulatedDrive::SimulatedDrive(int axisCount, QObject *parent)
    : ParameterContainer(parent)
    , m_axisCount(qBound(1, axisCount, MaximumAxes))
    , m_entries(freshEntries(m_axisCount))
{
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        const ParameterCoordinate coordinate(it->info.coordinate);
        m_information.insert(it.key(), new SimulatedParameter(this, coordinate));
    }
}

SimulatedDrive::~SimulatedDrive() = default;

SimulatedDrive::Entries SimulatedDrive::freshEntries(int axisCount)
{
    Entries entries;
    for (const CatalogueEntry &info : parameterCatalogue()) {
        Entry entry;
        entry.info = info;
        entry.elementCount = info.defaultElementCount;
        Values values;
        if (info.kind == CatalogueEntry::Text)
            values.texts = QVector<QString>(entry.elementCount).toList();
        else
            values.numbers = QVector<qint64>(entry.elementCount, info.defaultNative);
        if (info.perAxis) {
            for (int axis = 0; axis < axisCount; ++axis)
                entry.values.insert(axis + 1, values);
        } else {
            entry.values.insert(0, values);
        }
        entries.insert(ParameterCoordinate(info.coordinate).toNumber(), entry);
    }
    return entries;
}

const SimulatedDrive::Entry *SimulatedDrive::entry(const ParameterCoordinate &coordinate) const
{
    const auto it = m_entries.constFind(coordinate.toNumber());
    return it == m_entries.cend() || !coordinate.isValid() ? nullptr : &*it;
}

const SimulatedDrive::Values *SimulatedDrive::values(const Entry &entry, eLivingSpace livingSpace) const
{
    // A drive-wide parameter reads the same in every living space.
    const int key = entry.info.perAxis ? livingSpace : 0;
    if (livingSpace < 0 || livingSpace > m_axisCount)
        return nullptr;
    const auto it = entry.values.constFind(key);
    return it == entry.values.cend() ? nullptr : &*it;
}

bool SimulatedDrive::resize(Entry &entry, int count)
{
    if (count < 1 || count > entry.info.maximumElementCount)
        return false;
    if (count == entry.elementCount)
        return true;
    if (count > entry.elementCount) {
        if (m_refuseGrowthFrom >= 0 && m_growthsDone >= m_refuseGrowthFrom)
            return false;
        ++m_growthsDone;
    }
    entry.elementCount = count;
    for (Values &values : entry.values) {
        if (entry.info.kind == CatalogueEntry::Text) {
            while (values.texts.size() > count)
                values.texts.removeLast();
            while (values.texts.size() < count)
                values.texts.append(QString());
        } else {
            values.numbers.resize(count);  // new elements are zero
        }
    }
    announceDefinition(ParameterCoordinate(entry.info.coordinate).toNumber());
    return true;
}

void SimulatedDrive::announceDefinition(int key)
{
    m_information.value(key)->announceDefinition();
}

QString SimulatedDrive::unitOf(const Entry &entry, eLivingSpace livingSpace) const
{
    if (entry.info.unitParameter.isEmpty())
        return entry.info.unit;
    const ParameterCoordinate unitCoordinate(entry.info.unitParameter);
    const Entry *unitEntry = this->entry(unitCoordinate);
    // Drive-wide arrays take the unit of the first axis when read drive-wide.
    const eLivingSpace space = unitEntry && unitEntry->info.perAxis && livingSpace == 0 ? 1 : livingSpace;
    return readValue(space, unitCoordinate, 0, true);
}

QString SimulatedDrive::readValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                  bool displayText) const
{
    const Entry *found = entry(coordinate);
    const Values *stored = found ? values(*found, livingSpace) : nullptr;
    if (!stored || element < 0 || element >= found->elementCount)
        return QString();
    const CatalogueEntry &info = found->info;
    switch (info.kind) {
    case CatalogueEntry::Text:
        return stored->texts.at(element);
    case CatalogueEntry::Enumeration: {
        const qint64 index = stored->numbers.at(element);
        if (displayText && index >= 0 && index < info.names.size())
            return info.names.at(int(index));
        return QString::number(index);
    }
    case CatalogueEntry::Number:
        break;
    }
    QString text = formatNative(stored->numbers.at(element), info.decimalPlaces, QLocale::system().decimalPoint());
    if (displayText) {
        const QString unit = unitOf(*found, livingSpace);
        if (!unit.isEmpty())
            text += QLatin1Char(' ') + unit;
    }
    return text;
}

QString SimulatedDrive::readValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                        bool displayText) const
{
    const Entry *found = entry(coordinate);
    const Values *stored = found ? values(*found, livingSpace) : nullptr;
    if (!stored || element < 0 || element >= found->elementCount)
        return QString();
    if (found->info.kind == CatalogueEntry::Text)
        return stored->texts.at(element);
    if (displayText && found->info.kind == CatalogueEntry::Enumeration)
        return readValue(livingSpace, coordinate, element, true);
    return QString::number(stored->numbers.at(element));
}

bool SimulatedDrive::writeValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                const QString &text)
{
    return acceptWrite(livingSpace, coordinate, element, text, false);
}

bool SimulatedDrive::writeValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                      const QString &text)
{
    return acceptWrite(livingSpace, coordinate, element, text, true);
}

bool SimulatedDrive::acceptWrite(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                 const QString &text, bool native)
{
    if (m_readOnly || (m_failFrom >= 0 && m_writesDone >= m_failFrom))
        return false;
    const Entry *found = entry(coordinate);
    if (!found || !values(*found, livingSpace) || element < 0 || element >= found->elementCount)
        return false;
    const CatalogueEntry &info = found->info;
    Entry &target = m_entries[coordinate.toNumber()];
    Values &stored = target.values[info.perAxis ? livingSpace : 0];
    bool changed = false;
    if (info.kind == CatalogueEntry::Text) {
        changed = stored.texts.at(element) != text;
        stored.texts[element] = text;
    } else {
        qint64 value = 0;
        bool ok = false;
        if (native) {
            value = text.trimmed().isEmpty() ? 0 : text.trimmed().toLongLong(&ok);
            ok = ok || text.trimmed().isEmpty();
        } else if (info.kind == CatalogueEntry::Enumeration && info.names.contains(text.trimmed())) {
            value = info.names.indexOf(text.trimmed());
            ok = true;
        } else {
            QString valueText = text.trimmed();
            const QString unit = unitOf(*found, livingSpace);
            if (!unit.isEmpty() && valueText.endsWith(unit))
                valueText.chop(unit.size());
            ok = parseScaled(valueText, info.decimalPlaces, &value);
        }
        if (!ok || value < info.nativeMinimum || value > info.nativeMaximum)
            return false;
        changed = stored.numbers.at(element) != value;
        stored.numbers[element] = value;
    }
    afterWrite(info.coordinate, element, text);
    if (changed)
        m_information.value(coordinate.toNumber())->announceValue(livingSpace - 1);
    if (m_writesDone == m_onlineAt) {
        m_onlineAt = -1;
        setOnline(true);
    }
    if (m_writesDone == m_readOnlyAt) {
        m_readOnlyAt = -1;
        setReadOnly(true);
    }
    return true;
}

void SimulatedDrive::afterWrite(const QString &coordinate, int element, const QString &text)
{
    ++m_writesDone;
    ++m_writeCounts[coordinate];
    m_writeLog.append(WriteRecord { coordinate, element, text });
}

MxParameterInstance::ParameterInformation *SimulatedDrive::definition(const ParameterCoordinate &coordinate) const
{
    return coordinate.isValid() ? m_information.value(coordinate.toNumber()) : nullptr;
}

void SimulatedDrive::setOnline(bool online)
{
    if (m_online == online)
        return;
    emit onlineSetToChange();
    m_online = online;
    emit onlineChanged();
}

void SimulatedDrive::setReadOnly(bool readOnly)
{
    if (m_readOnly == readOnly)
        return;
    emit readOnlySetToChange();
    m_readOnly = readOnly;
    emit readOnlyChanged();
}

bool SimulatedDrive::setNativeLimits(const QString &coordinate, qint64 minimum, qint64 maximum)
{
    const ParameterCoordinate parsed(coordinate);
    if (!entry(parsed) || minimum > maximum)
        return false;
    Entry &target = m_entries[parsed.toNumber()];
    target.info.nativeMinimum = minimum;
    target.info.nativeMaximum = maximum;
    m_information.value(parsed.toNumber())->announceDefinition();
    return true;
}

void SimulatedDrive::failWritesAfter(int writes)
{
    m_failFrom = writes < 0 ? -1 : m_writesDone + writes;
}

void SimulatedDrive::goOnlineAfterWrites(int writes)
{
    m_onlineAt = writes < 0 ? -1 : m_writesDone + writes;
}

void SimulatedDrive::goReadOnlyAfterWrites(int writes)
{
    m_readOnlyAt = writes < 0 ? -1 : m_writesDone + writes;
}

void SimulatedDrive::refuseGrowthAfter(int growths)
{
    m_refuseGrowthFrom = growths < 0 ? -1 : m_growthsDone + growths;
}

void SimulatedDrive::clearWriteCounts()
{
    m_writeCounts.clear();
    m_writeLog.clear();
}

} // namespace MxSimulation
