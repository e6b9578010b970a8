// The drive project file of the simulated drive: every value in its native
// form, as indented text JSON.
#include "simulateddrive.h"

#include "atomicfilewriter.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace MxSimulation {

using MxParameterDefinition::ParameterCoordinate;

namespace {
const QString FormatName = QStringLiteral("MxSimulatedDrive");
constexpr int FormatVersion = 1;
} // namespace

namespace {

QJsonArray valuesToJson(const CatalogueEntry &info, const QVector<qint64> &numbers, const QStringList &texts)
{
    QJsonArray array;
    if (info.kind == CatalogueEntry::Text) {
        for (const QString &text : texts)
            array.append(text);
    } else {
        for (qint64 number : numbers)
            array.append(double(number));
    }
    return array;
}

} // namespace

QByteArray SimulatedDrive::toJson() const
{
    QJsonObject parameters;
    for (const Entry &stored : m_entries) {
        const CatalogueEntry &info = stored.info;
        if (info.perAxis) {
            QJsonObject perSpace;
            for (auto it = stored.values.cbegin(); it != stored.values.cend(); ++it)
                perSpace.insert(QString::number(it.key()), valuesToJson(info, it->numbers, it->texts));
            parameters.insert(info.coordinate, perSpace);
        } else {
            const Values &values = stored.values.value(0);
            parameters.insert(info.coordinate, valuesToJson(info, values.numbers, values.texts));
        }
    }
    QJsonObject root;
    root.insert(QStringLiteral("Drive"), FormatName);
    root.insert(QStringLiteral("Version"), FormatVersion);
    root.insert(QStringLiteral("Axes"), m_axisCount);
    root.insert(QStringLiteral("Parameters"), parameters);
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

namespace {

// Reads the elements of one parameter; false with a reason when damaged.
bool valuesFromJson(const CatalogueEntry &info, const QJsonValue &json, QVector<qint64> *numbers,
                    QStringList *texts, QString *reason)
{
    if (!json.isArray()) {
        *reason = QStringLiteral("%1 is not a list of elements").arg(info.coordinate);
        return false;
    }
    const QJsonArray array = json.toArray();
    if (array.isEmpty() || array.size() > info.maximumElementCount) {
        *reason = QStringLiteral("%1 has %2 elements (1 to %3 allowed)")
                      .arg(info.coordinate).arg(array.size()).arg(info.maximumElementCount);
        return false;
    }
    for (int i = 0; i < array.size(); ++i) {
        const QJsonValue value = array.at(i);
        if (info.kind == CatalogueEntry::Text) {
            if (!value.isString()) {
                *reason = QStringLiteral("%1 element %2 is not a text").arg(info.coordinate).arg(i);
                return false;
            }
            texts->append(value.toString());
            continue;
        }
        const double number = value.toDouble(std::nan(""));
        if (!value.isDouble() || number != std::floor(number) || number < double(info.nativeMinimum)
            || number > double(info.nativeMaximum)) {
            *reason = QStringLiteral("%1 element %2 is no value of the parameter").arg(info.coordinate).arg(i);
            return false;
        }
        numbers->append(qint64(number));
    }
    return true;
}

} // namespace

bool SimulatedDrive::fromJson(const QByteArray &json, QString *errorString)
{
    auto fail = [errorString](const QString &reason) {
        if (errorString)
            *errorString = reason;
        return false;
    };
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(QStringLiteral("not a JSON document (%1 at offset %2)")
                        .arg(parseError.errorString()).arg(parseError.offset));
    const QJsonObject root = document.object();
    if (!document.isObject() || root.value(QStringLiteral("Drive")).toString() != FormatName)
        return fail(QStringLiteral("not a simulated drive project"));
    if (root.value(QStringLiteral("Version")).toInt() != FormatVersion)
        return fail(QStringLiteral("unsupported drive project version"));
    const int axes = root.value(QStringLiteral("Axes")).toInt();
    if (axes < 1 || axes > MaximumAxes)
        return fail(QStringLiteral("the number of axes is missing or out of range"));
    if (!root.value(QStringLiteral("Parameters")).isObject())
        return fail(QStringLiteral("the parameters are missing"));
    const QJsonObject parameters = root.value(QStringLiteral("Parameters")).toObject();

    Entries entries = freshEntries(axes);
    for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it) {
        const ParameterCoordinate coordinate(it.key());
        const auto found = entries.find(coordinate.toNumber());
        if (!coordinate.isValid() || found == entries.end() || found->info.coordinate != it.key())
            return fail(QStringLiteral("unknown parameter %1").arg(it.key()));
        Entry &target = *found;
        const CatalogueEntry &info = target.info;
        QString reason;
        int count = -1;
        const QList<int> spaces = target.values.keys();
        for (int space : spaces) {
            QJsonValue elements = it.value();
            if (info.perAxis) {
                elements = it.value().toObject().value(QString::number(space));
                if (!it.value().isObject() || elements.isUndefined())
                    return fail(QStringLiteral("%1 has no value for living space %2").arg(info.coordinate).arg(space));
            }
            Values values;
            if (!valuesFromJson(info, elements, &values.numbers, &values.texts, &reason))
                return fail(reason);
            const int size = info.kind == CatalogueEntry::Text ? values.texts.size() : values.numbers.size();
            if (count >= 0 && size != count)
                return fail(QStringLiteral("%1 differs in size between living spaces").arg(info.coordinate));
            count = size;
            target.values.insert(space, values);
        }
        target.elementCount = count;
    }

    // Keep the limits and the definition objects; announce what changed.
    QList<int> resized;
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        const Entry &old = m_entries.value(it.key());
        it->info.nativeMinimum = old.info.nativeMinimum;
        it->info.nativeMaximum = old.info.nativeMaximum;
        if (old.elementCount != it->elementCount)
            resized.append(it.key());
    }
    m_axisCount = axes;
    m_entries = entries;
    for (int key : resized)
        announceDefinition(key);
    return true;
}

bool SimulatedDrive::load(const QString &path, QString *errorString)
{
    QFile file(path);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        if (errorString)
            *errorString = file.errorString();
        return false;
    }
    return fromJson(file.readAll(), errorString);
}

bool SimulatedDrive::save(const QString &path, QString *errorString) const
{
    return VxUtilities::AtomicFileWriter::write(path, toJson(), errorString);
}

} // namespace MxSimulation
