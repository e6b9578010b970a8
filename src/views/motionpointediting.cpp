#include "motionpointediting.h"

#include "positionlineedit.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "commands/addmotionpointcommand.h"
#include "commands/editmotionpointcommand.h"
#include "commands/removemotionpointcommand.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/parametermodel.h"

#include <QUndoStack>

#include <cmath>

namespace {
// The spacing of a point added after a lone point.
constexpr double LonePointSpacing = 1.0;
} // namespace

MotionPointEditing::MotionPointEditing(CamEditorModel *editorModel, ParameterModel *parameterModel,
                                       QUndoStack *undoStack)
    : m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_undoStack(undoStack)
{
}

CamEditorModel *MotionPointEditing::editorModel() const
{
    return m_editorModel;
}

ParameterModel *MotionPointEditing::parameterModel() const
{
    return m_parameterModel;
}

QUndoStack *MotionPointEditing::undoStack() const
{
    return m_undoStack;
}

double MotionPointEditing::round(double value, bool master) const
{
    if (!m_parameterModel)
        return value;
    return master ? m_parameterModel->roundMaster(value) : m_parameterModel->roundSlave(value);
}

bool MotionPointEditing::readMaster(QWidget *parent, const QString &text, double *master) const
{
    double value = 0.0;
    if (!PositionLineEdit::parse(text, m_parameterModel ? m_parameterModel->masterUnit() : QString(), &value)) {
        MessageBox::warning(parent, tr("Ungültige Eingabe"),
                            tr("\"%1\" ist keine gültige Master-Position.").arg(text) + QLatin1Char(' ')
                                + PositionLineEdit::numberHint());
        return false;
    }
    *master = round(value, true);
    return checkMaster(parent, *master);
}

bool MotionPointEditing::readSlave(QWidget *parent, const QString &text, double *slave) const
{
    double value = 0.0;
    if (!PositionLineEdit::parse(text, m_parameterModel ? m_parameterModel->slaveUnit() : QString(), &value)) {
        MessageBox::warning(parent, tr("Ungültige Eingabe"),
                            tr("\"%1\" ist keine gültige Slave-Position.").arg(text) + QLatin1Char(' ')
                                + PositionLineEdit::numberHint());
        return false;
    }
    *slave = round(value, false);
    return checkSlave(parent, *slave);
}

bool MotionPointEditing::checkMaster(QWidget *parent, double master) const
{
    const QString message = m_parameterModel ? m_parameterModel->checkMasterValue(master) : QString();
    if (!message.isEmpty())
        MessageBox::warning(parent, tr("Master-Position außerhalb der Grenzen"), message);
    return message.isEmpty();
}

bool MotionPointEditing::checkSlave(QWidget *parent, double slave) const
{
    const QString message = m_parameterModel ? m_parameterModel->checkSlaveValue(slave) : QString();
    if (!message.isEmpty())
        MessageBox::warning(parent, tr("Slave-Position außerhalb der Grenzen"), message);
    return message.isEmpty();
}

QString MotionPointEditing::masterText(double master) const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const QString text = scaling ? scaling->masterPositionToText(master) : QString::number(master);
    const QString unit = m_parameterModel ? m_parameterModel->masterUnit() : QString();
    return unit.isEmpty() ? text : QStringLiteral("%1 %2").arg(text, unit);
}

bool MotionPointEditing::isBeyondCycle(double master) const
{
    const CamDescriptionImplementation *description = m_editorModel ? m_editorModel->camDescription() : nullptr;
    return description && description->isCyclic() && master >= description->circularLength();
}

QString MotionPointEditing::beyondCycleText(double master) const
{
    return tr("Die Master-Position %1 liegt nicht unterhalb der Umlauflänge %2 der zyklischen Kurvenscheibe.")
        .arg(masterText(master), masterText(m_editorModel->camDescription()->circularLength()));
}

bool MotionPointEditing::checkCycle(QWidget *parent, double master) const
{
    if (!isBeyondCycle(master))
        return true;
    MessageBox::warning(parent, tr("Master-Position außerhalb der Umlauflänge"), beyondCycleText(master));
    return false;
}

bool MotionPointEditing::checkCircularLength(QWidget *parent, double length) const
{
    const int count = m_editorModel ? m_editorModel->motionPointCount() : 0;
    const double last = count > 0 ? m_editorModel->motionPointAt(count - 1)->master() : 0.0;
    if (count == 0 || last < length)
        return true;
    MessageBox::warning(parent, tr("Ungültige Umlauflänge"),
                        tr("Die Umlauflänge %1 muss größer sein als die Master-Position %2 des letzten "
                           "Bewegungspunkts.")
                            .arg(masterText(length), masterText(last)));
    return false;
}

bool MotionPointEditing::edit(QWidget *parent, MotionPoint *point, double master, double slave, int type) const
{
    if (!point || !m_editorModel || !m_undoStack)
        return false;
    // A new position or type keeps the section that starts at the point.
    MotionPoint newValue(master, slave, MotionPoint::movementRules(type));
    newValue.setSectionFrom(*point);
    if (!point->differs(&newValue))
        return false;
    // A point that a file brought in beyond the cycle may still get another
    // slave or type; only a new master must lie inside the cycle.
    if (master != point->master() && !checkCycle(parent, master))
        return false;
    CamDescriptionImplementation *description = m_editorModel->camDescription();
    MotionPoint *other = description->pointAt(master);
    if (other && other != point) {
        // The same box as a refused add: an edit may not replace a point either.
        AddMotionPointCommand::showMasterTaken(parent, master);
        return false;
    }
    m_undoStack->push(new EditMotionPointCommand(description, point, newValue, m_editorModel->scaling()));
    return true;
}

bool MotionPointEditing::add(QWidget *parent, double master, double slave, int type) const
{
    return add(parent, MotionPoint(master, slave, MotionPoint::movementRules(type)));
}

bool MotionPointEditing::add(QWidget *parent, const MotionPoint &point) const
{
    const double master = point.master();
    const double slave = point.slave();
    if (!m_editorModel || !m_undoStack || !checkMaster(parent, master) || !checkSlave(parent, slave)
        || !checkCycle(parent, master))
        return false;
    CamDescriptionImplementation *description = m_editorModel->camDescription();
    // Refused before the push: a push drops the commands that could be
    // redone, also when the command then refuses and is dropped itself.
    if (description->pointAt(master)) {
        AddMotionPointCommand::showMasterTaken(parent, master);
        return false;
    }
    m_undoStack->push(new AddMotionPointCommand(description, new MotionPoint(point)));
    return true;
}

bool MotionPointEditing::remove(MotionPoint *point) const
{
    if (!point || !m_editorModel || !m_undoStack)
        return false;
    m_undoStack->push(new RemoveMotionPointCommand(point, m_editorModel->camDescription()));
    return true;
}

void MotionPointEditing::proposeNewPoint(int row, double *master, double *slave, int *type) const
{
    *master = 0.0;
    *slave = 0.0;
    *type = MotionPoint::rest;
    const int count = m_editorModel ? m_editorModel->motionPointCount() : 0;
    if (count == 0)
        return;
    if (row < 0 || row >= count)
        row = count - 1;
    const MotionPoint *point = m_editorModel->motionPointAt(row);
    *type = point->type();
    *slave = point->slave();
    const CamDescriptionImplementation *description = m_editorModel->camDescription();
    if (row + 1 < count) {
        const MotionPoint *next = m_editorModel->motionPointAt(row + 1);
        *master = (point->master() + next->master()) / 2.0;
        *slave = (point->slave() + next->slave()) / 2.0;
    } else if (description->isCyclic() && description->circularLength() > point->master()) {
        *master = (point->master() + description->circularLength()) / 2.0;
    } else {
        const double spacing = count > 1 ? point->master() - m_editorModel->motionPointAt(row - 1)->master()
                                         : LonePointSpacing;
        *master = point->master() + spacing;
    }
    *master = round(*master, true);
    *slave = round(*slave, false);
}

int MotionPointEditing::typeBefore(double master) const
{
    int type = MotionPoint::rest;
    const int count = m_editorModel ? m_editorModel->motionPointCount() : 0;
    for (int row = 0; row < count; ++row) {
        const MotionPoint *point = m_editorModel->motionPointAt(row);
        if (point->master() >= master)
            break;
        type = point->type();
    }
    return type;
}
