#include "ui/SearchScreen.h"

#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/register/RegisterModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstSearchScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void emptyTextListsTheNewestOfAllAccounts();
    void typingSearchesOnceAfterThePause();
    void filters_data();
    void filters();
    void dateEditsSearchOnlyWhenTheRangeIsOn();
    void doubleClickAsksToEditTheRow();

private:
    QStringList payees() const;
    template <typename T>
    T *child(const char *name) const
    {
        return m_screen->findChild<T *>(QLatin1String(name));
    }

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<SearchScreen> m_screen;
};

void TstSearchScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("a"), QStringLiteral("Checking"))));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("b"), QStringLiteral("Savings"))));
    TransactionRepository *t = m_state->transactions();
    const QDate today = QDate::currentDate();
    Transaction coffee = Fixtures::transaction("1", "a", today.addDays(-40), "Coffee Roasters", -450);
    coffee.cleared = true;
    QVERIFY(t->insert(coffee));
    QVERIFY(t->insert(Fixtures::transaction("2", "b", today.addDays(-2), "Coffee Cart", -300)));
    QVERIFY(t->insert(Fixtures::transaction("3", "a", today.addDays(-1), "Grocer", -2000)));
    QVERIFY(t->insert(Fixtures::transaction("4", "b", today.addDays(-3), "Interest", 12)));
    m_screen = std::make_unique<SearchScreen>(m_state.get());
}

void TstSearchScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

// The rows as the view shows them, top to bottom, without the model's hidden entry row.
QStringList TstSearchScreen::payees() const
{
    QStringList names;
    for (int row = 0; row < m_screen->model()->rowCount(); ++row) {
        if (m_screen->view()->isRowHidden(row))
            continue;
        if (const RegisterRow *record = m_screen->model()->recordAt(row))
            names.append(record->payee);
        else
            names.append(QStringLiteral("<entry row shown>"));
    }
    return names;
}

void TstSearchScreen::emptyTextListsTheNewestOfAllAccounts()
{
    QCOMPARE(payees(), QStringList({"Grocer", "Coffee Cart", "Interest", "Coffee Roasters"}));
}

void TstSearchScreen::typingSearchesOnceAfterThePause()
{
    QSignalSpy searches(m_screen->model(), &QAbstractItemModel::modelReset);
    auto *edit = child<QLineEdit>("searchEdit");
    QTest::keyClicks(edit, QStringLiteral("cof"));
    QTest::qWait(100);
    QTest::keyClicks(edit, QStringLiteral("fee"));
    QCOMPARE(searches.count(), 0);
    QTRY_COMPARE(searches.count(), 1);
    QTest::qWait(400);
    QCOMPARE(searches.count(), 1);
    QCOMPARE(payees(), QStringList({"Coffee Cart", "Coffee Roasters"}));

    // Text that is no valid query finds nothing, quietly.
    edit->setText(QStringLiteral("\"unbalanced"));
    QTRY_COMPARE(searches.count(), 2);
    QCOMPARE(payees(), QStringList());
}

void TstSearchScreen::filters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("account");
    QTest::addColumn<bool>("clearedOnly");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("cleared or not") << "coffee"
                                    << "" << false << QStringList({"Coffee Cart", "Coffee Roasters"});
    QTest::newRow("cleared only") << "coffee"
                                  << "" << true << QStringList({"Coffee Roasters"});
    QTest::newRow("one account") << ""
                                 << "b" << false << QStringList({"Coffee Cart", "Interest"});
    QTest::newRow("prefix") << "gro*"
                            << "" << false << QStringList({"Grocer"});
}

void TstSearchScreen::filters()
{
    QFETCH(QString, text);
    QFETCH(QString, account);
    QFETCH(bool, clearedOnly);
    QFETCH(QStringList, expected);
    auto *accounts = child<QComboBox>("accountCombo");
    accounts->setCurrentIndex(accounts->findData(account));
    child<QCheckBox>("clearedCheck")->setChecked(clearedOnly);
    child<QLineEdit>("searchEdit")->setText(text);
    QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "performSearch"));
    QCOMPARE(payees(), expected);
}

void TstSearchScreen::dateEditsSearchOnlyWhenTheRangeIsOn()
{
    QSignalSpy searches(m_screen->model(), &QAbstractItemModel::modelReset);
    auto *from = child<QDateEdit>("fromEdit");
    QCOMPARE(from->date(), QDate::currentDate().addMonths(-1));
    from->setDate(QDate::currentDate().addDays(-2));
    QCOMPARE(searches.count(), 0);

    child<QCheckBox>("dateCheck")->setChecked(true);
    QCOMPARE(searches.count(), 1);
    QCOMPARE(payees(), QStringList({"Grocer", "Coffee Cart"}));
    from->setDate(QDate::currentDate().addDays(-1));
    QCOMPARE(searches.count(), 2);
    QCOMPARE(payees(), QStringList({"Grocer"}));
}

void TstSearchScreen::doubleClickAsksToEditTheRow()
{
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    QSignalSpy edits(m_screen.get(), &SearchScreen::editTransactionRequested);
    QTableView *view = m_screen->view();
    const QModelIndex first = m_screen->model()->index(1, RegisterModel::Payee);
    QCOMPARE(m_screen->model()->recordAt(1)->payee, QStringLiteral("Grocer"));
    const QPoint centre = view->visualRect(first).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(edits.count(), 1);
    QCOMPARE(edits.first().first().toString(), QStringLiteral("3"));
}

QTEST_MAIN(TstSearchScreen)
#include "tst_searchscreen.moc"
