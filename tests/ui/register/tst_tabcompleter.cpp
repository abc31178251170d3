#include "ui/register/RegisterComboBox.h"
#include "ui/register/RegisterLineEdit.h"
#include "ui/register/TabCompleter.h"

#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

class TstTabCompleter : public QObject {
    Q_OBJECT
private slots:
    void tabInRegister_data();
    void tabInRegister();
    void tabToMemoLine();
    void tabPicksExactComboItem();
    void enterTakesSuggestionOnly();
};

namespace {

const QStringList kPayees = {QStringLiteral("Groceries"), QStringLiteral("Grocer's Outlet"),
                             QStringLiteral("Rent")};

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

void TstTabCompleter::tabInRegister_data()
{
    QTest::addColumn<int>("highlighted");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("committed");
    QTest::addColumn<int>("nextColumn");

    QTest::newRow("tab") << 1 << Qt::Key_Tab << "Grocer's Outlet" << 2;
    QTest::newRow("backtab") << 0 << Qt::Key_Backtab << "Groceries" << 0;
    QTest::newRow("nothing highlighted") << -1 << Qt::Key_Tab << "roc" << 2;
}

void TstTabCompleter::tabInRegister()
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
    QVERIFY(edit);
    QSignalSpy activated(edit->completer(), qOverload<const QString &>(&QCompleter::activated));

    QTest::keyClicks(edit, QStringLiteral("roc"));
    QAbstractItemView *popup = suggest(edit->completer(), QStringLiteral("roc"), highlighted);
    QTest::keyClick(popup, key);

    QVERIFY(!popup->isVisible());
    QCOMPARE(model.index(0, 1).data().toString(), committed);
    QCOMPARE(activated.count(), highlighted < 0 ? 0 : 1);
    QCOMPARE(view.currentIndex().column(), nextColumn);
}

void TstTabCompleter::tabToMemoLine()
{
    QWidget editor;
    editor.setObjectName(QStringLiteral("PayeeMemoEditor"));
    auto *layout = new QVBoxLayout(&editor);
    auto *payee = new RegisterLineEdit(&editor);
    auto *memo = new RegisterLineEdit(&editor);
    memo->setObjectName(QStringLiteral("memoEdit"));
    layout->addWidget(payee);
    layout->addWidget(memo);
    payee->setCompleter(new TabCompleter(kPayees, payee));
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    payee->setFocus();

    QTest::keyClick(suggest(payee->completer(), QStringLiteral("ren"), 0), Qt::Key_Tab);
    QCOMPARE(payee->text(), QStringLiteral("Rent"));
    QTRY_VERIFY(memo->hasFocus());
}

void TstTabCompleter::tabPicksExactComboItem()
{
    RegisterComboBox combo;
    combo.setEditable(true);
    combo.addItems(
        {QString(), QStringLiteral("Food"), QStringLiteral("Food > Dining"), QStringLiteral("food")});
    combo.setCompleter(new TabCompleter(combo.model(), &combo));
    combo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&combo));

    // Not "Food", which a search that ignores case would find first.
    QTest::keyClick(suggest(combo.completer(), QStringLiteral("food"), 2), Qt::Key_Tab);
    QCOMPARE(combo.currentIndex(), 3);
}

void TstTabCompleter::enterTakesSuggestionOnly()
{
    RegisterLineEdit edit;
    edit.setCompleter(new TabCompleter(kPayees, &edit));
    QSignalSpy returned(&edit, &QLineEdit::returnPressed);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    edit.setFocus();

    QAbstractItemView *popup = suggest(edit.completer(), QStringLiteral("out"), 0);
    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(edit.text(), QStringLiteral("Grocer's Outlet"));
    QVERIFY(!popup->isVisible());
    QCOMPARE(returned.count(), 0);

    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(returned.count(), 1);
}

QTEST_MAIN(TstTabCompleter)
#include "tst_tabcompleter.moc"
