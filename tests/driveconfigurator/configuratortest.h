#pragma once

// Helpers of the drive configurator's tests: the host's window driven
// through its widgets and the editors it opens.
#include "camtablecell.h"
#include "camtablepage.h"
#include "driveconfiguratorwindow.h"
#include "driveproject.h"
#include "importdescriptiondialog.h"

#include "fileanswer.h"
#include "messagecapture.h"
#include "testfiles.h"

#include "camdesigner/camdescription.h"
#include "camdesigner/camdesignerimplementation.h"
#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "simulateddrive.h"
#include "views/camdesignerviewimplementation.h"
#include "views/motionplantreeeditor.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace ConfiguratorTest {

inline const QString ExampleProject = QStringLiteral(MX_EXAMPLES "/example-project.mxdrive");
inline const QString WriteText = QStringLiteral("Schreibt die berechneten Stützstellen in Parameter");
inline const QString DeleteText = QStringLiteral("Entfernt Stützstellen aus Parametern (nur offline)");
inline const QString ImportText = QStringLiteral("&Kurvendefinitionsdaten aus Projekt importieren");

inline QAction *actionNamed(QWidget *window, const QString &text)
{
    for (QAction *action : window->findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

inline QList<CamDesignerViewImplementation *> editorWindows()
{
    QList<CamDesignerViewImplementation *> editors;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *editor = qobject_cast<CamDesignerViewImplementation *>(widget); editor && editor->isVisible())
            editors.append(editor);
    }
    return editors;
}

// A click on the table's button, as the user opens the editor.
inline CamDesignerViewImplementation *openEditor(DriveConfiguratorWindow &window, int table)
{
    QAbstractButton *button = window.page()->cell(table)->button();
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() / 2, button->height() / 2));
    for (CamDesignerViewImplementation *editor : editorWindows()) {
        if (editor->windowTitle() == window.page()->cell(table)->editorTitle())
            return editor;
    }
    return nullptr;
}

} // namespace ConfiguratorTest

// What both test files share: settings in a scratch directory, so that the
// editors' layouts start empty, cleared before each test, and nothing of a
// test left behind.
class ConfiguratorTestCase : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(m_directory.isValid());
        QCoreApplication::setOrganizationName(QStringLiteral("MxTest"));
        QCoreApplication::setApplicationName(QStringLiteral("DriveConfiguratorTest"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_directory.filePath(QStringLiteral("settings")));
    }
    void init() { QSettings().clear(); }
    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

protected:
    // A writable copy of the example project in the directory.
    QString copyOfExample() const
    {
        const QString path = m_directory.filePath(QStringLiteral("beispiel.mxdrive"));
        QFile::remove(path);
        if (!QFile::copy(ConfiguratorTest::ExampleProject, path))
            return QString();
        QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }

    QTemporaryDir m_directory;
};
