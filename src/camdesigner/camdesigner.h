#pragma once

#include "mxcamdesigner_export.h"

#include <QObject>

class CamDescription;
class QLocale;
class QWidget;

namespace MxParameterDefinition {
// As the host suite's parameterdefinition.h declares it: the header needs
// nothing else of the suite.
using eLivingSpace = int;
}
namespace MxParameterInstance {
class ParameterContainer;
}

// The editor of one cam table of one drive. The host creates it, initialises
// it with the drive and the cam description, and embeds the button that
// openCamDesignerButton() returns; a click on it opens the editor window.
class MXCAMDESIGNER_EXPORT CamDesigner : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~CamDesigner() override = default;

    // A new designer for a cam table (0 to 15); nothing else is created yet.
    static CamDesigner *createCamDesigner(QObject *parent, unsigned short camTable);
    // A new button with the live preview of the designer's curve, without a
    // parent: the host takes it into a layout. The designer must have been
    // initialised.
    static QWidget *openCamDesignerButton(CamDesigner *designer);
    // Installs the editor's translation for the locale's language into the
    // application, replacing the one installed before; German, the language
    // of the source texts, removes it. Windows opened afterwards use it.
    // False when there is no translation for that language.
    static bool installTranslator(const QLocale &locale);
    // The CRC-32 over the grid point table of a cam table as it is stored in
    // the drive, computed as the editor computes its stamp: a host compares it
    // with the stamp to tell the tables the editor wrote from others.
    static quint32 storedTableCrc(MxParameterInstance::ParameterContainer *container,
                                  MxParameterDefinition::eLivingSpace livingSpace, unsigned short camTable);

    // A preview of the curve for hosts that show it on their own.
    virtual QWidget *createPreview() = 0;
    // container: the drive's parameters; livingSpace: where the editor reads
    // and writes them; camDescription: from CamDescription::createCamDescription.
    virtual void initialize(MxParameterInstance::ParameterContainer *container,
                            MxParameterDefinition::eLivingSpace livingSpace, QObject *camDescription) = 0;
    virtual void setWindowTitle(const QString &title) = 0;

public slots:
    virtual void show() = 0;

signals:
    // The user asks for cam definition data of another drive controller: the
    // host shows its dialog over pMainView and loads the choice into
    // pCamDescription through loadWithUndo().
    void showImportDescriptionDialogRequest(QWidget *pMainView, CamDescription *pCamDescription);
};
