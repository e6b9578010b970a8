#include "undoview.h"

#include <QApplication>
#include <QFocusEvent>
#include <QUndoView>
#include <QVBoxLayout>

#include <cmath>

namespace {
// Room beside the longest undo text, so that it is not cut at the edge.
constexpr double WidthMargin = 1.1;
} // namespace

UndoView::UndoView(QUndoStack *undoStack)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowSystemMenuHint)
    , m_undoList(new QUndoView(undoStack, this))
{
    m_undoList->setObjectName(QStringLiteral("undoList"));
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_undoList);
    setFocusPolicy(Qt::StrongFocus);
    // Clicking into the list moves the focus inside the pop-up, which must
    // not close it; only leaving the pop-up as a whole does.
    m_undoList->installEventFilter(this);
}

UndoView::~UndoView() = default;

void UndoView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setFocus(Qt::PopupFocusReason);
    setMinimumWidth(int(std::lround(WidthMargin * m_undoList->sizeHintForColumn(0))));
}

void UndoView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    emit isVisibleChanged(false);
}

void UndoView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    hideUnlessFocusInside();
}

bool UndoView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_undoList && event->type() == QEvent::FocusOut)
        hideUnlessFocusInside();
    return QWidget::eventFilter(watched, event);
}

void UndoView::hideUnlessFocusInside()
{
    const QWidget *focus = QApplication::focusWidget();
    if (focus && (focus == this || isAncestorOf(focus)))
        return;
    hide();
}
