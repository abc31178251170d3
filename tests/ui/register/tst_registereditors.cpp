// The register's own editors: the date field, the date edit with its command keys, the amount field and
// the completer that Tab accepts.
#include "core/ThemeManager.h"
#include "support/Columns.h"
#include "ui/register/DateField.h"
#include "ui/register/RegisterComboBox.h"
#include "ui/register/RegisterLineEdit.h"
#include "ui/register/SmartAmountField.h"
#include "ui/register/SmartDateEdit.h"
#include "ui/register/TabCompleter.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

const QStringList kPayees = {u"Groceries"_s, u"Grocer's Outlet"_s, u"Rent"_s};

class PayeeDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *edit = new RegisterLineEdit(parent);
        edit->setCompleter(new TabCompleter(kPayees, edit));
        return edit;
    }
};

// Opens the suggestions for typed and highlights the row-th, or none for -1. The open list holds the
// keyboard, so the caller sends its keys to the returned popup.
QAbstractItemView *suggest(QCompleter *completer, const QString &typed, int row)
{
    completer->setCompletionPrefix(typed);
    completer->complete();
    QAbstractItemView *popup = completer->popup();
    popup->setCurrentIndex(row < 0 ? QModelIndex() : popup->model()->index(row, 0));
    return popup;
}

} // namespace

class TstRegisterEditors : public QObject {
    Q_OBJECT
private slots:
    void dateFieldReportsChange_data()
    {
        addColumns<QString, char, QString, bool>({"typed", "key", "text", "emitted"}); // key 0: leave instead
        // The stored date is Sunday 3/3/2024.
        QTest::newRow("+ from stored, not typed") << u"6/1/2024"_s << '+' << u"3/4/2024"_s << true;
        QTest::newRow("no change keeps typing") << u"abc"_s << 'w' << u"abc"_s << false;
        QTest::newRow("leave with new date") << u"3/4/25"_s << '\0' << u"3/4/1925"_s << true;
        QTest::newRow("leave with same date") << u"03/03/2024"_s << '\0' << u"3/3/2024"_s << false;
        QTest::newRow("leave with garbage") << u"13/45/2024"_s << '\0' << u"3/3/2024"_s << false;
    }

    void dateFieldReportsChange()
    {
        QFETCH(QString, typed);
        QFETCH(char, key);
        QFETCH(QString, text);
        QFETCH(bool, emitted);
        DateField field;
        field.setDate(QDate(2024, 3, 3));
        QSignalSpy spy(&field, &DateField::dateChanged);
        field.selectAll();
        QTest::keyClicks(&field, typed);
        if (key) {
            QTest::keyClick(&field, key);
            QCOMPARE(field.selectedText(), text);
        } else {
            QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
            QCoreApplication::sendEvent(&field, &leave);
        }
        QCOMPARE(field.text(), text);
        QCOMPARE(spy.count(), emitted ? 1 : 0);
        if (emitted)
            QCOMPARE(spy.at(0).at(0).toDate(), QDate::fromString(text, u"M/d/yyyy"_s));
    }

    void dateCommand_data()
    {
        addColumns<QDate, char, QDate>({"start", "key", "expected"}); // expected invalid: today
        const QDate leap(2024, 2, 29);                                // a Thursday
        QTest::newRow("t") << leap << 't' << QDate();
        QTest::newRow("+ after leap day") << leap << '+' << QDate(2024, 3, 1);
        QTest::newRow("= over year end") << QDate(2024, 12, 31) << '=' << QDate(2025, 1, 1);
        QTest::newRow("- to leap day") << QDate(2024, 3, 1) << '-' << leap;
        QTest::newRow("m") << leap << 'm' << QDate(2024, 2, 1);
        QTest::newRow("h leap") << QDate(2024, 2, 3) << 'h' << leap;
        QTest::newRow("h common") << QDate(2023, 2, 3) << 'h' << QDate(2023, 2, 28);
        QTest::newRow("y") << leap << 'y' << QDate(2024, 1, 1);
        QTest::newRow("r") << leap << 'r' << QDate(2024, 12, 31);
        QTest::newRow("w thursday") << leap << 'w' << QDate(2024, 2, 25);
        QTest::newRow("w sunday stays") << QDate(2024, 3, 3) << 'w' << QDate(2024, 3, 3);
        QTest::newRow("k saturday stays") << QDate(2024, 3, 2) << 'k' << QDate(2024, 3, 2);
        QTest::newRow("k sunday") << QDate(2024, 2, 25) << 'k' << QDate(2024, 3, 2);
    }

    void dateCommand()
    {
        QFETCH(QDate, start);
        QFETCH(char, key);
        QFETCH(QDate, expected);
        if (!expected.isValid())
            expected = QDate::currentDate();
        // The week commands keep a Sunday-to-Saturday week whatever day the calendar starts on.
        for (const Qt::DayOfWeek weekStart : {Qt::Monday, Qt::Sunday}) {
            ThemeManager::setFirstDayOfWeek(weekStart);
            SmartDateEdit edit;
            edit.setDate(start);
            QTest::keyClick(&edit, key);
            QCOMPARE(edit.date(), expected);
            QCOMPARE(edit.text(), expected.toString(u"M/d/yyyy"_s));
            QCOMPARE(edit.selectedText(), edit.text());
        }
    }

    void typedDate_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QDate>("expected");
        const QDate stored(2024, 2, 29);
        QTest::newRow("padded") << u"03/04/2024"_s << QDate(2024, 3, 4);
        QTest::newRow("two digits are 19yy") << u"3/4/25"_s << QDate(1925, 3, 4);
        QTest::newRow("00") << u"1/1/00"_s << QDate(1900, 1, 1);
        QTest::newRow("no such day") << u"2/30/2024"_s << stored;
        QTest::newRow("day first") << u"29/2/2024"_s << stored;
    }

    void typedDate()
    {
        QFETCH(QString, typed);
        QFETCH(QDate, expected);
        SmartDateEdit edit;
        edit.setDate(QDate(2024, 2, 29));
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClicks(&edit, typed);
        QCOMPARE(edit.text(), typed);
        QCOMPARE(edit.date(), expected);
    }

    void calendarFollowsWeekStart()
    {
        SmartDateEdit edit;
        for (const Qt::DayOfWeek weekStart : {Qt::Monday, Qt::Sunday}) {
            edit.setDate(QDate(2024, 2, 29));
            ThemeManager::setFirstDayOfWeek(weekStart);
            QTest::keyClick(&edit, Qt::Key_F4);
            auto *calendar = edit.findChild<QCalendarWidget *>();
            QVERIFY(calendar->isVisible());
            QCOMPARE(calendar->firstDayOfWeek(), weekStart);
            QCOMPARE(calendar->selectedDate(), QDate(2024, 2, 29));
            emit calendar->clicked(QDate(2024, 3, 15));
            QVERIFY(!calendar->isVisible());
            QCOMPARE(edit.text(), u"3/15/2024"_s);
            delete calendar;
        }
    }

    void typedAmount_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<qint64>("cents");
        QTest::newRow("negative") << u"-5"_s << qint64(-500);
        QTest::newRow("symbol and grouping") << u"$1,234.5"_s << qint64(123450);
        QTest::newRow("minus after symbol") << u"$-7.25"_s << qint64(-725);
        QTest::newRow("letters refused") << u"12abc"_s << qint64(1200);
        QTest::newRow("other symbol refused") << u"€5"_s << qint64(500);
        QTest::newRow("third decimal refused") << u"1.239"_s << qint64(123);
        QTest::newRow("second point goes to cents") << u"1.2.3"_s << qint64(132);
    }

    void typedAmount()
    {
        QFETCH(QString, typed);
        QFETCH(qint64, cents);
        // A comma decimal point would be read back as a grouping comma, a hundred times too much.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        SmartAmountField field;
        QLocale::setDefault(QLocale::c());
        field.setValue(42);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        // keyClicks takes ASCII only, and "€" must be tried too.
        for (const QChar c : typed)
            QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(c), Qt::NoModifier);
        field.interpretText();
        QCOMPARE(qRound64(field.value() * 100), cents);
    }

    void decimalKeyJumpsToCents()
    {
        SmartAmountField field;
        field.setValue(1234.5);
        auto *edit = field.findChild<QLineEdit *>();
        for (const char key : {'.', ','}) {
            edit->setSelection(1, 2);
            QTest::keyClick(&field, key);
            QCOMPARE(edit->text(), u"1234.50"_s);
            QCOMPARE(edit->cursorPosition(), 5);
            QVERIFY(!edit->hasSelectedText());
        }
    }

    void tabInRegister_data()
    {
        addColumns<int, Qt::Key, QString, int>({"highlighted", "key", "committed", "nextColumn"});
        QTest::newRow("tab") << 1 << Qt::Key_Tab << u"Grocer's Outlet"_s << 2;
        QTest::newRow("backtab") << 0 << Qt::Key_Backtab << u"Groceries"_s << 0;
        QTest::newRow("nothing highlighted") << -1 << Qt::Key_Tab << u"roc"_s << 2;
    }

    void tabInRegister()
    {
        QFETCH(int, highlighted);
        QFETCH(Qt::Key, key);
        QFETCH(QString, committed);
        QFETCH(int, nextColumn);
        QStandardItemModel model(1, 3);
        QTableView view;
        view.setModel(&model);
        view.setItemDelegate(new PayeeDelegate(&view));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.setCurrentIndex(model.index(0, 1));
        view.edit(model.index(0, 1));
        auto *edit = view.findChild<RegisterLineEdit *>();
        QSignalSpy activated(edit->completer(), qOverload<const QString &>(&QCompleter::activated));
        QTest::keyClicks(edit, u"roc"_s);
        QAbstractItemView *popup = suggest(edit->completer(), u"roc"_s, highlighted);
        QTest::keyClick(popup, key);
        QVERIFY(!popup->isVisible());
        QCOMPARE(model.index(0, 1).data().toString(), committed);
        QCOMPARE(activated.count(), highlighted < 0 ? 0 : 1);
        QCOMPARE(view.currentIndex().column(), nextColumn);
    }

    void tabToMemoLine()
    {
        QWidget editor;
        editor.setObjectName(u"PayeeMemoEditor"_s);
        auto *layout = new QVBoxLayout(&editor);
        auto *payee = new RegisterLineEdit(&editor);
        auto *memo = new RegisterLineEdit(&editor);
        memo->setObjectName(u"memoEdit"_s);
        layout->addWidget(payee);
        layout->addWidget(memo);
        payee->setCompleter(new TabCompleter(kPayees, payee));
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        payee->setFocus();
        QTest::keyClick(suggest(payee->completer(), u"ren"_s, 0), Qt::Key_Tab);
        QCOMPARE(payee->text(), u"Rent"_s);
        QTRY_VERIFY(memo->hasFocus());
    }

    void tabPicksExactComboItem()
    {
        RegisterComboBox combo;
        combo.setEditable(true);
        combo.addItems({QString(), u"Food"_s, u"Food > Dining"_s, u"food"_s});
        combo.setCompleter(new TabCompleter(combo.model(), &combo));
        combo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&combo));
        // Not "Food", which a search that ignores case would find first.
        QTest::keyClick(suggest(combo.completer(), u"food"_s, 2), Qt::Key_Tab);
        QCOMPARE(combo.currentIndex(), 3);
    }

    void enterTakesSuggestionOnly()
    {
        RegisterLineEdit edit;
        edit.setCompleter(new TabCompleter(kPayees, &edit));
        QSignalSpy returned(&edit, &QLineEdit::returnPressed);
        edit.show();
        QVERIFY(QTest::qWaitForWindowExposed(&edit));
        edit.setFocus();
        QAbstractItemView *popup = suggest(edit.completer(), u"out"_s, 0);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(edit.text(), u"Grocer's Outlet"_s);
        QVERIFY(!popup->isVisible());
        QCOMPARE(returned.count(), 0);
        QTest::keyClick(&edit, Qt::Key_Return);
        QCOMPARE(returned.count(), 1);
    }
};

QTEST_MAIN(TstRegisterEditors)
#include "tst_registereditors.moc"
