#include "motionpointpaste.h"

#include "motionpointediting.h"
#include "motionpointtextparser.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "commands/addmotionpointcommand.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "parameters/parametermodel.h"

#include <QSet>
#include <QStringList>
#include <QUndoStack>

#include <memory>

int MotionPointPaste::paste(QWidget *parent, const MotionPointEditing &editing, const QString &text)
{
    CamEditorModel *model = editing.editorModel();
    const ParameterModel *drive = editing.parameterModel();
    QUndoStack *stack = editing.undoStack();
    if (!model || !stack)
        return 0;
    const MotionPointTextParser parser(text);
    if (parser.rows().isEmpty()) {
        MessageBox::warning(parent, tr("Einfügen nicht möglich"),
                            tr("Der Text enthält keine Bewegungspunkte. Erwartet wird je Zeile eine Master- und "
                               "eine Slave-Position, getrennt durch Tabulator oder Semikolon, optional der "
                               "Segmenttyp."));
        return 0;
    }
    CamDescriptionImplementation *description = model->camDescription();
    auto command = std::make_unique<QUndoCommand>();
    QSet<double> masters;
    int taken = 0;
    int outside = 0;
    int beyondCycle = 0;
    int added = 0;
    for (const MotionPointTextParser::Row &row : parser.rows()) {
        // Rounded as a typed position is, so that the point holds what the table shows.
        const double master = drive ? drive->roundMaster(row.master) : row.master;
        const double slave = drive ? drive->roundSlave(row.slave) : row.slave;
        if (description->pointAt(master) || masters.contains(master)) {
            ++taken;
            continue;
        }
        if (drive && (!drive->checkMasterValue(master).isEmpty() || !drive->checkSlaveValue(slave).isEmpty())) {
            ++outside;
            continue;
        }
        if (editing.isBeyondCycle(master)) {
            ++beyondCycle;
            continue;
        }
        masters.insert(master);
        const int type = row.type == MotionPointTextParser::NoType ? editing.typeBefore(master) : row.type;
        auto *point = new MotionPoint(master, slave, MotionPoint::movementRules(type));
        point->setSectionLaw(row.sectionLaw);
        point->setInflection(row.inflection);
        if (row.hasVelocity)
            point->setVelocity(row.velocity);
        new AddMotionPointCommand(description, point, command.get());
        ++added;
    }
    if (added > 0) {
        command->setText(tr("Füge %1 Bewegungspunkte ein").arg(added));
        stack->push(command.release());
    }
    const int refused = taken + outside + beyondCycle + parser.invalidLineCount();
    if (refused > 0) {
        QStringList reasons;
        if (taken > 0)
            reasons.append(tr("%1 auf einer schon belegten Master-Position").arg(taken));
        if (outside > 0)
            reasons.append(tr("%1 außerhalb der Grenzen des Antriebsreglers").arg(outside));
        if (beyondCycle > 0)
            reasons.append(tr("%1 nicht unterhalb der Umlauflänge").arg(beyondCycle));
        if (parser.invalidLineCount() > 0)
            reasons.append(tr("%1 nicht lesbar").arg(parser.invalidLineCount()));
        MessageBox::warning(parent, tr("Nicht alle Bewegungspunkte eingefügt"),
                            tr("%1 von %2 Zeilen wurden nicht eingefügt: %3.")
                                .arg(refused)
                                .arg(refused + added)
                                .arg(reasons.join(QStringLiteral(", "))));
    }
    return added;
}
