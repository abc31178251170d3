#include "ui/register/RegisterLineEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

bool RegisterLineEdit::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        QCompleter *c = completer();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && c && c->popup() && c->popup()->isVisible()) {
            const QModelIndex current = c->popup()->currentIndex();
            if (current.isValid())
                setText(current.data(Qt::DisplayRole).toString());
            c->popup()->hide();
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}
