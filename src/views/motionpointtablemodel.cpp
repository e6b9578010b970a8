#include "motionpointtablemodel.h"

#include "motionpointediting.h"

#include "motionpointtextparser.h"

#include <QApplication>
#include <QBrush>
#include <QColor>
#include <QPalette>
#include <QStyle>
#include <QUndoStack>
#include <QWidget>

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "widgets/tableclipboard.h"
#include "commands/changesectioncommand.h"
#include "curves/motionplanvdi.h"
#include "model/cameditormodel.h"
#include "model/decimaltext.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/parametermodel.h"
#include "plots/sectionwarnings.h"

namespace {
// The row of a point whose section or joint is wrong.
const QColor WarningBackground(0xff, 0xe0, 0xe0);
} // namespace

MotionPointTableModel::MotionPointTableModel(const MotionPointEditing *editing, QWidget *messageParent,
                                             QObject *parent)
    : QAbstractTableModel(parent)
    , m_editing(editing)
    , m_editorModel(editing->editorModel())
    , m_messageParent(messageParent)
    , m_warnings(SectionWarnings::of(m_editorModel, editing->parameterModel()))
{
    if (!m_editorModel)
        return;
    connect(m_warnings, &SectionWarnings::changed, this, [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    });
    using Description = CamDescriptionImplementation;
    Description *d = m_editorModel->camDescription();
    connect(d, &Description::pointsAboutToBeInserted, this, [this](int f, int l) { beginInsertRows({}, f, l); });
    connect(d, &Description::pointsInserted, this, [this] { endInsertRows(); });
    connect(d, &Description::pointsAboutToBeRemoved, this, [this](int f, int l) { beginRemoveRows({}, f, l); });
    connect(d, &Description::pointsRemoved, this, [this] { endRemoveRows(); });
    // Qt counts the destination before the move: one further down.
    connect(d, &Description::pointAboutToBeMoved, this,
            [this](int from, int to) { beginMoveRows({}, from, from, {}, to > from ? to + 1 : to); });
    connect(d, &Description::pointMoved, this, [this] { endMoveRows(); });
    connect(d, &Description::pointsChanged, this,
            [this](int f, int l) { emit dataChanged(index(f, 0), index(l, ColumnCount - 1)); });
    connect(d, &Description::pointsAboutToBeReset, this, [this] { beginResetModel(); });
    connect(d, &Description::pointsReset, this, [this] { endResetModel(); });
    // Which law applies follows from the new plan; a law change greys or
    // ungreys the section cells.
    connect(m_editorModel, &CamEditorModel::changed, this, [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, LawColumn), index(rowCount() - 1, VelocityColumn));
    });
}

bool MotionPointTableModel::sectionLawsApply() const
{
    return m_editorModel->motionLaw()->law() == MotionLaw::Vdi;
}

// Inflection only for the four normalised laws, velocity only at a "speed" point.
bool MotionPointTableModel::cellApplies(const QModelIndex &index) const
{
    const MotionPoint *point = m_editorModel->motionPointAt(index.row());
    switch (index.column()) {
    case InflectionColumn:
        return MotionPoint::takesInflection(point->sectionLaw());
    case VelocityColumn:
        return point->type() == MotionPoint::speed;
    default:
        return true;
    }
}

QVariant MotionPointTableModel::sectionData(const QModelIndex &index, int role) const
{
    const MotionPoint *point = m_editorModel->motionPointAt(index.row());
    const bool applies = cellApplies(index);
    if (role == TableClipboard::CopyRole) {
        if (index.column() == LawColumn)
            return MotionPoint::sectionLawDataName(point->sectionLaw());
        if (index.column() == InflectionColumn)
            return applies ? QString::number(point->inflection()) : QString();
        return applies && point->hasVelocity() ? QString::number(point->velocity()) : QString();
    }
    if (role == Qt::ForegroundRole && !sectionLawsApply())
        return QBrush(QPalette().color(QPalette::Disabled, QPalette::Text));
    if (index.column() == LawColumn) {
        // The section of the last point of an open cam does not exist; a law
        // that cannot join its neighbours is computed as the quintic.
        const auto *plan = qobject_cast<const MotionPlanVdi *>(m_editorModel->motionPlan());
        const bool fallback = sectionLawsApply() && plan && index.row() < plan->sections().size()
            && plan->appliedLaw(index.row()) != point->sectionLaw();
        const QString name = MotionPoint::sectionLawDisplayName(point->sectionLaw());
        switch (role) {
        case Qt::DisplayRole:
            return fallback ? tr("%1 (nicht anwendbar: %2)")
                                  .arg(name, MotionPoint::sectionLawDisplayName(plan->appliedLaw(index.row())))
                            : name;
        case Qt::EditRole:
            return point->sectionLaw();
        case Qt::ForegroundRole:
            return fallback ? QBrush(QColor(0xb0, 0x00, 0x00)) : QVariant();
        case Qt::ToolTipRole:
            return fallback ? tr("Das Gesetz verlangt Beschleunigung null an beiden Abschnittsgrenzen; der Abschnitt "
                                 "wird als Polynom 5. Grades berechnet.")
                            : QVariant();
        default:
            return QVariant();
        }
    }
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    if (!applies)
        return QString();
    if (index.column() == InflectionColumn)
        return DecimalText::toString(point->inflection());
    return point->hasVelocity() ? DecimalText::toString(point->velocity()) : tr("automatisch");
}

bool MotionPointTableModel::setSectionData(const QModelIndex &index, const QVariant &value)
{
    MotionPoint *point = m_editorModel->motionPointAt(index.row());
    QUndoStack *stack = m_editing->undoStack();
    if (!stack || !cellApplies(index))
        return false;
    MotionPoint changed(*point);
    const QString text = value.toString().trimmed();
    double number = 0.0;
    switch (index.column()) {
    case LawColumn:
        changed.setSectionLaw(value.toInt());
        break;
    case InflectionColumn:
        if (!MotionPointTextParser::parseNumber(text, &number) || !(number > 0.0 && number < 1.0)) {
            MessageBox::warning(m_messageParent, tr("Ungültiger Wendepunkt"),
                                tr("Der Wendepunkt muss zwischen 0 und 1 liegen (ohne die Grenzen)."));
            return false;
        }
        changed.setInflection(number);
        break;
    default:
        // An empty cell hands the velocity back to the segment rules.
        if (text.isEmpty() || text == tr("automatisch")) {
            changed.clearVelocity();
        } else if (MotionPointTextParser::parseNumber(text, &number)) {
            changed.setVelocity(number);
        } else {
            MessageBox::warning(m_messageParent, tr("Ungültige Geschwindigkeit"),
                                tr("Die Geschwindigkeit muss eine Zahl sein; leer lassen für die automatische Wahl."));
            return false;
        }
        break;
    }
    if (point->isEqual(changed))
        return false;
    stack->push(new ChangeSectionCommand(point, changed, m_editorModel->scaling()));
    return true;
}

int MotionPointTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_editorModel ? 0 : m_editorModel->motionPointCount();
}

int MotionPointTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MotionPointTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const MotionPoint *point = m_editorModel->motionPointAt(index.row());
    const Scaling *scaling = m_editorModel->scaling();
    // A section or joint that is wrong shows at its start point's row.
    const QString warning = m_warnings && !m_editing->isBeyondCycle(point->master()) ? m_warnings->textForRow(index.row()) : QString();
    if (!warning.isEmpty()) {
        if (role == Qt::ToolTipRole)
            return warning;
        if (role == Qt::DecorationRole && index.column() == MasterColumn)
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        if (role == Qt::BackgroundRole)
            return WarningBackground;
    }
    if (index.column() >= LawColumn)
        return sectionData(index, role);
    if (role == TableClipboard::CopyRole) {
        // Copied with a decimal point and the data name, as a paste reads them.
        const ParameterModel *drive = m_editing->parameterModel();
        switch (index.column()) {
        case MasterColumn:
            return drive ? QString::number(point->master(), 'f', drive->masterDecimalPlaces())
                         : QString::number(point->master());
        case SlaveColumn:
            return drive ? QString::number(point->slave(), 'f', drive->slaveDecimalPlaces())
                         : QString::number(point->slave());
        default:
            return point->typeDataName();
        }
    }
    // A file may bring points beyond the cycle of a cyclic cam; they load as
    // they are, and their row says what is wrong with them.
    if ((role == Qt::ToolTipRole || (role == Qt::DecorationRole && index.column() == MasterColumn))
        && m_editing->isBeyondCycle(point->master())) {
        if (role == Qt::ToolTipRole)
            return m_editing->beyondCycleText(point->master());
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    }
    if (index.column() == TypeColumn) {
        if (role == Qt::DisplayRole)
            return MotionPoint::typeDisplayName(point->type());
        if (role == Qt::EditRole)
            return MotionPoint::indexForType(point->type());
        return QVariant();
    }
    const bool master = index.column() == MasterColumn;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return master ? scaling->masterPositionToText(point->master()) : scaling->slavePositionToText(point->slave());
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return QVariant();
    }
}

bool MotionPointTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.row() >= rowCount())
        return false;
    if (index.column() >= LawColumn)
        return setSectionData(index, value);
    MotionPoint *point = m_editorModel->motionPointAt(index.row());
    double master = point->master();
    double slave = point->slave();
    int type = point->type();
    switch (index.column()) {
    case MasterColumn:
        if (!m_editing->readMaster(m_messageParent, value.toString(), &master))
            return false;
        break;
    case SlaveColumn:
        if (!m_editing->readSlave(m_messageParent, value.toString(), &slave))
            return false;
        break;
    default:
        type = MotionPoint::typeForIndex(value.toInt());
        break;
    }
    // The cell changes through the description's notifications, not here.
    return m_editing->edit(m_messageParent, point, master, slave, type);
}

Qt::ItemFlags MotionPointTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (index.column() >= LawColumn && (!sectionLawsApply() || !cellApplies(index)))
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable;
}

QVariant MotionPointTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    const ParameterModel *parameters = m_editing->parameterModel();
    const auto withUnit = [](const QString &title, const QString &unit) {
        return unit.isEmpty() ? title : QStringLiteral("%1 [%2]").arg(title, unit);
    };
    switch (section) {
    case MasterColumn:
        return withUnit(tr("Master-Position"), parameters ? parameters->masterUnit() : QString());
    case SlaveColumn:
        return withUnit(tr("Slave-Position"), parameters ? parameters->slaveUnit() : QString());
    case TypeColumn:
        return tr("Segmenttyp");
    case LawColumn:
        return tr("Abschnittsgesetz");
    case InflectionColumn:
        return tr("Wendepunkt");
    default:
        return tr("Geschwindigkeit");
    }
}

void MotionPointTableModel::refresh()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}
