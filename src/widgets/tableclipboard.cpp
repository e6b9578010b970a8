#include "tableclipboard.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QStringList>

namespace {

QString cellText(const QAbstractItemModel *model, int row, int column)
{
    const QModelIndex index = model->index(row, column);
    const QVariant copy = model->data(index, TableClipboard::CopyRole);
    const QString text = copy.isValid() ? copy.toString() : model->data(index, Qt::DisplayRole).toString();
    // A tab or line break inside a cell would break the row apart.
    return text.simplified();
}

} // namespace

QString TableClipboard::rowsAsText(const QAbstractItemModel *model, const QList<int> &rows)
{
    if (!model)
        return QString();
    const int columns = model->columnCount();
    QStringList lines;
    QStringList cells;
    for (int column = 0; column < columns; ++column)
        cells.append(model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().simplified());
    lines.append(cells.join(QLatin1Char('\t')));
    for (int row : rows) {
        cells.clear();
        for (int column = 0; column < columns; ++column)
            cells.append(cellText(model, row, column));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString TableClipboard::rowsAsText(const QAbstractItemView *view)
{
    const QAbstractItemModel *model = view->model();
    if (!model)
        return QString();
    const int count = model->rowCount();
    // Marked per row from the selection's ranges: a whole 16000-row
    // selection costs no index per cell.
    QVector<bool> selected(count, false);
    bool any = false;
    if (const QItemSelectionModel *selection = view->selectionModel()) {
        for (const QItemSelectionRange &range : selection->selection()) {
            if (range.parent().isValid())
                continue;
            for (int row = range.top(); row <= range.bottom() && row < count; ++row) {
                selected[row] = true;
                any = true;
            }
        }
    }
    QList<int> rows;
    rows.reserve(count);
    for (int row = 0; row < count; ++row) {
        if (!any || selected.at(row))
            rows.append(row);
    }
    return rowsAsText(model, rows);
}

void TableClipboard::copy(const QAbstractItemView *view)
{
    QGuiApplication::clipboard()->setText(rowsAsText(view));
}

namespace {

// Gives the copy action its text again when the view's language changes.
class CopyActionTranslator : public QObject
{
public:
    explicit CopyActionTranslator(QAction *action)
        : QObject(action)
        , m_action(action)
    {
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            m_action->setText(TableClipboard::tr("Kopieren"));
        return QObject::eventFilter(watched, event);
    }

private:
    QAction *m_action;
};

} // namespace

QAction *TableClipboard::addCopyAction(QAbstractItemView *view)
{
    auto *action = new QAction(tr("Kopieren"), view);
    view->installEventFilter(new CopyActionTranslator(action));
    action->setObjectName(QStringLiteral("copyRowsAction"));
    action->setShortcut(QKeySequence::Copy);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, view, [view] { copy(view); });
    view->addAction(action);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}
