#pragma once

#include "core/Frequency.h"
#include "core/RecurringTransaction.h"
#include "core/Transaction.h"

#include <QDate>
#include <QList>
#include <QObject>
#include <QString>

class AccountRepository;
class RecurringRepository;
class TransactionRepository;

// Turns due recurring rules into transactions: the ones marked auto-post once at each start, catching up
// on every missed occurrence, the others when the user confirms them. A rule whose date is broken is
// deactivated rather than posted, since a date that never moves forward would post without end.
class RecurringService : public QObject {
    Q_OBJECT
public:
    RecurringService(RecurringRepository *recurring, TransactionRepository *transactions,
                     AccountRepository *accounts, QObject *parent = nullptr);

    // One step of the schedule. Months and years clamp the day to the target month's last, and the
    // clamped day is what the rule keeps from then on.
    static QDate nextDate(const QDate &date, Frequency frequency);
    // The occurrence's key, the same on every device; suffix "dest" names a transfer's second leg.
    static QString deterministicId(const QString &ruleId, const QDate &date, const QString &suffix);
    // Before 2000 or invalid: such a rule is never posted.
    static bool isBrokenDate(const QDate &date);

    // Posts every due occurrence of the auto-post rules; gives the number of transactions posted.
    int processAutoPost();
    // Posts the rule's current occurrence and advances it. False when nothing was posted and the
    // rule did not move: unknown, broken (and now deactivated), already posted, or a transfer
    // between currencies.
    bool confirm(const QString &id);
    // Advances the rule without posting.
    bool skip(const QString &id);
    // The number of rules confirmed.
    int confirmAllDue();
    QList<RecurringTransaction> getAllRecurring() const;
    // Due rules, with or without auto-post.
    int pendingCount() const;

signals:
    void pendingCountChanged(int count);

private:
    Transaction buildTransaction(const RecurringTransaction &rule) const;
    void advance(RecurringTransaction &rule) const;
    void quarantine(const QString &id, const QString &reason);
    int catchUp(const QString &id);
    void emitPendingCount();

    RecurringRepository *m_recurring = nullptr;
    TransactionRepository *m_transactions = nullptr;
    AccountRepository *m_accounts = nullptr;
};
