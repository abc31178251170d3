#include "services/SampleDataService.h"

#include "core/Dates.h"
#include "data/Database.h"

#include <QCoreApplication>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

const QString kChecking = QStringLiteral("sample-acct-checking");
const QString kSavings = QStringLiteral("sample-acct-savings");
const QString kVisa = QStringLiteral("sample-acct-visa");

QString sampleId(const char *kind)
{
    return QStringLiteral("sample-%1-%2")
        .arg(QLatin1String(kind), QUuid::createUuid().toString(QUuid::WithoutBraces).left(8));
}

// Category names are looked up as the default tree was seeded: translated in its context.
struct CategoryRef {
    const char *parent;
    const char *name;
};

struct SampleRow {
    const QString &account;
    int day; // offset from today
    const char *payee;
    const char *memo;
    qint64 amount;
    CategoryRef category;
    const char *checkNumber;
    int transfer; // 0 none, else which of the two transfers
};

const CategoryRef kNone{nullptr, nullptr};
const CategoryRef kSalary{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Salary / Wages")};
const CategoryRef kRent{QT_TRANSLATE_NOOP("CategoryService", "Housing"),
                        QT_TRANSLATE_NOOP("CategoryService", "Rent/Mortgage Payment")};
const CategoryRef kGroceries{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Groceries")};
const CategoryRef kFuel{QT_TRANSLATE_NOOP("CategoryService", "Transportation"),
                        QT_TRANSLATE_NOOP("CategoryService", "Gas/Fuel")};
const CategoryRef kElectric{QT_TRANSLATE_NOOP("CategoryService", "Utilities"),
                            QT_TRANSLATE_NOOP("CategoryService", "Electric")};
const CategoryRef kWater{QT_TRANSLATE_NOOP("CategoryService", "Utilities"),
                         QT_TRANSLATE_NOOP("CategoryService", "Water")};
const CategoryRef kStreaming{QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),
                             QT_TRANSLATE_NOOP("CategoryService", "Streaming")};
const CategoryRef kMovies{QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),
                          QT_TRANSLATE_NOOP("CategoryService", "Movies")};
const CategoryRef kInterest{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Interest Income")};
const CategoryRef kDining{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Dining & Restaurants")};
const CategoryRef kSubscriptions{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Subscriptions")};
const CategoryRef kPersonalCare{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Personal Care")};
const CategoryRef kPets{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Pets")};
const CategoryRef kClothing{QT_TRANSLATE_NOOP("CategoryService", "Shopping"),
                            QT_TRANSLATE_NOOP("CategoryService", "Clothing")};
const CategoryRef kHousehold{QT_TRANSLATE_NOOP("CategoryService", "Shopping"),
                             QT_TRANSLATE_NOOP("CategoryService", "Household")};
const CategoryRef kGifts{nullptr, QT_TRANSLATE_NOOP("CategoryService", "Gifts")};

// clang-format off
const SampleRow kRows[] = {
    // Checking: paychecks, rent by check, groceries, fuel, utilities, streaming, the checking legs.
    {kChecking, -60, "Brightpath Inc",        "Biweekly paycheck",   285000, kSalary,     "",     0},
    {kChecking, -59, "Pinecrest Apartments",  "Monthly rent",       -145000, kRent,       "1041", 0},
    {kChecking, -57, "Greenleaf Market",      "",                     -8745, kGroceries,  "",     0},
    {kChecking, -55, "Hilltop Gas",           "",                     -4520, kFuel,       "",     0},
    {kChecking, -54, "Streamline TV",         "Monthly plan",         -1599, kStreaming,  "",     0},
    {kChecking, -52, "Lakeside Utilities",    "Electric",            -11245, kElectric,   "",     0},
    {kChecking, -50, "Greenleaf Market",      "",                     -6432, kGroceries,  "",     0},
    {kChecking, -48, "Lakeside Utilities",    "Water",                -4350, kWater,      "",     0},
    {kChecking, -46, "Brightpath Inc",        "Biweekly paycheck",   285000, kSalary,     "",     0},
    {kChecking, -43, "Greenleaf Market",      "",                     -9218, kGroceries,  "",     0},
    {kChecking, -41, "Hilltop Gas",           "",                     -3875, kFuel,       "",     0},
    {kChecking, -36, "Greenleaf Market",      "",                     -7105, kGroceries,  "",     0},
    {kChecking, -33, "Brightpath Inc",        "Biweekly paycheck",   285000, kSalary,     "",     0},
    {kChecking, -30, "Transfer to Savings",   "",                    -50000, kNone,       "",     1},
    {kChecking, -29, "Pinecrest Apartments",  "Monthly rent",       -145000, kRent,       "1042", 0},
    {kChecking, -27, "Greenleaf Market",      "",                     -8890, kGroceries,  "",     0},
    {kChecking, -26, "Hilltop Gas",           "",                     -4810, kFuel,       "",     0},
    {kChecking, -24, "Streamline TV",         "Monthly plan",         -1599, kStreaming,  "",     0},
    {kChecking, -22, "Lakeside Utilities",    "Electric",            -10890, kElectric,   "",     0},
    {kChecking, -21, "Greenleaf Market",      "",                     -5467, kGroceries,  "",     0},
    {kChecking, -19, "Brightpath Inc",        "Biweekly paycheck",   285000, kSalary,     "",     0},
    {kChecking, -18, "Lakeside Utilities",    "Water",                -4175, kWater,      "",     0},
    {kChecking, -13, "Greenleaf Market",      "",                     -9934, kGroceries,  "",     0},
    {kChecking, -12, "Hilltop Gas",           "",                     -4102, kFuel,       "",     0},
    {kChecking,  -6, "Brightpath Inc",        "Biweekly paycheck",   285000, kSalary,     "",     0},
    {kChecking,  -5, "Greenleaf Market",      "",                     -7281, kGroceries,  "",     0},
    {kChecking,   0, "Transfer to Savings",   "",                    -50000, kNone,       "",     2},
    // Savings: interest and the savings legs.
    {kSavings,  -45, "Riverbend Credit Union", "Monthly interest",      820, kInterest,   "",     0},
    {kSavings,  -30, "Transfer from Checking", "",                    50000, kNone,       "",     1},
    {kSavings,  -15, "Riverbend Credit Union", "Monthly interest",      875, kInterest,   "",     0},
    {kSavings,    0, "Transfer from Checking", "",                    50000, kNone,       "",     2},
    // The card: small purchases and two payments.
    {kVisa,     -55, "Corner Bistro",         "",                     -3275, kDining,        "", 0},
    {kVisa,     -51, "Cloudnest Storage",     "Monthly plan",          -999, kSubscriptions, "", 0},
    {kVisa,     -48, "Maple Street Pharmacy", "",                     -1850, kPersonalCare,  "", 0},
    {kVisa,     -45, "Paws & Claws",          "Dog food",             -4299, kPets,          "", 0},
    {kVisa,     -42, "Corner Bistro",         "",                     -2650, kDining,        "", 0},
    {kVisa,     -40, "Payment - Thank You",   "Credit card payment",  10123, kNone,          "", 0},
    {kVisa,     -37, "Threadline Apparel",    "",                     -2999, kClothing,      "", 0},
    {kVisa,     -34, "Starlite Cinema",       "",                     -3200, kMovies,        "", 0},
    {kVisa,     -28, "Cloudnest Storage",     "Monthly plan",          -999, kSubscriptions, "", 0},
    {kVisa,     -26, "Corner Bistro",         "",                     -4125, kDining,        "", 0},
    {kVisa,     -20, "Hearth & Home Goods",   "",                     -6780, kHousehold,     "", 0},
    {kVisa,     -17, "Maple Street Pharmacy", "",                     -1245, kPersonalCare,  "", 0},
    {kVisa,     -14, "Corner Bistro",         "",                     -2890, kDining,        "", 0},
    {kVisa,     -11, "Payment - Thank You",   "Credit card payment",  12993, kNone,          "", 0},
    {kVisa,      -9, "Paws & Claws",          "Treats",               -2150, kPets,          "", 0},
    {kVisa,      -6, "Threadline Apparel",    "",                     -3499, kClothing,      "", 0},
    {kVisa,      -4, "Starlite Cinema",       "",                     -1800, kMovies,        "", 0},
    {kVisa,      -2, "Bloom Florist",         "Birthday flowers",     -4500, kGifts,         "", 0},
};
// clang-format on

// Older rows are further along: checking's first month reconciled, the rest cleared, the last days
// still open; so a reconciliation finds something to do in every account.
void statusFor(const QString &account, int day, bool *cleared, bool *reconciled)
{
    if (account == kChecking) {
        *reconciled = day <= -30;
        *cleared = day <= -11;
    } else if (account == kSavings) {
        *reconciled = false;
        *cleared = day < 0;
    } else {
        *reconciled = false;
        *cleared = day <= -25;
    }
}

QVariant textOrNull(const QString &text)
{
    return text.isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(text);
}

} // namespace

SampleDataService::SampleDataService(Database *db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

bool SampleDataService::hasSampleData() const
{
    QSqlQuery q(m_db->connection());
    return q.exec(QStringLiteral("SELECT 1 FROM accounts WHERE id LIKE 'sample-%' LIMIT 1")) && q.next();
}

QString SampleDataService::categoryId(const char *parent, const char *name) const
{
    if (!name)
        return {};
    const QString plain = QCoreApplication::translate("CategoryService", name);
    if (parent) {
        const QString nested =
            QCoreApplication::translate("CategoryService", parent) + QLatin1Char('/') + plain;
        if (const auto it = m_categories.constFind(nested); it != m_categories.constEnd())
            return *it;
    }
    return m_categories.value(plain);
}

bool SampleDataService::loadSampleData()
{
    QSqlDatabase &db = m_db->connection();
    m_categories.clear();
    QSqlQuery categories(db);
    if (categories.exec(QStringLiteral(
            "SELECT c.id, c.name, p.name AS parent_name FROM categories c LEFT JOIN categories p ON "
            "c.parent_id = p.id WHERE c.deleted_at IS NULL"))) {
        while (categories.next()) {
            const QString id = categories.value(0).toString();
            const QString name = categories.value(1).toString();
            m_categories.insert(name, id);
            if (!categories.isNull(2))
                m_categories.insert(categories.value(2).toString() + QLatin1Char('/') + name, id);
        }
    }

    const QDate today = QDate::currentDate();
    const QString now = timestampText(utcNow());
    bool ok = db.transaction();

    QSqlQuery account(db);
    account.prepare(QStringLiteral(
        "INSERT INTO accounts (id, name, account_type, currency, institution, account_number_last4, "
        "starting_balance, sort_order, is_shared, version, sync_status, created_at, updated_at) VALUES (?, "
        "?, ?, 'USD', ?, ?, ?, ?, 0, 1, 'pending', ?, ?)"));
    const struct {
        QString id;
        QString name;
        const char *type;
        const char *institution;
        const char *last4;
        qint64 startingBalance;
    } accounts[] = {
        {kChecking, tr("Main Checking"), "checking",    "Riverbend Credit Union", "4521", 250000 },
        {kSavings,  tr("Savings"),       "savings",     "Riverbend Credit Union", "8834", 1000000},
        {kVisa,     tr("Visa Rewards"),  "credit_card", "Summit Bank",            "7712", 0      },
    };
    int sortOrder = 0;
    for (const auto &a : accounts) {
        for (const QVariant &value :
             {QVariant(a.id), QVariant(a.name), QVariant(QLatin1String(a.type)),
              QVariant(QLatin1String(a.institution)), QVariant(QLatin1String(a.last4)),
              QVariant(a.startingBalance), QVariant(sortOrder++), QVariant(now), QVariant(now)})
            account.addBindValue(value);
        ok = ok && account.exec();
    }

    // Each transfer's two rows share one link token, a value of their own that points at neither row.
    const QString transferLinks[] = {QString(), sampleId("xfer"), sampleId("xfer")};
    QSqlQuery transaction(db);
    transaction.prepare(QStringLiteral(
        "INSERT INTO transactions (id, account_id, date, payee, memo, amount, category_id, check_number, "
        "cleared, reconciled, transfer_link_id, transfer_dest_account_id, is_split, recurring_id, version, "
        "sync_status, created_at, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, NULL, 1, "
        "'pending', ?, ?)"));
    for (const SampleRow &row : kRows) {
        bool cleared = false;
        bool reconciled = false;
        statusFor(row.account, row.day, &cleared, &reconciled);
        const QString destination = row.transfer == 0          ? QString()
                                    : row.account == kChecking ? kSavings
                                                               : kChecking;
        for (const QVariant &value :
             {QVariant(sampleId("txn")), QVariant(row.account), QVariant(dateText(today.addDays(row.day))),
              QVariant(QString::fromUtf8(row.payee)), textOrNull(QString::fromUtf8(row.memo)),
              QVariant(row.amount), textOrNull(categoryId(row.category.parent, row.category.name)),
              textOrNull(QString::fromUtf8(row.checkNumber)), QVariant(cleared ? 1 : 0),
              QVariant(reconciled ? 1 : 0), textOrNull(transferLinks[row.transfer]), textOrNull(destination),
              QVariant(now), QVariant(now)})
            transaction.addBindValue(value);
        ok = ok && transaction.exec();
    }

    QSqlQuery recurring(db);
    recurring.prepare(QStringLiteral(
        "INSERT INTO recurring_transactions (id, account_id, payee, memo, amount, category_id, frequency, "
        "start_date, end_date, next_due_date, auto_post, is_active, transfer_dest_account_id, version, "
        "sync_status, created_at, updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, NULL, ?, 0, 1, ?, 1, "
        "'pending', "
        "?, ?)"));
    const struct {
        const char *payee;
        const char *memo;
        qint64 amount;
        CategoryRef category;
        const char *frequency;
        int dueInDays;
        QString destination;
    } rules[] = {
        {"Pinecrest Apartments", "Monthly rent",      -145000, kRent,   "monthly",  1, QString()},
        {"Brightpath Inc",       "Biweekly paycheck", 285000,  kSalary, "biweekly", 8, QString()},
        {"Transfer to Savings",  "Monthly savings",   -50000,  kNone,   "monthly",  1, kSavings },
    };
    for (const auto &rule : rules) {
        for (const QVariant &value :
             {QVariant(sampleId("rec")), QVariant(kChecking), QVariant(QString::fromUtf8(rule.payee)),
              QVariant(QString::fromUtf8(rule.memo)), QVariant(rule.amount),
              textOrNull(categoryId(rule.category.parent, rule.category.name)),
              QVariant(QLatin1String(rule.frequency)), QVariant(dateText(today.addDays(-60))),
              QVariant(dateText(today.addDays(rule.dueInDays))), textOrNull(rule.destination), QVariant(now),
              QVariant(now)})
            recurring.addBindValue(value);
        ok = ok && recurring.exec();
    }
    m_categories.clear();

    if (!ok) {
        qWarning().noquote() << "SampleDataService::loadSampleData failed:" << db.lastError().text()
                             << account.lastError().text() << transaction.lastError().text()
                             << recurring.lastError().text();
        db.rollback();
        return false;
    }
    return db.commit();
}

void SampleDataService::clearSampleData()
{
    // Children first, for the foreign keys; these are true deletions, not soft ones.
    for (const char *sql : {"DELETE FROM split_lines WHERE id LIKE 'sample-%'",
                            "DELETE FROM reconciliations WHERE id LIKE 'sample-%'",
                            "DELETE FROM recurring_transactions WHERE id LIKE 'sample-%'",
                            "DELETE FROM transactions WHERE id LIKE 'sample-%'",
                            "DELETE FROM accounts WHERE id LIKE 'sample-%'",
                            "DELETE FROM sync_queue WHERE entity_id LIKE 'sample-%'"}) {
        QSqlQuery q(m_db->connection());
        q.exec(QLatin1String(sql));
    }
}
