#pragma once

#include "core/RecurringTransaction.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QString>

// The recurring rules as the screen lists them, one row a rule; it reads nothing itself.
class RecurringModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column {
        AccountColumn = 0,
        PayeeColumn,
        AmountColumn,
        FrequencyColumn,
        NextDueColumn,
        AutoColumn,
        StatusColumn,
        ColumnCount
    };

    explicit RecurringModel(QObject *parent = nullptr);

    // Replaces every row; accountNames maps an account id to the name shown for it.
    void setRecurring(const QList<RecurringTransaction> &rules, const QHash<QString, QString> &accountNames);
    const RecurringTransaction *recordAt(int row) const;

    // Active and its next date today or earlier: what can be confirmed or skipped.
    static bool isDue(const RecurringTransaction &rule);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString displayText(const RecurringTransaction &rule, int column) const;
    QVariant foreground(const RecurringTransaction &rule, int column) const;

    QList<RecurringTransaction> m_rules;
    QHash<QString, QString> m_accountNames;
};
