// Times the reference server through real HTTP on 127.0.0.1, holding the twenty-year household: a
// push of 500 changes and a pull of a 200-row page, medians and requests per second.

#include "HouseholdGenerator.h"
#include "core/AccountType.h"
#include "core/Currency.h"
#include "core/Frequency.h"
#include "data/CategoryRepository.h"
#include "services/CategoryService.h"
#include "support/TempDatabase.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

constexpr int kRuns = 9;
constexpr int kPushSize = 500;
constexpr int kPageRows = 200;
constexpr double kPushMaxMs = 150.0;
constexpr double kPageMaxMs = 30.0;

QString iso(const QDateTime &t)
{
    return t.toUTC().toString(Qt::ISODate);
}

QJsonObject withMeta(QJsonObject payload, const QString &id, qint32 version, const QDateTime &created,
                     const QDateTime &updated)
{
    payload.insert("client_id", id);
    payload.insert("version", version);
    payload.insert("created_at", iso(created));
    payload.insert("updated_at", iso(updated));
    return payload;
}

QJsonObject transactionPayload(const Transaction &t)
{
    return withMeta(
        {
            {"account_id",               t.accountId                 },
            {"date",                     t.date.toString(Qt::ISODate)},
            {"payee",                    t.payee                     },
            {"memo",                     t.memo                      },
            {"amount",                   t.amount                    },
            {"category_id",              t.categoryId                },
            {"check_number",             t.checkNumber               },
            {"cleared",                  t.cleared ? 1 : 0           },
            {"reconciled",               t.reconciled ? 1 : 0        },
            {"transfer_link_id",         t.transferLinkId            },
            {"transfer_dest_account_id", t.transferDestAccountId     },
            {"is_split",                 t.isSplit ? 1 : 0           },
            {"recurring_id",             t.recurringId               }
    },
        t.id, t.version, t.createdAt, t.updatedAt);
}

// Turns the household into the changes a device would push, in the order it pushes them.
class ChangeSink : public HouseholdGenerator::Sink {
public:
    QJsonArray changes;

    bool begin() override { return true; }
    bool addAccount(const Account &a) override
    {
        add("account", a.id, a.version,
            withMeta(
                {
                    {"name",                 a.name                            },
                    {"account_type",         accountTypeToString(a.accountType)},
                    {"currency",             currencyToString(a.currency)      },
                    {"is_shared",            0                                 },
                    {"institution",          a.institution                     },
                    {"account_number_last4", a.accountNumberLast4              },
                    {"starting_balance",     a.startingBalance                 },
                    {"sort_order",           a.sortOrder                       }
        },
                a.id, a.version, a.createdAt, a.updatedAt));
        return true;
    }
    bool addRecurring(const RecurringTransaction &r) override
    {
        QJsonObject p{
            {"client_id",                r.id                               },
            {"account_id",               r.accountId                        },
            {"payee",                    r.payee                            },
            {"memo",                     r.memo                             },
            {"amount",                   r.amount                           },
            {"category_id",              r.categoryId                       },
            {"transfer_dest_account_id", r.transferDestAccountId            },
            {"frequency",                frequencyToString(r.frequency)     },
            {"start_date",               r.startDate.toString(Qt::ISODate)  },
            {"next_due_date",            r.nextDueDate.toString(Qt::ISODate)},
            {"auto_post",                r.autoPost ? 1 : 0                 },
            {"is_active",                r.isActive ? 1 : 0                 },
            {"created_at",               iso(r.createdAt)                   },
            {"updated_at",               iso(r.updatedAt)                   }
        };
        add("recurring", r.id, r.version, p);
        return true;
    }
    bool addTransaction(const Transaction &t) override
    {
        add("transaction", t.id, t.version, transactionPayload(t));
        return true;
    }
    bool addSplitLine(const SplitLine &) override { return true; } // split lines don't travel
    bool addReconciliation(const Reconciliation &r) override
    {
        add("reconciliation", r.id, r.version,
            withMeta(
                {
                    {"account_id",         r.accountId                          },
                    {"statement_date",     r.statementDate.toString(Qt::ISODate)},
                    {"statement_balance",  r.statementBalance                   },
                    {"reconciled_balance", r.reconciledBalance                  },
                    {"completed_at",       iso(r.completedAt)                   }
        },
                r.id, r.version, r.createdAt, r.updatedAt));
        return true;
    }
    bool commit() override { return true; }

    void addCategory(const Category &c)
    {
        add("category", c.id, c.version,
            withMeta(
                {
                    {"name",            c.name                              },
                    {"category_type",   categoryTypeToString(c.categoryType)},
                    {"parent_id",       c.parentId                          },
                    {"is_tax_relevant", c.isTaxRelevant ? 1 : 0             },
                    {"tax_category",    c.taxCategory                       },
                    {"icon",            c.icon                              },
                    {"color",           c.color                             },
                    {"is_default",      c.isDefault ? 1 : 0                 },
                    {"account_id",      c.accountId                         }
        },
                c.id, c.version, c.createdAt, c.updatedAt));
    }

private:
    void add(const char *type, const QString &id, qint32 version, const QJsonObject &payload)
    {
        changes.append(TestServer::change(QString::fromLatin1(type), id, version, payload));
    }
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double cpuMsNow()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

// Wall time of the work; its processor time (client and server together, as both run in this
// process) goes to cpuMs, which a machine busy with other work does not inflate.
template <typename F>
double timeMs(F &&work, std::vector<double> *cpuMs = nullptr)
{
    const double cpuBefore = cpuMsNow();
    QElapsedTimer timer;
    timer.start();
    work();
    const double wall = double(timer.nsecsElapsed()) / 1e6;
    if (cpuMs)
        cpuMs->push_back(cpuMsNow() - cpuBefore);
    return wall;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.info=false"));

    // The household's categories are the program's seeded ones.
    QList<Category> categories;
    {
        TempDatabase db;
        if (!db.open())
            return 1;
        CategoryRepository repository(db.database());
        CategoryService(&repository).seedDefaults();
        categories = repository.getAll();
    }
    ChangeSink sink;
    for (const Category &c : std::as_const(categories))
        sink.addCategory(c);
    const HouseholdGenerator::Summary summary = HouseholdGenerator::generate(sink, categories, {});
    if (!summary.ok)
        return 1;

    TestServer server;
    if (!server.start())
        return 1;
    const TestUser user = server.signUp(QStringLiteral("bench@example.org"));
    if (user.id.isEmpty())
        return 1;
    const double seedMs = timeMs([&] {
        for (qsizetype i = 0; i < sink.changes.size(); i += 1000) {
            QJsonArray batch;
            for (qsizetype j = i; j < qMin(i + 1000, sink.changes.size()); ++j)
                batch.append(sink.changes.at(j));
            if (server.push(user, batch).size() != batch.size())
                std::fprintf(stderr, "server bench: seeding push failed\n");
        }
    });
    std::printf("Server holding the household: %lld rows (%d transactions) pushed in %.1f s\n",
                qlonglong(sink.changes.size()), summary.transactions, seedMs / 1000);

    // Pushes of 500 new transactions of the big account, as a device sends them after an import.
    std::vector<double> push;
    std::vector<double> pushCpu;
    int refused = 0;
    for (int run = 0; run < kRuns; ++run) {
        QJsonArray batch;
        for (int i = 0; i < kPushSize; ++i) {
            Transaction t;
            t.id = QStringLiteral("bench-%1-%2").arg(run).arg(i);
            t.accountId = summary.bigAccountId;
            t.date = QDate(2025, 7, 1).addDays(i % 30);
            t.payee = QStringLiteral("Bench payee %1").arg(i % 40);
            t.amount = -(i * 37 % 10000);
            t.createdAt = t.updatedAt = QDateTime::currentDateTimeUtc();
            batch.append(TestServer::change(QStringLiteral("transaction"), t.id, 1, transactionPayload(t)));
        }
        QJsonArray results;
        push.push_back(timeMs([&] { results = server.push(user, batch); }, &pushCpu));
        for (const QJsonValue &r : std::as_const(results))
            refused += r.toObject().value("status").toString() == QLatin1String("ok") ? 0 : 1;
    }

    // Consecutive pages of a new device that pulls the household from the start.
    std::vector<double> page;
    std::vector<double> pageCpu;
    QString since;
    for (int run = 0; run < 3 * kRuns; ++run) {
        HttpResult r;
        const QString query =
            QStringLiteral("/ombrel/v1/sync/pull?limit=%1%2")
                .arg(kPageRows)
                .arg(since.isEmpty()
                         ? QString()
                         : QStringLiteral("&since=") + QString::fromLatin1(QUrl::toPercentEncoding(since)));
        page.push_back(timeMs([&] { r = server.get(query, user.accessToken); }, &pageCpu));
        since = r.json.value("server_time").toString();
    }

    const double pushMs = median(push);
    const double pageMs = median(page);
    std::printf("\n%-28s %10s %10s %12s %10s\n", "server, through HTTP", "median ms", "cpu ms", "requests/s",
                "target");
    std::printf("%-28s %10.1f %10.1f %12.1f %7.0f ms %s\n", "push of 500 changes", pushMs, median(pushCpu),
                1000.0 / pushMs, kPushMaxMs, pushMs < kPushMaxMs ? "ok" : "SLOW");
    std::printf("%-28s %10.1f %10.1f %12.1f %7.0f ms %s\n", "pull of a 200-row page", pageMs, median(pageCpu),
                1000.0 / pageMs, kPageMaxMs, pageMs < kPageMaxMs ? "ok" : "SLOW");
    if (refused > 0)
        std::printf("%d pushed changes were refused\n", refused);
    return 0;
}
