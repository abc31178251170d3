#include "ui/RecurringScreen.h"

#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"
#include "ui/RecurringModel.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;
using R = RecurringModel;

class TstRecurringScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_app;
    std::optional<RecurringScreen> m_screen;

    AppState *s() const { return m_app->get(); }
    void addRule(const char *id, const char *payee, int daysFromToday, bool active = true)
    {
        RecurringTransaction r = Fixtures::rule(id, "a", QDate::currentDate().addDays(daysFromToday), -5000);
        r.payee = QLatin1String(payee);
        r.isActive = active;
        QVERIFY(s()->recurring()->insert(r));
    }
    void open()
    {
        m_screen.emplace(s());
        m_screen->resize(700, 500);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_screen));
    }
    int rowOf(const QString &payee) const
    {
        for (int row = 0; row < m_screen->model()->rowCount(); ++row)
            if (m_screen->model()->recordAt(row)->payee == payee)
                return row;
        return -1;
    }
    // Opens the row's context menu as a right click would; gives the enabled entries, and triggers pick.
    QStringList contextMenu(int row, const QString &pick = QString())
    {
        const QPoint pos = m_screen->view()->visualRect(m_screen->model()->index(row, 1)).center();
        return answerPopupMenu(
            [&] { QMetaObject::invokeMethod(&*m_screen, "onContextMenu", Q_ARG(QPoint, pos)); }, pick);
    }
    QString dueText() const { return child<QLabel>(&*m_screen, "dueLabel")->text(); }
    QList<Transaction> posted() const { return s()->transactions()->getByAccount(u"a"_s); }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_app.emplace().ok());
        QVERIFY(s()->accounts()->insert(Fixtures::account("a", "Checking")));
    }

    void columnsDueColouringAndMenus()
    {
        addRule("late", "Water", -3);
        addRule("today", "Gym", 0);
        addRule("later", "Rent", 10);
        addRule("off", "Old Gym", -20, false);
        open();
        QAbstractItemModelTester tester(m_screen->model());
        m_screen->refresh();
        const R *model = m_screen->model();
        QStringList headers;
        for (int c = 0; c < model->columnCount(); ++c)
            headers << model->headerData(c, Qt::Horizontal).toString();
        QCOMPARE(headers,
                 QStringList({"Account", "Payee", "Amount", "Frequency", "Next Due", "Auto", "Status"}));
        const auto cell = [&](const char *payee, int column, int role = Qt::DisplayRole) {
            return model->data(model->index(rowOf(QLatin1String(payee)), column), role);
        };
        QStringList water;
        for (int column : {R::AccountColumn, R::AmountColumn, R::FrequencyColumn, R::AutoColumn})
            water << cell("Water", column).toString();
        QCOMPARE(water, QStringList({"Checking", "-$50.00", "Monthly", "No"}));
        // Due today or before, and active: green. Inactive: not green, and greyed as inactive.
        const QColor green(0, 136, 0);
        QCOMPARE(cell("Water", R::NextDueColumn, Qt::ForegroundRole).value<QColor>(), green);
        QCOMPARE(cell("Gym", R::NextDueColumn, Qt::ForegroundRole).value<QColor>(), green);
        QVERIFY(!cell("Rent", R::NextDueColumn, Qt::ForegroundRole).isValid());
        QVERIFY(!cell("Old Gym", R::NextDueColumn, Qt::ForegroundRole).isValid());
        QCOMPARE(cell("Old Gym", R::StatusColumn).toString(), u"Inactive"_s);
        QVERIFY(cell("Old Gym", R::StatusColumn, Qt::ForegroundRole).isValid());
        QVERIFY(!cell("Water", R::StatusColumn, Qt::ForegroundRole).isValid());
        QCOMPARE(dueText(), u"(2 due)"_s);
        // Confirm and Skip only for what is due.
        QStringList menus;
        for (const char *payee : {"Water", "Gym", "Rent", "Old Gym"})
            menus << contextMenu(rowOf(QLatin1String(payee))).join(u' ');
        QCOMPARE(menus, QStringList({"&Edit &Confirm &Skip &Delete", "&Edit &Confirm &Skip &Delete",
                                     "&Edit &Delete", "&Edit &Delete"}));
    }

    void confirmAndSkipClearTheDueCount()
    {
        addRule("late", "Water", -3);
        addRule("today", "Gym", 0);
        addRule("later", "Rent", 10);
        open();
        QSignalSpy changed(&*m_screen, &RecurringScreen::transactionsChanged);
        contextMenu(rowOf(u"Gym"_s), u"&Skip"_s);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(dueText(), u"(1 due)"_s);
        QVERIFY(posted().isEmpty());
        contextMenu(rowOf(u"Water"_s), u"&Confirm"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(dueText(), QString());
        QCOMPARE(posted().size(), 1);
        QCOMPARE(posted().first().payee, u"Water"_s);
        QCOMPARE(posted().first().date, QDate::currentDate().addDays(-3));

        // Confirm All posts everything due with one notice, then nothing.
        addRule("power", "Power", -1);
        addRule("phone", "Phone", 0);
        m_screen->refresh();
        auto *confirmAll = child<QPushButton>(&*m_screen, "confirmAllButton");
        confirmAll->click();
        QCOMPARE(changed.count(), 2);
        QCOMPARE(posted().size(), 3);
        QCOMPARE(dueText(), QString());
        confirmAll->click();
        QCOMPARE(changed.count(), 2);
        QCOMPARE(posted().size(), 3);
    }

    void doubleClickEditsAndKeepsTheSchedule()
    {
        RecurringTransaction moved = Fixtures::rule("r", "a", QDate(2026, 1, 31), -5000);
        QVERIFY(s()->recurring()->insert(moved));
        moved.nextDueDate = QDate(2026, 2, 28);
        QVERIFY(s()->recurring()->update(moved));
        open();
        Prompt::setNextDialogHandler([](QDialog *dialog) {
            child<QLineEdit>(dialog, "payeeEdit")->setText(u"City Water"_s);
            return int(QDialog::Accepted);
        });
        const QPoint cell =
            m_screen->view()->visualRect(m_screen->model()->index(0, R::PayeeColumn)).center();
        // A double click arrives after the press of its first click.
        QTest::mouseClick(m_screen->view()->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(m_screen->view()->viewport(), Qt::LeftButton, {}, cell);
        const RecurringTransaction stored = *s()->recurring()->getById(u"r"_s);
        QCOMPARE(stored.payee, u"City Water"_s);
        QCOMPARE(stored.nextDueDate, QDate(2026, 2, 28));
        QCOMPARE(stored.version, 2);
        QCOMPARE(m_screen->model()->recordAt(0)->payee, u"City Water"_s);
    }
};

OMBREL_GUI_TEST_MAIN(TstRecurringScreen)
#include "tst_recurringscreen.moc"
