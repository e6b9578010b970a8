#include "pointeditview.h"

#include "motionpointediting.h"
#include "positionlineedit.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "parameters/parametermodel.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int TypeCount = 4;
} // namespace

PointEditView::PointEditView(const MotionPointEditing *editing, QWidget *parent)
    : QWidget(parent)
    , m_editing(editing)
    , m_master(new PositionLineEdit(PositionLineEdit::Master, editing->editorModel()->scaling()))
    , m_slave(new PositionLineEdit(PositionLineEdit::Slave, editing->editorModel()->scaling()))
    , m_type(new QComboBox)
    , m_remove(new QPushButton)
    , m_typeLabel(new QLabel)
{
    for (int index = 0; index < TypeCount; ++index)
        m_type->addItem(QString());
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(new QLabel, m_master);
    form->addRow(new QLabel, m_slave);
    form->addRow(m_typeLabel, m_type);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_remove);
    buttons->addStretch();
    form->addRow(QString(), buttons);

    connect(m_master, &PositionLineEdit::edited, this, &PointEditView::onMasterEdited);
    connect(m_slave, &PositionLineEdit::edited, this, &PointEditView::onSlaveEdited);
    connect(m_type, QOverload<int>::of(&QComboBox::activated), this, &PointEditView::onTypeChosen);
    connect(m_remove, &QPushButton::clicked, this, &PointEditView::onRemoveClicked);
    connect(editing->editorModel(), &CamEditorModel::changed, this, &PointEditView::refresh);
    retranslate();
}

void PointEditView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PointEditView::retranslate()
{
    for (int index = 0; index < TypeCount; ++index)
        m_type->setItemText(index, MotionPoint::typeDisplayName(MotionPoint::typeForIndex(index)));
    m_remove->setText(tr("Entfernen"));
    m_typeLabel->setText(tr("Segmenttyp:"));
    refresh();
}

void PointEditView::setPoint(MotionPoint *point)
{
    if (m_point == point)
        return;
    m_point = point;
    refresh();
}

void PointEditView::refresh()
{
    m_refreshing = true;
    const bool hasPoint = !m_point.isNull();
    for (QWidget *field : std::initializer_list<QWidget *> { m_master, m_slave, m_type, m_remove })
        field->setEnabled(hasPoint);
    if (hasPoint) {
        m_master->setValue(m_point->master());
        m_slave->setValue(m_point->slave());
        m_type->setCurrentIndex(MotionPoint::indexForType(m_point->type()));
    } else {
        m_master->clear();
        m_slave->clear();
        m_type->setCurrentIndex(-1);
    }
    const ParameterModel *parameters = m_editing->parameterModel();
    auto *form = static_cast<QFormLayout *>(layout());
    const auto label = [form](QWidget *field) { return qobject_cast<QLabel *>(form->labelForField(field)); };
    const auto withUnit = [](const QString &title, const QString &unit) {
        return unit.isEmpty() ? title + QLatin1Char(':') : QStringLiteral("%1 [%2]:").arg(title, unit);
    };
    label(m_master)->setText(withUnit(tr("Master-Position"), parameters ? parameters->masterUnit() : QString()));
    label(m_slave)->setText(withUnit(tr("Slave-Position"), parameters ? parameters->slaveUnit() : QString()));
    // Segment types count only under the polynomial law.
    const bool typeApplies = m_editing->editorModel()->motionLaw()->law() == MotionLaw::Vdi;
    m_type->setVisible(typeApplies);
    label(m_type)->setVisible(typeApplies);
    m_refreshing = false;
}

void PointEditView::onMasterEdited(const QString &text)
{
    double master = 0.0;
    if (m_refreshing || !m_point || !m_editing->readMaster(this, text, &master)
        || !m_editing->edit(this, m_point, master, m_point->slave(), m_point->type()))
        m_master->revert();
}

void PointEditView::onSlaveEdited(const QString &text)
{
    double slave = 0.0;
    if (m_refreshing || !m_point || !m_editing->readSlave(this, text, &slave)
        || !m_editing->edit(this, m_point, m_point->master(), slave, m_point->type()))
        m_slave->revert();
}

void PointEditView::onTypeChosen(int index)
{
    if (m_refreshing || !m_point)
        return;
    if (!m_editing->edit(this, m_point, m_point->master(), m_point->slave(), MotionPoint::typeForIndex(index)))
        refresh();
}

void PointEditView::onRemoveClicked()
{
    if (!m_refreshing)
        m_editing->remove(m_point);
}
