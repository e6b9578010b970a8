#include "comparerow.h"

#include "curves/positionrounding.h"
#include "parameters/parametermodel.h"

#include <QBrush>
#include <QCoreApplication>

#include <cmath>

namespace {

// Light enough to keep the numbers readable.
const QColor DifferenceColor(255, 160, 160);

// In units of the last decimal place, rounded as the write rounds. Adding
// zero turns a negative zero into a positive one, so that no "-0.000" shows.
double scaledDelta(double imported, double parameter, int decimals)
{
    return PositionRounding::units(imported, decimals) - PositionRounding::units(parameter, decimals) + 0.0;
}

} // namespace

CompareRow::CompareRow(const CompareTable *table, int row)
    : m_table(table)
    , m_row(row)
{
}

CompareRow::Cells CompareRow::cells() const
{
    Cells cells;
    const ParameterModel *model = m_table->parameterModel;
    if (!model || m_row >= m_table->imported.size())
        return cells;
    const QPointF imported = m_table->imported.at(m_row);
    cells.texts[MasterImported] = model->masterValueToText(imported.x());
    cells.texts[SlaveImported] = model->slaveValueToText(imported.y());
    if (m_row >= m_table->parameter.size()) {
        cells.toolTip = QCoreApplication::translate("ExternalCurveImportView",
                                                    "Kein Parameterwert: die Stützstelle kommt mit dem Import hinzu.");
        return cells;
    }
    const QPointF parameter = m_table->parameter.at(m_row);
    const int masterDecimals = model->masterDecimalPlaces();
    const int slaveDecimals = model->slaveDecimalPlaces();
    const double masterDelta = scaledDelta(imported.x(), parameter.x(), masterDecimals);
    const double slaveDelta = scaledDelta(imported.y(), parameter.y(), slaveDecimals);
    // Signed, so that the direction of a difference shows at a glance.
    const auto signedText = [](double delta, const QString &text) {
        return delta > 0.0 ? QLatin1Char('+') + text : text;
    };
    cells.texts[MasterParameter] = model->masterValueToText(parameter.x());
    cells.texts[SlaveParameter] = model->slaveValueToText(parameter.y());
    cells.texts[MasterDelta] =
        signedText(masterDelta, model->masterValueToText(masterDelta / PositionRounding::scale(masterDecimals)));
    cells.texts[SlaveDelta] = signedText(slaveDelta, model->slaveValueToText(slaveDelta / PositionRounding::scale(slaveDecimals)));
    if (masterDelta != 0.0 || slaveDelta != 0.0)
        cells.toolTip = QCoreApplication::translate("ExternalCurveImportView",
                                                    "Importierter Wert weicht vom Parameterwert ab: Δ Master %1, "
                                                    "Δ Slave %2")
                            .arg(cells.texts[MasterDelta], cells.texts[SlaveDelta]);
    return cells;
}

QVariant CompareRow::data(int column, int role) const
{
    if (column < 0 || column >= ColumnCount)
        return QTreeWidgetItem::data(column, role);
    switch (role) {
    case Qt::DisplayRole:
        return cells().texts[column];
    case Qt::ToolTipRole:
        return cells().toolTip;
    case Qt::BackgroundRole:
        return cells().toolTip.isEmpty() ? QVariant() : QVariant(QBrush(DifferenceColor));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::DecorationRole:
        return column == MasterParameter ? QVariant(m_table->icon) : QVariant();
    default:
        return QTreeWidgetItem::data(column, role);
    }
}
