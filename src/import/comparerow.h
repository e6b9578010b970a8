#pragma once

#include <QIcon>
#include <QPointer>
#include <QPolygonF>
#include <QTreeWidgetItem>

class ParameterModel;

// What the comparison rows show: the imported points beside the grid points
// the drive holds, formatted by the drive's parameters.
struct CompareTable {
    QPointer<ParameterModel> parameterModel;
    QPolygonF imported;
    QPolygonF parameter;
    QIcon icon;
};

// One row of the comparison. It keeps no texts of its own but reads its
// cells from the table whenever the view asks, so that a refresh only shows
// and hides rows: a keystroke that moves every pair by one row costs no more
// than one that changes a single value.
class CompareRow : public QTreeWidgetItem
{
public:
    enum Column { MasterParameter, MasterImported, MasterDelta, SlaveParameter, SlaveImported, SlaveDelta, ColumnCount };

    CompareRow(const CompareTable *table, int row);

    QVariant data(int column, int role) const override;

private:
    struct Cells {
        QString texts[ColumnCount];
        QString toolTip;  // empty while imported and stored values agree
    };
    Cells cells() const;

    const CompareTable *m_table;
    int m_row;
};
