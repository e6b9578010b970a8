#include <bytearraysupport.h>
#include <camdesigner/camdescription.h>
#include <camdesigner/camdesigner.h>
#include <simulateddrive.h>

#include <QAbstractButton>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QMainWindow>
#include <QMenuBar>

#include <memory>

namespace {

const QString Title = QStringLiteral("Kurvenscheibe 5 - Testantrieb");

int editorWindows()
{
    int count = 0;
    for (QWidget *widget : QApplication::topLevelWidgets())
        count += qobject_cast<QMainWindow *>(widget) && widget->isVisible() && widget->windowTitle() == Title ? 1 : 0;
    return count;
}

// The first menu of the open editor, in whatever language it speaks.
QString firstMenuTitle()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *window = qobject_cast<QMainWindow *>(widget);
        if (window && window->windowTitle() == Title && !window->menuBar()->actions().isEmpty())
            return window->menuBar()->actions().first()->text();
    }
    return QString();
}

} // namespace

// A host as the suite is one: the description from the bytes its project
// keeps, a designer for table 5 on its drive, the button on its page; a
// click opens the editor, a second click opens no second one. The host
// speaks English, and so does the editor.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (VxByteArraySupport::ByteArraySupport("123456789", false).crc32() != 0xCBF43926u)
        return 1;

    const QJsonObject cam { { "MotionPoints", QJsonArray { QJsonArray { 0, 0, "rest" }, QJsonArray { 90, 30, "rest" } } } };
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const QByteArray bytes = QJsonDocument(cam).toBinaryData();
    QT_WARNING_POP
    MxSimulation::SimulatedDrive drive(2);
    std::unique_ptr<CamDescription> description(CamDescription::createCamDescription(nullptr, bytes));
    std::unique_ptr<CamDesigner> designer(CamDesigner::createCamDesigner(nullptr, 5));
    if (!description || !designer || description->toJson() .value(QStringLiteral("MotionPoints")).toArray().size() != 2)
        return 2;
    designer->initialize(&drive, 1, description.get());
    std::unique_ptr<QWidget> button(CamDesigner::openCamDesignerButton(designer.get()));
    auto *clickable = qobject_cast<QAbstractButton *>(button.get());
    if (!clickable)
        return 3;
    designer->setWindowTitle(Title);
    if (!CamDesigner::installTranslator(QLocale(QLocale::English)))
        return 7;
    button->show();
    clickable->click();
    if (editorWindows() != 1)
        return 4;
    if (firstMenuTitle() != QStringLiteral("&Cam"))
        return 8;
    clickable->click();
    if (editorWindows() != 1)
        return 5;
    designer.reset();
    return editorWindows() == 0 ? 0 : 6;
}
