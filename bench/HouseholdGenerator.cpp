#include "HouseholdGenerator.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/CategoryRepository.h"
#include "data/Database.h"
#include "data/SqlValues.h"
#include "services/CategoryService.h"

#include <QDebug>
#include <QHash>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QUuid>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

// The standard distributions give other numbers under another standard library; the engine's raw
// output does not. So every draw is made from that output with integer arithmetic alone.
class Random {
public:
    explicit Random(quint64 seed)
        : m_engine(seed)
    {
    }

    // Uniform in [0, n): the top of the range that would favour small values is drawn again.
    quint64 below(quint64 n)
    {
        constexpr quint64 max = std::numeric_limits<quint64>::max();
        const quint64 limit = max - max % n;
        quint64 x = m_engine();
        while (x >= limit)
            x = m_engine();
        return x % n;
    }

    qint64 between(qint64 lo, qint64 hi) { return lo + qint64(below(quint64(hi - lo + 1))); }
    bool permille(int p) { return below(1000) < quint64(p); }

    // From lo to hi, most of it near lo with a long tail, as prices are: the product of two uniforms.
    qint64 skewed(qint64 lo, qint64 hi)
    {
        const quint64 product = (below(1 << 16) * below(1 << 16)) >> 16;
        return lo + qint64((quint64(hi - lo) * product) >> 16);
    }

    // A version 4 UUID in the form newId() gives, but from this engine.
    QString uuid()
    {
        QByteArray bytes(16, Qt::Uninitialized);
        qToBigEndian(m_engine(), bytes.data());
        qToBigEndian(m_engine(), bytes.data() + 8);
        bytes[6] = char((bytes[6] & 0x0f) | 0x40);
        bytes[8] = char((bytes[8] & 0x3f) | 0x80);
        return QUuid::fromRfc4122(bytes).toString(QUuid::WithoutBraces);
    }

private:
    std::mt19937_64 m_engine;
};

// An index drawn with a chance proportional to its weight.
class WeightedPick {
public:
    WeightedPick() = default;
    explicit WeightedPick(const std::vector<quint64> &weights)
    {
        for (quint64 w : weights) {
            m_total += w;
            m_cumulative.push_back(m_total);
        }
    }

    bool isEmpty() const { return m_total == 0; }
    int pick(Random &random) const
    {
        const quint64 x = random.below(m_total);
        return int(std::upper_bound(m_cumulative.begin(), m_cumulative.end(), x) - m_cumulative.begin());
    }

private:
    std::vector<quint64> m_cumulative;
    quint64 m_total = 0;
};

// Rank r drawn with weight 1/(r+1): a few payees take much of the spending, most are seen rarely.
WeightedPick zipf(int count)
{
    std::vector<quint64> weights;
    for (int r = 0; r < count; ++r)
        weights.push_back(1'000'000 / quint64(r + 1));
    return WeightedPick(weights);
}

struct AccountSpec {
    const char *name;
    AccountType type;
    const char *institution;
    int weight; // share of ordinary rows among the accounts other than the first
    qint64 startingBalance;
};

// The first is the big account; its share is set by the options, not by its weight.
constexpr AccountSpec kAccounts[] = {
    {"Everyday Checking",  AccountType::Checking,   "Riverside Bank",             0,   250000 },
    {"Visa Rewards",       AccountType::CreditCard, "Summit Card Services",       170, 0      },
    {"Joint Checking",     AccountType::Checking,   "Riverside Bank",             110, 120000 },
    {"Mastercard",         AccountType::CreditCard, "Harbor Credit Union",        90,  0      },
    {"Cash Wallet",        AccountType::Cash,       "",                           80,  5000   },
    {"High-Yield Savings", AccountType::Savings,    "Northgate Online Bank",      30,  1000000},
    {"Store Card",         AccountType::CreditCard, "Westfield Department Store", 40,  0      },
    {"Emergency Fund",     AccountType::Savings,    "Harbor Credit Union",        15,  500000 },
    {"Brokerage",          AccountType::Investment, "Cedar Investments",          20,  0      },
    {"Retirement 401k",    AccountType::Investment, "Cedar Investments",          10,  0      },
    {"Health Savings",     AccountType::Other,      "Summit HSA",                 20,  0      },
    {"Vacation Fund",      AccountType::Savings,    "Northgate Online Bank",      10,  0      },
};
constexpr int kAccountSpecs = int(std::size(kAccounts));

// Where a random transfer lands, by the type of the receiving account.
quint64 transferInWeight(AccountType type)
{
    switch (type) {
    case AccountType::CreditCard: return 40;
    case AccountType::Savings: return 25;
    case AccountType::Cash: return 20;
    default: return 10;
    }
}

// Cents moved by one random transfer, by the type of the receiving account.
std::pair<qint64, qint64> transferRange(AccountType type)
{
    switch (type) {
    case AccountType::CreditCard: return {5000, 200000};
    case AccountType::Cash: return {2000, 30000};
    case AccountType::Savings: return {10000, 300000};
    case AccountType::Investment: return {20000, 500000};
    default: return {5000, 100000};
    }
}

bool canPayOut(AccountType type)
{
    return type == AccountType::Checking || type == AccountType::Savings;
}

bool isReconciled(AccountType type)
{
    return type == AccountType::Checking || type == AccountType::Savings || type == AccountType::CreditCard;
}

// A kind of spending or income: its category ("Parent>Child" below a parent), its share of ordinary
// rows, and its payees. With payees 0, names are the payee names themselves; otherwise payees are
// made by putting a place in front of a name, so that one word recurs over many payees.
struct PayeeKind {
    const char *category;
    int weight;
    int payees;
    const char *names;
    qint64 minCents;
    qint64 maxCents;
    bool income;
};

// The heaviest kind first: the search word comes from its top payee.
constexpr PayeeKind kKinds[] = {
    {"Groceries",                     200, 30, "Market|Grocers|Foods|Farm Stand|Supermarket",      800,   25000,  false},
    {"Dining & Restaurants",          170, 70, "Cafe|Bistro|Diner|Pizzeria|Coffee|Grill|Bakery",   600,   12000,  false},
    {"Transportation>Gas/Fuel",       90,  15, "Fuel|Gas Station|Petroleum",                       2000,  9000,   false},
    {"Shopping>Household",            80,  20, "Hardware|Home Goods|Variety Store|General Store",  500,   20000,  false},
    {"Shopping>Clothing",             40,  20, "Outfitters|Apparel|Shoe Company",                  1500,  20000,  false},
    {"Shopping>Electronics",          20,  10, "Electronics|Computer Shop",                        1000,  150000, false},
    {"Personal Care",                 40,  15, "Salon|Barber Shop|Spa",                            800,   9000,   false},
    {"Medical Expenses",              30,  15, "Pharmacy|Family Dental|Medical Group|Eye Care",    1500,  40000,  false},
    {"Pets",                          25,  10, "Pet Supply|Veterinary Clinic",                     1000,  30000,  false},
    {"Entertainment>Movies",          20,  8,  "Cinema|Theater",                                   1200,  4500,   false},
    {"Entertainment>Events",          15,  8,  "Ticketing|Arena|Concert Hall",                     2000,  30000,  false},
    {"Transportation>Public Transit", 30,  5,  "Transit|Parking",                                  250,   1000,   false},
    {"Transportation>Maintenance",    15,  10, "Auto Repair|Tire Center|Car Wash",                 3000,  90000,  false},
    {"Housing>Maintenance",           15,  12, "Plumbing|Lawn Care|Roofing|Handyman",              2000,  60000,  false},
    {"Gifts",                         20,  10, "Gift Shop|Florist|Toy Store",                      1000,  15000,  false},
    {"Education Expenses",            10,  6,  "Bookstore|Community College|Learning Center",      2000,  80000,  false},
    {"Charitable Donations",          10,  6,  "Food Bank|Animal Shelter|Library Fund",            1000,  20000,  false},
    {"Business Expenses>Home Office", 10,  6,  "Office Supply|Print Shop",                         1000,  30000,  false},
    {"Miscellaneous",                 20,  15, "Kiosk|Trading Post|Emporium",                      300,   10000,  false},
    {"Fees & Charges>Bank Fees",      5,   0,  "Service Fee|Overdraft Fee|Wire Fee",               300,   3500,   false},
    {"Fees & Charges>ATM Fees",       5,   0,  "ATM Fee|Out-of-Network ATM Fee",                   200,   500,    false},
    {"Subscriptions",                 10,  0,  "App Store|Magazine Subscription|Software License", 99,    9999,   false},
    {"Refunds",                       15,  0,  "Store Refund|Returned Item|Price Adjustment",      500,   20000,  true },
    {"Freelance / Consulting",        8,   0,  "Freelance Client|Consulting|Design Project",       20000, 300000, true },
    {"Gifts Received",                4,   0,  "Gift from Family|Birthday Gift",                   2000,  30000,  true },
    {"Other Income",                  4,   0,  "Cashback Reward|Rebate|Garage Sale",               500,   10000,  true },
};

constexpr const char *kPlaces[] = {
    "Greenleaf",    "Oak Street", "Riverside", "Maple",     "Sunrise",  "Harbor",
    "Summit",       "Blue Door",  "Corner",    "Old Town",  "Lakeside", "Pine Hill",
    "Main Street",  "Golden",     "Northgate", "Westfield", "Cedar",    "Red Barn",
    "Silver Spoon", "Parkview",   "Hillcrest", "Brookside", "Union",    "Elm",
    "Willow",       "Station",    "Bayview",   "Highland",  "Meadow",   "Copper",
};

constexpr const char *kMemos[] = {
    "weekly shop",       "reimbursable",   "birthday", "school trip",       "shared with roommate",
    "receipt in drawer", "business lunch", "holiday",  "returned one item", "for the garden",
};

// A rule as it is first set up; later generations of it cost more. Accounts are indexes into
// kAccounts; a transfer names the receiving account, and the amount is the paying side's.
struct RuleTemplate {
    const char *payee;
    const char *category;
    qint64 amount;
    Frequency frequency;
    int account;
    int transferTo; // -1: not a transfer
    bool autoPost;
};

constexpr RuleTemplate kRules[] = {
    {"Northwind Payroll",       "Salary / Wages",                450000,  Frequency::Biweekly,   0, -1, true },
    {"Brightwater Payroll",     "Salary / Wages",                320000,  Frequency::Biweekly,   2, -1, true },
    {"Hillcrest Mortgage",      "Housing>Rent/Mortgage Payment", -185000, Frequency::Monthly,    0, -1, true },
    {"City Power & Light",      "Utilities>Electric",            -9500,   Frequency::Monthly,    0, -1, false},
    {"Metro Gas Service",       "Utilities>Gas",                 -6000,   Frequency::Monthly,    0, -1, false},
    {"Municipal Water",         "Utilities>Water",               -12000,  Frequency::Quarterly,  0, -1, false},
    {"FiberLink Internet",      "Utilities>Internet",            -6999,   Frequency::Monthly,    1, -1, true },
    {"Skyline Mobile",          "Utilities>Phone",               -8500,   Frequency::Monthly,    1, -1, true },
    {"StreamBox",               "Entertainment>Streaming",       -1599,   Frequency::Monthly,    1, -1, true },
    {"TuneWave Music",          "Subscriptions",                 -1099,   Frequency::Monthly,    3, -1, true },
    {"Harbor Auto Finance",     "Transportation>Car Payment",    -38500,  Frequency::Monthly,    0, -1, true },
    {"Safeguard Auto",          "Transportation>Auto Insurance", -62000,  Frequency::SemiAnnual, 0, -1, false},
    {"Safeguard Home",          "Insurance>Home/Renters",        -145000, Frequency::Annual,     0, -1, false},
    {"Evergreen Life",          "Insurance>Life",                -4500,   Frequency::Monthly,    2, -1, true },
    {"Keystone Health Plan",    "Insurance>Health",              -32000,  Frequency::Monthly,    2, -1, true },
    {"Lakeside HOA",            "Housing>HOA",                   -45000,  Frequency::Quarterly,  2, -1, false},
    {"County Tax Collector",    "Property Tax",                  -210000, Frequency::SemiAnnual, 2, -1, false},
    {"Summit Fitness",          "Personal Care",                 -4900,   Frequency::Monthly,    1, -1, true },
    {"Savings Transfer",        "",                              -50000,  Frequency::Monthly,    0, 5,  true },
    {"Retirement Contribution", "",                              -60000,  Frequency::Monthly,    0, 9,  true },
    {"Savings Interest",        "Interest Income",               250,     Frequency::Monthly,    5, -1, true },
    {"Cedar Dividends",         "Dividend Income",               8500,    Frequency::Quarterly,  8, -1, true },
    {"Food Bank Pledge",        "Charitable Donations",          -2500,   Frequency::Monthly,    0, -1, true },
    {"Daily Ledger",            "Subscriptions",                 -1500,   Frequency::Monthly,    3, -1, true },
    {"Cash Allowance",          "",                              -5000,   Frequency::Weekly,     0, 4,  true },
    {"HSA Contribution",        "",                              -10000,  Frequency::Biweekly,   2, 10, true },
    {"Maple Street Tenant",     "Rental Income",                 140000,  Frequency::Monthly,    2, -1, false},
    {"CloudVault Storage",      "Subscriptions",                 -299,    Frequency::Monthly,    1, -1, true },
    {"Pawsure Pet Insurance",   "Pets",                          -3500,   Frequency::Monthly,    6, -1, true },
    {"Emergency Fund Transfer", "",                              -20000,  Frequency::Monthly,    2, 7,  true },
};
constexpr int kRuleTemplates = int(std::size(kRules));

// The posting service's step: months and years clamp the day, and the next date comes from the last.
QDate nextDate(const QDate &date, Frequency frequency)
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

QDateTime utcAt(const QDate &date, int hour)
{
    return QDateTime(date, QTime(hour, 0), Qt::UTC);
}

struct Payee {
    QString name;
    QString categoryId;
};

struct Kind {
    QList<Payee> payees;
    WeightedPick rank;
    qint64 minCents = 0;
    qint64 maxCents = 0;
    bool income = false;
};

struct AccountState {
    Account account;
    qint64 balance = 0;
    QDate lastStatement; // rows up to it are reconciled; invalid: none are
    int nextCheck = 1001;
    int rows = 0;
};

struct Rule {
    RecurringTransaction record;
    int account = 0;
    int transferTo = -1;
};

struct PendingReconciliation {
    int account = 0;
    QDate statementDate;
};

class Household {
public:
    Household(HouseholdGenerator::Sink &sink, const QList<Category> &categories,
              const HouseholdGenerator::Options &options)
        : m_sink(sink)
        , m_options(options)
        , m_random(options.seed)
        , m_lastDate(options.lastDate)
        , m_firstDate(options.lastDate.addYears(-std::max(1, options.years)).addDays(1))
        , m_days(int(m_firstDate.daysTo(m_lastDate)) + 1)
    {
        indexCategories(categories);
    }

    HouseholdGenerator::Summary run();

private:
    void indexCategories(const QList<Category> &categories);
    QString categoryId(const char *key) const { return m_categoryIds.value(QString::fromUtf8(key)); }
    void makeAccounts();
    void makeKinds();
    void planRules();
    void planReconciliations();
    bool postRule(int ruleIndex, const QDate &date, const QDateTime &stamp);
    bool addRandomRow(const QDate &date, const QDateTime &stamp);
    bool addTransfer(const QDate &date, const QDateTime &stamp);
    bool addPurchase(const QDate &date, const QDateTime &stamp);
    bool addSplitLines(const Transaction &parent);
    bool write(const Transaction &row, int account);
    bool writeReconciliation(const PendingReconciliation &pending, qint64 balance);
    int pickAccount(bool payingOut);
    Transaction makeRow(int account, const QDate &date, const QDateTime &stamp, const QString &payee,
                        qint64 amount, const QString &categoryId);

    HouseholdGenerator::Sink &m_sink;
    HouseholdGenerator::Options m_options;
    Random m_random;
    QDate m_lastDate;
    QDate m_firstDate;
    int m_days;

    QHash<QString, QString> m_categoryIds; // "Parent>Child" or a top-level name to id
    QStringList m_expenseCategoryIds;      // for split lines
    std::vector<AccountState> m_accounts;
    WeightedPick m_otherAccounts; // ordinary rows outside the big account
    std::vector<Kind> m_kinds;
    WeightedPick m_kindPick;
    std::vector<Rule> m_rules;
    std::vector<std::vector<int>> m_dueRules;                     // by day: rules with an occurrence
    std::vector<std::vector<PendingReconciliation>> m_statements; // by day
    QSet<QString> m_payees;
    HouseholdGenerator::Summary m_summary;
    qint64 m_rowsWritten = 0;
};

void Household::indexCategories(const QList<Category> &categories)
{
    QHash<QString, QString> names;
    for (const Category &c : categories)
        names.insert(c.id, c.name);
    QList<std::pair<QString, QString>> expense;
    for (const Category &c : categories) {
        const QString key =
            c.parentId.isEmpty() ? c.name : names.value(c.parentId) + QLatin1Char('>') + c.name;
        m_categoryIds.insert(key, c.id);
        if (c.categoryType == CategoryType::Expense)
            expense.append({key, c.id});
    }
    // By key, not by the table's order, which leaves the two "Maintenance" rows in either order.
    std::sort(expense.begin(), expense.end());
    for (const auto &[key, id] : std::as_const(expense))
        m_expenseCategoryIds.append(id);
}

void Household::makeAccounts()
{
    std::vector<quint64> weights;
    const int count = std::max(1, m_options.accounts);
    for (int i = 0; i < count; ++i) {
        const AccountSpec &spec = kAccounts[i % kAccountSpecs];
        AccountState state;
        Account &a = state.account;
        a.id = m_random.uuid();
        a.name = QString::fromUtf8(spec.name);
        if (i >= kAccountSpecs)
            a.name += QStringLiteral(" %1").arg(i / kAccountSpecs + 1);
        a.accountType = spec.type;
        a.institution = QString::fromUtf8(spec.institution);
        a.accountNumberLast4 = QStringLiteral("%1").arg(m_random.below(10000), 4, 10, QLatin1Char('0'));
        a.startingBalance = spec.startingBalance;
        a.sortOrder = i;
        a.createdAt = utcAt(m_firstDate, 6);
        a.updatedAt = a.createdAt;
        state.balance = a.startingBalance;
        m_accounts.push_back(state);
        weights.push_back(i == 0 ? 0 : quint64(spec.weight));
    }
    m_otherAccounts = WeightedPick(weights);
}

void Household::makeKinds()
{
    std::vector<quint64> weights;
    for (const PayeeKind &spec : kKinds) {
        Kind kind;
        kind.minCents = spec.minCents;
        kind.maxCents = spec.maxCents;
        kind.income = spec.income;
        const QString category = categoryId(spec.category);
        const QStringList names = QString::fromUtf8(spec.names).split(QLatin1Char('|'));
        QStringList payees;
        if (spec.payees == 0) {
            payees = names;
        } else {
            for (const char *place : kPlaces) {
                for (const QString &name : names)
                    payees.append(QString::fromUtf8(place) + QLatin1Char(' ') + name);
            }
            // Fisher-Yates with our own draws, so the popular payees differ from seed to seed.
            for (qsizetype i = payees.size() - 1; i > 0; --i)
                payees.swapItemsAt(i, qsizetype(m_random.below(quint64(i + 1))));
            payees.resize(std::min<qsizetype>(spec.payees, payees.size()));
        }
        for (const QString &name : std::as_const(payees))
            kind.payees.append({name, category});
        kind.rank = zipf(int(kind.payees.size()));
        m_kinds.push_back(kind);
        weights.push_back(quint64(spec.weight));
    }
    m_kindPick = WeightedPick(weights);
    m_summary.searchWord = m_kinds.front().payees.front().name.section(QLatin1Char(' '), -1).toLower();
}

// Each template is set up again now and then at a higher amount: the older rule ends the day before
// its successor starts, and only the newest of a payee is still active.
void Household::planRules()
{
    m_dueRules.assign(size_t(m_days), {});
    const int count = std::max(0, m_options.recurringRules);
    // The first generation of each payee starts in the first quarter; the later ones share out the rest.
    std::vector<int> offsets;
    for (int t = 0; t < kRuleTemplates; ++t)
        offsets.push_back(int(m_random.below(quint64(std::max(1, m_days / 4)))));
    for (int i = 0; i < count; ++i) {
        const int t = i % kRuleTemplates;
        const int generation = i / kRuleTemplates;
        const int generations = (count - t + kRuleTemplates - 1) / kRuleTemplates;
        const RuleTemplate &spec = kRules[t];

        const int offset = offsets[size_t(t)];
        const auto startOf = [&](int g) {
            return m_firstDate.addDays(offset + qint64(m_days - offset) * g / generations);
        };
        const QDate start = startOf(generation);
        const bool last = generation == generations - 1;

        Rule rule;
        rule.account = spec.account % int(m_accounts.size());
        if (spec.transferTo >= 0 && m_accounts.size() > 1) {
            rule.transferTo = spec.transferTo % int(m_accounts.size());
            if (rule.transferTo == rule.account)
                rule.transferTo = (rule.account + 1) % int(m_accounts.size());
        }
        RecurringTransaction &r = rule.record;
        r.id = m_random.uuid();
        r.accountId = m_accounts[size_t(rule.account)].account.id;
        r.payee = QString::fromUtf8(spec.payee);
        r.amount = spec.amount * (100 + 15 * generation) / 100;
        r.categoryId = categoryId(spec.category);
        r.frequency = spec.frequency;
        r.startDate = start;
        if (!last)
            r.endDate = startOf(generation + 1).addDays(-1);
        r.autoPost = spec.autoPost;
        if (rule.transferTo >= 0)
            r.transferDestAccountId = m_accounts[size_t(rule.transferTo)].account.id;
        r.createdAt = utcAt(start, 7);
        r.updatedAt = r.createdAt;

        // Every occurrence up to the end is posted, as the posting service would have done.
        const QDate end = r.endDate && *r.endDate < m_lastDate ? *r.endDate : m_lastDate;
        QDate due = start;
        for (; due <= end; due = nextDate(due, r.frequency)) {
            m_dueRules[size_t(m_firstDate.daysTo(due))].push_back(int(m_rules.size()));
            r.updatedAt = utcAt(due, 7);
        }
        r.nextDueDate = due;
        r.isActive = !r.endDate || due <= *r.endDate;
        m_rules.push_back(rule);
    }
}

// Statements fall monthly on a day of the account's own, the newest one a month or two back; the
// rows up to the newest are all reconciled, as if older statements had been balanced elsewhere.
void Household::planReconciliations()
{
    m_statements.assign(size_t(m_days), {});
    std::vector<int> reconcilable;
    for (size_t i = 0; i < m_accounts.size(); ++i) {
        if (isReconciled(m_accounts[i].account.accountType))
            reconcilable.push_back(int(i));
    }
    if (reconcilable.empty())
        return;
    std::vector<int> counts(reconcilable.size(), 0);
    for (int r = 0; r < m_options.reconciliations; ++r)
        ++counts[size_t(r) % reconcilable.size()];

    for (size_t i = 0; i < reconcilable.size(); ++i) {
        AccountState &state = m_accounts[size_t(reconcilable[i])];
        const QDate previousMonth = m_lastDate.addMonths(-1);
        QDate newest(previousMonth.year(), previousMonth.month(), int(m_random.between(1, 28)));
        if (newest > m_lastDate.addDays(-20))
            newest = newest.addMonths(-1);
        for (int j = 0; j < counts[i]; ++j) {
            const QDate statement = newest.addMonths(-j);
            if (statement < m_firstDate)
                break;
            if (j == 0)
                state.lastStatement = statement;
            m_statements[size_t(m_firstDate.daysTo(statement))].push_back({reconcilable[i], statement});
        }
    }
}

HouseholdGenerator::Summary Household::run()
{
    if (!m_lastDate.isValid() || !m_sink.begin())
        return m_summary;
    makeAccounts();
    makeKinds();
    planRules();
    planReconciliations();

    for (const AccountState &state : m_accounts) {
        if (!m_sink.addAccount(state.account))
            return m_summary;
    }
    for (const Rule &rule : m_rules) {
        if (!m_sink.addRecurring(rule.record))
            return m_summary;
    }

    const qint64 total = std::max(0, m_options.transactions);
    for (int day = 0; day < m_days; ++day) {
        const QDate date = m_firstDate.addDays(day);
        // Entered through the day in order; a busy day's last rows share one second.
        int entry = 0;
        const auto stamp = [&] { return utcAt(date, 7).addSecs(std::min(entry++, 120) * 331); };
        for (int ruleIndex : m_dueRules[size_t(day)]) {
            if (!postRule(ruleIndex, date, stamp()))
                return m_summary;
        }
        const qint64 target = (total * (day + 1) + m_days / 2) / m_days;
        while (m_rowsWritten < target) {
            if (!addRandomRow(date, stamp()))
                return m_summary;
        }
        for (const PendingReconciliation &pending : m_statements[size_t(day)]) {
            if (!writeReconciliation(pending, m_accounts[size_t(pending.account)].balance))
                return m_summary;
        }
    }
    if (!m_sink.commit())
        return m_summary;

    m_summary.ok = true;
    m_summary.bigAccountId = m_accounts.front().account.id;
    m_summary.bigAccountRows = m_accounts.front().rows;
    m_summary.accounts = int(m_accounts.size());
    m_summary.transactions = int(m_rowsWritten);
    m_summary.recurringRules = int(m_rules.size());
    m_summary.payees = int(m_payees.size());
    return m_summary;
}

Transaction Household::makeRow(int account, const QDate &date, const QDateTime &stamp, const QString &payee,
                               qint64 amount, const QString &categoryId)
{
    const AccountState &state = m_accounts[size_t(account)];
    Transaction t;
    t.accountId = state.account.id;
    t.date = date;
    t.payee = payee;
    t.amount = amount;
    t.categoryId = categoryId;
    if (state.lastStatement.isValid() && date <= state.lastStatement) {
        t.cleared = true;
        t.reconciled = true;
    } else {
        // The last days have not reached the bank yet.
        t.cleared = m_random.permille(date.daysTo(m_lastDate) < 10 ? 400 : 940);
    }
    t.createdAt = stamp;
    t.updatedAt = stamp;
    return t;
}

bool Household::write(const Transaction &row, int account)
{
    if (!m_sink.addTransaction(row))
        return false;
    AccountState &state = m_accounts[size_t(account)];
    state.balance += row.amount;
    ++state.rows;
    ++m_rowsWritten;
    m_payees.insert(row.payee);
    return true;
}

bool Household::postRule(int ruleIndex, const QDate &date, const QDateTime &stamp)
{
    const Rule &rule = m_rules[size_t(ruleIndex)];
    const RecurringTransaction &r = rule.record;
    Transaction source = makeRow(rule.account, date, stamp, r.payee, r.amount, r.categoryId);
    source.id = recurringOccurrenceId(r.id, date);
    source.recurringId = r.id;
    if (rule.transferTo < 0) {
        ++m_summary.recurringRows;
        return write(source, rule.account);
    }
    Transaction destination = makeRow(rule.transferTo, date, stamp, r.payee, -r.amount, r.categoryId);
    destination.id = recurringOccurrenceId(r.id, date, true);
    destination.recurringId = r.id;
    destination.transferLinkId = source.id;
    destination.transferDestAccountId = source.accountId;
    source.transferLinkId = destination.id;
    source.transferDestAccountId = destination.accountId;
    m_summary.recurringRows += 2;
    ++m_summary.transferPairs;
    return write(source, rule.account) && write(destination, rule.transferTo);
}

// The big account takes rows until it holds its share; the others share the rest by weight.
int Household::pickAccount(bool payingOut)
{
    const qint64 bigRows = m_accounts.front().rows;
    if (bigRows * 1000 < qint64(m_options.bigAccountPermille) * m_rowsWritten || m_otherAccounts.isEmpty())
        return 0;
    for (int attempt = 0; attempt < 20; ++attempt) {
        const int a = m_otherAccounts.pick(m_random);
        if (!payingOut || canPayOut(m_accounts[size_t(a)].account.accountType))
            return a;
    }
    return 0;
}

bool Household::addRandomRow(const QDate &date, const QDateTime &stamp)
{
    if (m_accounts.size() > 1 && m_random.permille(70))
        return addTransfer(date, stamp);
    return addPurchase(date, stamp);
}

// Made as the register makes one: the receiving row is written first, and each row names the other.
bool Household::addTransfer(const QDate &date, const QDateTime &stamp)
{
    const int from = pickAccount(true);
    std::vector<quint64> weights;
    for (size_t i = 0; i < m_accounts.size(); ++i)
        weights.push_back(int(i) == from ? 0 : transferInWeight(m_accounts[i].account.accountType));
    const int to = WeightedPick(weights).pick(m_random);

    const AccountState &payer = m_accounts[size_t(from)];
    const AccountState &payee = m_accounts[size_t(to)];
    const auto [lo, hi] = transferRange(payee.account.accountType);
    const qint64 amount = m_random.skewed(lo, hi);

    Transaction out =
        makeRow(from, date, stamp, QStringLiteral("Transfer to %1").arg(payee.account.name), -amount, {});
    Transaction in =
        makeRow(to, date, stamp, QStringLiteral("Transfer from %1").arg(payer.account.name), amount, {});
    out.id = m_random.uuid();
    in.id = m_random.uuid();
    out.transferLinkId = in.id;
    out.transferDestAccountId = in.accountId;
    in.transferLinkId = out.id;
    in.transferDestAccountId = out.accountId;
    ++m_summary.transferPairs;
    return write(in, to) && write(out, from);
}

bool Household::addPurchase(const QDate &date, const QDateTime &stamp)
{
    const int account = pickAccount(false);
    const Kind &kind = m_kinds[size_t(m_kindPick.pick(m_random))];
    const Payee &payee = kind.payees[kind.rank.pick(m_random)];
    const qint64 cents = m_random.skewed(kind.minCents, kind.maxCents);

    Transaction t = makeRow(account, date, stamp, payee.name, kind.income ? cents : -cents, payee.categoryId);
    t.id = m_random.uuid();
    AccountState &state = m_accounts[size_t(account)];
    if (!kind.income && state.account.accountType == AccountType::Checking && m_random.permille(30))
        t.checkNumber = QString::number(state.nextCheck++);
    if (m_random.permille(120))
        t.memo = QString::fromUtf8(kMemos[m_random.below(std::size(kMemos))]);
    // Lines of at least a few cents each need a parent of ten dollars or more.
    const bool split =
        !kind.income && cents >= 1000 && !m_expenseCategoryIds.isEmpty() && m_random.permille(55);
    if (split) {
        t.isSplit = true;
        t.categoryId.clear();
    }
    if (!write(t, account))
        return false;
    return !split || addSplitLines(t);
}

// Two to four lines by random weights; the last takes what rounding left, so they sum to the parent.
bool Household::addSplitLines(const Transaction &parent)
{
    const int count = int(m_random.between(2, 4));
    std::vector<qint64> weights;
    qint64 sum = 0;
    for (int i = 0; i < count; ++i) {
        weights.push_back(m_random.between(10, 100));
        sum += weights.back();
    }
    qint64 left = parent.amount;
    for (int i = 0; i < count; ++i) {
        SplitLine line;
        line.id = m_random.uuid();
        line.transactionId = parent.id;
        line.categoryId =
            m_expenseCategoryIds[qsizetype(m_random.below(quint64(m_expenseCategoryIds.size())))];
        line.amount = i == count - 1 ? left : parent.amount * weights[size_t(i)] / sum;
        left -= line.amount;
        if (m_random.permille(300))
            line.memo = QString::fromUtf8(kMemos[m_random.below(std::size(kMemos))]);
        line.createdAt = parent.createdAt;
        line.updatedAt = parent.updatedAt;
        if (!m_sink.addSplitLine(line))
            return false;
        ++m_summary.splitLines;
    }
    ++m_summary.splitTransactions;
    return true;
}

bool Household::writeReconciliation(const PendingReconciliation &pending, qint64 balance)
{
    Reconciliation r;
    r.id = m_random.uuid();
    r.accountId = m_accounts[size_t(pending.account)].account.id;
    r.statementDate = pending.statementDate;
    r.statementBalance = balance;
    r.reconciledBalance = balance;
    r.completedAt =
        utcAt(pending.statementDate.addDays(m_random.between(2, 6)), 19).addSecs(m_random.between(0, 3599));
    r.createdAt = r.completedAt;
    r.updatedAt = r.completedAt;
    if (!m_sink.addReconciliation(r))
        return false;
    ++m_summary.reconciliations;
    return true;
}

// The repositories' INSERT statements and bindings, each prepared once for the whole run. The caller
// holds the transaction, so that the category seed shares it.
class QtSink : public HouseholdGenerator::Sink {
public:
    explicit QtSink(QSqlDatabase &db)
        : m_accounts(db)
        , m_rules(db)
        , m_transactions(db)
        , m_splitLines(db)
        , m_reconciliations(db)
    {
    }

    bool begin() override
    {
        return m_accounts.prepare(QStringLiteral(
                   "INSERT INTO accounts (id, name, account_type, currency, institution, "
                   "account_number_last4, "
                   "starting_balance, sort_order, is_shared, version, sync_status, server_id, created_at, "
                   "updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")) &&
               m_rules.prepare(QStringLiteral(
                   "INSERT INTO recurring_transactions (id, account_id, payee, memo, amount, category_id, "
                   "frequency, start_date, end_date, next_due_date, auto_post, is_active, "
                   "transfer_dest_account_id, version, sync_status, server_id, created_at, updated_at) "
                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")) &&
               m_transactions.prepare(QStringLiteral(
                   "INSERT INTO transactions (id, account_id, date, payee, memo, amount, category_id, "
                   "check_number, cleared, reconciled, transfer_link_id, transfer_dest_account_id, is_split, "
                   "recurring_id, version, sync_status, server_id, created_at, updated_at) "
                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")) &&
               m_splitLines.prepare(QStringLiteral(
                   "INSERT INTO split_lines (id, transaction_id, category_id, amount, memo, created_at, "
                   "updated_at) VALUES (?, ?, ?, ?, ?, ?, ?)")) &&
               m_reconciliations.prepare(QStringLiteral(
                   "INSERT INTO reconciliations (id, account_id, statement_date, statement_balance, "
                   "reconciled_balance, completed_at, version, sync_status, server_id, created_at, "
                   "updated_at) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    }

    bool addAccount(const Account &a) override
    {
        using namespace SqlValues;
        bind(m_accounts,
             {a.id, text(a.name), accountTypeToString(a.accountType), currencyToString(a.currency),
              text(a.institution), text(a.accountNumberLast4), a.startingBalance, a.sortOrder,
              a.isShared ? 1 : 0, a.version, syncStatusToString(a.syncStatus), text(a.serverId),
              timestamp(a.createdAt), timestamp(a.updatedAt)});
        return run(m_accounts, "accounts");
    }

    bool addRecurring(const RecurringTransaction &r) override
    {
        using namespace SqlValues;
        const QVariant endDate = r.endDate ? date(*r.endDate) : QVariant(QMetaType::fromType<QString>());
        bind(m_rules, {r.id, r.accountId, text(r.payee), text(r.memo), r.amount, nullIfEmpty(r.categoryId),
                       frequencyToString(r.frequency), date(r.startDate), endDate, date(r.nextDueDate),
                       r.autoPost ? 1 : 0, r.isActive ? 1 : 0, r.transferDestAccountId, r.version,
                       syncStatusToString(r.syncStatus), text(r.serverId), timestamp(r.createdAt),
                       timestamp(r.updatedAt)});
        return run(m_rules, "recurring_transactions");
    }

    bool addTransaction(const Transaction &t) override
    {
        using namespace SqlValues;
        bind(m_transactions,
             {t.id, t.accountId, date(t.date), text(t.payee), text(t.memo), t.amount,
              nullIfEmpty(t.categoryId), text(t.checkNumber), t.cleared ? 1 : 0, t.reconciled ? 1 : 0,
              text(t.transferLinkId), text(t.transferDestAccountId), t.isSplit ? 1 : 0, text(t.recurringId),
              t.version, syncStatusToString(t.syncStatus), text(t.serverId), timestamp(t.createdAt),
              timestamp(t.updatedAt)});
        return run(m_transactions, "transactions");
    }

    bool addSplitLine(const SplitLine &l) override
    {
        using namespace SqlValues;
        bind(m_splitLines, {l.id, l.transactionId, l.categoryId, l.amount, text(l.memo),
                            timestamp(l.createdAt), timestamp(l.updatedAt)});
        return run(m_splitLines, "split_lines");
    }

    bool addReconciliation(const Reconciliation &r) override
    {
        using namespace SqlValues;
        bind(m_reconciliations,
             {r.id, r.accountId, date(r.statementDate), r.statementBalance, r.reconciledBalance,
              timestamp(r.completedAt), r.version, syncStatusToString(r.syncStatus), text(r.serverId),
              timestamp(r.createdAt), timestamp(r.updatedAt)});
        return run(m_reconciliations, "reconciliations");
    }

    bool commit() override { return true; }

private:
    static void bind(QSqlQuery &q, std::initializer_list<QVariant> values)
    {
        int i = 0;
        for (const QVariant &v : values)
            q.bindValue(i++, v);
    }

    static bool run(QSqlQuery &q, const char *table)
    {
        if (q.exec())
            return true;
        qWarning().noquote() << "HouseholdGenerator: insert into" << table
                             << "failed:" << q.lastError().text();
        return false;
    }

    QSqlQuery m_accounts;
    QSqlQuery m_rules;
    QSqlQuery m_transactions;
    QSqlQuery m_splitLines;
    QSqlQuery m_reconciliations;
};

} // namespace

HouseholdGenerator::Summary HouseholdGenerator::generate(Sink &sink, const QList<Category> &categories,
                                                         const Options &options)
{
    return Household(sink, categories, options).run();
}

HouseholdGenerator::Summary HouseholdGenerator::generate(Database *db, const Options &options)
{
    QSqlDatabase &connection = db->connection();
    if (!connection.transaction())
        return {};
    CategoryRepository categories(db);
    CategoryService(&categories).seedDefaultsIfEmpty();
    Summary summary;
    {
        QtSink sink(connection);
        summary = generate(sink, categories.getAll(), options);
    }
    if (!summary.ok || !connection.commit()) {
        connection.rollback();
        summary.ok = false;
    }
    return summary;
}
