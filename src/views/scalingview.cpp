#include "scalingview.h"

#include <messagebox.h>
#include "positionlineedit.h"

#include "commands/setcyletimecommand.h"
#include "commands/setmasteraxisscalingcommand.h"
#include "commands/setvelocityscalingcommand.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/decimaltext.h"
#include "model/scaling.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QUndoStack>

#include <cmath>

namespace {
constexpr int MasterAxisScalingCount = 2;
constexpr int VelocityScalingCount = 3;
const char SecondsSuffix[] = " s";
// The display shows four decimals; the stored time is what it shows.
constexpr double CycleTimeScale = 1e4;
} // namespace

ScalingView::ScalingView(CamEditorModel *editorModel, QUndoStack *undoStack, QWidget *parent)
    : QWidget(parent)
    , m_editorModel(editorModel)
    , m_scaling(editorModel->scaling())
    , m_undoStack(undoStack)
    , m_masterAxis(new QComboBox)
    , m_cycleTime(new QLineEdit)
    , m_velocity(new QComboBox)
    , m_units(new QLabel)
    , m_masterAxisLabel(new QLabel)
    , m_cycleTimeLabel(new QLabel)
    , m_velocityLabel(new QLabel)
{
    for (int value = 0; value < MasterAxisScalingCount; ++value)
        m_masterAxis->addItem(QString());
    for (int value = 0; value < VelocityScalingCount; ++value)
        m_velocity->addItem(QString());
    m_cycleTime->setAlignment(Qt::AlignRight);
    m_units->setObjectName(QStringLiteral("derivativeUnits"));

    auto *form = new QFormLayout(this);
    form->addRow(m_masterAxisLabel, m_masterAxis);
    form->addRow(m_cycleTimeLabel, m_cycleTime);
    form->addRow(m_velocityLabel, m_velocity);
    form->addRow(m_units);

    connect(m_masterAxis, QOverload<int>::of(&QComboBox::activated), this, &ScalingView::onMasterAxisChosen);
    connect(m_cycleTime, &QLineEdit::editingFinished, this, &ScalingView::onCycleTimeFinished);
    connect(m_velocity, QOverload<int>::of(&QComboBox::activated), this, &ScalingView::onVelocityChosen);
    for (auto signal : { &Scaling::masterAxisScalingChanged, &Scaling::cycleTimeChanged,
                         &Scaling::velocityScalingChanged, &Scaling::changed })
        connect(m_scaling, signal, this, &ScalingView::refresh);
    connect(editorModel, &CamEditorModel::changed, this, &ScalingView::refresh);
    retranslate();
}

void ScalingView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ScalingView::retranslate()
{
    for (int value = 0; value < MasterAxisScalingCount; ++value)
        m_masterAxis->setItemText(value, Scaling::masterAxisScalingText(value));
    for (int value = 0; value < VelocityScalingCount; ++value)
        m_velocity->setItemText(value, Scaling::velocityScalingText(value));
    m_masterAxisLabel->setText(tr("Master-Achse:"));
    m_cycleTimeLabel->setText(tr("Zykluszeit [s]:"));
    m_velocityLabel->setText(tr("Geschwindigkeit:"));
    refresh();
}

QString ScalingView::cycleTimeFieldText() const
{
    QString text = m_scaling->cycleTimeText();
    const QLatin1String suffix(SecondsSuffix);
    if (text.endsWith(suffix))
        text.chop(suffix.size());
    return text;
}

void ScalingView::refresh()
{
    if (!m_scaling)
        return;
    m_refreshing = true;
    m_masterAxis->setCurrentIndex(m_scaling->masterAxisScaling());
    m_velocity->setCurrentIndex(m_scaling->velocityScaling());
    m_cycleTime->setText(cycleTimeFieldText());
    m_cycleTime->setModified(false);
    // The cycle time counts only where derivatives are taken over time.
    m_cycleTime->setEnabled(m_scaling->isTimeBased());
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    const double range = plan ? plan->masterRange() : 0.0;
    QString units = tr("Geschwindigkeit: %1\nBeschleunigung: %2\nRuck: %3")
                        .arg(m_scaling->derivativeUnit(1), m_scaling->derivativeUnit(2), m_scaling->derivativeUnit(3));
    if (m_scaling->isTimeBased())
        units += QLatin1Char('\n') + tr("Master-Geschwindigkeit: %1 %2/s")
                                         .arg(DecimalText::toString(range / m_scaling->cycleTime(), 'g', 6),
                                              m_scaling->masterUnit());
    if (std::isnan(m_scaling->derivativeFactor(1, range)))
        units += QLatin1Char('\n') + tr("Weg pro Umdrehung oder Getriebe des Antriebsreglers ungültig.");
    m_units->setText(units);
    m_refreshing = false;
}

void ScalingView::onMasterAxisChosen(int index)
{
    if (m_refreshing || !m_scaling || index == m_scaling->masterAxisScaling())
        return;
    m_undoStack->push(new SetMasterAxisScalingCommand(m_scaling, index));
}

void ScalingView::onVelocityChosen(int index)
{
    if (m_refreshing || !m_scaling || index == m_scaling->velocityScaling())
        return;
    m_undoStack->push(new SetVelocityScalingCommand(m_scaling, index));
}

void ScalingView::onCycleTimeFinished()
{
    // Enter and the focus leaving both end an edit; only the first counts.
    if (m_refreshing || !m_scaling || !m_cycleTime->isModified())
        return;
    m_cycleTime->setModified(false);
    const QString typed = m_cycleTime->text();
    QString text = typed.trimmed();
    if (text.endsWith(QLatin1Char('s')))
        text = text.chopped(1).trimmed();
    double typedSeconds = 0.0;
    const bool ok = DecimalText::parse(text, &typedSeconds);
    const double seconds = std::round(typedSeconds * CycleTimeScale) / CycleTimeScale;
    if (!ok || !(seconds > 0.0) || std::isinf(seconds)) {
        MessageBox::warning(this, tr("Ungültige Zykluszeit"),
                            tr("\"%1\" ist keine gültige Zykluszeit. Bitte geben Sie eine Zeit in Sekunden "
                               "größer als 0 ein.")
                                    .arg(typed)
                                + (ok ? QString() : QLatin1Char(' ') + PositionLineEdit::numberHint()));
        refresh();
        return;
    }
    if (seconds != m_scaling->cycleTime())
        m_undoStack->push(new SetCyleTimeCommand(m_scaling, seconds));
    else
        refresh();
}
