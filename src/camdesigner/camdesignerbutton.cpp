#include "camdesignerbutton.h"

#include "camdesignerimplementation.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/previewview.h"

#include <QHBoxLayout>

namespace {

constexpr int LayoutSpacing = 6;
constexpr int LayoutMargin = 11;

} // namespace

CamDesignerButton::CamDesignerButton(CamDesignerImplementation *designer, QWidget *parent)
    : QPushButton(parent)
    , m_designer(designer)
    , m_preview(new PreviewView(designer->editorModel(), designer->parameterModel(), designer->camTable()))
{
    setObjectName(QStringLiteral("camDesignerButton"));
    setCheckable(true);
    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(LayoutSpacing);
    layout->setContentsMargins(LayoutMargin, LayoutMargin, LayoutMargin, LayoutMargin);
    layout->addWidget(m_preview);
    setSizePolicy(m_preview->sizePolicy());
    setToolTipEverywhere(m_preview->toolTipText());

    connect(this, &QPushButton::clicked, designer, &CamDesignerImplementation::show);
    connect(this, &QPushButton::clicked, this, &CamDesignerButton::setIsOpenView);
    connect(designer, &CamDesignerImplementation::closed, this, &CamDesignerButton::onDesignerClosed);
    // While the editor is closed the tool tip tells what the cam and the
    // table hold now, also after a host's import.
    connect(m_preview, &PreviewView::refreshed, this, [this] {
        if (!m_preview->isEditorOpen())
            setToolTipEverywhere(m_preview->toolTipText());
    });
}

CamDesignerButton::~CamDesignerButton() = default;

void CamDesignerButton::onDesignerClosed()
{
    setChecked(false);
    m_preview->setEditorOpen(false);
    m_preview->refresh();
    setToolTipEverywhere(m_preview->toolTipText());
}

void CamDesignerButton::setIsOpenView()
{
    setChecked(true);
    m_preview->setEditorOpen(true);
    setToolTipEverywhere(tr("Kurveneditor ist geöffnet."));
}

void CamDesignerButton::setToolTipEverywhere(const QString &text)
{
    setToolTip(text);
    for (QWidget *child : findChildren<QWidget *>())
        child->setToolTip(text);
}
