#include "loadnewmotionplancommand.h"

#include "camdesigner/camdescriptionimplementation.h"

LoadNewMotionPlanCommand::LoadNewMotionPlanCommand(CamDescriptionImplementation *camDescription,
                                                   const QJsonObject &newData, const QString &name,
                                                   QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_camDescription(camDescription)
    , m_newData(newData)
    , m_oldData(camDescription ? camDescription->toJson() : QJsonObject())
{
    QString text = tr("Lade Kurvendefinitionsdaten : %newDescriptionName%");
    text.replace(QLatin1String("%newDescriptionName%"), name);
    setText(text);
}

LoadNewMotionPlanCommand::~LoadNewMotionPlanCommand() = default;

void LoadNewMotionPlanCommand::undo()
{
    if (m_camDescription)
        m_camDescription->fromJson(m_oldData);
}

void LoadNewMotionPlanCommand::redo()
{
    if (m_camDescription)
        m_camDescription->fromJson(m_newData);
}
