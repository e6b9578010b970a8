#pragma once

#include "binaryjson.h"
#include "jsontext.h"
#include "messagecapture.h"
#include "simulateddrive.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/camdesigner.h"
#include "camdesigner/camdesignerimplementation.h"
#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "parameters/parametermodelimplementation.h"
#include "views/camdesignerviewimplementation.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QJsonDocument>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// A host's set-up of one cam table: a simulated drive, the description from
// binary JSON bytes, and an initialised designer for table 5, with the
// settings kept in a scratch directory. A window still open at the end is
// closed as the user closes it.
struct EditorFixture {
    static constexpr unsigned short Table = 5;
    static constexpr int LivingSpace = 1;
    static constexpr const char *DefaultCam = R"({"MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})";

    QTemporaryDir settingsDirectory;
    MxSimulation::SimulatedDrive drive { 2 };
    std::unique_ptr<CamDescription> description;
    std::unique_ptr<CamDesigner> designer;

    explicit EditorFixture(const char *cam = DefaultCam)
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsDirectory.path());
        description.reset(CamDescription::createCamDescription(nullptr, binaryJsonOf(parseJson(cam))));
        designer.reset(CamDesigner::createCamDesigner(nullptr, Table));
        designer->initialize(&drive, LivingSpace, description.get());
    }
    ~EditorFixture()
    {
        if (designer && implementation()->view())
            implementation()->view()->close();
    }
    EditorFixture(const EditorFixture &) = delete;
    EditorFixture &operator=(const EditorFixture &) = delete;

    CamDesignerImplementation *implementation() const
    {
        return static_cast<CamDesignerImplementation *>(designer.get());
    }
    CamDescriptionImplementation *camDescription() const
    {
        return static_cast<CamDescriptionImplementation *>(description.get());
    }
    CamEditorModel *model() const { return implementation()->editorModel(); }
    ParameterModelImplementation *parameters() const { return implementation()->parameterModel(); }
    CamDesignerViewImplementation *open()
    {
        designer->show();
        return implementation()->view();
    }
    // The cam definition data, to compare before and after an action.
    QString state() const
    {
        return QString::fromUtf8(QJsonDocument(camDescription()->toJson()).toJson(QJsonDocument::Compact));
    }
};

// An action of a window by its text.
inline QAction *actionNamed(QWidget *window, const QString &text)
{
    for (QAction *action : window->findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

// Typed over the field's text and finished as the user finishes it.
inline void type(QWidget *field, const QString &text, Qt::Key finish = Qt::Key_Return)
{
    field->setFocus();
    if (auto *edit = qobject_cast<QLineEdit *>(field))
        edit->selectAll();
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(field))
        spin->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, finish);
    QCoreApplication::processEvents();  // an item view commits its editor queued
}
