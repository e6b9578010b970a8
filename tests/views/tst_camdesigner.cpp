#include "editorfixture.h"

#include "camdesigner/camdesignerbutton.h"
#include "plots/curveplotstack.h"
#include "plots/previewview.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"

#include <QComboBox>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>

#include <qwt_plot_curve.h>

class tst_CamDesigner : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void buttonOpensOneWindowAtATime();
    void destroyedDesignerTakesItsWindowSilently();
    void previewFollowsCamAndTable();
    void importRequestNamesWindowAndDescription();
    void foreignDescriptionLeavesTheEditorWithout();
    void installTranslatorAnswersPerLanguage_data();
    void installTranslatorAnswersPerLanguage();
    void windowsSpeakTheInstalledLanguage();
};

namespace {
// The translator is the application's; whatever a test does, the next one
// starts German again.
struct GermanAtTheEnd {
    ~GermanAtTheEnd() { CamDesigner::installTranslator(QLocale(QLocale::German)); }
};

QStringList menuTitles(QMainWindow *window)
{
    QStringList titles;
    for (QAction *action : window->menuBar()->actions())
        titles << action->text();
    return titles;
}

QStringList menuTexts(QMainWindow *window, const QString &title)
{
    QStringList texts;
    for (QAction *action : window->menuBar()->actions()) {
        if (action->text() == title && action->menu()) {
            for (QAction *item : action->menu()->actions())
                texts << item->text();
        }
    }
    return texts;
}
} // namespace

void tst_CamDesigner::buttonOpensOneWindowAtATime()
{
    EditorFixture editor;
    editor.designer->setWindowTitle(QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    std::unique_ptr<QWidget> widget(CamDesigner::openCamDesignerButton(editor.designer.get()));
    auto *button = qobject_cast<CamDesignerButton *>(widget.get());
    QVERIFY(button);
    const QString summary = button->preview()->toolTipText();
    QVERIFY(summary.contains(QStringLiteral("Bewegungspunkte: 3")));
    QCOMPARE(button->preview()->toolTip(), summary);

    QTest::mouseClick(button, Qt::LeftButton);
    QPointer<CamDesignerViewImplementation> window = editor.implementation()->view();
    QVERIFY(window && window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    QVERIFY(button->isChecked());
    QCOMPARE(button->preview()->toolTip(), QStringLiteral("Kurveneditor ist geöffnet."));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(editor.implementation()->view(), window.data());

    // The host's title follows into the open window.
    editor.designer->setWindowTitle(QStringLiteral("neu"));
    QCOMPARE(window->windowTitle(), QStringLiteral("neu"));
    // Unchecked and reopened by the button: tst_randomuseractions.
    QSignalSpy closed(editor.implementation(), &CamDesignerImplementation::closed);
    window->close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(button->toolTip(), summary);
    QTRY_VERIFY(window.isNull());
}

void tst_CamDesigner::destroyedDesignerTakesItsWindowSilently()
{
    EditorFixture editor;
    QPointer<CamDesignerViewImplementation> window = editor.open();
    QSignalSpy closed(editor.implementation(), &CamDesignerImplementation::closed);
    editor.designer.reset();
    QVERIFY(window.isNull());
    QCOMPARE(closed.count(), 0);
}

// The preview draws the calculated curve over the stored one and follows
// both; the tool tip of createPreview() is the kept placeholder.
void tst_CamDesigner::previewFollowsCamAndTable()
{
    EditorFixture editor;
    std::unique_ptr<QWidget> widget(editor.designer->createPreview());
    auto *preview = qobject_cast<PreviewView *>(widget.get());
    QVERIFY(preview);
    QCOMPARE(preview->toolTip(), QStringLiteral("lalalal"));
    CamEditorModel *model = editor.model();
    QCOMPARE(int(preview->calculatedCurve()->dataSize()), model->motionPlan()->positions().size());

    editor.camDescription()->appendPoint(new MotionPoint(270, 10, MotionPoint::rest));
    QCOMPARE(preview->calculatedCurve()->sample(int(preview->calculatedCurve()->dataSize()) - 1).x(), 270.0);
    // The stored curve after a write: the random user test.
    editor.parameters()->writeGridPoints(model->motionPlan()->positions());
    QVERIFY(preview->toolTipText().contains(QStringLiteral("Anzahl: %1").arg(model->motionPlan()->positions().size())));
}

void tst_CamDesigner::importRequestNamesWindowAndDescription()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    qRegisterMetaType<CamDescription *>();
    QSignalSpy request(editor.designer.get(), &CamDesigner::showImportDescriptionDialogRequest);
    actionNamed(window, QStringLiteral("&Kurvendefinitionsdaten aus Projekt importieren"))->trigger();
    QCOMPARE(request.count(), 1);
    QCOMPARE(request.first().at(0).value<QWidget *>(), window);
    QCOMPARE(request.first().at(1).value<CamDescription *>(), editor.description.get());
}

void tst_CamDesigner::foreignDescriptionLeavesTheEditorWithout()
{
    MxSimulation::SimulatedDrive drive(2);
    std::unique_ptr<CamDesigner> designer(CamDesigner::createCamDesigner(nullptr, 0));
    QObject foreign;
    // Told, not silent: the test fails unless the warning names the object.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^CamDesigner::initialize: QObject is not a cam description")));
    designer->initialize(&drive, 1, &foreign);
    QCOMPARE(static_cast<CamDesignerImplementation *>(designer.get())->editorModel()->camDescription(), nullptr);
    // Not initialised: no button.
    std::unique_ptr<CamDesigner> bare(CamDesigner::createCamDesigner(nullptr, 0));
    QCOMPARE(CamDesigner::openCamDesignerButton(bare.get()), nullptr);
}

void tst_CamDesigner::installTranslatorAnswersPerLanguage_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("installed");
    QTest::newRow("English") << QLocale(QLocale::English) << true;
    QTest::newRow("French, none") << QLocale(QLocale::French) << false;
}

// Whether there is a translation, and that a refused language leaves the
// source texts rather than the translation installed before.
void tst_CamDesigner::installTranslatorAnswersPerLanguage()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, installed);
    GermanAtTheEnd german;
    QVERIFY(CamDesigner::installTranslator(QLocale(QLocale::English)));
    QCOMPARE(CamDesigner::installTranslator(locale), installed);
    const bool english = installed && locale.language() == QLocale::English;
    QCOMPARE(MotionPoint::typeDisplayName(MotionPoint::rest),
             english ? QStringLiteral("Dwell") : QStringLiteral("Rast"));
}

// Spelt out, so that a translation that is no English fails too (that every
// text has one: tst_translations). An open window follows the change (its dock titles and add button: the random
// user test); one opened after it speaks English from the start.
void tst_CamDesigner::windowsSpeakTheInstalledLanguage()
{
    GermanAtTheEnd german;
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    window->setWindowTitle(QStringLiteral("Host title"));
    MotionPlanTreeEditor *tree = window->motionPlanEditor();
    QVERIFY(CamDesigner::installTranslator(QLocale(QLocale::English)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    QCOMPARE(window->windowTitle(), QStringLiteral("Host title"));
    // One text of the plots; every panel's are in the .ts test's complete file.
    QCOMPARE(window->plots()->wholeCurveAction()->text(), QStringLiteral("Show whole curve"));

    EditorFixture later;
    for (QMainWindow *each : { static_cast<QMainWindow *>(window), static_cast<QMainWindow *>(later.open()) }) {
        QCOMPARE(menuTitles(each), QStringList({QStringLiteral("&Cam"), QStringLiteral("&View"), QStringLiteral("&Edit")}));
        const QStringList camMenu = menuTexts(each, QStringLiteral("&Cam"));
        QVERIFY2(camMenu.contains(QStringLiteral("&Export cam definition data")), qPrintable(camMenu.join(", ")));
        QVERIFY(menuTexts(each, QStringLiteral("&View")).contains(QStringLiteral("Grid point parameters")));
    }

    // A named placeholder filled after translation, with the motion laws'
    // own English names.
    QComboBox *law = tree->settingsView()->motionLawBox();
    QCOMPARE(law->itemText(1), QStringLiteral("Cubic spline"));
    law->setFocus();
    QTest::keyClick(law, Qt::Key_Down);
    QCOMPARE(window->undoStack()->text(0), QStringLiteral("Change motion law from Fifth-degree polynomial -> Cubic spline"));

    QVERIFY(CamDesigner::installTranslator(QLocale(QLocale::German)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    QCOMPARE(menuTitles(window), QStringList({QStringLiteral("&Kurve"), QStringLiteral("&Ansicht"), QStringLiteral("&Bearbeiten")}));
    QCOMPARE(window->plots()->wholeCurveAction()->text(), QStringLiteral("Ganze Kurve anzeigen"));
}

QTEST_MAIN(tst_CamDesigner)
#include "tst_camdesigner.moc"
