#pragma once

#include "core/RegisterRow.h"

#include <QAbstractTableModel>
#include <QList>
#include <QString>

// The table behind the register: one account's rows in display order, one extra row for the
// transaction being entered, and one edit buffer of text that stands for whichever row is open. It
// never writes to the database and never computes a balance; the rows arrive with theirs.
class RegisterModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Date, Check, Payee, Category, Memo, Payment, Deposit, Cleared, Balance, ColumnCount };

    explicit RegisterModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    void setTransactions(const QList<RegisterRow> &rows);
    // Back to a blank new row dated like the last one entered (or today); the last date stays.
    void clearPending();
    // Copies a model row into the buffer, as text.
    void loadPending(int row);
    void setEditingRow(int row);
    int editingRow() const { return m_editingRow; }
    // -1 for an empty id or none found; the new row is never found.
    int findRowById(const QString &id) const;

    // The new row is first only with the newest at the top, last in every other layout.
    int newRowIndex() const;
    bool isPendingNew(int row) const { return row == newRowIndex() && m_editingRow < 0; }
    // The record behind a model row; null for the new row and outside the list.
    const RegisterRow *recordAt(int row) const;

    bool twoLineMode() const { return m_twoLineMode; }
    void setTwoLineMode(bool on);
    int sortColumn() const { return m_sortColumn; }
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    // The buffer holds what was typed, as typed, until the screen turns it into a record.
    QString pendingText(int column) const;
    // Writes the buffer without telling the view: the caller emits once for a whole fill-in.
    void setPendingText(int column, const QString &text);
    void emitRowChanged(int row);
    QString pendingCategoryId() const { return m_pendingCategoryId; }
    void setPendingCategoryId(const QString &id) { m_pendingCategoryId = id; }
    QString lastEnteredDate() const { return m_lastEnteredDate; }
    void setLastEnteredDate(const QString &date) { m_lastEnteredDate = date; }

    static QString dateText(const QDate &date);

signals:
    void sortChanged(int column, Qt::SortOrder order);

private:
    QVariant bufferData(const QModelIndex &index, int role) const;
    QVariant displayText(const RegisterRow &row, int column, int role) const;
    QString *pendingField(int column);
    QString placeholder(int column) const;
    void sortRows();

    QList<RegisterRow> m_rows;
    int m_sortColumn = Date;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_twoLineMode = false;
    int m_editingRow = -1;
    QString m_pendingDate;
    QString m_pendingCheckNumber;
    QString m_pendingPayee;
    QString m_pendingMemo;
    QString m_pendingCategory;
    QString m_pendingPayment;
    QString m_pendingDeposit;
    QString m_pendingCleared;
    QString m_pendingCategoryId;
    QString m_lastEnteredDate;
};
