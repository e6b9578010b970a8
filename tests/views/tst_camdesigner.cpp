#include "editorfixture.h"

#include "camdesigner/camdesignerbutton.h"
#include "plots/curveplotstack.h"
#include "plots/previewview.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"

#include <QComboBox>
#include <QLocale>
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
    void windowsSpeakTheInstalledLanguage();
};

namespace {
// The translator is the application's; whatever a test does, the next one
// starts German again.
struct GermanAtTheEnd {
    ~GermanAtTheEnd() { CamDesigner::installTranslator(QLocale(QLocale::German)); }
};
} // namespace

void tst_CamDesigner::buttonOpensOneWindowAtATime()
{
    EditorFixture editor;
    editor.designer->setWindowTitle(QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    std::unique_ptr<QWidget> widget(CamDesigner::openCamDesignerButton(editor.designer.get()));
    auto *button = qobject_cast<CamDesignerButton *>(widget.get());
    QVERIFY(button);
    const QString summary = button->preview()->toolTipText();

    QTest::mouseClick(button, Qt::LeftButton);
    QPointer<CamDesignerViewImplementation> window = editor.implementation()->view();
    QVERIFY(window && window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
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

// Spelt out, so that a translation that is no English fails too (that every
// text has one: tst_translations). An open window follows the change (its dock titles and add button: the random
// user test); one opened after it speaks English from the start. A language
// without a translation leaves the source texts, not the one installed before.
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
    EditorFixture later;
    for (QWidget *each : { static_cast<QWidget *>(window), static_cast<QWidget *>(later.open()) }) {
        QVERIFY(actionNamed(each, QStringLiteral("&Edit")));
        QVERIFY(actionNamed(each, QStringLiteral("&Export cam definition data")));
    }

    // A named placeholder filled after translation, with the motion laws'
    // own English names.
    QComboBox *law = tree->settingsView()->motionLawBox();
    law->setFocus();
    QTest::keyClick(law, Qt::Key_Down);
    QCOMPARE(window->undoStack()->text(0), QStringLiteral("Change motion law from Fifth-degree polynomial -> Cubic spline"));

    QVERIFY(!CamDesigner::installTranslator(QLocale(QLocale::French)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    QVERIFY(actionNamed(window, QStringLiteral("&Bearbeiten")));
    QCOMPARE(window->plots()->wholeCurveAction()->text(), QStringLiteral("Ganze Kurve anzeigen"));
}

QTEST_MAIN(tst_CamDesigner)
#include "tst_camdesigner.moc"
