#pragma once

#include "binaryjson.h"
#include "jsontext.h"
#include "simulateddrive.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/camdesigner.h"
#include "camdesigner/camdesignerimplementation.h"
#include "views/camdesignerviewimplementation.h"

#include <QAction>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

// A host's set-up of one cam table: a simulated drive, the description from
// binary JSON bytes, and an initialised designer for table 5, with the
// settings kept in a scratch directory.
struct EditorFixture {
    static constexpr unsigned short Table = 5;
    static constexpr int LivingSpace = 1;

    QTemporaryDir settingsDirectory;
    MxSimulation::SimulatedDrive drive { 2 };
    std::unique_ptr<CamDescription> description;
    std::unique_ptr<CamDesigner> designer;

    explicit EditorFixture(const char *cam = R"({"MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})")
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsDirectory.path());
        description.reset(CamDescription::createCamDescription(nullptr, binaryJsonOf(parseJson(cam))));
        designer.reset(CamDesigner::createCamDesigner(nullptr, Table));
        designer->initialize(&drive, LivingSpace, description.get());
    }

    CamDesignerImplementation *implementation() const
    {
        return static_cast<CamDesignerImplementation *>(designer.get());
    }
    CamDescriptionImplementation *camDescription() const
    {
        return static_cast<CamDescriptionImplementation *>(description.get());
    }
    CamDesignerViewImplementation *open()
    {
        designer->show();
        return implementation()->view();
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
