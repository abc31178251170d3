#include "core/AppState.h"
#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/RecurringModel.h"
#include "ui/RecurringScreen.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

class TstRecurringScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void columnsAndDueColouring();
    void contextMenuOffersConfirmAndSkipOnlyWhenDue_data();
    void contextMenuOffersConfirmAndSkipOnlyWhenDue();
    void confirmAllDuePostsOnceAndThenSendsNothing();
    void confirmingTheLastDueItemClearsTheCount();
    void doubleClickEditsAndKeepsTheSchedule();

private:
    void addRule(const QString &id, const QString &payee, const QDate &next, bool active = true);
    int rowOf(const QString &payee) const;
    // Opens the row's context menu as a right click would; gives the enabled entries, and triggers
    // the one named by trigger, if any.
    QStringList contextMenu(int row, const QString &trigger = QString());
    QString dueText() const { return m_screen->findChild<QLabel *>(QStringLiteral("dueLabel"))->text(); }

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<RecurringScreen> m_screen;
};

void TstRecurringScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))));
}

void TstRecurringScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

void TstRecurringScreen::addRule(const QString &id, const QString &payee, const QDate &next, bool active)
{
    RecurringTransaction r;
    r.id = id;
    r.accountId = QStringLiteral("a");
    r.payee = payee;
    r.amount = -5000;
    r.startDate = next;
    r.nextDueDate = next;
    r.isActive = active;
    r.createdAt = r.updatedAt = utcNow();
    QVERIFY(m_state->recurring()->insert(r));
}

int TstRecurringScreen::rowOf(const QString &payee) const
{
    for (int row = 0; row < m_screen->model()->rowCount(); ++row) {
        if (m_screen->model()->recordAt(row)->payee == payee)
            return row;
    }
    return -1;
}

QStringList TstRecurringScreen::contextMenu(int row, const QString &trigger)
{
    QStringList enabled;
    QTimer::singleShot(0, this, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        QAction *chosen = nullptr;
        for (QAction *action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled())
                enabled << action->text();
            if (action->text() == trigger)
                chosen = action;
        }
        menu->close();
        if (chosen)
            chosen->trigger();
    });
    const QPoint pos = m_screen->view()->visualRect(m_screen->model()->index(row, 1)).center();
    QMetaObject::invokeMethod(m_screen.get(), "onContextMenu", Q_ARG(QPoint, pos));
    return enabled;
}

void TstRecurringScreen::columnsAndDueColouring()
{
    const QDate today = QDate::currentDate();
    addRule(QStringLiteral("late"), QStringLiteral("Water"), today.addDays(-3));
    addRule(QStringLiteral("today"), QStringLiteral("Gym"), today);
    addRule(QStringLiteral("later"), QStringLiteral("Rent"), today.addDays(10));
    addRule(QStringLiteral("off"), QStringLiteral("Old Gym"), today.addDays(-20), false);
    m_screen = std::make_unique<RecurringScreen>(m_state.get());
    QAbstractItemModelTester tester(m_screen->model());
    m_screen->refresh();

    const RecurringModel *model = m_screen->model();
    QStringList headers;
    for (int c = 0; c < model->columnCount(); ++c)
        headers << model->headerData(c, Qt::Horizontal).toString();
    QCOMPARE(headers, (QStringList{"Account", "Payee", "Amount", "Frequency", "Next Due", "Auto", "Status"}));

    const auto cell = [&](const char *payee, int column, int role = Qt::DisplayRole) {
        return model->data(model->index(rowOf(QLatin1String(payee)), column), role);
    };
    QCOMPARE(cell("Water", RecurringModel::AccountColumn).toString(), QStringLiteral("Checking"));
    QCOMPARE(cell("Water", RecurringModel::AmountColumn).toString(), QStringLiteral("-$50.00"));
    QCOMPARE(cell("Water", RecurringModel::FrequencyColumn).toString(), QStringLiteral("Monthly"));
    QCOMPARE(cell("Water", RecurringModel::AutoColumn).toString(), QStringLiteral("No"));
    const QColor green(0, 136, 0);
    QCOMPARE(cell("Water", RecurringModel::NextDueColumn, Qt::ForegroundRole).value<QColor>(), green);
    QCOMPARE(cell("Gym", RecurringModel::NextDueColumn, Qt::ForegroundRole).value<QColor>(), green);
    QVERIFY(!cell("Rent", RecurringModel::NextDueColumn, Qt::ForegroundRole).isValid());
    // Inactive and past its date: not green, and greyed as inactive.
    QVERIFY(!cell("Old Gym", RecurringModel::NextDueColumn, Qt::ForegroundRole).isValid());
    QCOMPARE(cell("Old Gym", RecurringModel::StatusColumn).toString(), QStringLiteral("Inactive"));
    QVERIFY(cell("Old Gym", RecurringModel::StatusColumn, Qt::ForegroundRole).isValid());
    QVERIFY(!cell("Water", RecurringModel::StatusColumn, Qt::ForegroundRole).isValid());
    QCOMPARE(dueText(), QStringLiteral("(2 due)"));
}

void TstRecurringScreen::contextMenuOffersConfirmAndSkipOnlyWhenDue_data()
{
    QTest::addColumn<int>("daysFromToday");
    QTest::addColumn<bool>("active");
    QTest::addColumn<QStringList>("enabled");
    const QStringList all{"&Edit", "&Confirm", "&Skip", "&Delete"};
    const QStringList notDue{"&Edit", "&Delete"};
    QTest::newRow("past") << -3 << true << all;
    QTest::newRow("today") << 0 << true << all;
    QTest::newRow("tomorrow") << 1 << true << notDue;
    QTest::newRow("inactive and past") << -3 << false << notDue;
}

void TstRecurringScreen::contextMenuOffersConfirmAndSkipOnlyWhenDue()
{
    QFETCH(int, daysFromToday);
    QFETCH(bool, active);
    QFETCH(QStringList, enabled);
    addRule(QStringLiteral("r"), QStringLiteral("Water"), QDate::currentDate().addDays(daysFromToday),
            active);
    m_screen = std::make_unique<RecurringScreen>(m_state.get());
    m_screen->resize(700, 500);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    QCOMPARE(contextMenu(0), enabled);
}

void TstRecurringScreen::confirmAllDuePostsOnceAndThenSendsNothing()
{
    const QDate today = QDate::currentDate();
    addRule(QStringLiteral("late"), QStringLiteral("Water"), today.addDays(-3));
    addRule(QStringLiteral("today"), QStringLiteral("Gym"), today);
    addRule(QStringLiteral("later"), QStringLiteral("Rent"), today.addDays(10));
    m_screen = std::make_unique<RecurringScreen>(m_state.get());
    QSignalSpy posted(m_screen.get(), &RecurringScreen::transactionsChanged);
    auto *button = m_screen->findChild<QPushButton *>(QStringLiteral("confirmAllButton"));

    button->click();
    QCOMPARE(posted.count(), 1);
    QCOMPARE(m_state->transactions()->getByAccount(QStringLiteral("a")).size(), 2);
    QCOMPARE(dueText(), QString());

    button->click();
    QCOMPARE(posted.count(), 1);
    QCOMPARE(m_state->transactions()->getByAccount(QStringLiteral("a")).size(), 2);
}

void TstRecurringScreen::confirmingTheLastDueItemClearsTheCount()
{
    const QDate today = QDate::currentDate();
    addRule(QStringLiteral("late"), QStringLiteral("Water"), today.addDays(-3));
    addRule(QStringLiteral("today"), QStringLiteral("Gym"), today);
    m_screen = std::make_unique<RecurringScreen>(m_state.get());
    m_screen->resize(700, 500);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    QSignalSpy posted(m_screen.get(), &RecurringScreen::transactionsChanged);

    contextMenu(rowOf(QStringLiteral("Gym")), QStringLiteral("&Skip"));
    QCOMPARE(posted.count(), 0);
    QCOMPARE(dueText(), QStringLiteral("(1 due)"));
    QVERIFY(m_state->transactions()->getByAccount(QStringLiteral("a")).isEmpty());

    contextMenu(rowOf(QStringLiteral("Water")), QStringLiteral("&Confirm"));
    QCOMPARE(posted.count(), 1);
    QCOMPARE(dueText(), QString());
    const QList<Transaction> rows = m_state->transactions()->getByAccount(QStringLiteral("a"));
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().payee, QStringLiteral("Water"));
    QCOMPARE(rows.first().date, today.addDays(-3));
}

void TstRecurringScreen::doubleClickEditsAndKeepsTheSchedule()
{
    addRule(QStringLiteral("r"), QStringLiteral("Water"), QDate(2026, 1, 31));
    RecurringTransaction moved = *m_state->recurring()->getById(QStringLiteral("r"));
    moved.nextDueDate = QDate(2026, 2, 28);
    QVERIFY(m_state->recurring()->update(moved));
    m_screen = std::make_unique<RecurringScreen>(m_state.get());
    m_screen->resize(700, 500);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));

    Prompt::setNextDialogHandler([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("payeeEdit"))->setText(QStringLiteral("City Water"));
        return int(QDialog::Accepted);
    });
    const QRect cell = m_screen->view()->visualRect(m_screen->model()->index(0, RecurringModel::PayeeColumn));
    // A double click arrives after the press of its first click.
    QTest::mouseClick(m_screen->view()->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(m_screen->view()->viewport(), Qt::LeftButton, {}, cell.center());

    const RecurringTransaction stored = *m_state->recurring()->getById(QStringLiteral("r"));
    QCOMPARE(stored.payee, QStringLiteral("City Water"));
    QCOMPARE(stored.nextDueDate, QDate(2026, 2, 28));
    QCOMPARE(stored.version, 2);
    QCOMPARE(m_screen->model()->recordAt(0)->payee, QStringLiteral("City Water"));
}

QTEST_MAIN(TstRecurringScreen)
#include "tst_recurringscreen.moc"
