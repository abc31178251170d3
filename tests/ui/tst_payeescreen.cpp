#include "ui/PayeeScreen.h"

#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"

#include <QSqlQuery>
#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

class TstPayeeScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_state;
    std::optional<PayeeScreen> m_screen;

    int count(const QString &where)
    {
        QSqlQuery q(m_state->get()->database()->connection());
        return q.exec(u"SELECT COUNT(*) FROM transactions WHERE "_s + where) && q.next() ? q.value(0).toInt()
                                                                                         : -1;
    }
    // Clicks the payees, the first plainly and the rest with Ctrl, as a user would.
    void select(const QStringList &payees)
    {
        auto *list = child<QListWidget>(&*m_screen, "payeeList");
        Qt::KeyboardModifiers modifiers;
        for (const QString &payee : payees) {
            const QList<QListWidgetItem *> found = list->findItems(payee, Qt::MatchExactly);
            QCOMPARE(found.size(), 1);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                              list->visualItemRect(found.first()).center());
            modifiers = Qt::ControlModifier;
        }
        QCOMPARE(list->selectedItems().size(), payees.size());
    }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_state.emplace().ok());
        AppState *s = m_state->get();
        QVERIFY(s->accounts()->insert(Fixtures::account("a", "Checking")));
        QVERIFY(s->accounts()->insert(Fixtures::account("b", "Visa")));
        const char *rows[][3] = {
            {"1",    "a", "STARBUCKS #12"   },
            {"2",    "b", "STARBUCKS #12"   },
            {"3",    "a", "Starbucks"       },
            {"4",    "a", "starbucks coffee"},
            {"5",    "a", "Grocer"          },
            {"gone", "a", "STARBUCKS #12"   }
        };
        for (const auto &r : rows)
            QVERIFY(
                s->transactions()->insert(Fixtures::transaction(r[0], r[1], QDate(2025, 5, 1), r[2], -100)));
        QVERIFY(s->transactions()->softDelete(u"gone"_s));
        // Synced, so that the rows a change touches show as pending and the others do not.
        QSqlQuery synced(s->database()->connection());
        QVERIFY(synced.exec(u"UPDATE transactions SET sync_status = 'synced'"_s));
        m_screen.emplace(s);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_screen));
    }

    void renameAndMerge_data()
    {
        QTest::addColumn<QStringList>("selected"); // clicked in this order
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("message"); // empty: the screen tells nothing
        QTest::addColumn<QString>("name");    // then holds this many live rows
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("changed"); // rows written, the deleted one never among them
        QTest::addColumn<int>("payees");
        const QString rename = u"renameButton"_s, merge = u"mergeButton"_s;
        QTest::newRow("rename counts live rows of every account")
            << QStringList{"STARBUCKS #12"} << u"  Starbucks  "_s << rename << u"Renamed 2 transaction(s)."_s
            << u"Starbucks"_s << 3 << 2 << 3;
        QTest::newRow("rename to the same name")
            << QStringList{"Starbucks"} << u"Starbucks"_s << rename << u"Renamed 0 transaction(s)."_s
            << u"Starbucks"_s << 1 << 0 << 4;
        QTest::newRow("rename needs a selection")
            << QStringList{} << u"Coffee"_s << rename << u""_s << u"Coffee"_s << 0 << 0 << 4;
        QTest::newRow("rename needs a name")
            << QStringList{"Grocer"} << u"   "_s << rename << u""_s << u"Grocer"_s << 1 << 0 << 4;
        // Clicked from the bottom of the list up: the first clicked is the target, and its rows stay.
        QTest::newRow("merge into the first selected")
            << QStringList{"starbucks coffee", "STARBUCKS #12", "Starbucks"} << u""_s << merge
            << u"Merged 3 transaction(s)."_s << u"starbucks coffee"_s << 4 << 3 << 2;
        QTest::newRow("merge into the typed name")
            << QStringList{"Starbucks", "starbucks coffee"} << u"Coffee "_s << merge
            << u"Merged 2 transaction(s)."_s << u"Coffee"_s << 2 << 2 << 3;
        QTest::newRow("merge needs two")
            << QStringList{"Grocer"} << u""_s << merge << u"Select 2 or more payees to merge."_s
            << u"Grocer"_s << 1 << 0 << 4;
    }

    void renameAndMerge()
    {
        QFETCH(QStringList, selected);
        QFETCH(QString, typed);
        QFETCH(QString, button);
        QFETCH(QString, message);
        QFETCH(QString, name);
        QFETCH(int, rows);
        QFETCH(int, changed);
        QFETCH(int, payees);
        select(selected);
        child<QLineEdit>(&*m_screen, "nameEdit")->setText(typed);
        QSignalSpy changes(&*m_screen, &PayeeScreen::payeesChanged);
        // Marks what was last shown, so that a screen telling nothing shows.
        Prompt::setNextAnswer(QMessageBox::Ok);
        Prompt::information(nullptr, QString(), u"-"_s);
        if (button == QLatin1String("mergeButton") && selected.size() > 1)
            Prompt::setNextAnswer(QMessageBox::Yes);
        if (!message.isEmpty())
            Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(child<QPushButton>(&*m_screen, qPrintable(button)), Qt::LeftButton);
        QCOMPARE(Prompt::lastText(), message.isEmpty() ? u"-"_s : message);
        QCOMPARE(count(u"payee = '%1' AND deleted_at IS NULL"_s.arg(name)), rows);
        QCOMPARE(count(u"sync_status = 'pending'"_s), changed);
        QCOMPARE(count(u"id = 'gone' AND payee = 'STARBUCKS #12'"_s), 1);
        QCOMPARE(changes.count(), message.endsWith(QLatin1String("transaction(s).")) ? 1 : 0);
        QCOMPARE(child<QListWidget>(&*m_screen, "payeeList")->count(), payees);
    }

    void mergeNeedsAYes()
    {
        select({"Grocer", "Starbucks"});
        Prompt::setNextAnswer(QMessageBox::No);
        QTest::mouseClick(child<QPushButton>(&*m_screen, "mergeButton"), Qt::LeftButton);
        QCOMPARE(Prompt::lastText(), u"Merge 2 payees into \"Grocer\"?"_s);
        QCOMPARE(count(u"sync_status = 'pending'"_s), 0);
    }
};

QTEST_MAIN(TstPayeeScreen)
#include "tst_payeescreen.moc"
