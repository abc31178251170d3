#include "RegisterBench.h"

#include "core/AppState.h"
#include "data/TransactionRepository.h"
#include "ui/MainWindow.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterScreen.h"
#include "ui/register/RegisterTableView.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <typename F>
double timeMs(F &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

qint64 residentKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLongLong();
    }
    return 0;
}

} // namespace

RegisterBenchResult measureRegister(const QString &dataDirectory, const QString &accountId, int runs)
{
    RegisterBenchResult result;
    qputenv("OMBREL_DATA_DIR", dataDirectory.toUtf8());
    AppState state;
    if (!state.initialize())
        return result;
    RegisterScreen screen(&state);
    screen.resize(1280, 800);
    screen.show();
    QCoreApplication::processEvents();

    // A painted table is the user's measure: the viewport repaints synchronously inside the timing.
    const auto paint = [&] { screen.view()->viewport()->repaint(); };
    std::vector<double> open, openRepository, commit, commitRepository;
    for (int i = 0; i < runs; ++i) {
        open.push_back(timeMs([&] {
            screen.setAccount(accountId);
            paint();
        }));
        openRepository.push_back(timeMs([&] { state.transactions()->getByAccountWithBalances(accountId); }));
    }
    result.residentKiB = residentKiB();

    for (int i = 0; i < runs; ++i) {
        RegisterModel *model = screen.model();
        const int row = model->newRowIndex();
        model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("Bench Coffee"));
        model->setData(model->index(row, RegisterModel::Payment), QStringLiteral("3.75"));
        screen.view()->setCurrentIndex(model->index(row, RegisterModel::Payment));
        commit.push_back(timeMs([&] {
            QTest::keyClick(screen.view(), Qt::Key_Return, Qt::ControlModifier);
            paint();
        }));
        Transaction t;
        t.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
        t.accountId = accountId;
        t.date = QDate::currentDate();
        t.payee = QStringLiteral("Bench Coffee");
        t.amount = -375;
        t.createdAt = t.updatedAt = QDateTime::currentDateTimeUtc();
        commitRepository.push_back(timeMs([&] {
            state.transactions()->insert(t);
            state.transactions()->getByAccountWithBalances(accountId);
        }));
    }
    // The main window listens to every change: its account list re-reads what the commit touched.
    MainWindow window(&state);
    window.resize(1280, 900);
    window.show();
    window.selectAccount(accountId);
    QCoreApplication::processEvents();
    auto *page = qobject_cast<RegisterScreen *>(window.registerPage());
    std::vector<double> windowCommit;
    for (int i = 0; page && i < runs; ++i) {
        RegisterModel *model = page->model();
        const int row = model->newRowIndex();
        model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("Bench Coffee"));
        model->setData(model->index(row, RegisterModel::Payment), QStringLiteral("3.75"));
        page->view()->setCurrentIndex(model->index(row, RegisterModel::Payment));
        windowCommit.push_back(timeMs([&] {
            QTest::keyClick(page->view(), Qt::Key_Return, Qt::ControlModifier);
            QCoreApplication::processEvents();
            window.repaint();
        }));
    }
    if (windowCommit.empty())
        return result;

    result.openMs = medianOf(open);
    result.windowCommitMs = medianOf(windowCommit);
    result.openRepositoryMs = medianOf(openRepository);
    result.commitMs = medianOf(commit);
    result.commitRepositoryMs = medianOf(commitRepository);
    result.ok = true;
    return result;
}

namespace {
constexpr char kChildFlag[] = "--register-screen";
}

bool isRegisterChild(const QStringList &arguments)
{
    return arguments.size() == 5 && arguments.at(1) == QLatin1String(kChildFlag);
}

int runRegisterChild(const QStringList &arguments)
{
    const RegisterBenchResult r = measureRegister(arguments.at(2), arguments.at(3), arguments.at(4).toInt());
    if (!r.ok)
        return 1;
    std::printf("%f %f %f %f %f %lld\n", r.openMs, r.openRepositoryMs, r.commitMs, r.commitRepositoryMs,
                r.windowCommitMs, static_cast<long long>(r.residentKiB));
    return 0;
}

RegisterBenchResult measureRegisterInChild(const QString &dataDirectory, const QString &accountId, int runs)
{
    RegisterBenchResult result;
    QProcess child;
    // The screens store column widths and window geometry: in settings of the child's own.
    QTemporaryDir config;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QLatin1String(kChildFlag), dataDirectory, accountId, QString::number(runs)});
    if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        return result;
    const QList<QByteArray> fields = child.readAllStandardOutput().trimmed().split(' ');
    if (fields.size() != 6)
        return result;
    result.openMs = fields.at(0).toDouble();
    result.openRepositoryMs = fields.at(1).toDouble();
    result.commitMs = fields.at(2).toDouble();
    result.commitRepositoryMs = fields.at(3).toDouble();
    result.windowCommitMs = fields.at(4).toDouble();
    result.residentKiB = fields.at(5).toLongLong();
    result.ok = true;
    return result;
}
