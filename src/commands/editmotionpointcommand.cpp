#include "editmotionpointcommand.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "model/scaling.h"
#include "motionpointlookup.h"

EditMotionPointCommand::EditMotionPointCommand(MotionPoint *motionPoint, const MotionPoint &newValue,
                                               Scaling *scaling, QUndoCommand *parent)
    : EditMotionPointCommand(motionPoint ? motionPoint->camDescription() : nullptr, motionPoint, newValue, scaling,
                             parent)
{
}

EditMotionPointCommand::EditMotionPointCommand(CamDescriptionImplementation *camDescription,
                                               MotionPoint *motionPoint, const MotionPoint &newValue,
                                               Scaling *scaling, QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_camDescription(camDescription)
    , m_motionPoint(motionPoint)
    , m_value(newValue)
    , m_targetMaster(motionPoint ? motionPoint->master() : 0.0)
{
    const auto masterText = [scaling](double position) {
        return scaling ? scaling->masterPositionToText(position) : QString::number(position);
    };
    const auto slaveText = [scaling](double position) {
        return scaling ? scaling->slavePositionToText(position) : QString::number(position);
    };
    // The mixed separators and the stray ")" are the program's own text.
    QString text = tr("Ändere Bewegungspunkt [%MasterPosOld%;%SlavePosOld%,%MotionRuleOld%]) -> "
                      "[%MasterPosNew%;%SlavePosNew%;%MotionRuleNew%]");
    if (motionPoint) {
        text.replace(QLatin1String("%MasterPosOld%"), masterText(motionPoint->master()));
        text.replace(QLatin1String("%SlavePosOld%"), slaveText(motionPoint->slave()));
        text.replace(QLatin1String("%MotionRuleOld%"), MotionPoint::typeDisplayName(motionPoint->type()));
    }
    text.replace(QLatin1String("%MasterPosNew%"), masterText(m_value.master()));
    text.replace(QLatin1String("%SlavePosNew%"), slaveText(m_value.slave()));
    text.replace(QLatin1String("%MotionRuleNew%"), MotionPoint::typeDisplayName(m_value.type()));
    setText(text);
}

EditMotionPointCommand::~EditMotionPointCommand()
{
    if (m_holdsDisplaced)
        delete m_displaced.data();
}

void EditMotionPointCommand::undo()
{
    exchange();
}

void EditMotionPointCommand::redo()
{
    exchange();
}

MotionPoint *EditMotionPointCommand::target() const
{
    if (!m_camDescription)
        return m_motionPoint;
    return MotionPointLookup::find(m_camDescription, m_motionPoint, m_targetMaster);
}

void EditMotionPointCommand::exchange()
{
    MotionPoint *point = target();
    if (!point)
        return;
    m_motionPoint = point;

    const MotionPoint copy(m_value);
    m_value = *point;

    // A move onto another point's exact master position would push that
    // point out of the map for good; it is set aside here and given back
    // by the exchange that moves the target away again.
    bool setAsideNow = false;
    if (m_camDescription && !m_holdsDisplaced && !point->isEqual(copy)) {
        MotionPoint *other = m_camDescription->pointAt(copy.master());
        if (other && other != point) {
            m_displaced = m_camDescription->takePoint(other);
            m_holdsDisplaced = setAsideNow = !m_displaced.isNull();
        }
    }
    point->setFrom(copy);
    m_targetMaster = point->master();
    if (m_holdsDisplaced && !setAsideNow) {
        if (m_displaced)
            m_camDescription->appendPoint(m_displaced);
        m_holdsDisplaced = false;
    }
}
