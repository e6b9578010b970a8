#pragma once

#include "camdesigner.h"

#include <QPointer>
#include <QString>

class CamDescriptionImplementation;
class CamDesignerViewImplementation;
class CamEditorModel;
class ParameterModelImplementation;

// The designer behind the exported interface: it owns the drive parameter
// model and the editor model, and the one editor window while it is open.
class CamDesignerImplementation : public CamDesigner
{
    Q_OBJECT
public:
    CamDesignerImplementation(QObject *parent, unsigned short camTable);
    ~CamDesignerImplementation() override;

    QWidget *createPreview() override;
    void initialize(MxParameterInstance::ParameterContainer *container, MxParameterDefinition::eLivingSpace livingSpace,
                    QObject *camDescription) override;
    void setWindowTitle(const QString &title) override;

    unsigned short camTable() const { return m_camTable; }
    ParameterModelImplementation *parameterModel() const { return m_parameterModel; }
    CamEditorModel *editorModel() const { return m_editorModel; }
    CamDescriptionImplementation *camDescription() const;
    // The editor window, null while none is open.
    CamDesignerViewImplementation *view() const;
    MxParameterInstance::ParameterContainer *container() const { return m_container; }

public slots:
    void show() override;
    void onClosed();
    void onShowImportDescriptionDialogRequest();

signals:
    void closed();

private:
    unsigned short m_camTable;
    QPointer<CamDesignerViewImplementation> m_view;
    ParameterModelImplementation *m_parameterModel = nullptr;
    QString m_windowTitle;
    CamEditorModel *m_editorModel = nullptr;
    MxParameterInstance::ParameterContainer *m_container = nullptr;
};
