#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QPointer>
#include <QPolygonF>

class CamEditorModel;
class ParameterModel;

// The calculated grid points as a table: master and slave position in the
// drive's text form, each cell checked against the drive's limits (an error
// icon and the check message as tool tip). It reads the current plan on
// demand and keeps no copy of its own, so an edit costs a reset, not 32000
// items.
class CalculatedTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { MasterColumn, SlaveColumn, ColumnCount };

    CalculatedTableModel(CamEditorModel *editorModel, ParameterModel *parameterModel, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void onPlanChanged();
    void resetRows();
    QString check(const QModelIndex &index, double value) const;

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    // The rows last announced (shared with the plan, not a copy).
    QPolygonF m_shown;
    QIcon m_errorIcon;
    QIcon m_emptyIcon;
};
