#include "calculatedtablemodel.h"

#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "parametermodel.h"
#include "widgets/tableclipboard.h"
#include "resources/camdesignerresources.h"

CalculatedTableModel::CalculatedTableModel(CamEditorModel *editorModel, ParameterModel *parameterModel,
                                           QObject *parent)
    : QAbstractTableModel(parent)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
{
    initializeCamDesignerResources();
    m_errorIcon = QIcon(QStringLiteral(":/Resources/General/Error_16x16.png"));
    m_emptyIcon = QIcon(QStringLiteral(":/Resources/General/Empty_16x16.png"));
    // The plan is replaced on every rebuild, also while a point is dragged
    // (without changed()), and re-sampled on changed(): either way the rows
    // are new.
    if (editorModel) {
        connect(editorModel, &CamEditorModel::motionPlanRebuilt, this, &CalculatedTableModel::onPlanChanged);
        connect(editorModel, &CamEditorModel::changed, this, &CalculatedTableModel::onPlanChanged);
    }
    if (parameterModel)
        connect(parameterModel, &ParameterModel::decimalPlacesChanged, this, &CalculatedTableModel::resetRows);
}

int CalculatedTableModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || !m_editorModel || !m_editorModel->motionPlan())
        return 0;
    return m_editorModel->motionPlan()->positions().size();
}

int CalculatedTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CalculatedTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || !m_parameterModel)
        return QVariant();
    const QPointF point = m_editorModel->motionPlan()->positions().at(index.row());
    const bool master = index.column() == MasterColumn;
    const double value = master ? point.x() : point.y();
    switch (role) {
    case Qt::DisplayRole:
        return master ? m_parameterModel->masterValueToText(value) : m_parameterModel->slaveValueToText(value);
    case TableClipboard::CopyRole:
        // Copied with a decimal point, whatever the locale shows.
        return QString::number(value, 'f', master ? m_parameterModel->masterDecimalPlaces()
                                                  : m_parameterModel->slaveDecimalPlaces());
    case Qt::DecorationRole:
        return check(index, value).isEmpty() ? m_emptyIcon : m_errorIcon;
    case Qt::ToolTipRole:
        return check(index, value);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return QVariant();
    }
}

QVariant CalculatedTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical)
        return section; // the drive's element index, from 0
    return section == MasterColumn ? tr("Master-Position") : tr("Slave-Position");
}

void CalculatedTableModel::onPlanChanged()
{
    // An edit reports the same new plan twice (rebuilt, then changed): the
    // rows are reset once.
    const QPolygonF positions = m_editorModel && m_editorModel->motionPlan() ? m_editorModel->motionPlan()->positions()
                                                                            : QPolygonF();
    if (positions.constData() == m_shown.constData() && positions.size() == m_shown.size())
        return;
    resetRows();
}

void CalculatedTableModel::resetRows()
{
    beginResetModel();
    m_shown = m_editorModel && m_editorModel->motionPlan() ? m_editorModel->motionPlan()->positions() : QPolygonF();
    endResetModel();
}

QString CalculatedTableModel::check(const QModelIndex &index, double value) const
{
    return index.column() == MasterColumn ? m_parameterModel->checkMasterValue(value)
                                          : m_parameterModel->checkSlaveValue(value);
}
