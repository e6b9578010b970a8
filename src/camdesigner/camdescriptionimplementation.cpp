#include "camdescriptionimplementation.h"

#include "camdatafile.h"
#include "model/motionlaw.h"

#include <QJsonValue>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

QString CamDescription::motionLawDisplayName(const QString &dataName)
{
    MotionLaw law;
    law.setFromData(QJsonValue(dataName));
    return MotionLaw::displayName(law.law());
}

CamDescription *CamDescription::createCamDescription(QObject *parent, const QByteArray &data)
{
    try {
        return new CamDescriptionImplementation(parent, data);
    } catch (...) {
        return nullptr;
    }
}

CamDescriptionImplementation::CamDescriptionImplementation(QObject *parent, const QByteArray &data)
    : CamDescription(parent)
{
    fromJson(CamDataFile::parseBinary(data));

    // Connected only after the first load on purpose: a fresh description is
    // not modified, and the points it was created with keep typeApplies true
    // whatever the law, until the law changes for the first time.
    connect(&m_motionLaw, &MotionLaw::motionLawChanged, this, &CamDescriptionImplementation::motionLawChanged);
    connect(&m_motionLaw, &MotionLaw::motionLawChanged, this, &CamDescriptionImplementation::onMotionLawChanged);
    connect(&m_steps, &Steps::dynamicStepResolutionChanged, this, &CamDescription::changed);
    connect(&m_steps, &Steps::isDynamicStepSizeChanged, this, &CamDescription::changed);
    connect(&m_steps, &Steps::staticStepSizeChanged, this, &CamDescription::changed);
    connect(this, &CamDescription::changed, this, [this] { m_modified = true; });
}

CamDescriptionImplementation::~CamDescriptionImplementation()
{
    // Points from a load have no parent; appended ones are children. Both go.
    const QList<MotionPoint *> points = m_motionPoints.values();
    m_motionPoints.clear();
    qDeleteAll(points);
}

void CamDescriptionImplementation::setCyclic(bool cyclic)
{
    if (cyclic == m_cyclic)
        return;
    m_cyclic = cyclic;
    emit changed();
}

void CamDescriptionImplementation::setCircularLength(double circularLength)
{
    // An unordered comparison (NaN) counts as a change.
    if (circularLength == m_circularLength)
        return;
    m_circularLength = circularLength;
    emit changed();
}

QUndoStack *CamDescriptionImplementation::undoStack() const
{
    return m_undoStack;
}

void CamDescriptionImplementation::setUndoStack(QUndoStack *undoStack)
{
    m_undoStack = undoStack;
}

MotionPoint *CamDescriptionImplementation::takePoint(MotionPoint *point)
{
    if (!point)
        return nullptr;
    const auto entry = m_motionPoints.constFind(point->master());
    if (entry == m_motionPoints.cend())
        return nullptr;
    const int row = int(std::distance(m_motionPoints.cbegin(), entry));
    if (!m_resetting)
        emit pointsAboutToBeRemoved(row, row);
    MotionPoint *removed = m_motionPoints.take(point->master());
    m_rowsValid = false;
    removed->setParent(nullptr);
    removed->setCamDescription(nullptr);
    if (!m_resetting)
        emit pointsRemoved(row, row);
    emit changed();
    return removed;
}

MotionPoint *CamDescriptionImplementation::pointAtRow(int row) const
{
    const QVector<MotionPoint *> &points = rows();
    return row >= 0 && row < points.size() ? points.at(row) : nullptr;
}

int CamDescriptionImplementation::rowOf(const MotionPoint *point) const
{
    if (!point || point->camDescription() != this)
        return -1;
    const QVector<MotionPoint *> &points = rows();
    const auto found = std::lower_bound(points.cbegin(), points.cend(), point->master(),
                                        [](const MotionPoint *p, double master) { return p->master() < master; });
    if (found != points.cend() && *found == point)
        return int(found - points.cbegin());
    // Only while a moved point waits for its new place is the order off.
    return points.indexOf(const_cast<MotionPoint *>(point));
}

void CamDescriptionImplementation::beginBulkChange()
{
    if (m_bulkChangeDepth++ == 0)
        emit bulkChangeStarted();
}

void CamDescriptionImplementation::endBulkChange()
{
    if (m_bulkChangeDepth > 0 && --m_bulkChangeDepth == 0)
        emit bulkChangeFinished();
}

void CamDescriptionImplementation::attachNewPoint(int x, int y, MotionPoint::movementRules rule)
{
    auto *point = new MotionPoint(static_cast<double>(x), static_cast<double>(y), rule);
    appendPoint(point);
    if (point->parent() != this)
        delete point;
}

void CamDescriptionImplementation::appendPoint(MotionPoint *point)
{
    if (!point)
        return;
    MotionPoint *existing = m_motionPoints.value(point->master(), nullptr);
    if (existing == point)
        return;
    if (existing && existing->isEqual(*point))
        return;
    connectPoint(point);
    point->setParent(this);
    const int row = int(std::distance(m_motionPoints.begin(), m_motionPoints.lowerBound(point->master())));
    if (!existing && !m_resetting)
        emit pointsAboutToBeInserted(row, row);
    m_motionPoints.insert(point->master(), point);
    m_rowsValid = false;
    if (existing)
        releaseDroppedPoint(existing);
    if (!m_resetting) {
        if (existing)
            emit pointsChanged(row, row);
        else
            emit pointsInserted(row, row);
    }
    emit changed();
}

void CamDescriptionImplementation::onMotionPointChanged()
{
    rebuildMap(qobject_cast<MotionPoint *>(sender()));
}

void CamDescriptionImplementation::rebuildMap(MotionPoint *changedPoint)
{
    const QVector<MotionPoint *> before = rows();
    QMap<double, MotionPoint *> map;
    for (MotionPoint *point : before)
        map.insert(point->master(), point);
    // The point that moved takes the entry at its new position, whichever
    // order the map held them in before.
    if (changedPoint && changedPoint->camDescription() == this)
        map.insert(changedPoint->master(), changedPoint);
    else
        changedPoint = nullptr;
    const QVector<MotionPoint *> after = map.values().toVector();

    announceRows(before, after, changedPoint, false);
    m_motionPoints.swap(map);
    m_rowsValid = false;
    for (MotionPoint *point : before) {
        if (m_motionPoints.value(point->master(), nullptr) != point)
            releaseDroppedPoint(point);
    }
    announceRows(before, after, changedPoint, true);
    emit motionPointChanged();
}

void CamDescriptionImplementation::announceRows(const QVector<MotionPoint *> &before,
                                                const QVector<MotionPoint *> &after,
                                                const MotionPoint *changedPoint, bool done)
{
    if (m_resetting)
        return;
    if (before == after) {
        const int row = changedPoint ? after.indexOf(const_cast<MotionPoint *>(changedPoint)) : -1;
        if (done && row >= 0)
            emit pointsChanged(row, row);
        else if (done && !changedPoint && !after.isEmpty())
            emit pointsChanged(0, after.size() - 1);
        return;
    }
    // One point passed its neighbours: the others keep their order.
    if (changedPoint && before.size() == after.size()) {
        const int from = before.indexOf(const_cast<MotionPoint *>(changedPoint));
        const int to = after.indexOf(const_cast<MotionPoint *>(changedPoint));
        QVector<MotionPoint *> others = before;
        QVector<MotionPoint *> othersAfter = after;
        if (from >= 0 && to >= 0) {
            others.remove(from);
            othersAfter.remove(to);
        }
        if (from >= 0 && to >= 0 && others == othersAfter) {
            if (!done) {
                emit pointAboutToBeMoved(from, to);
            } else {
                emit pointMoved(from, to);
                emit pointsChanged(to, to);
            }
            return;
        }
    }
    if (done)
        emit pointsReset();
    else
        emit pointsAboutToBeReset();
}

void CamDescriptionImplementation::onMotionLawChanged()
{
    const bool typesApply = m_motionLaw.law() == MotionLaw::Vdi;
    for (MotionPoint *point : qAsConst(m_motionPoints))
        point->setTypeApplies(typesApply);
    emit changed();
}

void CamDescriptionImplementation::connectPoint(MotionPoint *point)
{
    // Unique: a point that is removed and added again must not notify twice.
    const auto unique = Qt::UniqueConnection;
    connect(point, &MotionPoint::movementRuleChanged, this, &CamDescriptionImplementation::onMotionPointChanged, unique);
    connect(point, &MotionPoint::masterPositionChanged, this, &CamDescriptionImplementation::onMotionPointChanged, unique);
    connect(point, &MotionPoint::moved, this, &CamDescriptionImplementation::onMotionPointChanged, unique);
    connect(point, &MotionPoint::edited, this, &CamDescriptionImplementation::onMotionPointChanged, unique);
    connect(point, &MotionPoint::slavePositionChanged, this, &CamDescription::changed, unique);
    connect(point, &MotionPoint::edited, this, &CamDescription::changed, unique);
    connect(point, &MotionPoint::sectionChanged, this, &CamDescriptionImplementation::onMotionPointChanged, unique);
    connect(point, &MotionPoint::sectionChanged, this, &CamDescription::changed, unique);
    point->setCamDescription(this);
}

void CamDescriptionImplementation::releaseDroppedPoint(MotionPoint *point)
{
    // A point that lost its map entry to another one is no longer part of
    // the data; it stops notifying and is kept only so that nobody is left
    // with a dangling pointer until the description goes.
    disconnect(point, nullptr, this, nullptr);
    point->setCamDescription(nullptr);
    if (!point->parent())
        point->setParent(this);
}

const QVector<MotionPoint *> &CamDescriptionImplementation::rows() const
{
    if (!m_rowsValid) {
        m_rows = m_motionPoints.values().toVector();
        m_rowsValid = true;
    }
    return m_rows;
}
