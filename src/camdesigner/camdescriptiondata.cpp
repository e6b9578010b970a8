#include "camdescriptionimplementation.h"

#include "camdatafile.h"
#include "commands/loadnewmotionplancommand.h"
#include "model/jsondifference.h"
#include "model/motionlaw.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonValue>
#include <QUndoStack>

#include <cmath>

// The cam description as data: read from and written to JSON and files,
// compared, and summed up for the host.

namespace {

const QLatin1String MotionLawKey("MotionLaw");
const QLatin1String CyclicKey("Cyclic");
const QLatin1String MotionPointsKey("MotionPoints");
const QLatin1String StepsKey("Steps");
const QLatin1String CircularLengthKey("CircularLength");

const char SummaryTemplate[] =
    "<html><head/><body><p>Kurvendefinitionsdaten:</p><p>\tBewegungsgesetz: %MotionLaw%</p>"
    "<p>\tBewegungspunkte: %SumMotionPoints%</p><p><br/></p></body></html>";

} // namespace

bool CamDescriptionImplementation::differs(const CamDescription *other) const
{
    const bool otherEmpty = other == nullptr || other->isEmpty();
    if (isEmpty() && otherEmpty)
        return false;
    if (isEmpty() != otherEmpty)
        return true;
    return !JsonDifference::compare(toJson(), other->toJson()).isEmpty();
}

void CamDescriptionImplementation::loadWithUndo(const QJsonObject &data, QString name)
{
    if (!m_undoStack)
        return;
    m_undoStack->push(new LoadNewMotionPlanCommand(this, data, name));
}

void CamDescriptionImplementation::fromJson(const QJsonObject &data)
{
    beginBulkChange();
    m_motionLaw.setFromData(data.value(MotionLawKey));
    setCyclic(data.value(CyclicKey).toBool(false));

    const QJsonArray points = data.value(MotionPointsKey).toArray();
    emit pointsAboutToBeReset();
    m_resetting = true;
    while (!m_motionPoints.isEmpty()) {
        MotionPoint *point = m_motionPoints.first();
        m_motionPoints.erase(m_motionPoints.begin());
        m_rowsValid = false;
        point->setParent(nullptr);
        point->setCamDescription(nullptr);
        emit changed();
        delete point;
    }
    for (const QJsonValue &element : points) {
        const QJsonArray values = element.toArray();
        double master = values.at(0).toDouble(0.0);
        // Binary JSON can carry a NaN, which text JSON cannot. A NaN key has no
        // place in the ordered map (it would silently take another point's
        // entry), so it is read like any other value that is not a number.
        if (std::isnan(master))
            master = 0.0;
        auto *point = new MotionPoint(master, values.at(1).toDouble(0.0),
                                      values.at(2).toString(QStringLiteral("rest")));
        point->setSectionFromData(values.at(3));
        connectPoint(point);
        // A later element at the same master position takes the entry; the
        // earlier point is of no further use.
        delete m_motionPoints.value(point->master(), nullptr);
        m_motionPoints.insert(point->master(), point);
        m_rowsValid = false;
    }
    rebuildMap(nullptr);
    m_resetting = false;
    emit pointsReset();

    m_steps.fromJson(data.value(StepsKey).toObject());
    setCircularLength(data.value(CircularLengthKey).toDouble(DefaultCircularLength));
    emit changed();
    endBulkChange();
}

QJsonObject CamDescriptionImplementation::toJson() const
{
    QJsonArray points;
    for (const MotionPoint *point : m_motionPoints) {
        QJsonArray values { point->master(), point->slave(), point->typeDataName() };
        // Only a section that differs from the defaults gets the fourth
        // element, so that data without section laws stays as it was.
        const QJsonObject section = point->sectionData();
        if (!section.isEmpty())
            values.append(section);
        points.append(values);
    }

    QJsonObject object;
    object.insert(CircularLengthKey, m_circularLength);
    object.insert(CyclicKey, m_cyclic);
    object.insert(MotionLawKey, m_motionLaw.dataName());
    object.insert(MotionPointsKey, points);
    object.insert(StepsKey, m_steps.toJson());
    return object;
}

QString CamDescriptionImplementation::summaryHtml() const
{
    if (m_motionPoints.isEmpty())
        return QString();
    QString summary = QString::fromUtf8(SummaryTemplate);
    summary.replace(QLatin1String("%MotionLaw%"), MotionLaw::displayName(m_motionLaw.law()));
    summary.replace(QLatin1String("%SumMotionPoints%"), QString::number(m_motionPoints.size()));
    return summary;
}

bool CamDescriptionImplementation::saveToFile(const QString &path, QString *errorString) const
{
    return CamDataFile::save(toJson(), path, errorString);
}

bool CamDescriptionImplementation::loadFromFile(const QString &path, QString *message)
{
    CamDataFile::ReadStatus status = CamDataFile::ReadStatus::Loaded;
    QString reason;
    const QJsonObject data = CamDataFile::read(path, &status, &reason);
    if (status == CamDataFile::ReadStatus::Unreadable) {
        qWarning("Couldn't open save file.");
        return false;
    }
    // A damaged file the user chose must not replace the cam with defaults:
    // nothing is loaded and nothing goes onto the undo stack.
    if (status == CamDataFile::ReadStatus::Invalid) {
        if (message)
            *message = CamDataFile::damagedFileMessage(path, reason);
        return false;
    }
    loadWithUndo(data, QFileInfo(path).fileName());
    return true;
}

QString CamDescriptionImplementation::wrongMember(const QJsonObject &data, QJsonValue::Type *expected)
{
    const std::pair<QLatin1String, QJsonValue::Type> members[] = { { MotionLawKey, QJsonValue::String },
                                                                   { CyclicKey, QJsonValue::Bool },
                                                                   { MotionPointsKey, QJsonValue::Array },
                                                                   { StepsKey, QJsonValue::Object },
                                                                   { CircularLengthKey, QJsonValue::Double } };
    for (const auto &[key, type] : members) {
        const QJsonValue value = data.value(key);
        if (!value.isUndefined() && value.type() != type) {
            *expected = type;
            return key;
        }
    }
    // Master, slave and segment type; a point may leave out trailing values.
    const QJsonValue::Type pointTypes[] = { QJsonValue::Double, QJsonValue::Double, QJsonValue::String };
    const QJsonArray points = data.value(MotionPointsKey).toArray();
    for (int row = 0; row < points.size(); ++row) {
        const QString where = QStringLiteral("%1[%2]").arg(MotionPointsKey).arg(row);
        if (!points.at(row).isArray()) {
            *expected = QJsonValue::Array;
            return where;
        }
        const QJsonArray values = points.at(row).toArray();
        for (int column = 0; column < std::min(values.size(), int(std::size(pointTypes))); ++column) {
            if (values.at(column).type() != pointTypes[column]) {
                *expected = pointTypes[column];
                return QStringLiteral("%1[%2]").arg(where).arg(column);
            }
        }
    }
    const QString step = Steps::wrongMember(data.value(StepsKey).toObject(), expected);
    return step.isEmpty() ? QString() : QStringLiteral("%1.%2").arg(StepsKey, step);
}
