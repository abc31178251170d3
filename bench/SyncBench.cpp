// Times the first sync of the twenty-year household against the reference server, run as its own
// process on 127.0.0.1: collecting the pending rows, the longest stall of the event loop in a cycle,
// and the cycles and seconds until the first device has pushed everything and a second, empty device
// holds it all. Before that, a full page (200 rows of each kind) applied under a shown main window.
//
//   ombrel_sync_bench [transactions]        (default 150000)

#include "HouseholdGenerator.h"
#include "core/AppState.h"
#include "data/Database.h"
#include "support/SyncDevice.h"
#include "sync/SyncApply.h"
#include "sync/SyncPush.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QLoggingCategory>
#include <QProcess>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTimer>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kPageRows = 200;
constexpr int kPageRuns = 5;
constexpr int kCycleTimeoutMs = 300000;
// The engine's debounce: after a cycle that wrote rows, the next one starts this much later.
constexpr double kDebounceSeconds = 2.0;
const QStringList kTables{QStringLiteral("accounts"), QStringLiteral("categories"),
                          QStringLiteral("recurring_transactions"), QStringLiteral("transactions"),
                          QStringLiteral("reconciliations")};

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// The longest time the event loop went without serving a 1 ms timer: what a user feels as a frozen
// window while a cycle runs.
class StallMeter : public QObject {
public:
    StallMeter()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] {
            m_longestMs = std::max(m_longestMs, double(m_clock.nsecsElapsed()) / 1e6);
            m_clock.restart();
        });
    }
    void start()
    {
        m_longestMs = 0;
        m_clock.start();
        m_timer.start();
    }
    double stop()
    {
        m_timer.stop();
        return m_longestMs;
    }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_longestMs = 0;
};

QString newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

// One page as the server sends it: 200 new rows of each kind, children pointing at the page's parents.
QJsonObject fullPage(int run)
{
    const QString now = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    const auto row = [&](QJsonObject fields) {
        fields.insert(QStringLiteral("id"), newId());
        fields.insert(QStringLiteral("client_id"), newId());
        fields.insert(QStringLiteral("version"), 1);
        fields.insert(QStringLiteral("created_at"), now);
        fields.insert(QStringLiteral("updated_at"), now);
        return fields;
    };
    QJsonArray accounts, categories, rules, transactions, reconciliations;
    for (int i = 0; i < kPageRows; ++i) {
        accounts.append(row({
            {"name",             QStringLiteral("Pulled %1-%2").arg(run).arg(i)},
            {"account_type",     "checking"                                    },
            {"currency",         "USD"                                         },
            {"is_shared",        0                                             },
            {"starting_balance", 100000                                        },
            {"sort_order",       i                                             }
        }));
        categories.append(row({
            {"name",          QStringLiteral("Pulled %1-%2").arg(run).arg(i)},
            {"category_type", "expense"                                     },
            {"is_default",    0                                             }
        }));
    }
    for (int i = 0; i < kPageRows; ++i) {
        const QString account = accounts.at(i % 20).toObject().value(QLatin1String("client_id")).toString();
        const QString category = categories.at(i).toObject().value(QLatin1String("client_id")).toString();
        rules.append(row({
            {"account_id",    account     },
            {"payee",         "Rent"      },
            {"amount",        -120000     },
            {"category_id",   category    },
            {"frequency",     "monthly"   },
            {"start_date",    "2025-01-01"},
            {"next_due_date", "2025-07-01"},
            {"auto_post",     0           },
            {"is_active",     1           }
        }));
        transactions.append(row({
            {"account_id",                         account   },
            {"date",                               QDate(2025, 1, 1).addDays(i).toString(Qt::ISODate)},
            {"payee", QStringLiteral("Payee %1").arg(i)          },
            {"amount",   -1000 - i  },
            {"category_id",                         category                                },
            {"cleared",    0},
            {"reconciled",                                0                                                            },
            {"is_split",    0}
        }));
        reconciliations.append(row({
            {"account_id",         account     },
            {"statement_date",     "2025-06-30"},
            {"statement_balance",  100000      },
            {"reconciled_balance", 100000      },
            {"completed_at",       now         }
        }));
    }
    return {
        {"accounts",               accounts       },
        {"categories",             categories     },
        {"recurring_transactions", rules          },
        {"transactions",           transactions   },
        {"reconciliations",        reconciliations},
        {"server_time",            now            },
        {"has_more",               false          }
    };
}

// Runs the events the page's change signals posted until the queue stays empty, then paints.
void settle(QWidget *window)
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    window->repaint();
}

bool benchFullPage()
{
    QTemporaryDir dir;
    qputenv("OMBREL_DATA_DIR", dir.path().toUtf8());
    AppState state;
    if (!state.initialize())
        return false;
    if (qEnvironmentVariableIsSet("BENCH_NOSYNC"))
        QSqlQuery(QStringLiteral("PRAGMA synchronous=OFF"), state.database()->connection());
    MainWindow window(&state);
    window.resize(1280, 900);
    window.show();
    settle(&window);
    const SyncRepositories repos{state.accounts(),  state.transactions(),    state.categories(),
                                 state.recurring(), state.reconciliations(), state.preferences()};
    std::vector<double> pages, repositoryOnly;
    for (int run = 0; run < kPageRuns; ++run) {
        const QJsonObject page = fullPage(run);
        SyncApply apply(repos);
        QElapsedTimer clock;
        clock.start();
        apply.applyPage(page);
        repositoryOnly.push_back(double(clock.nsecsElapsed()) / 1e6);
        settle(&window);
        pages.push_back(double(clock.nsecsElapsed()) / 1e6);
        if (apply.stats().inserted != 5 * kPageRows) {
            std::fprintf(stderr, "ombrel_sync_bench: a page inserted %d rows\n", apply.stats().inserted);
            return false;
        }
    }
    // Each page adds 200 accounts, so the list the window rebuilds grows from run to run; the first
    // page is the one a household meets.
    std::printf("apply a full page (%d rows of each kind) under a shown main window: first %.0f ms "
                "(writes %.0f ms), median of %d with 200 more accounts each %.0f ms (writes %.0f ms); "
                "target 1000 ms\n",
                kPageRows, pages.front(), repositoryOnly.front(), kPageRuns, medianOf(pages),
                medianOf(repositoryOnly));
    return true;
}

qint64 pendingRows(SyncDevice &device)
{
    qint64 pending = 0;
    for (const QString &table : kTables)
        pending +=
            device.scalar(QStringLiteral("SELECT count(*) FROM %1 WHERE sync_status = 'pending'").arg(table))
                .toLongLong();
    return pending;
}

QList<qint64> rowCounts(SyncDevice &device)
{
    QList<qint64> counts;
    for (const QString &table : kTables)
        counts << device.scalar(QStringLiteral("SELECT count(*) FROM %1").arg(table)).toLongLong();
    return counts;
}

struct CycleRun {
    int cycles = 0;
    double busySeconds = 0;
    double longestStallMs = 0;
    bool ok = false;
};

// Cycles back to back until done() holds; the engine itself would wait its 2-second debounce between
// them, which is added when the figures are printed.
template <typename Done>
CycleRun runCycles(SyncDevice &device, Done done)
{
    CycleRun run;
    StallMeter meter;
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        meter.start();
        const bool completed = device.sync(kCycleTimeoutMs);
        run.longestStallMs = std::max(run.longestStallMs, meter.stop());
        ++run.cycles;
        if (!completed || run.cycles > 2000) {
            std::fprintf(stderr, "ombrel_sync_bench: cycle %d did not complete\n", run.cycles);
            return run;
        }
    }
    run.busySeconds = double(clock.nsecsElapsed()) / 1e9;
    run.ok = true;
    return run;
}

bool benchFirstSync(int transactions)
{
    QTemporaryDir serverDir;
    QProcess server;
    server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server.start(QStringLiteral(OMBREL_SERVER_EXECUTABLE),
                 {QStringLiteral("--data"), serverDir.path(), QStringLiteral("--listen"),
                  QStringLiteral("127.0.0.1:0"),
                  // The devices hold one token for the whole run, which outlasts the default lifetime.
                  QStringLiteral("--token-minutes"), QStringLiteral("600")});
    if (!server.waitForReadyRead(20000))
        return false;
    const QByteArray banner = server.readLine().trimmed();
    const QUrl base(QString::fromUtf8(banner.mid(banner.lastIndexOf(' ') + 1)));
    const ServerUser user = signUpUser(base, QStringLiteral("bench@example.test"));
    if (user.accessToken.isEmpty()) {
        std::fprintf(stderr, "ombrel_sync_bench: sign-up at %s failed\n", banner.constData());
        return false;
    }
    QUrl syncBase = base;
    syncBase.setPath(QStringLiteral("/ombrel/v1"));

    SyncDevice first(syncBase, user);
    if (!first.activate())
        return false;
    HouseholdGenerator::Options options;
    options.transactions = transactions;
    if (!HouseholdGenerator::generate(first.database, options).ok)
        return false;
    // A household that has never synced: every row waits for its first push.
    for (const QString &table : kTables)
        QSqlQuery(QStringLiteral("UPDATE %1 SET sync_status = 'pending'").arg(table),
                  first.database->connection());
    const qint64 pending = pendingRows(first);

    const SyncRepositories repos{first.accounts,  first.transactions,    first.categories,
                                 first.recurring, first.reconciliations, first.preferences};
    std::vector<double> collect;
    for (int i = 0; i < 3; ++i) {
        QElapsedTimer clock;
        clock.start();
        const QByteArrayList changes = SyncPush(repos).collectPending();
        collect.push_back(double(clock.nsecsElapsed()) / 1e6);
        if (changes.size() != pending)
            return false;
    }
    std::printf("household: %lld pending rows (%d transactions)\n", pending, transactions);
    std::printf("collect the pending rows (blocks the window once a cycle): median %.0f ms; target 1000 ms\n",
                medianOf(collect));
    if (qEnvironmentVariableIsSet("BENCH_COLLECTONLY"))
        return true;

    const CycleRun push = runCycles(first, [&] { return pendingRows(first) == 0; });
    if (!push.ok) {
        std::fprintf(stderr, "ombrel_sync_bench: %s\n", qPrintable(first.engine->lastError()));
        return false;
    }
    const QList<qint64> expected = rowCounts(first);
    first.deactivate();
    std::printf("first device pushes everything: %d cycles, %.0f s of work, %.0f s with the engine's "
                "2-second debounce between cycles; longest stall of the event loop %.0f ms\n",
                push.cycles, push.busySeconds, push.busySeconds + kDebounceSeconds * (push.cycles - 1),
                push.longestStallMs);

    SyncDevice second(syncBase, user);
    if (!second.activate())
        return false;
    const CycleRun pull = runCycles(second, [&] { return rowCounts(second) == expected; });
    if (!pull.ok) {
        std::fprintf(stderr, "ombrel_sync_bench: %s\n", qPrintable(second.engine->lastError()));
        return false;
    }
    std::printf("second, empty device holds everything: %d cycles, %.0f s of work, %.0f s with the "
                "debounce; longest stall of the event loop %.0f ms\n",
                pull.cycles, pull.busySeconds, pull.busySeconds + kDebounceSeconds * (pull.cycles - 1),
                pull.longestStallMs);
    second.deactivate();
    server.terminate();
    server.waitForFinished(10000);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // No keyring is wanted: the bench signs its devices in with tokens it holds itself.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    // A first sync runs for many minutes; each figure shows as soon as it is known, also into a file.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.info=false\n*.debug=false\n*.warning=false"));
    const int transactions = argc > 1 ? QString::fromLatin1(argv[1]).toInt() : 150000;
    if (!benchFullPage()) {
        std::fprintf(stderr, "ombrel_sync_bench: the page benchmark failed\n");
        return 1;
    }
    if (qEnvironmentVariableIsSet("BENCH_PAGEONLY"))
        return 0;
    if (!benchFirstSync(transactions > 0 ? transactions : 150000)) {
        std::fprintf(stderr, "ombrel_sync_bench: the first-sync benchmark failed\n");
        return 1;
    }
    return 0;
}
