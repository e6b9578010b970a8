#pragma once

#include <QPointer>
#include <QWidget>

class CamEditorModel;
class ComparisonTableModel;
class ParameterModel;
class QLabel;
class QTableView;

// The comparison of calculated and stored grid points: a line that tells at
// a glance whether the drive holds exactly what a write would write now, the
// stored table's summary, and the table of both point lists.
class ComparisonView : public QWidget
{
    Q_OBJECT
public:
    ComparisonView(CamEditorModel *editorModel, ParameterModel *parameterModel, QWidget *parent = nullptr);

    ComparisonTableModel *model() const { return m_model; }
    QTableView *table() const { return m_table; }
    QLabel *statusLabel() const { return m_status; }
    QLabel *summaryLabel() const { return m_summary; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateHeader();

    QPointer<ParameterModel> m_parameterModel;
    ComparisonTableModel *m_model;
    QLabel *m_status;
    QLabel *m_summary;
    QTableView *m_table;
};
