#include "editorfixture.h"

#include "camdesigner/camdesignerbutton.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/previewview.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <qwt_plot_curve.h>

class tst_CamDesigner : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void buttonOpensOneWindowAtATime();
    void destroyedDesignerTakesItsWindowSilently();
    void previewFollowsCamAndTable();
    void importRequestNamesWindowAndDescription();
    void foreignDescriptionLeavesTheEditorWithout();
};

void tst_CamDesigner::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void tst_CamDesigner::buttonOpensOneWindowAtATime()
{
    EditorFixture editor;
    editor.designer->setWindowTitle(QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    std::unique_ptr<QWidget> widget(CamDesigner::openCamDesignerButton(editor.designer.get()));
    auto *button = qobject_cast<CamDesignerButton *>(widget.get());
    QVERIFY(button);
    QCOMPARE(button->parent(), nullptr);
    const QString summary = button->preview()->toolTipText();
    QVERIFY(summary.contains(QStringLiteral("Bewegungspunkte: 3")));
    QCOMPARE(button->toolTip(), summary);
    QCOMPARE(button->preview()->toolTip(), summary);

    QTest::mouseClick(button, Qt::LeftButton);
    QPointer<CamDesignerViewImplementation> window = editor.implementation()->view();
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    QVERIFY(button->isChecked());
    QCOMPARE(button->preview()->toolTip(), QStringLiteral("Kurveneditor ist geöffnet."));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(editor.implementation()->view(), window.data());
    QVERIFY(button->isChecked());
    int windows = 0;
    for (QWidget *widget : QApplication::topLevelWidgets())
        windows += qobject_cast<CamDesignerViewImplementation *>(widget) ? 1 : 0;
    QCOMPARE(windows, 1);

    QSignalSpy closed(editor.implementation(), &CamDesignerImplementation::closed);
    window->close();
    QCOMPARE(closed.count(), 1);
    QVERIFY(!button->isChecked());
    QCOMPARE(button->toolTip(), summary);
    QTRY_VERIFY(window.isNull());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(editor.implementation()->view());
    QCOMPARE(editor.implementation()->view()->windowTitle(), QStringLiteral("Kurvenscheibe 5 – Antrieb A"));
    editor.designer->setWindowTitle(QStringLiteral("neu"));
    QCOMPARE(editor.implementation()->view()->windowTitle(), QStringLiteral("neu"));
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
    CamEditorModel *model = editor.implementation()->editorModel();
    QCOMPARE(int(preview->calculatedCurve()->dataSize()), model->motionPlan()->positions().size());
    QCOMPARE(int(preview->storedCurve()->dataSize()), 0);

    editor.camDescription()->appendPoint(new MotionPoint(270, 10, MotionPoint::rest));
    QCOMPARE(preview->calculatedCurve()->sample(int(preview->calculatedCurve()->dataSize()) - 1).x(), 270.0);
    editor.implementation()->parameterModel()->writeGridPoints(model->motionPlan()->positions());
    QCOMPARE(int(preview->storedCurve()->dataSize()), model->motionPlan()->positions().size());
    QVERIFY(preview->toolTipText().contains(QStringLiteral("Anzahl: %1").arg(preview->storedCurve()->dataSize())));
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
    designer->initialize(&drive, 1, &foreign);
    QCOMPARE(static_cast<CamDesignerImplementation *>(designer.get())->editorModel()->camDescription(), nullptr);
    // Not initialised: no button.
    std::unique_ptr<CamDesigner> bare(CamDesigner::createCamDesigner(nullptr, 0));
    QCOMPARE(CamDesigner::openCamDesignerButton(bare.get()), nullptr);
}

QTEST_MAIN(tst_CamDesigner)
#include "tst_camdesigner.moc"
