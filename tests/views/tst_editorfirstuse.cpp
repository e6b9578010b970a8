#include "editorfixture.h"

#include "model/decimaltext.h"
#include "model/scaling.h"
#include "model/steps.h"
#include "plots/curveplot.h"
#include "plots/curveplotstack.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"
#include "views/scalingview.h"
#include "views/windowplacement.h"

#include <qtadvanceddocking/DockWidget.h>
#include <qtadvanceddocking/DockWidgetTab.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_draw.h>

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTreeView>

namespace {

const char Cam[] = R"({"Cyclic": true, "CircularLength": 360,
    "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 100, "turningPoint"], [270, 40, "acceleration"]]})";

// The editor's and Qt's translations for a language, removed at the end.
struct Language {
    explicit Language(QLocale::Language language)
    {
        QVERIFY(CamDesigner::installTranslator(QLocale(language)) || language == QLocale::German);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    }
    ~Language()
    {
        CamDesigner::installTranslator(QLocale(QLocale::German));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    }
};

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
    void openEditorFollowsALanguageChange();
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

void tst_EditorFirstUse::openEditorFollowsALanguageChange()
{
    EditorFixture editor(Cam);
    CamDesignerViewImplementation *window = editor.open();
    window->setWindowTitle(QStringLiteral("Host title"));
    MotionPlanTreeEditor *tree = window->motionPlanEditor();
    QTreeView *points = tree->pointTree();
    const auto tab = [window](CamDesignerViewImplementation::Dock dock) {
        return window->dock(dock)->tabWidget()->findChild<QLabel *>()->text();
    };
    QCOMPARE(window->dock(CamDesignerViewImplementation::ScalingDock)->windowTitle(), QStringLiteral("Skalierung"));
    {
        Language english(QLocale::English);
        QCOMPARE(window->dock(CamDesignerViewImplementation::ScalingDock)->windowTitle(), QStringLiteral("Scaling"));
        QCOMPARE(window->dock(CamDesignerViewImplementation::ScalingDock)->toggleViewAction()->text(), QStringLiteral("Scaling"));
        QCOMPARE(tab(CamDesignerViewImplementation::ScalingDock), QStringLiteral("Scaling"));
        QVERIFY(actionNamed(window, QStringLiteral("&Undo")));
        QCOMPARE(window->menuBar()->actions().first()->text(), QStringLiteral("&Cam"));
        QCOMPARE(window->writeButton()->text(), QStringLiteral("Writes the calculated grid points into the parameters"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Host title"));
        QCOMPARE(points->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Master position [°]"));
        QCOMPARE(tree->findChildren<QGroupBox *>().first()->title(), QStringLiteral("Cam"));
        QCOMPARE(tree->addButton()->text(), QStringLiteral("Add"));
        QCOMPARE(tree->settingsView()->motionLawBox()->currentText(), QStringLiteral("Fifth-degree polynomial"));
        QCOMPARE(tree->pointEditView()->typeBox()->itemText(0), QStringLiteral("Dwell"));
        QCOMPARE(window->scalingView()->masterAxisBox()->itemText(1), QStringLiteral("Cycle time"));
        QVERIFY(tree->settingsView()->gridPointCountLabel()->text().startsWith(QStringLiteral("gives ")));
        const CurvePlot *plot = window->plots()->plot(CurvePlot::Acceleration);
        QCOMPARE(plot->axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Master [°]"));
        QVERIFY(plot->axisTitle(QwtPlot::yLeft).text().startsWith(QStringLiteral("a ")));
        QCOMPARE(window->plots()->wholeCurveAction()->text(), QStringLiteral("Show whole curve"));
        QCOMPARE(plot->calculatedCurve()->title().text(), QStringLiteral("calculated"));
    }
    QCOMPARE(window->dock(CamDesignerViewImplementation::ScalingDock)->windowTitle(), QStringLiteral("Skalierung"));
    QCOMPARE(tab(CamDesignerViewImplementation::ScalingDock), QStringLiteral("Skalierung"));
    QCOMPARE(tree->addButton()->text(), QStringLiteral("Hinzufügen"));
    QCOMPARE(points->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Master-Position [°]"));
    QCOMPARE(window->plots()->wholeCurveAction()->text(), QStringLiteral("Ganze Kurve anzeigen"));
}

QTEST_MAIN(tst_EditorFirstUse)
#include "tst_editorfirstuse.moc"
