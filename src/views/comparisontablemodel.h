#pragma once

#include <QAbstractTableModel>
#include <QPointer>
#include <QPolygonF>
#include <QVector>

class CamEditorModel;
class ParameterModel;

// The calculated grid points beside those stored in the drive, row by row,
// with the differences. Rows whose values, rounded to the drive's decimal
// places, differ (or exist on one side only) are marked. It holds the two
// point lists (shared copies) and the differing rows, nothing per cell, so
// that 16000 rows cost one pass per change.
class ComparisonTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        CalculatedMaster,
        CalculatedSlave,
        StoredMaster,
        StoredSlave,
        MasterDifference,
        SlaveDifference,
        ColumnCount
    };

    ComparisonTableModel(CamEditorModel *editorModel, ParameterModel *parameterModel, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    int calculatedCount() const { return m_calculated.size(); }
    int storedCount() const { return m_stored.size(); }
    int differingRowCount() const { return m_differing.size(); }
    // The first differing row, -1 when the drive holds what a write would write.
    int firstDifferingRow() const { return m_differing.isEmpty() ? -1 : m_differing.first(); }
    bool rowDiffers(int row) const;

public slots:
    void refresh();

private:
    // Scales: 10 to the power of the drive's decimal places.
    bool differs(int row, int masterDecimals, int slaveDecimals) const;

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QVector<QPointF> m_calculated;
    QPolygonF m_stored;
    QVector<int> m_differing;  // ascending
};
