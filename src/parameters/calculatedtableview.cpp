#include "calculatedtableview.h"

#include "calculatedtablemodel.h"

#include "widgets/tableclipboard.h"

#include <QHeaderView>

CalculatedTableView::CalculatedTableView(CamEditorModel *editorModel, ParameterModel *parameterModel,
                                         QWidget *parent)
    : QTableView(parent)
    , m_model(new CalculatedTableModel(editorModel, parameterModel, this))
{
    setObjectName(QStringLiteral("calculatedTable"));
    setModel(m_model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setWordWrap(false);
    // Fixed row heights: 16000 rows must not be measured one by one.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    TableClipboard::addCopyAction(this);
}
