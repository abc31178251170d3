#pragma once

#include <QCompleter>

// A completer that also accepts its highlighted suggestion on Tab and Backtab, then moves on: to the
// memo line of a two-line payee editor, else to the next or previous cell of the register. It always
// matches anywhere in the text, ignoring case, in a popup, and the popup opens with its first
// suggestion highlighted, so that Tab takes it without a Down first.
class TabCompleter : public QCompleter {
    Q_OBJECT
public:
    explicit TabCompleter(QAbstractItemModel *model, QObject *parent = nullptr);
    explicit TabCompleter(const QStringList &items, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applySettings();
    void highlightFirst();
    void acceptText(const QString &text);
    void moveOn(bool backwards);
};
