#include "comparisontablemodel.h"

#include "widgets/tableclipboard.h"
#include "curves/motionplan.h"
#include "curves/positionrounding.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodel.h"

#include <QBrush>
#include <QColor>

#include <algorithm>
#include <cmath>

namespace {
const QColor DifferenceColour(255, 215, 215);

// Of the rounded values, so that equal texts never differ by "-0.000".
double difference(double calculated, double stored, int decimals)
{
    return (PositionRounding::units(calculated, decimals) - PositionRounding::units(stored, decimals))
        / PositionRounding::scale(decimals) + 0.0;
}
} // namespace

ComparisonTableModel::ComparisonTableModel(CamEditorModel *editorModel, ParameterModel *parameterModel,
                                           QObject *parent)
    : QAbstractTableModel(parent)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
{
    if (editorModel)
        connect(editorModel, &CamEditorModel::changed, this, &ComparisonTableModel::refresh);
    if (parameterModel) {
        connect(parameterModel, &ParameterModel::valueChanged, this, &ComparisonTableModel::refresh);
        connect(parameterModel, &ParameterModel::sizeChanged, this, &ComparisonTableModel::refresh);
        connect(parameterModel, &ParameterModel::decimalPlacesChanged, this, &ComparisonTableModel::refresh);
        // A write stamps the table after its last valueChanged(): the summary
        // is right only then.
        connect(parameterModel, &ParameterModel::writeProcessFinished, this, &ComparisonTableModel::refresh);
    }
    refresh();
}

void ComparisonTableModel::refresh()
{
    beginResetModel();
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    m_calculated = plan ? plan->positions() : QVector<QPointF>();
    m_stored = m_parameterModel ? m_parameterModel->storedGridPoints() : QPolygonF();
    m_differing.clear();
    const int rows = rowCount();
    // The drive's decimal places, asked once for all rows.
    const int masterDecimals = m_parameterModel ? m_parameterModel->masterDecimalPlaces() : 0;
    const int slaveDecimals = m_parameterModel ? m_parameterModel->slaveDecimalPlaces() : 0;
    for (int row = 0; row < rows; ++row) {
        if (differs(row, masterDecimals, slaveDecimals))
            m_differing.append(row);
    }
    endResetModel();
}

bool ComparisonTableModel::differs(int row, int masterDecimals, int slaveDecimals) const
{
    if (row >= m_calculated.size() || row >= m_stored.size() || !m_parameterModel)
        return true;
    const QPointF calculated = m_calculated.at(row);
    const QPointF stored = m_stored.at(row);
    return !PositionRounding::sameUnit(calculated.x(), stored.x(), masterDecimals)
        || !PositionRounding::sameUnit(calculated.y(), stored.y(), slaveDecimals);
}

bool ComparisonTableModel::rowDiffers(int row) const
{
    return std::binary_search(m_differing.cbegin(), m_differing.cend(), row);
}

int ComparisonTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : std::max(m_calculated.size(), m_stored.size());
}

int ComparisonTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ComparisonTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_parameterModel)
        return QVariant();
    const int row = index.row();
    switch (role) {
    case Qt::BackgroundRole:
        return rowDiffers(row) ? QVariant(QBrush(DifferenceColour)) : QVariant();
    case Qt::ToolTipRole:
        if (!rowDiffers(row))
            return QVariant();
        if (row >= m_stored.size())
            return tr("Diese Stützstelle ist im Antriebsregler nicht gespeichert.");
        if (row >= m_calculated.size())
            return tr("Diese Stützstelle wird nicht mehr berechnet.");
        return tr("Berechnete und gespeicherte Stützstelle unterscheiden sich.");
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::DisplayRole:
    case TableClipboard::CopyRole:
        break;
    default:
        return QVariant();
    }
    const bool hasCalculated = row < m_calculated.size();
    const bool hasStored = row < m_stored.size();
    const QPointF calculated = hasCalculated ? m_calculated.at(row) : QPointF();
    const QPointF stored = hasStored ? m_stored.at(row) : QPointF();
    const ParameterModel *parameters = m_parameterModel;
    // Copied with a decimal point, whatever the locale shows.
    const auto master = [parameters, role](double value) {
        return role == TableClipboard::CopyRole ? QString::number(value, 'f', parameters->masterDecimalPlaces())
                                                : parameters->masterValueToText(value);
    };
    const auto slave = [parameters, role](double value) {
        return role == TableClipboard::CopyRole ? QString::number(value, 'f', parameters->slaveDecimalPlaces())
                                                : parameters->slaveValueToText(value);
    };
    switch (index.column()) {
    case CalculatedMaster:
        return hasCalculated ? master(calculated.x()) : QVariant();
    case CalculatedSlave:
        return hasCalculated ? slave(calculated.y()) : QVariant();
    case StoredMaster:
        return hasStored ? master(stored.x()) : QVariant();
    case StoredSlave:
        return hasStored ? slave(stored.y()) : QVariant();
    case MasterDifference:
        return hasCalculated && hasStored
            ? master(difference(calculated.x(), stored.x(), parameters->masterDecimalPlaces()))
            : QVariant();
    default:
        return hasCalculated && hasStored
            ? slave(difference(calculated.y(), stored.y(), parameters->slaveDecimalPlaces()))
            : QVariant();
    }
}

QVariant ComparisonTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical)
        return section; // the drive's element index, from 0
    switch (section) {
    case CalculatedMaster:
        return tr("Master\nberechnet");
    case CalculatedSlave:
        return tr("Slave\nberechnet");
    case StoredMaster:
        return tr("Master\ngespeichert");
    case StoredSlave:
        return tr("Slave\ngespeichert");
    case MasterDifference:
        return tr("Differenz\nMaster");
    default:
        return tr("Differenz\nSlave");
    }
}
