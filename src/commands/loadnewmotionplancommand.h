#pragma once

#include <QCoreApplication>
#include <QJsonObject>
#include <QPointer>
#include <QUndoCommand>

class CamDescriptionImplementation;

// Replaces the whole cam definition data (law, points, cyclic flag, circular
// length, steps); undo loads the data captured when the command was made.
class LoadNewMotionPlanCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(LoadNewMotionPlanCommand)
public:
    LoadNewMotionPlanCommand(CamDescriptionImplementation *camDescription, const QJsonObject &newData,
                             const QString &name, QUndoCommand *parent = nullptr);
    ~LoadNewMotionPlanCommand() override;

    void undo() override;
    void redo() override;

private:
    QPointer<CamDescriptionImplementation> m_camDescription;
    QJsonObject m_newData;
    QJsonObject m_oldData;
};
