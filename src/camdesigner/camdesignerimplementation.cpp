#include "camdesignerimplementation.h"

#include "camdesignerbutton.h"
#include "camdescriptionimplementation.h"
#include "model/cameditormodel.h"
#include "model/scalingimplementation.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/previewview.h"
#include "resources/camdesignerresources.h"
#include "views/camdesignerviewimplementation.h"

#include <parameterinstance.h>

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

CamDesigner *CamDesigner::createCamDesigner(QObject *parent, unsigned short camTable)
{
    try {
        return new CamDesignerImplementation(parent, camTable);
    } catch (...) {
        return nullptr;
    }
}

QWidget *CamDesigner::openCamDesignerButton(CamDesigner *designer)
{
    auto *implementation = qobject_cast<CamDesignerImplementation *>(designer);
    if (!implementation || !implementation->editorModel())
        return nullptr;
    try {
        return new CamDesignerButton(implementation);
    } catch (...) {
        return nullptr;
    }
}

bool CamDesigner::installTranslator(const QLocale &locale)
{
    // One translator for the whole library, kept for the process's lifetime
    // so that a later call can take it out again.
    static QTranslator *translator = nullptr;
    if (translator) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
        translator = nullptr;
    }
    if (locale.language() == QLocale::German)
        return true;
    try {
        // A static build has not registered the compiled translations yet.
        initializeCamDesignerResources();
        auto candidate = std::make_unique<QTranslator>();
        if (!candidate->load(locale, QStringLiteral("mxcamdesigner"), QStringLiteral("_"),
                             QStringLiteral(":/translations")))
            return false;
        translator = candidate.release();
        QCoreApplication::installTranslator(translator);
        return true;
    } catch (...) {
        return false;
    }
}

quint32 CamDesigner::storedTableCrc(MxParameterInstance::ParameterContainer *container,
                                    MxParameterDefinition::eLivingSpace livingSpace, unsigned short camTable)
{
    try {
        return ParameterModelImplementation::storedTableCrc(container, livingSpace, camTable);
    } catch (...) {
        // No exception crosses into the host; a failed computation gives 0.
        return 0;
    }
}

CamDesignerImplementation::CamDesignerImplementation(QObject *parent, unsigned short camTable)
    : CamDesigner(parent)
    , m_camTable(camTable)
{
}

CamDesignerImplementation::~CamDesignerImplementation()
{
    // Destroying the designer closes nothing visibly: the window goes
    // without closed().
    if (m_view) {
        disconnect(m_view, nullptr, this, nullptr);
        delete m_view.data();
    }
}

QWidget *CamDesignerImplementation::createPreview()
{
    if (!m_editorModel)
        return nullptr;
    auto *preview = new PreviewView(m_editorModel, m_parameterModel, m_camTable);
    // A placeholder text, kept as it is.
    preview->setToolTip(QStringLiteral("lalalal"));
    return preview;
}

void CamDesignerImplementation::initialize(MxParameterInstance::ParameterContainer *container,
                                           MxParameterDefinition::eLivingSpace livingSpace, QObject *camDescription)
{
    m_container = container;
    m_parameterModel = new ParameterModelImplementation(this, container, m_camTable, livingSpace);
    auto *description = qobject_cast<CamDescriptionImplementation *>(camDescription);
    // The design keeps the parameter a plain QObject; a host that hands over
    // something else gets an editor without a description, and is told so.
    if (!description) {
        qWarning("CamDesigner::initialize: %s is not a cam description from "
                 "CamDescription::createCamDescription(); the editor has no description",
                 camDescription ? camDescription->metaObject()->className() : "a null pointer");
    }
    m_editorModel = new CamEditorModel(this, m_parameterModel, description);
    // Velocities in revolutions per minute need the axis' feed and gear.
    if (auto *scaling = qobject_cast<ScalingImplementation *>(m_editorModel->scaling()))
        scaling->setDrive(container, livingSpace);
}

CamDescriptionImplementation *CamDesignerImplementation::camDescription() const
{
    return m_editorModel ? m_editorModel->camDescription() : nullptr;
}

CamDesignerViewImplementation *CamDesignerImplementation::view() const
{
    return m_view;
}

void CamDesignerImplementation::setWindowTitle(const QString &title)
{
    m_windowTitle = title;
    if (m_view)
        m_view->setWindowTitle(title);
}

void CamDesignerImplementation::show()
{
    if (!m_editorModel)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_parameterModel->editorOpened();
    if (!m_view) {
        m_view = new CamDesignerViewImplementation(m_parameterModel, m_editorModel, m_container);
        connect(m_view, &CamDesignerViewImplementation::showImportDescriptionDialogRequest, this,
                &CamDesignerImplementation::onShowImportDescriptionDialogRequest);
        connect(m_view, &CamDesignerViewImplementation::closed, this, &CamDesignerImplementation::onClosed);
        m_view->setWindowTitle(m_windowTitle);
    }
    m_view->show();
    m_view->raise();
    m_view->activateWindow();
    QApplication::restoreOverrideCursor();
}

void CamDesignerImplementation::onClosed()
{
    m_parameterModel->editorClosed();
    emit closed();
}

void CamDesignerImplementation::onShowImportDescriptionDialogRequest()
{
    emit showImportDescriptionDialogRequest(m_view, camDescription());
}
