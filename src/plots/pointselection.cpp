#include "pointselection.h"

#include "model/cameditormodel.h"
#include "model/motionpoint.h"

namespace {
const char ObjectName[] = "pointSelection";
}

PointSelection::PointSelection(QObject *parent)
    : QObject(parent)
{
    setObjectName(QLatin1String(ObjectName));
}

PointSelection *PointSelection::of(CamEditorModel *editorModel)
{
    if (!editorModel)
        return nullptr;
    // Kept with the model, as the table and the plots of one editor each
    // know the model but not one another.
    auto *selection = editorModel->findChild<PointSelection *>(QLatin1String(ObjectName), Qt::FindDirectChildrenOnly);
    return selection ? selection : new PointSelection(editorModel);
}

void PointSelection::setCurrent(MotionPoint *point)
{
    if (m_current == point)
        return;
    m_current = point;
    emit currentChanged();
}
