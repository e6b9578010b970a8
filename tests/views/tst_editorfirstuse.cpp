#include "editorfixture.h"

#include "model/decimaltext.h"
#include "model/steps.h"
#include "plots/curveplot.h"
#include "plots/curveplotstack.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"
#include "views/windowplacement.h"

#include <qwt_scale_draw.h>

#include <QLabel>
#include <QLocale>
#include <QScreen>
#include <QSpinBox>

namespace {

const char Cam[] = R"({"Cyclic": true, "CircularLength": 360,
    "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 100, "turningPoint"], [270, 40, "acceleration"]]})";

} // namespace

class tst_EditorFirstUse : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void decimalText_data();
    void decimalText();
    void shownNumbersHaveNoGroupSeparators();
    void gridPointCountShowsWhatTheSettingsGive();
    void windowFitsTheScreen_data();
    void windowFitsTheScreen();
};

void tst_EditorFirstUse::decimalText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");
    QTest::newRow("comma") << "45,5" << true << 45.5;
    QTest::newRow("point") << "45.5" << true << 45.5;
    QTest::newRow("blanks") << " -3,25 " << true << -3.25;
    QTest::newRow("three decimals") << "1,000" << true << 1.0;
    QTest::newRow("whole") << "1000" << true << 1000.0;
    QTest::newRow("german grouping") << "1.000,5" << false << 0.0;
    QTest::newRow("english grouping") << "1,000.5" << false << 0.0;
    QTest::newRow("two commas") << "1,000,5" << false << 0.0;
    QTest::newRow("blank grouping") << "1 000" << false << 0.0;
    QTest::newRow("nan") << "nan" << false << 0.0;
    QTest::newRow("infinity") << "inf" << false << 0.0;
    QTest::newRow("empty") << "" << false << 0.0;
}

void tst_EditorFirstUse::decimalText()
{
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(double, value);
    double parsed = 0.0;
    QCOMPARE(DecimalText::parse(text, &parsed), ok);
    QCOMPARE(parsed, value);
}

void tst_EditorFirstUse::shownNumbersHaveNoGroupSeparators()
{
    const QLocale previous;
    for (QLocale::Language language : { QLocale::German, QLocale::English }) {
        QLocale::setDefault(QLocale(language));
        QVERIFY(!DecimalText::toString(1500.0).contains(QLocale().groupSeparator()));
        QCOMPARE(DecimalText::toString(1500.25), QStringLiteral("1500") + QLocale().decimalPoint() + QStringLiteral("25"));
        EditorFixture editor(Cam);
        CamDesignerViewImplementation *window = editor.open();
        const CurvePlot *plot = window->plots()->plot(CurvePlot::Position);
        QCOMPARE(plot->axisScaleDraw(QwtPlot::xBottom)->label(1000.0).text(), QStringLiteral("1000"));
        QCOMPARE(plot->axisScaleDraw(QwtPlot::yLeft)->label(-1500.0).text(), QStringLiteral("-1500"));
    }
    QLocale::setDefault(previous);
}

void tst_EditorFirstUse::gridPointCountShowsWhatTheSettingsGive()
{
    EditorFixture editor(Cam);
    CamDesignerViewImplementation *window = editor.open();
    CamSettingsView *settings = window->motionPlanEditor()->settingsView();
    const CamEditorModel *model = editor.model();
    const auto shown = [settings] { return settings->gridPointCountLabel()->text(); };
    const auto expected = [model] { return QStringLiteral("ergibt %1 Stützstellen").arg(model->motionPlan()->positions().size()); };
    QCOMPARE(shown(), expected());
    // The setting asks for 500; the motion points and the spacing give fewer.
    QVERIFY(model->motionPlan()->positions().size() != settings->resolutionBox()->value());

    type(settings->resolutionBox(), QStringLiteral("100"));
    QCOMPARE(editor.camDescription()->steps()->dynamicStepResolution(), 100);
    QCOMPARE(shown(), expected());
    window->undoStack()->undo();
    QCOMPARE(shown(), expected());
}

void tst_EditorFirstUse::windowFitsTheScreen_data()
{
    QTest::addColumn<QRect>("saved");
    QTest::newRow("default size") << QRect();
    QTest::newRow("below the screen") << QRect(0, 215, 1280, 800);
    QTest::newRow("on a screen since removed") << QRect(3000, 2000, 640, 480);
}

// The offscreen screen is 800 × 600, smaller than the default window.
void tst_EditorFirstUse::windowFitsTheScreen()
{
    QFETCH(QRect, saved);
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(available.width() < 1280 && available.height() < 800);
    EditorFixture editor(Cam);
    if (saved.isValid()) {
        // A geometry as an earlier run on another screen saved it.
        QWidget other;
        other.setGeometry(saved);
        QSettings().setValue(QStringLiteral("CamDesigner/geometry"), other.saveGeometry());
    }
    CamDesignerViewImplementation *window = editor.open();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY2(available.contains(window->frameGeometry()),
             qPrintable(QStringLiteral("%1,%2 %3x%4")
                            .arg(window->frameGeometry().x())
                            .arg(window->frameGeometry().y())
                            .arg(window->frameGeometry().width())
                            .arg(window->frameGeometry().height())));
    // Small, the fields keep their size and the panel scrolls.
    PointEditView *point = window->motionPlanEditor()->pointEditView();
    QVERIFY(point->masterEdit()->height() >= point->masterEdit()->minimumSizeHint().height());

    QCOMPARE(WindowPlacement::fitted(QRect(0, 215, 1280, 800), QRect(0, 0, 1920, 1000)), QRect(0, 200, 1280, 800));
    QCOMPARE(WindowPlacement::fitted(QRect(100, 100, 400, 300), QRect(0, 0, 1920, 1000)), QRect(100, 100, 400, 300));
}

QTEST_MAIN(tst_EditorFirstUse)
#include "tst_editorfirstuse.moc"
