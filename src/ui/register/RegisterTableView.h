#pragma once

#include <QTableView>

class RegisterScreen;

// The register's table: Tab and Backtab walk the fields of the open row in the register's own order,
// and the cursor never rests on the Balance column.
class RegisterTableView : public QTableView {
    Q_OBJECT
public:
    explicit RegisterTableView(QWidget *parent = nullptr);

    RegisterScreen *screen = nullptr;

    bool isEditing() const { return state() == EditingState; }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool focusNextPrevChild(bool next) override;
};
