#pragma once

#include <QTableView>

class CalculatedTableModel;
class CamEditorModel;
class ParameterModel;

// The calculated grid points, one row each, with the drive's limit check
// per cell.
class CalculatedTableView : public QTableView
{
    Q_OBJECT
public:
    CalculatedTableView(CamEditorModel *editorModel, ParameterModel *parameterModel, QWidget *parent = nullptr);

    CalculatedTableModel *tableModel() const { return m_model; }

private:
    CalculatedTableModel *m_model;
};
