#include "ui/register/TabCompleter.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

TabCompleter::TabCompleter(QAbstractItemModel *model, QObject *parent)
    : QCompleter(model, parent)
{
    applySettings();
}

TabCompleter::TabCompleter(const QStringList &items, QObject *parent)
    : QCompleter(items, parent)
{
    applySettings();
}

void TabCompleter::applySettings()
{
    setCaseSensitivity(Qt::CaseInsensitive);
    setFilterMode(Qt::MatchContains);
    setCompletionMode(QCompleter::PopupCompletion);
    // Made now, so that the popup's own reset of its current row on every keystroke runs before ours.
    popup();
    connect(completionModel(), &QAbstractItemModel::modelReset, this, &TabCompleter::highlightFirst);
}

// A popup list shows nothing current until Down is pressed, and Tab would then take nothing. The first
// suggestion is marked without the selection signals, which would write it into the line edit while
// the user is still typing; Up from it still returns to no suggestion and the typed text.
void TabCompleter::highlightFirst()
{
    QAbstractItemView *view = popup();
    const QModelIndex first = completionModel()->index(0, completionColumn());
    if (!first.isValid())
        return;
    {
        const QSignalBlocker quiet(view->selectionModel());
        view->selectionModel()->setCurrentIndex(first, QItemSelectionModel::ClearAndSelect);
    }
    view->viewport()->update();
}

bool TabCompleter::eventFilter(QObject *watched, QEvent *event)
{
    // The open popup holds the keyboard, so a Tab usually arrives here from it; a Tab sent straight to
    // the widget is treated the same.
    if (event->type() == QEvent::KeyPress && popup() && popup()->isVisible() && widget()) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (keyEvent->key() == Qt::Key_Tab || keyEvent->key() == Qt::Key_Backtab) {
            const QModelIndex current = popup()->currentIndex();
            const QString text = current.isValid() ? current.data(Qt::DisplayRole).toString() : QString();
            if (!text.isEmpty())
                acceptText(text);
            popup()->hide();
            moveOn(keyEvent->key() == Qt::Key_Backtab || (keyEvent->modifiers() & Qt::ShiftModifier));
            return true;
        }
    }
    return QCompleter::eventFilter(watched, event);
}

void TabCompleter::acceptText(const QString &text)
{
    QWidget *target = widget();
    if (auto *lineEdit = qobject_cast<QLineEdit *>(target)) {
        lineEdit->setText(text);
    } else if (auto *combo = qobject_cast<QComboBox *>(target)) {
        const int index = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index >= 0)
            combo->setCurrentIndex(index);
        else
            combo->setCurrentText(text);
    }
    emit activated(text);
}

void TabCompleter::moveOn(bool backwards)
{
    QWidget *target = widget();
    for (QWidget *w = target->parentWidget(); w; w = w->parentWidget()) {
        if (w->objectName() == QLatin1String("PayeeMemoEditor")) {
            if (auto *memo = w->findChild<QWidget *>(QStringLiteral("memoEdit")))
                memo->setFocus();
            return;
        }
    }
    for (QWidget *w = target->parentWidget(); w; w = w->parentWidget()) {
        if (auto *view = qobject_cast<QAbstractItemView *>(w)) {
            QAbstractItemDelegate *delegate = view->itemDelegate();
            if (!delegate)
                return;
            const auto hint =
                backwards ? QAbstractItemDelegate::EditPreviousItem : QAbstractItemDelegate::EditNextItem;
            emit delegate->commitData(target);
            emit delegate->closeEditor(target, hint);
            return;
        }
    }
}
