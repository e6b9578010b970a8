#include "camsettingsview.h"

#include "countspinbox.h"
#include "motionpointediting.h"
#include "positionlineedit.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "commands/changedynamicstepresolutioncommand.h"
#include "commands/changemotionlawcommand.h"
#include "commands/changestepmodecommand.h"
#include "commands/setcircularlengthcommand.h"
#include "commands/setiscycliccamcommand.h"
#include "commands/setstepscommand.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/scaling.h"
#include "model/steps.h"
#include "parameters/parametermodel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QUndoStack>

namespace {
// A dynamic resolution needs at least a start and an end; more than the
// drive's arrays hold is never reached.
constexpr int MinimumResolution = 2;
constexpr int MaximumResolution = 16000;
} // namespace

CamSettingsView::CamSettingsView(const MotionPointEditing *editing, QWidget *parent)
    : QWidget(parent)
    , m_editing(editing)
    , m_motionLaw(new QComboBox)
    , m_cyclic(new QCheckBox)
    , m_circularLength(new PositionLineEdit(PositionLineEdit::Master, editing->editorModel()->scaling()))
    , m_dynamic(new QRadioButton)
    , m_static(new QRadioButton)
    , m_resolution(new CountSpinBox)
    , m_stepSize(new PositionLineEdit(PositionLineEdit::Master, editing->editorModel()->scaling()))
    , m_gridPointCount(new QLabel)
    , m_warning(new QLabel)
    , m_lawLabel(new QLabel)
    , m_stepModeLabel(new QLabel)
    , m_resolutionLabel(new QLabel)
{
    for (int index = 0; index < MotionLaw::LawCount; ++index)
        m_motionLaw->addItem(QString());
    m_resolution->setRange(MinimumResolution, MaximumResolution);
    m_resolution->setKeyboardTracking(false);
    m_warning->setWordWrap(true);
    m_warning->setStyleSheet(QStringLiteral("color: #b00000;"));
    m_warning->setObjectName(QStringLiteral("tooManyGridPointsWarning"));

    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(m_lawLabel, m_motionLaw);
    form->addRow(QString(), m_cyclic);
    form->addRow(new QLabel, m_circularLength);
    auto *mode = new QHBoxLayout;
    mode->addWidget(m_dynamic);
    mode->addWidget(m_static);
    mode->addStretch();
    form->addRow(m_stepModeLabel, mode);
    // What the settings give, beside what they ask for: the sampling rule
    // seldom gives exactly the count that is set.
    m_gridPointCount->setObjectName(QStringLiteral("gridPointCountLabel"));
    auto *resolution = new QHBoxLayout;
    resolution->addWidget(m_resolution, 1);
    resolution->addWidget(m_gridPointCount);
    form->addRow(m_resolutionLabel, resolution);
    form->addRow(new QLabel, m_stepSize);
    form->addRow(m_warning);

    // Only signals of the user's own actions push; the refresh sets the
    // fields without them (and under a guard besides).
    connect(m_motionLaw, QOverload<int>::of(&QComboBox::activated), this, &CamSettingsView::onMotionLawChosen);
    connect(m_cyclic, &QCheckBox::clicked, this, &CamSettingsView::onCyclicClicked);
    connect(m_circularLength, &PositionLineEdit::edited, this, &CamSettingsView::onCircularLengthEdited);
    connect(m_dynamic, &QRadioButton::clicked, this, &CamSettingsView::onStepModeClicked);
    connect(m_static, &QRadioButton::clicked, this, &CamSettingsView::onStepModeClicked);
    connect(m_resolution, &QSpinBox::editingFinished, this, &CamSettingsView::onResolutionFinished);
    connect(m_resolution, &CountSpinBox::refused, this, &CamSettingsView::onResolutionRefused);
    connect(m_stepSize, &PositionLineEdit::edited, this, &CamSettingsView::onStepSizeEdited);
    connect(editing->editorModel(), &CamEditorModel::changed, this, &CamSettingsView::refresh);
    retranslate();
}

void CamSettingsView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CamSettingsView::retranslate()
{
    for (int index = 0; index < MotionLaw::LawCount; ++index)
        m_motionLaw->setItemText(index, MotionLaw::displayName(MotionLaw::lawForIndex(index)));
    m_cyclic->setText(tr("Zyklische Kurvenscheibe"));
    m_dynamic->setText(tr("Dynamisch"));
    m_static->setText(tr("Statisch"));
    m_resolution->setSuffix(tr(" Punkte"));
    m_lawLabel->setText(tr("Bewegungsgesetz:"));
    m_stepModeLabel->setText(tr("Schrittweite:"));
    m_resolutionLabel->setText(tr("Anzahl Stützstellen:"));
    refresh();
}

QSpinBox *CamSettingsView::resolutionBox() const
{
    return m_resolution;
}

void CamSettingsView::refresh()
{
    const CamEditorModel *model = m_editing->editorModel();
    if (!model)
        return;
    m_refreshing = true;
    const CamDescriptionImplementation *description = model->camDescription();
    const Steps *steps = description->steps();
    m_motionLaw->setCurrentIndex(MotionLaw::indexForLaw(description->motionLaw()->law()));
    m_cyclic->setChecked(description->isCyclic());
    m_circularLength->setValue(description->circularLength());
    m_circularLength->setEnabled(description->isCyclic());
    const QString unit = m_editing->parameterModel() ? m_editing->parameterModel()->masterUnit() : QString();
    setLabel(m_circularLength, tr("Umlauflänge"), unit);
    setLabel(m_stepSize, tr("Statische Schrittweite"), unit);
    m_dynamic->setChecked(steps->isDynamicStepSize());
    m_static->setChecked(!steps->isDynamicStepSize());
    m_resolution->setValue(steps->dynamicStepResolution());
    m_resolution->setEnabled(steps->isDynamicStepSize());
    m_stepSize->setValue(steps->staticStepSize());
    m_stepSize->setEnabled(!steps->isDynamicStepSize());
    // A drag samples coarsely for a moment; the count shown is the full one.
    if (!model->isCoarseSteps())
        m_gridPointCount->setText(
            model->motionPlan() ? tr("ergibt %1 Stützstellen").arg(model->motionPlan()->positions().size()) : QString());
    const bool tooMany = model->tooManyGridPoints();
    const double minimum = model->motionPlan() ? model->motionPlan()->minimumStepSize() : 0.0;
    m_warning->setText(tooMany ? tr("Die Schrittweite ergibt mehr als %1 Stützstellen. Sie wird beim Berechnen auf "
                                    "%2 vergrößert.")
                                     .arg(MaximumResolution)
                                     .arg(model->scaling()->masterPositionToText(minimum))
                               : QString());
    m_warning->setVisible(tooMany);
    m_refreshing = false;
}

void CamSettingsView::setLabel(QWidget *field, const QString &title, const QString &unit)
{
    auto *form = static_cast<QFormLayout *>(layout());
    if (auto *label = qobject_cast<QLabel *>(form->labelForField(field)))
        label->setText(unit.isEmpty() ? title + QLatin1Char(':') : QStringLiteral("%1 [%2]:").arg(title, unit));
}

void CamSettingsView::onMotionLawChosen(int index)
{
    CamDescriptionImplementation *description = m_editing->editorModel()->camDescription();
    const int law = MotionLaw::lawForIndex(index);
    if (m_refreshing || law == description->motionLaw()->law())
        return;
    m_editing->undoStack()->push(new ChangeMotionLawCommand(description->motionLaw(), law));
}

void CamSettingsView::onCyclicClicked(bool cyclic)
{
    // The command's undo negates the flag it was given: only a real change.
    CamDescriptionImplementation *description = m_editing->editorModel()->camDescription();
    if (m_refreshing || cyclic == description->isCyclic())
        return;
    m_editing->undoStack()->push(new SetIsCyclicCamCommand(description, cyclic));
}

void CamSettingsView::onCircularLengthEdited(const QString &text)
{
    if (m_refreshing)
        return;
    CamDescriptionImplementation *description = m_editing->editorModel()->camDescription();
    double length = 0.0;
    if (!m_editing->readMaster(this, text, &length)) {
        m_circularLength->revert();
        return;
    }
    if (length <= 0.0) {
        MessageBox::warning(this, tr("Ungültige Umlauflänge"), tr("Die Umlauflänge muss größer als 0 sein."));
        m_circularLength->revert();
        return;
    }
    if (length == description->circularLength())
        return;
    if (!m_editing->checkCircularLength(this, length)) {
        m_circularLength->revert();
        return;
    }
    m_editing->undoStack()->push(new SetCircularLengthCommand(description, length));
}

void CamSettingsView::onStepModeClicked()
{
    Steps *steps = m_editing->editorModel()->steps();
    const bool dynamic = m_dynamic->isChecked();
    if (m_refreshing || dynamic == steps->isDynamicStepSize())
        return;
    m_editing->undoStack()->push(new ChangeStepModeCommand(steps, dynamic));
}

void CamSettingsView::onResolutionFinished()
{
    Steps *steps = m_editing->editorModel()->steps();
    if (m_refreshing || m_resolution->value() == steps->dynamicStepResolution())
        return;
    m_editing->undoStack()->push(new ChangeDynamicStepResolutionCommand(m_resolution->value(), steps));
}

void CamSettingsView::onResolutionRefused(const QString &typed)
{
    MessageBox::warning(this, tr("Ungültige Anzahl Stützstellen"),
                        tr("%1 Stützstellen sind nicht möglich. Die Anzahl Stützstellen muss zwischen %2 und %3 "
                           "liegen.")
                            .arg(typed)
                            .arg(MinimumResolution)
                            .arg(MaximumResolution));
}

void CamSettingsView::onStepSizeEdited(const QString &text)
{
    if (m_refreshing)
        return;
    const CamEditorModel *model = m_editing->editorModel();
    double stepSize = 0.0;
    if (!PositionLineEdit::parse(text, m_editing->parameterModel() ? m_editing->parameterModel()->masterUnit() : QString(),
                                 &stepSize)) {
        MessageBox::warning(this, tr("Ungültige Eingabe"),
                            tr("\"%1\" ist keine gültige Schrittweite.").arg(text) + QLatin1Char(' ')
                                + PositionLineEdit::numberHint());
        m_stepSize->revert();
        return;
    }
    const double minimum = model->motionPlan() ? model->motionPlan()->minimumStepSize() : 0.0;
    if (stepSize < minimum || stepSize <= 0.0) {
        MessageBox::warning(this, tr("Schrittweite zu klein"),
                            tr("Die Schrittweite ist zu klein. Bitte wählen sie einen Wert größer %1")
                                .arg(model->scaling()->masterPositionToText(minimum)));
        m_stepSize->revert();
        return;
    }
    if (stepSize != model->steps()->staticStepSize())
        m_editing->undoStack()->push(new SetStepsCommand(model->steps(), stepSize));
}
