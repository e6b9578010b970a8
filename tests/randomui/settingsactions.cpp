#include "randomuser.h"

#include "userinput.h"
#include "userterms.h"

#include "fileanswer.h"
#include "camdesigner/controller.h"
#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "import/externalcurveimportview.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/scaling.h"
#include "model/steps.h"
#include "parameters/parametermodelimplementation.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"
#include "views/positionlineedit.h"
#include "views/scalingview.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>

#include <qtadvanceddocking/DockWidget.h>

#include <iterator>

using namespace UserInput;
using namespace UserTerms;

bool RandomUser::switchLaw()
{
    const int index = pick(2);
    const int current = model()->motionLaw()->law() == MotionLaw::Vdi ? 0 : 1;
    m_log << QStringLiteral("law %1").arg(index);
    if (index != current)
        expectPush(QStringLiteral("Ändere Bewegungsgesetz von %1 -> %2")
                       .arg(QString::fromUtf8(LawNames[current]), QString::fromUtf8(LawNames[index])));
    choose(m_tree->settingsView()->motionLawBox(), index);
    return true;
}

bool RandomUser::toggleCyclic()
{
    const bool cyclic = m_editor.camDescription()->isCyclic();
    m_log << QStringLiteral("cyclic box clicked");
    expectPush(cyclic ? QStringLiteral("Deaktiviere zyklische Umlauflänge") : QStringLiteral("Aktiviere zyklische Umlauflänge"));
    click(m_tree->settingsView()->cyclicBox());
    return true;
}

bool RandomUser::editCircularLength()
{
    PositionLineEdit *edit = m_tree->settingsView()->circularLengthEdit();
    if (!edit->isEnabled())
        return false;
    const double current = m_editor.camDescription()->circularLength();
    QString text;
    const int kind = pick(8);
    if (kind == 0) {
        text = QString::fromLatin1(NoNumbers[pick(int(std::size(NoNumbers)))]);
        m_outcome.title = QString::fromUtf8(InvalidInput);
    } else if (kind == 1) {
        text = chance(0.5) ? QStringLiteral("0") : QStringLiteral("-5");
        m_outcome.title = QStringLiteral("Ungültige Umlauflänge");
    } else if (kind == 2) {
        text = QString::fromLatin1(TooLargeMaster);
        m_outcome.title = QStringLiteral("Master-Position außerhalb der Grenzen");
    } else {
        const double length = value(90.0, 720.0, 3);
        text = masterText(length);
        if (chance(0.3))  // with the unit, as the label shows it
            text += QLatin1Char(' ') + parameters()->masterUnit();
        const int count = model()->motionPointCount();
        if (length != current && count > 0 && model()->motionPointAt(count - 1)->master() >= length) {
            m_outcome.title = QStringLiteral("Ungültige Umlauflänge");  // the last point lies beyond it
        } else if (length != current) {
            expectPush(QStringLiteral("Ändere Umlauflänge %1 -> %2")
                           .arg(QString::number(current, 'g', 6), QString::number(length, 'g', 6)));
        }
    }
    m_log << QStringLiteral("circular length typed \"%1\"").arg(text);
    type(edit, text);
    return true;
}

bool RandomUser::switchStepMode()
{
    const bool dynamic = model()->steps()->isDynamicStepSize();
    const bool toDynamic = chance(0.5);
    m_log << QStringLiteral("%1 clicked").arg(toDynamic ? "Dynamisch" : "Statisch");
    if (toDynamic != dynamic)
        expectPush(toDynamic ? QStringLiteral("Aktiviere dynamische Schrittweite")
                             : QStringLiteral("Aktiviere statische Schrittweite"));
    CamSettingsView *settings = m_tree->settingsView();
    click(toDynamic ? settings->dynamicButton() : settings->staticButton());
    return true;
}

bool RandomUser::editResolution()
{
    QSpinBox *box = m_tree->settingsView()->resolutionBox();
    if (!box->isEnabled())
        return false;
    const int current = model()->steps()->dynamicStepResolution();
    const int resolution = chance(0.1) ? current : 2 + pick(1500);
    m_log << QStringLiteral("resolution typed %1").arg(resolution);
    if (resolution != current)
        expectPush(QStringLiteral("Ändere Auflösung der dynamischen Schrittweite von %1 Punkten -> %2 Punkten")
                       .arg(current)
                       .arg(resolution));
    type(box, QString::number(resolution));
    return true;
}

bool RandomUser::editStepSize()
{
    PositionLineEdit *edit = m_tree->settingsView()->stepSizeEdit();
    if (!edit->isEnabled())
        return false;
    const double current = model()->steps()->staticStepSize();
    const double minimum = model()->motionPlan() ? model()->motionPlan()->minimumStepSize() : 0.0;
    QString text;
    if (chance(0.1)) {
        text = QString::fromLatin1(NoNumbers[pick(int(std::size(NoNumbers)))]);
        m_outcome.title = QString::fromUtf8(InvalidInput);
    } else {
        const double stepSize = chance(0.1) ? 0.0 : value(0.2, 5.0, 3);
        text = masterText(stepSize);
        if (stepSize < minimum || stepSize <= 0.0) {
            m_outcome.title = QStringLiteral("Schrittweite zu klein");
        } else if (stepSize != current) {
            expectPush(QStringLiteral("Ändere Schrittweite von %1 -> %2")
                           .arg(QString::number(current, 'g', 6), QString::number(stepSize, 'g', 6)));
        }
    }
    // A text as shown is no edit at all.
    if (text == edit->text())
        m_outcome = Outcome();
    m_log << QStringLiteral("step size typed \"%1\"").arg(text);
    type(edit, text);
    return true;
}

bool RandomUser::chooseScaling()
{
    const Scaling *scaling = model()->scaling();
    const bool masterAxis = chance(0.5);
    const int index = pick(masterAxis ? 2 : 3);
    const int current = masterAxis ? scaling->masterAxisScaling() : scaling->velocityScaling();
    m_log << QStringLiteral("%1 scaling %2").arg(masterAxis ? "master axis" : "velocity").arg(index);
    if (index != current)
        expectPush(masterAxis ? QStringLiteral("Ändere Master-Skala von %1 zu %2")
                                    .arg(QString::fromUtf8(MasterAxisNames[current]), QString::fromUtf8(MasterAxisNames[index]))
                              : QStringLiteral("Ändere Geschwindigkeitsskala von %1 zu %2")
                                    .arg(QString::fromUtf8(VelocityNames[current]), QString::fromUtf8(VelocityNames[index])));
    choose(masterAxis ? m_scaling->masterAxisBox() : m_scaling->velocityBox(), index);
    return true;
}

// Seconds above zero, kept with four decimals.
bool RandomUser::editCycleTime()
{
    QLineEdit *edit = m_scaling->cycleTimeEdit();
    if (!edit->isEnabled())
        return false;
    const double current = model()->scaling()->cycleTime();
    QString text;
    if (chance(0.2)) {
        const char *const refused[] = { "0", "-1", "0.00004", "eins" };
        text = QString::fromLatin1(refused[pick(4)]);
        m_outcome.title = QStringLiteral("Ungültige Zykluszeit");
    } else {
        const double seconds = value(0.01, 10.0, 4);
        text = QString::number(seconds, 'f', 4) + (chance(0.3) ? QStringLiteral(" s") : QString());
        if (seconds != current)
            expectPush(QStringLiteral("Ändere Zykluszeit von %1 zu %2")
                           .arg(QString::number(current, 'g', 6), QString::number(seconds, 'g', 6)));
    }
    m_log << QStringLiteral("cycle time typed \"%1\"").arg(text);
    type(edit, text);
    return true;
}

bool RandomUser::undoOrRedo()
{
    const bool undo = chance(0.6);
    QAction *action = actionNamed(m_window, undo ? QStringLiteral("&Rückgängig") : QStringLiteral("Wiederholen"));
    if (!action->isEnabled())
        return false;
    m_log << (undo ? QStringLiteral("undo") : QStringLiteral("redo"));
    m_outcome.kind = undo ? Outcome::Undone : Outcome::Redone;
    action->trigger();
    return true;
}

// By the action or the second write control beside the motion points.
bool RandomUser::writeToDrive()
{
    QAction *action = actionNamed(m_window, QStringLiteral("Schreibt die berechneten Stützstellen in Parameter"));
    if (!action->isEnabled())
        return false;
    // Points close together can swing the curve beyond what the drive
    // takes: then the write is refused before anything is written.
    QPolygonF points;
    bool fits = true;
    for (const QPointF &point : model()->motionPlan()->positions()) {
        points.append(QPointF(rounded(point.x(), parameters()->masterDecimalPlaces()),
                              rounded(point.y(), parameters()->slaveDecimalPlaces())));
        for (double position : { points.last().x(), points.last().y() })
            fits = fits && position >= PositionMinimum && position <= PositionMaximum;
    }
    // A cyclic cam whose end does not meet its start smoothly asks first (the
    // jump as the report finds it); a table that does not fit is not asked
    // about, so that one box tells what happened.
    const MotionPlan *plan = model()->motionPlan();
    bool seamJump = false;
    if (m_editor.camDescription()->isCyclic()) {
        const CurveReport report(*plan);
        for (const CurveJointReport &joint : report.joints())
            seamJump = seamJump || (joint.seam && joint.continuity < 2);
    }
    const bool yes = seamJump && fits && chance(0.5);
    if (seamJump) {
        m_outcome.title = QString::fromUtf8(SeamJump);
        m_messages.setAnswer(yes ? QMessageBox::Yes : QMessageBox::No);
    }
    if (fits && (!seamJump || yes)) {
        m_expectedStored = points;
        m_storedSlavesKnown = true;
        m_justWritten = true;
    } else if (!seamJump) {
        m_outcome.title = QStringLiteral("Schreiben in Parameter nicht möglich");
    }
    const bool button = chance(0.5);
    m_log << (button ? QStringLiteral("write button") : QStringLiteral("write action"))
                 + (seamJump ? (yes ? QStringLiteral(", jump at the seam: yes") : QStringLiteral(", jump at the seam: no"))
                             : QString());
    if (button)
        QTest::mouseClick(m_window->writeButton(), Qt::LeftButton);
    else
        action->trigger();
    m_messages.setAnswer(QMessageBox::Ok);
    return true;
}

// An example table through the import dialog: format, file, OK or Cancel.
bool RandomUser::importCurveFile()
{
    QAction *action = actionNamed(m_window, QStringLiteral("&Stützstellentabelle aus Datei importieren"));
    if (!action->isEnabled())
        return false;
    const auto &example = ExampleCurves[pick(int(std::size(ExampleCurves)))];
    const bool accept = chance(0.8);
    m_log << QStringLiteral("import %1, %2").arg(QLatin1String(example.file), accept ? "OK" : "Abbrechen");
    action->trigger();
    auto *dialog = m_window->findChild<ExternalCurveImportView *>();
    if (!dialog || !dialog->isVisible()) {
        m_actionProblem = QStringLiteral("the import action opened no dialog");
        return true;
    }
    choose(dialog->findChild<QComboBox *>(QStringLiteral("formatCombo")), example.format);
    if (example.format == 3) {
        click(dialog->findChild<QRadioButton *>(QStringLiteral("tapSeparatorRadio")));
        click(dialog->findChild<QRadioButton *>(QStringLiteral("decimalPlacesCommaSeparatorRadio")));
    }
    {
        FileAnswer answer(QStringLiteral(EXAMPLES_DIR "/") + QLatin1String(example.file));
        QTest::mouseClick(dialog->findChild<QToolButton *>(QStringLiteral("importButton")), Qt::LeftButton);
    }
    auto *buttons = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    QTest::mouseClick(buttons->button(accept ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel), Qt::LeftButton);
    if (!waitFor([this] { return !m_window->findChild<ExternalCurveImportView *>(); })) {
        m_actionProblem = QStringLiteral("the import dialog stayed open");
        return true;
    }
    if (accept) {
        m_expectedStored.clear();
        for (int i = 0; i < ExamplePoints; ++i)
            m_expectedStored.append(QPointF(i * ExampleSpacing, 0.0));
        m_storedSlavesKnown = false;
    }
    return true;
}

// By "&Schließen" or the window's own close; the host's button opens it
// again, with the data as it was and an empty stack.
bool RandomUser::closeAndReopen()
{
    m_actionProblem += undoAndRedoAll();
    const State before = state();
    const bool action = chance(0.5);
    m_log << (action ? QStringLiteral("\"&Schließen\", reopened") : QStringLiteral("window closed, reopened"));
    if (action)
        actionNamed(m_window, QStringLiteral("&Schließen"))->trigger();
    else
        m_window->close();
    if (!waitFor([this] { return !m_editor.implementation()->view(); })) {
        m_actionProblem += QStringLiteral("the window stayed after closing");
        return true;
    }
    m_window = nullptr;
    if (static_cast<QAbstractButton *>(m_button.get())->isChecked())
        m_actionProblem += QStringLiteral("the host's button stayed checked after closing");
    open();
    if (!m_window)
        m_actionProblem += QStringLiteral("the host's button opened no window");
    else if (!(state() == before))
        m_actionProblem += QStringLiteral("reopened with %1, closed with %2").arg(state().describe(), before.describe());
    return true;
}

bool RandomUser::changeLanguage()
{
    m_log << QStringLiteral("language English and back");
    const State before = state();
    const int count = m_stack->count();
    const auto switchTo = [](QLocale::Language language) {
        CamDesigner::installTranslator(QLocale(language));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    };
    const auto shows = [this](const char *scaling, const char *add) {
        return m_window->dock(CamDesignerViewImplementation::ScalingDock)->windowTitle() == QString::fromUtf8(scaling)
            && m_tree->addButton()->text() == QString::fromUtf8(add);
    };
    switchTo(QLocale::English);
    if (!shows("Scaling", "Add"))
        m_actionProblem += QStringLiteral("the open editor did not follow the change to English");
    switchTo(QLocale::German);
    if (!shows("Skalierung", "Hinzufügen"))
        m_actionProblem += QStringLiteral("the open editor did not follow the change back to German");
    // Texts only: nothing pushed, nothing changed.
    if (m_stack->count() != count || !(state() == before))
        m_actionProblem += QStringLiteral("a change of language changed the data: %1").arg(state().describe());
    return true;
}
