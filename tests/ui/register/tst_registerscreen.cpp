#include "ui/register/RegisterScreen.h"

#include "core/ThemeManager.h"
#include "support/Columns.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterTableView.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;
using M = RegisterModel;

class TstRegisterScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_state;
    std::optional<RegisterScreen> m_screen;

    AppState *s() const { return m_state->get(); }
    M *model() const { return m_screen->model(); }
    RegisterTableView *view() const { return m_screen->view(); }
    QList<Transaction> rows(const QString &account = u"home"_s) const
    {
        return s()->transactions()->getByAccount(account);
    }
    void insert(const char *id, const QDate &date, const char *payee, qint64 amount)
    {
        QVERIFY(s()->transactions()->insert(Fixtures::transaction(id, "home", date, payee, amount)));
    }
    QString groceries() const { return s()->categories()->getByName(u"Groceries"_s)->id; }
    void setNew(int column, const QString &text)
    {
        model()->setData(model()->index(model()->newRowIndex(), column), text);
    }
    void focus(int row, int column) { view()->setCurrentIndex(model()->index(row, column)); }
    QLineEdit *lineEditor() const
    {
        return qobject_cast<QLineEdit *>(view()->indexWidget(view()->currentIndex()));
    }
    int column() const { return view()->currentIndex().column(); }

    // Keys go where a user's would: to the focused editor if one is open, else to the table.
    void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : view(), k, mods);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    // Text typed a key at a time, with named keys in angle brackets and "<All>" selecting the open
    // editor's text: the first key may open an editor, which then has the focus for the rest.
    void play(const QString &script)
    {
        static const QHash<QString, Qt::Key> named{
            {u"Tab"_s,     Qt::Key_Tab    },
            {u"Backtab"_s, Qt::Key_Backtab},
            {u"Enter"_s,   Qt::Key_Return }
        };
        for (const QString &part : script.split(u'<')) {
            const qsizetype end = part.indexOf(u'>');
            if (end > 0 && part.startsWith(u"All>"))
                lineEditor()->selectAll();
            else if (end > 0)
                key(named.value(part.left(end)));
            for (const QChar c : part.mid(end + 1))
                QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : view(),
                                c.toLatin1());
            QCoreApplication::processEvents();
        }
    }
    QString describe(const Transaction &t) const
    {
        const std::optional<Category> category = s()->categories()->getById(t.categoryId);
        return QStringList{t.date == QDate::currentDate() ? u"today"_s : t.date.toString(Qt::ISODate),
                           t.checkNumber,
                           t.payee,
                           category ? category->name : QString(),
                           t.memo,
                           QString::number(t.amount),
                           t.reconciled ? u"R"_s
                           : t.cleared  ? u"C"_s
                                        : QString()}
            .join(u'|');
    }
    // A past purchase at the grocer, so that its payee has something to fill in.
    void addGrocerRow()
    {
        Transaction t = Fixtures::transaction("grocer", "home", QDate(2026, 3, 2), "Corner Grocer", -1234);
        t.memo = u"weekly shop"_s;
        t.categoryId = groceries();
        QVERIFY(s()->transactions()->insert(t));
        m_screen->refresh();
    }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_state.emplace().ok());
        QSettings().remove(u"register"_s);
        Account yen = Fixtures::account("yen", "Tokyo");
        yen.currency = Currency::JPY;
        for (const Account &a :
             {Fixtures::account("home", "Home"), Fixtures::account("savings", "Savings"), yen})
            QVERIFY(s()->accounts()->insert(a));
        m_screen.emplace(s());
        m_screen->resize(1200, 600);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_screen));
        m_screen->setAccount(u"home"_s);
        view()->setFocus();
    }

    void newRowByKeyboard_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("saved"); // empty: nothing saved, and the cursor left in the Clr column
        const QString tabbed =
            u"<Tab>101<Tab>Corner Grocer<Tab>Groceries<Tab>bread<Tab>12.34<Tab><Tab>c<Tab>"_s;
        QTest::newRow("Tab on the last field saves nothing") << tabbed << QString();
        QTest::newRow("Enter on the last field saves")
            << tabbed + u"<Enter><Enter>"_s << u"today|101|Corner Grocer|Groceries|bread|-1234|C"_s;
        QTest::newRow("Enter alone walks the fields")
            << u"<Enter><Enter><Enter>Payroll<Enter><Enter><Enter><Enter>2,500.00<Enter><Enter>"_s
            << u"today||Payroll|||250000|"_s;
    }

    void newRowByKeyboard()
    {
        QFETCH(QString, script);
        QFETCH(QString, saved);
        play(script);
        const QList<Transaction> all = rows();
        QCOMPARE(all.size(), saved.isEmpty() ? 0 : 1);
        if (saved.isEmpty()) {
            QCOMPARE(column(), int(M::Cleared));
            return;
        }
        QCOMPARE(describe(all.first()), saved);
        // Back on a blank new row, ready for the next one.
        QCOMPARE(view()->currentIndex().row(), model()->newRowIndex());
        QVERIFY(model()->pendingText(M::Payee).isEmpty());
    }

    void validation_data()
    {
        // saved: -1, nothing saved, else the amount.
        addColumns<QString, QString, QString, QString, int>({"payee", "payment", "deposit", "hint", "saved"});
        QTest::newRow("no payee") << u""_s << u"5"_s << u""_s << u"Payee is required"_s << -1;
        QTest::newRow("no amount") << u"Shop"_s << u""_s << u""_s << u"Enter a payment or deposit amount"_s
                                   << -1;
        QTest::newRow("payment wins over deposit") << u"Shop"_s << u"0"_s << u"5"_s << u""_s << 0;
        QTest::newRow("unreadable amount is zero") << u"Shop"_s << u"abc"_s << u""_s << u""_s << 0;
    }

    void validation()
    {
        QFETCH(QString, payee);
        QFETCH(QString, payment);
        QFETCH(QString, deposit);
        QFETCH(QString, hint);
        QFETCH(int, saved);
        setNew(M::Payee, payee);
        setNew(M::Payment, payment);
        setNew(M::Deposit, deposit);
        key(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(m_screen->statusHint(), hint);
        QCOMPARE(rows().size(), saved < 0 ? 0 : 1);
        if (saved >= 0)
            QCOMPARE(rows().first().amount, qint64(saved));
        else
            QCOMPARE(model()->pendingText(M::Payee), payee); // the typing is kept for a retry
    }

    void transfers_data()
    {
        // deleteFrom: the side deleted once both are written.
        addColumns<QString, QString, QString>({"payee", "deleteFrom", "refusal"});
        QTest::newRow("deleted from the paying side") << u"[Transfer] Savings"_s << u"home"_s << u""_s;
        QTest::newRow("deleted from the receiving side") << u"[Transfer] Savings"_s << u"savings"_s << u""_s;
        QTest::newRow("between currencies") << u"[Transfer] Tokyo"_s << u""_s
                                            << u"Transfers require both accounts to use the same currency"_s;
        QTest::newRow("to no account") << u"[Transfer] Nowhere"_s << u""_s << u"Transfer account not found"_s;
    }

    void transfers()
    {
        QFETCH(QString, payee);
        QFETCH(QString, deleteFrom);
        QFETCH(QString, refusal);
        QSignalSpy error(&*m_screen, &RegisterScreen::errorMessage);
        setNew(M::Payee, payee);
        setNew(M::Payment, u"100"_s);
        key(Qt::Key_Return, Qt::ControlModifier);
        if (!refusal.isEmpty()) {
            QCOMPARE(error.isEmpty() ? m_screen->statusHint() : error.first().at(0).toString(), refusal);
            QVERIFY(rows().isEmpty() && rows(u"yen"_s).isEmpty());
            return;
        }
        const Transaction out = rows().value(0), in = rows(u"savings"_s).value(0);
        QCOMPARE(describe(out), u"today||Transfer to Savings|||-10000|"_s);
        QCOMPARE(describe(in), u"today||Transfer from Home|||10000|"_s);
        QCOMPARE(out.transferLinkId, in.id);
        QCOMPARE(in.transferLinkId, out.id);
        QCOMPARE(out.transferDestAccountId, u"savings"_s);
        QCOMPARE(in.transferDestAccountId, u"home"_s);

        m_screen->setAccount(deleteFrom);
        focus(model()->findRowById(deleteFrom == u"home" ? out.id : in.id), M::Payee);
        Prompt::setNextAnswer(QMessageBox::Yes);
        key(Qt::Key_D, Qt::ControlModifier);
        QVERIFY(Prompt::lastText().contains(u"Both sides of the transfer will be deleted."_s));
        QVERIFY(rows().isEmpty() && rows(u"savings"_s).isEmpty());
    }

    void leavingAnOpenedRowDiscardsItsTyping()
    {
        insert("t", QDate(2026, 1, 1), "Baker", -500);
        m_screen->refresh();
        const int row = model()->findRowById(u"t"_s);
        focus(row, M::Payee);
        QCOMPARE(model()->editingRow(), row);
        model()->setData(model()->index(row, M::Payee), u"Butcher"_s);
        key(Qt::Key_Down); // to the new row
        QCOMPARE(model()->editingRow(), -1);
        QCOMPARE(s()->transactions()->getById(u"t"_s)->payee, u"Baker"_s);
        QCOMPARE(model()->index(row, M::Payee).data().toString(), u"Baker"_s);
    }

    void madeUpOpeningRowIsInert()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("old", "Old", 5000)));
        m_screen->setAccount(u"old"_s);
        QCOMPARE(model()->rowCount(), 2);
        const int opening = model()->newRowIndex() == 0 ? 1 : 0;
        focus(opening, M::Payee);
        model()->setData(model()->index(opening, M::Payee), u"Changed"_s);
        key(Qt::Key_Return, Qt::ControlModifier);
        focus(opening, M::Payee);
        Prompt::setNextAnswer(QMessageBox::Yes);
        key(Qt::Key_D, Qt::ControlModifier);
        QVERIFY(rows(u"old"_s).isEmpty());
        QCOMPARE(model()->rowCount(), 2);
        QCOMPARE(model()->recordAt(opening)->payee, u"Opening Balance"_s);
    }

    void payeeSuggestionAcceptedAndFilledIn_data()
    {
        QTest::addColumn<Qt::Key>("accept");
        QTest::newRow("tab accepts and moves on") << Qt::Key_Tab;
        QTest::newRow("enter only accepts") << Qt::Key_Return;
    }

    void payeeSuggestionAcceptedAndFilledIn()
    {
        QFETCH(Qt::Key, accept);
        addGrocerRow();
        focus(model()->newRowIndex(), M::Check);
        play(u"<Tab>Cor"_s); // on to the payee, whose editor opens
        QLineEdit *payee = lineEditor();
        QAbstractItemView *popup = payee->completer()->popup();
        QTRY_VERIFY(popup->isVisible());
        // The list opens on its first suggestion, with no Down pressed, and the typing left as typed.
        QCOMPARE(popup->currentIndex().data().toString(), u"Corner Grocer"_s);
        QCOMPARE(payee->text(), u"Cor"_s);
        // The open list holds the keyboard: the key goes to it, as in a real window.
        QTest::keyClick(popup, accept);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        if (accept == Qt::Key_Return) {
            // Still in the payee with the suggestion taken; the second Enter moves on and fills in.
            QCOMPARE(column(), int(M::Payee));
            QCOMPARE(lineEditor()->text(), u"Corner Grocer"_s);
            QVERIFY(model()->pendingText(M::Payment).isEmpty());
            key(Qt::Key_Return);
        }
        QCOMPARE(column(), int(M::Category));
        QStringList pending;
        for (int c : {M::Payee, M::Category, M::Memo, M::Payment, M::Deposit})
            pending << model()->pendingText(c);
        QCOMPARE(pending, QStringList({"Corner Grocer", "Groceries", "weekly shop", "12.34", ""}));
        key(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(rows().size(), 2);
        QCOMPARE(describe(rows().first()), u"today||Corner Grocer|Groceries|weekly shop|-1234|"_s);
    }

    void fillInRepeatsWhenThePayeeIsLeftAgain()
    {
        addGrocerRow();
        focus(model()->newRowIndex(), M::Check);
        play(u"<Tab>Corner Grocer<Tab>"_s); // leaving the payee fills in
        QCOMPARE(model()->pendingText(M::Payment), u"12.34"_s);
        play(u"<Tab><All>party<Tab><All>99.00<Backtab><Backtab><Backtab>"_s); // through the memo to the
                                                                              // payment
        QCOMPARE(column(), int(M::Payee));
        QCOMPARE(model()->pendingText(M::Payment), u"99.00"_s);
        key(Qt::Key_Tab); // leaving the payee again brings the last transaction's values back
        QCOMPARE(model()->pendingText(M::Payment), u"12.34"_s);
        QCOMPARE(model()->pendingText(M::Memo), u"weekly shop"_s);
    }

    void categorySuggestionTakenWithTab()
    {
        // What is typed replaces a category already there, as fill-in leaves one.
        setNew(M::Category, u"Rent"_s);
        focus(model()->newRowIndex(), M::Category);
        key(Qt::Key_Return);
        auto *combo = qobject_cast<QComboBox *>(view()->indexWidget(view()->currentIndex()));
        play(u"Groc"_s);
        QAbstractItemView *popup = combo->completer()->popup();
        QTRY_VERIFY(popup->isVisible());
        QTest::keyClick(popup, Qt::Key_Tab);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QCOMPARE(model()->pendingText(M::Category), u"Groceries"_s);
        QCOMPARE(model()->pendingCategoryId(), groceries());
        QCOMPARE(column(), int(M::Memo));
    }

    void dateKeysInTheRegister_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QDate>("expected");
        // The buffer starts on 2/29/2024; the first key opens the editor and goes into it, or Enter opens
        // it on the buffer's date, to be typed over. What each key does is the date editor's own test.
        QTest::newRow("= twice") << u"=="_s << QDate(2024, 3, 2);
        QTest::newRow("two-digit year is 19yy") << u"<Enter><All>3/4/25"_s << QDate(1925, 3, 4);
        QTest::newRow("unreadable keeps the date") << u"<Enter><All>13/45/2024"_s << QDate(2024, 2, 29);
    }

    void dateKeysInTheRegister()
    {
        QFETCH(QString, keys);
        QFETCH(QDate, expected);
        setNew(M::Date, u"2/29/2024"_s);
        focus(model()->newRowIndex(), M::Date);
        play(keys + u"<Tab>"_s);
        QCOMPARE(model()->pendingText(M::Date), M::dateText(expected));
        QCOMPARE(column(), int(M::Check));
    }

    void copyFromAbove_data()
    {
        QTest::addColumn<bool>("newestFirst");
        QTest::addColumn<QString>("expected");
        // Above the new row at the bottom stands the latest row; with the newest on top, the row above
        // the oldest is the one just newer than it.
        QTest::newRow("oldest first") << false << u"Late"_s;
        QTest::newRow("newest first") << true << u"Middle"_s;
    }

    void copyFromAbove()
    {
        QFETCH(bool, newestFirst);
        QFETCH(QString, expected);
        insert("early", QDate(2026, 1, 1), "Early", -100);
        insert("middle", QDate(2026, 1, 2), "Middle", -200);
        insert("late", QDate(2026, 1, 3), "Late", -300);
        QVERIFY(s()->preferences()->setBool(u"registerNewestFirst"_s, newestFirst));
        m_screen->refresh();
        // The new row in the oldest-first layout; the oldest row, opened, in the newest-first one. Both
        // stand last.
        const int row = newestFirst ? model()->findRowById(u"early"_s) : model()->newRowIndex();
        QCOMPARE(row, 3);
        focus(row, M::Payee);
        key(Qt::Key_Apostrophe);
        QCOMPARE(model()->pendingText(M::Payee), expected);
        QCOMPARE(model()->index(row, M::Payee).data().toString(), expected);
        QCOMPARE(rows().size(), 3); // copying writes nothing
    }

    void splitRowSkipsItsLockedCells()
    {
        Transaction split = Fixtures::transaction("split", "home", QDate(2026, 2, 1), "Warehouse", -9000);
        split.isSplit = true;
        QVERIFY(s()->transactions()->insert(split));
        m_screen->refresh();
        const int row = model()->findRowById(u"split"_s);
        focus(row, M::Payee);
        key(Qt::Key_Return);
        QVERIFY(lineEditor());
        // Tab visits every field; the category and amounts belong to the lines and open no editor.
        QStringList visited;
        for (int step = 0; step < 5; ++step) {
            key(Qt::Key_Tab);
            visited << QString::number(column()) +
                           (view()->indexWidget(view()->currentIndex()) ? u"e"_s : u""_s);
        }
        QCOMPARE(visited, QStringList({"3", "4e", "5", "6", "7e"}));
        // Enter on a locked cell asks for the split editor's form instead.
        QString opened;
        Prompt::setNextDialogHandler([&opened](QDialog *dialog) {
            opened = dialog->windowTitle();
            return int(QDialog::Rejected);
        });
        focus(row, M::Payment);
        key(Qt::Key_Return);
        QCOMPARE(opened, u"Edit Transaction"_s);
    }

    void newestFirstEntersAtTheTop()
    {
        insert("old", QDate(2025, 12, 1), "Old", 10000);
        QVERIFY(s()->preferences()->setBool(u"registerNewestFirst"_s, true));
        m_screen->setAccount(u"home"_s);
        QCOMPARE(model()->newRowIndex(), 0);
        QCOMPARE(view()->currentIndex(), model()->index(0, 0));
        QCOMPARE(QSettings().value(u"register/sortOrder"_s).toInt(), int(Qt::DescendingOrder));
        setNew(M::Payee, u"Newer"_s);
        setNew(M::Payment, u"25"_s);
        key(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(view()->currentIndex(), model()->index(0, 0));
        QCOMPARE(model()->index(1, M::Payee).data().toString(), u"Newer"_s);
        QCOMPARE(model()->index(1, M::Balance).data().toString(), u"75.00"_s);
        QCOMPARE(model()->index(2, M::Payee).data().toString(), u"Old"_s);
        QCOMPARE(child<QLabel>(&*m_screen, "balanceLabel")->text(), u"$75.00"_s);
    }

    void saveReachesTheOpenedRow_data()
    {
        QTest::addColumn<int>(
            "sortBy"); // the header clicked; -1: a row arrives from elsewhere and the screen reloads
        QTest::addColumn<QString>("opened");
        QTest::addColumn<QString>("memo"); // the opened row's memo once saved
        // The paycheck sits in the middle of every column's order, so that any sort moves it; the screen
        // opens on the dates in ascending order, with the paycheck newest.
        for (int column = M::Date; column <= M::Balance; ++column)
            QTest::addRow("sort by column %d", column) << column << u"pay"_s << u"typed"_s;
        QTest::newRow("newest first, the oldest open") << int(M::Date) << u"bonus"_s << u"typed"_s;
        // A reload returns to a blank buffer and opens the row again from what was read.
        QTest::newRow("reload") << -1 << u"pay"_s << u"m"_s;
    }

    void saveReachesTheOpenedRow()
    {
        QFETCH(int, sortBy);
        QFETCH(QString, opened);
        QFETCH(QString, memo);
        const struct {
            const char *id;
            QDate date;
            const char *check, *payee, *memo;
            qint64 amount;
            int status; // 1 cleared, 2 reconciled
        } records[] = {
            {"bonus", QDate(2025, 9,  1),  "",    "Bonus",      "",  500000,  0},
            {"water", QDate(2025, 10, 1),  "101", "City Water", "a", -100000, 0},
            {"fund",  QDate(2025, 10, 1),  "102", "Zoo Fund",   "z", -250000, 2},
            {"pay",   QDate(2025, 11, 18), "100", "Payroll",    "m", 286599,  1},
        };
        QStringList expected;
        int minute = 0;
        for (const auto &r : records) {
            Transaction t =
                Fixtures::transaction(r.id, "home", r.date, r.payee, r.amount, QTime(12, minute++));
            t.checkNumber = QLatin1String(r.check);
            t.memo = opened == QLatin1String(r.id) ? memo : QLatin1String(r.memo);
            t.cleared = r.status > 0;
            t.reconciled = r.status > 1;
            expected << describe(t);
            t.memo = QLatin1String(r.memo);
            QVERIFY(s()->transactions()->insert(t));
        }
        m_screen->refresh();
        const int row = model()->findRowById(opened);

        // Open the row's memo by mouse, type over it, move on, leave the editor with Esc.
        const QModelIndex memoCell = model()->index(row, M::Memo);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, view()->visualRect(memoCell).center());
        QVERIFY(lineEditor());
        play(u"<All>typed<Tab>"_s);
        key(Qt::Key_Escape);
        QCOMPARE(model()->editingRow(), row);

        if (sortBy >= 0) {
            QHeaderView *header = view()->horizontalHeader();
            QTest::mouseClick(
                header->viewport(), Qt::LeftButton, {},
                QPoint(header->sectionViewportPosition(sortBy) + header->sectionSize(sortBy) / 2,
                       header->height() / 2));
            QCOMPARE(model()->sortColumn(), sortBy);
            QVERIFY(model()->findRowById(opened) != row); // the row did move
        } else {
            insert("synced", QDate(2025, 1, 1), "Early", -1);
            m_screen->refresh();
        }
        key(Qt::Key_Return, Qt::ControlModifier);

        // Nothing inserted, and only the opened row's memo changed.
        QStringList after;
        for (const Transaction &t : rows())
            if (t.id != u"synced")
                after << describe(t);
        after.sort();
        expected.sort();
        QCOMPARE(after, expected);
    }

    // Saving an edited row moves on to the next, so a statement is worked down row by row.
    void savingMovesToTheNextRow()
    {
        insert("a", QDate(2025, 1, 1), "First", -100);
        insert("b", QDate(2025, 1, 2), "Second", -200);
        insert("c", QDate(2025, 1, 3), "Third", -300);
        m_screen->refresh();
        const int row = model()->findRowById(u"b"_s);
        const QModelIndex memoCell = model()->index(row, M::Memo);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, view()->visualRect(memoCell).center());
        play(u"<All>typed<Tab>"_s);
        key(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(view()->currentIndex().row(), model()->findRowById(u"c"_s));
        QCOMPARE(model()->findRowById(u"c"_s), row + 1);
    }

    void columnLayoutPersistsAndResets()
    {
        QHeaderView *header = view()->horizontalHeader();
        const int viewport = view()->viewport()->width();
        QCOMPARE(header->length(), viewport); // Payee takes what is left
        header->resizeSection(M::Payee, 321);
        QCOMPARE(QSettings().value(u"register/colWidth/2"_s).toInt(), 321);
        QCOMPARE(header->length(), viewport); // now Memo does

        const auto toggleFromMenu = [this](const QString &entry) {
            answerPopupMenu([this] { m_screen->showHeaderContextMenu(QPoint(10, 10)); }, entry);
        };
        toggleFromMenu(u"Chk #"_s);
        QVERIFY(view()->isColumnHidden(M::Check));
        QCOMPARE(QSettings().value(u"register/colHidden/1"_s).toBool(), true);
        // Date and Balance cannot be hidden, whatever the settings say.
        QSettings().setValue(u"register/colHidden/0"_s, true);
        QSettings().setValue(u"register/colHidden/8"_s, true);

        RegisterScreen again(s());
        QCOMPARE(again.view()->horizontalHeader()->sectionSize(M::Payee), 321);
        QVERIFY(again.view()->isColumnHidden(M::Check));
        QVERIFY(!again.view()->isColumnHidden(M::Date) && !again.view()->isColumnHidden(M::Balance));

        toggleFromMenu(u"Reset register layout"_s);
        QVERIFY(header->sectionSize(M::Payee) > 250);
        QCOMPARE(header->sectionSize(M::Memo), 180);
        QVERIFY(!view()->isColumnHidden(M::Check));
        QVERIFY(!QSettings().contains(u"register/colWidth/2"_s));
        QVERIFY(!QSettings().contains(u"register/colHidden/1"_s));
    }

    void registerFitsItsWidth_data()
    {
        // fits: every column on screen, with no sideways scrolling.
        addColumns<int, bool, int, bool>({"width", "twoLine", "fontScale", "fits"});
        // 1000 is what the main window leaves the register at its default size.
        QTest::newRow("default window") << 1000 << false << 100 << true;
        QTest::newRow("default window, large font, two lines") << 1000 << true << 150 << true;
        QTest::newRow("narrow") << 560 << false << 100 << false;
    }

    void registerFitsItsWidth()
    {
        QFETCH(int, width);
        QFETCH(bool, twoLine);
        QFETCH(int, fontScale);
        QFETCH(bool, fits);
        insert("big", QDate(2026, 1, 1), "Sale of the house", 123456789);
        insert("buy", QDate(2026, 1, 2), "New house", -234567890);
        QVERIFY(s()->preferences()->setBool(u"registerTwoLine"_s, twoLine));
        s()->themeManager()->setFontScale(fontScale);
        const auto restoreScale = qScopeGuard([this] { s()->themeManager()->setFontScale(100); });
        m_screen->resize(width, 600);
        m_screen->refresh();
        QCoreApplication::processEvents();

        QHeaderView *header = view()->horizontalHeader();
        const QRect visible = view()->viewport()->rect();
        if (fits) {
            QCOMPARE(header->length(), visible.width());
            QVERIFY(header->sectionViewportPosition(M::Balance) + header->sectionSize(M::Balance) <=
                    visible.width());
        }
        // No figure is cut, whatever the room.
        const int margins = 2 * (view()->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        for (int row = 0; row < model()->rowCount() - 1; ++row) {
            for (int column : {M::Payment, M::Deposit, M::Balance}) {
                const QModelIndex cell = model()->index(row, column);
                const QFontMetrics metrics(cell.data(Qt::FontRole).value<QFont>());
                QVERIFY2(metrics.horizontalAdvance(cell.data().toString()) + margins <=
                             view()->columnWidth(column),
                         qPrintable(cell.data().toString()));
            }
        }
        // Each field the keyboard reaches is on screen while it is edited, with the height it asks for.
        focus(model()->newRowIndex(), M::Date);
        key(Qt::Key_Return);
        for (int step = 0; step < 7; ++step) {
            const QByteArray at = QByteArray::number(column());
            QWidget *editor = view()->indexWidget(view()->currentIndex());
            QVERIFY2(editor, at);
            QVERIFY2(visible.contains(QRect(editor->mapTo(view()->viewport(), QPoint(0, 0)), editor->size())),
                     at);
            QVERIFY2(editor->sizeHint().height() <= editor->height(), at);
            key(Qt::Key_Tab);
        }
    }
};

OMBREL_GUI_TEST_MAIN(TstRegisterScreen)
#include "tst_registerscreen.moc"
