#include "ui/register/RegisterTableView.h"

#include "ui/register/RegisterScreen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

namespace {
bool insidePayeeMemoEditor(const QWidget *widget)
{
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        if (w->objectName() == QLatin1String("PayeeMemoEditor"))
            return true;
    }
    return false;
}
} // namespace

RegisterTableView::RegisterTableView(QWidget *parent)
    : QTableView(parent)
{
}

bool RegisterTableView::event(QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QTableView::event(event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Tab && key->key() != Qt::Key_Backtab)
        return QTableView::event(event);
    if (insidePayeeMemoEditor(QApplication::focusWidget()))
        return QTableView::event(event);
    // Tab would leave the table; inside it, it means the next field, as the arrow keys do.
    const bool back = key->key() == Qt::Key_Backtab || (key->modifiers() & Qt::ShiftModifier);
    QKeyEvent arrow(QEvent::KeyPress, back ? Qt::Key_Left : Qt::Key_Right, Qt::NoModifier);
    QTableView::event(&arrow);
    if (currentIndex().isValid())
        edit(currentIndex());
    return true;
}

void RegisterTableView::keyPressEvent(QKeyEvent *event)
{
    if (screen && (event->key() == Qt::Key_Backtab ||
                   (event->key() == Qt::Key_Tab && (event->modifiers() & Qt::ShiftModifier)))) {
        screen->advanceToPreviousField();
        event->accept();
        return;
    }
    if (screen && event->key() == Qt::Key_Tab) {
        screen->advanceToNextField();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

QModelIndex RegisterTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = QTableView::moveCursor(cursorAction, modifiers);
    // The balance is computed, never typed: the cursor stops one short of it.
    if (index.isValid() && index.column() == 8)
        return index.siblingAtColumn(7);
    return index;
}

void RegisterTableView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (!screen ||
        (hint != QAbstractItemDelegate::EditNextItem && hint != QAbstractItemDelegate::EditPreviousItem)) {
        QTableView::closeEditor(editor, hint);
        return;
    }
    // The delegate's own Tab goes through the same field order as the view's.
    const QPersistentModelIndex current = currentIndex();
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const bool next = hint == QAbstractItemDelegate::EditNextItem;
    QTimer::singleShot(0, this, [this, current, next] {
        if (current.isValid())
            setCurrentIndex(current);
        if (next)
            screen->advanceToNextField();
        else
            screen->advanceToPreviousField();
    });
}

bool RegisterTableView::focusNextPrevChild(bool next)
{
    if (!screen)
        return QTableView::focusNextPrevChild(next);
    if (insidePayeeMemoEditor(QApplication::focusWidget()))
        return screen->focusNextPrevChild(next);
    if (next)
        screen->advanceToNextField();
    else
        screen->advanceToPreviousField();
    return true;
}
