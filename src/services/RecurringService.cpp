#include "services/RecurringService.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/AccountRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"

#include <QDebug>
#include <QMetaMethod>

namespace {

const QDate kFloorDate(2000, 1, 1);

// One pass posts the first occurrence and at most this many more for a rule; a rule that gets close
// is deactivated, since a year of daily postings in one start is more likely a bad date than a
// real backlog.
constexpr int kCatchUpLimit = 365;
constexpr int kCatchUpCapMark = 364;

QString isoText(const QDate &date)
{
    return date.toString(Qt::ISODate);
}

} // namespace

RecurringService::RecurringService(RecurringRepository *recurring, TransactionRepository *transactions,
                                   AccountRepository *accounts, QObject *parent)
    : QObject(parent)
    , m_recurring(recurring)
    , m_transactions(transactions)
    , m_accounts(accounts)
{
}

QDate RecurringService::nextDate(const QDate &date, Frequency frequency)
{
    switch (frequency) {
    case Frequency::Daily: return date.addDays(1);
    case Frequency::Weekly: return date.addDays(7);
    case Frequency::Biweekly: return date.addDays(14);
    case Frequency::Monthly: return date.addMonths(1);
    case Frequency::Quarterly: return date.addMonths(3);
    case Frequency::SemiAnnual: return date.addMonths(6);
    case Frequency::Annual: return date.addYears(1);
    }
    return date.addMonths(1);
}

QString RecurringService::deterministicId(const QString &ruleId, const QDate &date, const QString &suffix)
{
    return suffixedOccurrenceId(ruleId, date, suffix);
}

bool RecurringService::isBrokenDate(const QDate &date)
{
    return !date.isValid() || date < kFloorDate;
}

Transaction RecurringService::buildTransaction(const RecurringTransaction &rule) const
{
    Transaction t;
    t.id = deterministicId(rule.id, rule.nextDueDate, QString());
    t.accountId = rule.accountId;
    t.date = rule.nextDueDate;
    t.payee = rule.payee;
    t.memo = rule.memo;
    t.amount = rule.amount;
    t.categoryId = rule.categoryId;
    t.recurringId = rule.id;
    t.createdAt = utcNow();
    t.updatedAt = t.createdAt;
    return t;
}

void RecurringService::advance(RecurringTransaction &rule) const
{
    rule.nextDueDate = nextDate(rule.nextDueDate, rule.frequency);
    rule.updatedAt = utcNow();
    rule.syncStatus = SyncStatus::Pending;
    // The occurrence on the end date itself is still posted; only a step past it ends the rule.
    if (rule.endDate && rule.nextDueDate > *rule.endDate)
        rule.isActive = false;
}

bool RecurringService::confirm(const QString &id)
{
    std::optional<RecurringTransaction> rule = m_recurring->getById(id);
    if (!rule)
        return false;
    if (isBrokenDate(rule->nextDueDate)) {
        qWarning().noquote() << "RecurringService::confirm refusing record with broken date:" << rule->id
                             << rule->payee << isoText(rule->nextDueDate) << "— quarantining (deactivating)";
        rule->isActive = false;
        rule->updatedAt = utcNow();
        rule->syncStatus = SyncStatus::Pending;
        m_recurring->update(*rule);
        return false;
    }

    // The key is the occurrence's: when another device posted it first and sync brought it here, the
    // insert fails, the rule stays where it is and nothing is posted twice.
    Transaction source = buildTransaction(*rule);
    if (!m_transactions->insert(source))
        return false;

    if (!rule->transferDestAccountId.isEmpty()) {
        const std::optional<Account> from = m_accounts->getById(rule->accountId);
        const std::optional<Account> to = m_accounts->getById(rule->transferDestAccountId);
        // The source leg stays behind as an ordinary row and the rule does not move, so the next try
        // fails on the key above: the rule keeps failing until the user edits it. That is meant.
        if (from && to && from->currency != to->currency) {
            qWarning().noquote() << "RecurringService: skipping transfer post for" << rule->id
                                 << "— source and destination currencies differ";
            return false;
        }
        Transaction destination;
        destination.id = deterministicId(rule->id, rule->nextDueDate, QStringLiteral("dest"));
        destination.accountId = rule->transferDestAccountId;
        destination.date = rule->nextDueDate;
        destination.payee = rule->payee;
        destination.memo = rule->memo;
        destination.categoryId = rule->categoryId;
        destination.amount = -rule->amount;
        destination.transferLinkId = source.id;
        destination.transferDestAccountId = rule->accountId;
        destination.recurringId = rule->id;
        destination.createdAt = utcNow();
        destination.updatedAt = destination.createdAt;
        m_transactions->insert(destination);

        source.transferLinkId = destination.id;
        source.transferDestAccountId = rule->transferDestAccountId;
        m_transactions->update(source);
    }

    advance(*rule);
    m_recurring->update(*rule);
    emitPendingCount();
    return true;
}

bool RecurringService::skip(const QString &id)
{
    std::optional<RecurringTransaction> rule = m_recurring->getById(id);
    if (!rule)
        return false;
    advance(*rule);
    m_recurring->update(*rule);
    emitPendingCount();
    return true;
}

// The count is a query; the start-up pass runs before anyone listens and posts hundreds of times.
void RecurringService::emitPendingCount()
{
    if (isSignalConnected(QMetaMethod::fromSignal(&RecurringService::pendingCountChanged)))
        emit pendingCountChanged(pendingCount());
}

int RecurringService::confirmAllDue()
{
    int confirmed = 0;
    for (const RecurringTransaction &rule : m_recurring->getDue()) {
        if (confirm(rule.id))
            ++confirmed;
    }
    return confirmed;
}

void RecurringService::quarantine(const QString &id, const QString &reason)
{
    std::optional<RecurringTransaction> rule = m_recurring->getById(id);
    if (!rule)
        return;
    qWarning().noquote() << "Quarantining recurring" << rule->id << rule->payee
                         << "— auto-deactivating. Reason:" << reason
                         << "nextDueDate=" + isoText(rule->nextDueDate);
    rule->isActive = false;
    rule->updatedAt = utcNow();
    rule->syncStatus = SyncStatus::Pending;
    m_recurring->update(*rule);
}

// The occurrences after the first, one confirm each, until the rule is in the future. Gives how many
// were posted.
int RecurringService::catchUp(const QString &id)
{
    const QDate today = QDate::currentDate();
    int extra = 0;
    bool capHit = false;
    QDate lastSeen;
    for (;;) {
        const std::optional<RecurringTransaction> rule = m_recurring->getById(id);
        if (!rule || !rule->isActive || !rule->nextDueDate.isValid())
            break;
        if (rule->nextDueDate < kFloorDate) {
            quarantine(id, QStringLiteral("advanced to broken date during catchup"));
            break;
        }
        // A date that did not move since the last round means the rule is stuck, not behind.
        if (rule->nextDueDate > today || rule->nextDueDate == lastSeen)
            break;
        lastSeen = rule->nextDueDate;
        if (!confirm(id))
            break;
        ++extra;
        if (extra == kCatchUpCapMark)
            capHit = true;
        if (extra >= kCatchUpLimit)
            break;
    }
    if (capHit)
        quarantine(id, QStringLiteral("hit catchup cap in single tick"));
    return extra;
}

int RecurringService::processAutoPost()
{
    int posted = 0;
    for (const RecurringTransaction &rule : m_recurring->getDue()) {
        if (!rule.autoPost)
            continue;
        if (isBrokenDate(rule.nextDueDate)) {
            quarantine(rule.id, QStringLiteral("broken next_due_date"));
            continue;
        }
        if (!confirm(rule.id))
            continue;
        posted += 1 + catchUp(rule.id);
    }
    return posted;
}

QList<RecurringTransaction> RecurringService::getAllRecurring() const
{
    return m_recurring->getAll();
}

int RecurringService::pendingCount() const
{
    return int(m_recurring->getDue().size());
}
