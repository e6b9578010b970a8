#include "motionpointtablemodel.h"

#include "motionpointediting.h"

#include <QApplication>
#include <QStyle>
#include <QWidget>

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/tableclipboard.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/parametermodel.h"

MotionPointTableModel::MotionPointTableModel(const MotionPointEditing *editing, QWidget *messageParent,
                                             QObject *parent)
    : QAbstractTableModel(parent)
    , m_editing(editing)
    , m_editorModel(editing->editorModel())
    , m_messageParent(messageParent)
{
    if (!m_editorModel)
        return;
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
    default:
        return tr("Segmenttyp");
    }
}

void MotionPointTableModel::refresh()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}
