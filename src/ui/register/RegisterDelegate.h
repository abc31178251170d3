#pragma once

#include <QString>
#include <QStyledItemDelegate>

class AppState;
class RegisterModel;

// Makes the register's in-row editors, moves text between them and the model's buffer, fills a new
// row in from the payee's last transaction, and paints the two-line layout.
class RegisterDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit RegisterDelegate(AppState *state, QObject *parent = nullptr);

    void setAccountId(const QString &accountId) { m_accountId = accountId; }
    void setTwoLineMode(bool on) { m_twoLineMode = on; }
    bool twoLineMode() const { return m_twoLineMode; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

    // Rows follow the font: 36 px for a line at the normal size, 52 with the memo line below it.
    static int lineHeight(const QFont &font);
    static int rowHeight(const QFont &font, bool twoLine);

    // Suggestions for the payee: every payee, with "[Transfer] <account>" for each other account in front.
    QStringList payeeSuggestions() const;
    // Copies amount, category and memo of the payee's last transaction in this account into the new
    // row's buffer; false when the payee has none here.
    bool fillInFromPayee(RegisterModel *model, const QString &payee) const;

private:
    QWidget *createPayeeEditor(QWidget *parent, const QModelIndex &index) const;
    QWidget *createCategoryEditor(QWidget *parent) const;

    AppState *m_state = nullptr;
    QString m_accountId;
    bool m_twoLineMode = false;
};
