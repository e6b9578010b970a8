#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

class QAbstractItemModel;
class QAbstractItemView;
class QAction;

// The tables' rows as tab-separated text: a header line, then the selected
// rows (all of them when none is selected), every column of the model. A
// model gives the text to copy under CopyRole where it differs from what
// the cell shows (numbers with a decimal point, data names), else the shown
// text is copied.
class TableClipboard
{
    Q_DECLARE_TR_FUNCTIONS(TableClipboard)
public:
    static constexpr int CopyRole = Qt::UserRole + 40;

    static QString rowsAsText(const QAbstractItemModel *model, const QList<int> &rows);
    // The rows selected in the view (ascending), or all rows.
    static QString rowsAsText(const QAbstractItemView *view);
    static void copy(const QAbstractItemView *view);

    // "Kopieren" (Ctrl+C) on the view and in its context menu.
    static QAction *addCopyAction(QAbstractItemView *view);
};
