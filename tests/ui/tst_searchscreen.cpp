#include "ui/SearchScreen.h"

#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/register/RegisterModel.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

class TstSearchScreen : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_app.emplace().ok());
        m_state = m_app->get();
        QVERIFY(m_state->accounts()->insert(Fixtures::account("a", "Checking")));
        QVERIFY(m_state->accounts()->insert(Fixtures::account("b", "Savings")));
        TransactionRepository *t = m_state->transactions();
        const QDate today = QDate::currentDate();
        Transaction coffee = Fixtures::transaction("1", "a", today.addDays(-40), "Coffee Roasters", -450);
        coffee.cleared = true;
        QVERIFY(t->insert(coffee));
        QVERIFY(t->insert(Fixtures::transaction("2", "b", today.addDays(-2), "Coffee Cart", -300)));
        QVERIFY(t->insert(Fixtures::transaction("3", "a", today.addDays(-1), "Grocer", -2000)));
        QVERIFY(t->insert(Fixtures::transaction("4", "b", today.addDays(-3), "Interest", 12)));
        m_screen = std::make_unique<SearchScreen>(m_state);
    }

    void typingSearchesOnceAfterThePause()
    {
        QSignalSpy searches(m_screen->model(), &QAbstractItemModel::modelReset);
        auto *edit = child<QLineEdit>(m_screen.get(), "searchEdit");
        QTest::keyClicks(edit, u"cof"_s);
        QTest::qWait(100);
        QTest::keyClicks(edit, u"fee"_s);
        QCOMPARE(searches.count(), 0);
        QTRY_COMPARE(searches.count(), 1);
        QTest::qWait(400);
        QCOMPARE(searches.count(), 1);
        QCOMPARE(payees(), QStringList({"Coffee Cart", "Coffee Roasters"}));

        // Text that is no valid query finds nothing, quietly.
        edit->setText(u"\"unbalanced"_s);
        QTRY_COMPARE(searches.count(), 2);
        QCOMPARE(payees(), QStringList());
    }

    void filters_data()
    {
        addColumns<QString, QString, bool, QStringList>({"text", "account", "clearedOnly", "expected"});
        QTest::newRow("nothing: the newest of all accounts")
            << u""_s << QString() << false
            << QStringList({"Grocer", "Coffee Cart", "Interest", "Coffee Roasters"});
        QTest::newRow("cleared or not")
            << u"coffee"_s << QString() << false << QStringList({"Coffee Cart", "Coffee Roasters"});
        QTest::newRow("cleared only") << u"coffee"_s << QString() << true << QStringList({"Coffee Roasters"});
        QTest::newRow("one account") << u""_s << u"b"_s << false << QStringList({"Coffee Cart", "Interest"});
        QTest::newRow("prefix") << u"gro*"_s << QString() << false << QStringList({"Grocer"});
    }

    void filters()
    {
        QFETCH(QString, text);
        QFETCH(QString, account);
        QFETCH(bool, clearedOnly);
        QFETCH(QStringList, expected);
        auto *accounts = child<QComboBox>(m_screen.get(), "accountCombo");
        accounts->setCurrentIndex(accounts->findData(account));
        child<QCheckBox>(m_screen.get(), "clearedCheck")->setChecked(clearedOnly);
        child<QLineEdit>(m_screen.get(), "searchEdit")->setText(text);
        QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "performSearch"));
        QCOMPARE(payees(), expected);
    }

    void dateEditsSearchOnlyWhenTheRangeIsOn()
    {
        QSignalSpy searches(m_screen->model(), &QAbstractItemModel::modelReset);
        auto *from = child<QDateEdit>(m_screen.get(), "fromEdit");
        QCOMPARE(from->date(), QDate::currentDate().addMonths(-1));
        from->setDate(QDate::currentDate().addDays(-2));
        QCOMPARE(searches.count(), 0);

        child<QCheckBox>(m_screen.get(), "dateCheck")->setChecked(true);
        QCOMPARE(searches.count(), 1);
        QCOMPARE(payees(), QStringList({"Grocer", "Coffee Cart"}));
        from->setDate(QDate::currentDate().addDays(-1));
        QCOMPARE(searches.count(), 2);
        QCOMPARE(payees(), QStringList({"Grocer"}));
    }

    void doubleClickAsksToEditTheRow()
    {
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
        QSignalSpy edits(m_screen.get(), &SearchScreen::editTransactionRequested);
        QTableView *view = m_screen->view();
        const QModelIndex first = m_screen->model()->index(1, RegisterModel::Payee);
        QCOMPARE(m_screen->model()->recordAt(1)->payee, u"Grocer"_s);
        const QPoint centre = view->visualRect(first).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
        QVERIFY(view->selectionModel()->isRowSelected(1, {})); // a result is a row, not a cell
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
        QCOMPARE(edits.count(), 1);
        QCOMPARE(edits.first().first().toString(), u"3"_s);
    }

private:
    // The rows as the view shows them, top to bottom, without the model's hidden entry row.
    QStringList payees() const
    {
        QStringList names;
        for (int row = 0; row < m_screen->model()->rowCount(); ++row) {
            if (m_screen->view()->isRowHidden(row))
                continue;
            if (const RegisterRow *record = m_screen->model()->recordAt(row))
                names.append(record->payee);
            else
                names.append(u"<entry row shown>"_s);
        }
        return names;
    }

    std::optional<TempAppState> m_app;
    AppState *m_state = nullptr;
    std::unique_ptr<SearchScreen> m_screen;
};

QTEST_MAIN(TstSearchScreen)
#include "tst_searchscreen.moc"
