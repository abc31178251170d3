#include "core/AppState.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterScreen.h"
#include "ui/register/RegisterTableView.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScopeGuard>
#include <QSettings>
#include <QSignalSpy>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>

class TstRegisterScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void newRowTypedWithTabAndSavedWithEnter();
    void newRowTypedWithEnterOnly();
    void validation_data();
    void validation();
    void transferWritesBothSides();
    void transferBetweenCurrenciesIsRefused();
    void deletingEitherSideOfATransferRemovesBoth_data();
    void deletingEitherSideOfATransferRemovesBoth();
    void leavingAnOpenedRowDiscardsItsTyping();
    void madeUpOpeningRowIsInert();
    void payeeSuggestionAcceptedAndFilledIn_data();
    void payeeSuggestionAcceptedAndFilledIn();
    void fillInRepeatsWhenThePayeeIsLeftAgain();
    void categorySuggestionTakenWithTab();
    void dateKeysInTheRegister_data();
    void dateKeysInTheRegister();
    void copyFromAbove_data();
    void copyFromAbove();
    void splitRowSkipsItsLockedCells();
    void newestFirstEntersAtTheTop();
    void saveReachesTheOpenedRow_data();
    void saveReachesTheOpenedRow();
    void columnLayoutPersistsAndResets();
    void registerFitsItsWidth_data();
    void registerFitsItsWidth();

private:
    void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier);
    void type(const QString &text);
    QList<Transaction> rows(const QString &accountId) const;
    // A past purchase at the grocer, so that its payee has something to fill in.
    void addGrocerRow();
    void focusNewRow(int column);
    QLineEdit *openLineEditor() const;

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<RegisterScreen> m_screen;
};

void TstRegisterScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    QSettings().remove(QStringLiteral("register"));
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("home"), QStringLiteral("Home"))));
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("savings"), QStringLiteral("Savings"))));
    Account yen = Fixtures::account(QStringLiteral("yen"), QStringLiteral("Tokyo"));
    yen.currency = Currency::JPY;
    QVERIFY(m_state->accounts()->insert(yen));
    m_screen = std::make_unique<RegisterScreen>(m_state.get());
    m_screen->resize(1200, 600);
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    m_screen->setAccount(QStringLiteral("home"));
    m_screen->view()->setFocus();
}

void TstRegisterScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

// Keys go where a user's would: to the focused editor if one is open, else to the table.
void TstRegisterScreen::key(Qt::Key k, Qt::KeyboardModifiers mods)
{
    QWidget *target = QApplication::focusWidget() ? QApplication::focusWidget() : m_screen->view();
    QTest::keyClick(target, k, mods);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

// One key at a time: the first may open an editor, which then has the focus for the rest.
void TstRegisterScreen::type(const QString &text)
{
    for (const QChar c : text) {
        QWidget *target = QApplication::focusWidget() ? QApplication::focusWidget() : m_screen->view();
        QTest::keyClick(target, c.toLatin1());
    }
    QCoreApplication::processEvents();
}

QList<Transaction> TstRegisterScreen::rows(const QString &accountId) const
{
    return m_state->transactions()->getByAccount(accountId);
}

void TstRegisterScreen::addGrocerRow()
{
    Transaction t = Fixtures::transaction(QStringLiteral("grocer"), QStringLiteral("home"), QDate(2026, 3, 2),
                                          QStringLiteral("Corner Grocer"), -1234);
    t.memo = QStringLiteral("weekly shop");
    t.categoryId = m_state->categories()->getByName(QStringLiteral("Groceries"))->id;
    QVERIFY(m_state->transactions()->insert(t));
    m_screen->refresh();
}

void TstRegisterScreen::focusNewRow(int column)
{
    RegisterModel *model = m_screen->model();
    m_screen->view()->setCurrentIndex(model->index(model->newRowIndex(), column));
}

QLineEdit *TstRegisterScreen::openLineEditor() const
{
    return qobject_cast<QLineEdit *>(m_screen->view()->indexWidget(m_screen->view()->currentIndex()));
}

void TstRegisterScreen::newRowTypedWithTabAndSavedWithEnter()
{
    key(Qt::Key_Tab); // date kept as today; on to Chk #
    type(QStringLiteral("101"));
    key(Qt::Key_Tab);
    type(QStringLiteral("Corner Grocer"));
    key(Qt::Key_Tab);
    type(QStringLiteral("Groceries"));
    key(Qt::Key_Tab);
    type(QStringLiteral("bread"));
    key(Qt::Key_Tab);
    type(QStringLiteral("12.34"));
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    type(QStringLiteral("c"));
    key(Qt::Key_Tab); // Tab on the last field stays there, closes its editor and saves nothing
    QVERIFY(rows(QStringLiteral("home")).isEmpty());
    QCOMPARE(m_screen->view()->currentIndex().column(), int(RegisterModel::Cleared));
    key(Qt::Key_Return); // opens the cell again
    key(Qt::Key_Return); // Enter on the last field saves

    const QList<Transaction> saved = rows(QStringLiteral("home"));
    QCOMPARE(saved.size(), 1);
    const Transaction &t = saved.first();
    QCOMPARE(t.payee, QStringLiteral("Corner Grocer"));
    QCOMPARE(t.amount, qint64(-1234));
    QCOMPARE(t.checkNumber, QStringLiteral("101"));
    QCOMPARE(t.memo, QStringLiteral("bread"));
    QVERIFY(!t.categoryId.isEmpty());
    QVERIFY(t.cleared && !t.reconciled);
    QCOMPARE(t.date, QDate::currentDate());
    // Back on a blank new row, ready for the next one.
    QCOMPARE(m_screen->view()->currentIndex().row(), m_screen->model()->newRowIndex());
    QVERIFY(m_screen->model()->pendingText(RegisterModel::Payee).isEmpty());
}

void TstRegisterScreen::newRowTypedWithEnterOnly()
{
    key(Qt::Key_Return); // opens the date editor
    key(Qt::Key_Return); // Chk #
    key(Qt::Key_Return); // Payee
    type(QStringLiteral("Payroll"));
    for (int i = 0; i < 4; ++i) // Category, Memo, Payment, Deposit
        key(Qt::Key_Return);
    type(QStringLiteral("2,500.00"));
    key(Qt::Key_Return); // Clr
    key(Qt::Key_Return); // the last field: save
    const QList<Transaction> saved = rows(QStringLiteral("home"));
    QCOMPARE(saved.size(), 1);
    QCOMPARE(saved.first().amount, qint64(250000));
}

void TstRegisterScreen::validation_data()
{
    QTest::addColumn<QString>("payee");
    QTest::addColumn<QString>("payment");
    QTest::addColumn<QString>("deposit");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<int>("saved"); // -1: nothing saved, else the amount
    QTest::newRow("no payee") << ""
                              << "5"
                              << ""
                              << "Payee is required" << -1;
    QTest::newRow("no amount") << "Shop"
                               << ""
                               << ""
                               << "Enter a payment or deposit amount" << -1;
    QTest::newRow("zero deposit") << "Shop"
                                  << ""
                                  << "0"
                                  << "" << 0;
    QTest::newRow("payment wins over deposit") << "Shop"
                                               << "0"
                                               << "5"
                                               << "" << 0;
    QTest::newRow("unreadable amount is zero") << "Shop"
                                               << "abc"
                                               << ""
                                               << "" << 0;
}

void TstRegisterScreen::validation()
{
    QFETCH(QString, payee);
    QFETCH(QString, payment);
    QFETCH(QString, deposit);
    QFETCH(QString, hint);
    QFETCH(int, saved);
    RegisterModel *model = m_screen->model();
    const int row = model->newRowIndex();
    model->setData(model->index(row, RegisterModel::Payee), payee);
    model->setData(model->index(row, RegisterModel::Payment), payment);
    model->setData(model->index(row, RegisterModel::Deposit), deposit);
    key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_screen->statusHint(), hint);
    const QList<Transaction> all = rows(QStringLiteral("home"));
    QCOMPARE(all.size(), saved < 0 ? 0 : 1);
    if (saved >= 0)
        QCOMPARE(all.first().amount, qint64(saved));
    else
        QCOMPARE(model->pendingText(RegisterModel::Payee), payee); // the typing is kept for a retry
}

void TstRegisterScreen::transferWritesBothSides()
{
    RegisterModel *model = m_screen->model();
    const int row = model->newRowIndex();
    model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("[Transfer] Savings"));
    model->setData(model->index(row, RegisterModel::Payment), QStringLiteral("100"));
    key(Qt::Key_Return, Qt::ControlModifier);

    const QList<Transaction> out = rows(QStringLiteral("home"));
    const QList<Transaction> in = rows(QStringLiteral("savings"));
    QCOMPARE(out.size(), 1);
    QCOMPARE(in.size(), 1);
    QCOMPARE(out.first().payee, QStringLiteral("Transfer to Savings"));
    QCOMPARE(in.first().payee, QStringLiteral("Transfer from Home"));
    QCOMPARE(out.first().amount, qint64(-10000));
    QCOMPARE(in.first().amount, qint64(10000));
    QCOMPARE(out.first().transferLinkId, in.first().id);
    QCOMPARE(in.first().transferLinkId, out.first().id);
    QCOMPARE(out.first().transferDestAccountId, QStringLiteral("savings"));
    QCOMPARE(in.first().transferDestAccountId, QStringLiteral("home"));
}

void TstRegisterScreen::transferBetweenCurrenciesIsRefused()
{
    QSignalSpy error(m_screen.get(), &RegisterScreen::errorMessage);
    RegisterModel *model = m_screen->model();
    const int row = model->newRowIndex();
    model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("[Transfer] Tokyo"));
    model->setData(model->index(row, RegisterModel::Payment), QStringLiteral("100"));
    key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(error.size(), 1);
    QCOMPARE(error.first().at(0).toString(),
             QStringLiteral("Transfers require both accounts to use the same currency"));
    QVERIFY(rows(QStringLiteral("home")).isEmpty());
    QVERIFY(rows(QStringLiteral("yen")).isEmpty());

    model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("[Transfer] Nowhere"));
    key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_screen->statusHint(), QStringLiteral("Transfer account not found"));
}

void TstRegisterScreen::deletingEitherSideOfATransferRemovesBoth_data()
{
    QTest::addColumn<QString>("from");
    QTest::newRow("from the paying side") << "home";
    QTest::newRow("from the receiving side") << "savings";
}

void TstRegisterScreen::deletingEitherSideOfATransferRemovesBoth()
{
    QFETCH(QString, from);
    transferWritesBothSides();
    m_screen->setAccount(from);
    RegisterModel *model = m_screen->model();
    const int row = model->findRowById(rows(from).first().id);
    m_screen->view()->setCurrentIndex(model->index(row, RegisterModel::Payee));
    Prompt::setNextAnswer(QMessageBox::Yes);
    key(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(Prompt::lastText().contains(QLatin1String("Both sides of the transfer will be deleted.")));
    QVERIFY(rows(QStringLiteral("home")).isEmpty());
    QVERIFY(rows(QStringLiteral("savings")).isEmpty());
}

void TstRegisterScreen::leavingAnOpenedRowDiscardsItsTyping()
{
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("t"), QStringLiteral("home"), QDate(2026, 1, 1), QStringLiteral("Baker"), -500)));
    m_screen->refresh();
    RegisterModel *model = m_screen->model();
    const int row = model->findRowById(QStringLiteral("t"));
    m_screen->view()->setCurrentIndex(model->index(row, RegisterModel::Payee));
    QCOMPARE(model->editingRow(), row);
    model->setData(model->index(row, RegisterModel::Payee), QStringLiteral("Butcher"));
    key(Qt::Key_Down); // to the new row
    QCOMPARE(model->editingRow(), -1);
    QCOMPARE(m_state->transactions()->getById(QStringLiteral("t"))->payee, QStringLiteral("Baker"));
    QCOMPARE(model->index(row, RegisterModel::Payee).data().toString(), QStringLiteral("Baker"));
}

void TstRegisterScreen::madeUpOpeningRowIsInert()
{
    Account start = Fixtures::account(QStringLiteral("old"), QStringLiteral("Old"), 5000);
    QVERIFY(m_state->accounts()->insert(start));
    m_screen->setAccount(QStringLiteral("old"));
    RegisterModel *model = m_screen->model();
    QCOMPARE(model->rowCount(), 2);
    const int opening = model->newRowIndex() == 0 ? 1 : 0;
    m_screen->view()->setCurrentIndex(model->index(opening, RegisterModel::Payee));
    model->setData(model->index(opening, RegisterModel::Payee), QStringLiteral("Changed"));
    key(Qt::Key_Return, Qt::ControlModifier);
    m_screen->view()->setCurrentIndex(model->index(opening, RegisterModel::Payee));
    Prompt::setNextAnswer(QMessageBox::Yes);
    key(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(rows(QStringLiteral("old")).isEmpty());
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->recordAt(opening)->payee, QStringLiteral("Opening Balance"));
}

void TstRegisterScreen::payeeSuggestionAcceptedAndFilledIn_data()
{
    QTest::addColumn<Qt::Key>("accept");
    QTest::addColumn<int>("columnAfter");
    QTest::newRow("tab accepts and moves on") << Qt::Key_Tab << int(RegisterModel::Category);
    QTest::newRow("enter only accepts") << Qt::Key_Return << int(RegisterModel::Payee);
}

void TstRegisterScreen::payeeSuggestionAcceptedAndFilledIn()
{
    QFETCH(Qt::Key, accept);
    QFETCH(int, columnAfter);
    addGrocerRow();
    RegisterModel *model = m_screen->model();
    focusNewRow(RegisterModel::Check);
    key(Qt::Key_Tab); // on to the payee, whose editor opens
    QLineEdit *payee = openLineEditor();
    QVERIFY(payee);
    type(QStringLiteral("Cor"));
    QAbstractItemView *popup = payee->completer()->popup();
    QTRY_VERIFY(popup->isVisible());
    // The list opens on its first suggestion, with no Down pressed, and the typing left as typed.
    QCOMPARE(popup->currentIndex().data().toString(), QStringLiteral("Corner Grocer"));
    QCOMPARE(payee->text(), QStringLiteral("Cor"));
    // The open list holds the keyboard: the key goes to it, as in a real window.
    QTest::keyClick(popup, accept);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();

    QCOMPARE(m_screen->view()->currentIndex().column(), columnAfter);
    if (accept == Qt::Key_Return) {
        // Still in the payee with the suggestion taken; the second Enter moves on and fills in.
        QCOMPARE(openLineEditor()->text(), QStringLiteral("Corner Grocer"));
        QVERIFY(model->pendingText(RegisterModel::Payment).isEmpty());
        key(Qt::Key_Return);
        QCOMPARE(m_screen->view()->currentIndex().column(), int(RegisterModel::Category));
    }
    QCOMPARE(model->pendingText(RegisterModel::Payee), QStringLiteral("Corner Grocer"));
    QCOMPARE(model->pendingText(RegisterModel::Payment), QStringLiteral("12.34"));
    QVERIFY(model->pendingText(RegisterModel::Deposit).isEmpty());
    QCOMPARE(model->pendingText(RegisterModel::Category), QStringLiteral("Groceries"));
    QCOMPARE(model->pendingText(RegisterModel::Memo), QStringLiteral("weekly shop"));

    key(Qt::Key_Return, Qt::ControlModifier);
    const QList<Transaction> saved = rows(QStringLiteral("home"));
    QCOMPARE(saved.size(), 2);
    QCOMPARE(saved.first().amount, qint64(-1234));
    QCOMPARE(saved.first().categoryId, m_state->categories()->getByName(QStringLiteral("Groceries"))->id);
}

void TstRegisterScreen::fillInRepeatsWhenThePayeeIsLeftAgain()
{
    addGrocerRow();
    RegisterModel *model = m_screen->model();
    focusNewRow(RegisterModel::Check);
    key(Qt::Key_Tab);
    type(QStringLiteral("Corner Grocer"));
    key(Qt::Key_Tab); // leaving the payee fills in
    QCOMPARE(model->pendingText(RegisterModel::Payment), QStringLiteral("12.34"));
    key(Qt::Key_Tab); // from the category to the memo
    QLineEdit *memo = openLineEditor();
    QVERIFY(memo);
    memo->selectAll();
    type(QStringLiteral("party"));
    key(Qt::Key_Tab); // payment
    openLineEditor()->selectAll();
    type(QStringLiteral("99.00"));
    key(Qt::Key_Backtab);
    key(Qt::Key_Backtab);
    key(Qt::Key_Backtab);
    QCOMPARE(m_screen->view()->currentIndex().column(), int(RegisterModel::Payee));
    QCOMPARE(model->pendingText(RegisterModel::Payment), QStringLiteral("99.00"));
    key(Qt::Key_Tab); // leaving the payee again brings the last transaction's values back
    QCOMPARE(model->pendingText(RegisterModel::Payment), QStringLiteral("12.34"));
    QCOMPARE(model->pendingText(RegisterModel::Memo), QStringLiteral("weekly shop"));
}

void TstRegisterScreen::categorySuggestionTakenWithTab()
{
    RegisterModel *model = m_screen->model();
    // What is typed replaces a category already there, as fill-in leaves one.
    model->setData(model->index(model->newRowIndex(), RegisterModel::Category), QStringLiteral("Rent"));
    focusNewRow(RegisterModel::Category);
    key(Qt::Key_Return);
    auto *combo = qobject_cast<QComboBox *>(m_screen->view()->indexWidget(m_screen->view()->currentIndex()));
    QVERIFY(combo);
    type(QStringLiteral("Groc"));
    QAbstractItemView *popup = combo->completer()->popup();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Tab);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(model->pendingText(RegisterModel::Category), QStringLiteral("Groceries"));
    QCOMPARE(model->pendingCategoryId(), m_state->categories()->getByName(QStringLiteral("Groceries"))->id);
    QCOMPARE(m_screen->view()->currentIndex().column(), int(RegisterModel::Memo));
}

void TstRegisterScreen::dateKeysInTheRegister_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<bool>("overType"); // select the editor's text first and type over it
    QTest::addColumn<QDate>("expected");
    // The buffer starts on 2/29/2024; the first key opens the editor and goes into it.
    QTest::newRow("+") << "+" << false << QDate(2024, 3, 1);
    QTest::newRow("= twice") << "==" << false << QDate(2024, 3, 2);
    QTest::newRow("-") << "-" << false << QDate(2024, 2, 28);
    QTest::newRow("m then h") << "mh" << false << QDate(2024, 2, 29);
    QTest::newRow("y") << "y" << false << QDate(2024, 1, 1);
    QTest::newRow("r") << "r" << false << QDate(2024, 12, 31);
    QTest::newRow("w") << "w" << false << QDate(2024, 2, 25);
    QTest::newRow("k") << "k" << false << QDate(2024, 3, 2);
    QTest::newRow("t") << "t" << false << QDate::currentDate();
    QTest::newRow("two-digit year is 19yy") << "3/4/25" << true << QDate(1925, 3, 4);
    QTest::newRow("unreadable keeps the date") << "13/45/2024" << true << QDate(2024, 2, 29);
}

void TstRegisterScreen::dateKeysInTheRegister()
{
    QFETCH(QString, keys);
    QFETCH(bool, overType);
    QFETCH(QDate, expected);
    RegisterModel *model = m_screen->model();
    model->setData(model->index(model->newRowIndex(), RegisterModel::Date), QStringLiteral("2/29/2024"));
    focusNewRow(RegisterModel::Date);
    if (overType) {
        key(Qt::Key_Return); // opens the editor on the buffer's date
        openLineEditor()->selectAll();
    }
    type(keys);
    key(Qt::Key_Tab);
    QCOMPARE(model->pendingText(RegisterModel::Date), RegisterModel::dateText(expected));
    QCOMPARE(m_screen->view()->currentIndex().column(), int(RegisterModel::Check));
}

void TstRegisterScreen::copyFromAbove_data()
{
    QTest::addColumn<bool>("newestFirst");
    QTest::addColumn<QString>("expected");
    // Above the new row at the bottom stands the latest row; with the newest on top, the row above
    // the oldest is the one just newer than it.
    QTest::newRow("oldest first") << false << "Late";
    QTest::newRow("newest first") << true << "Middle";
}

void TstRegisterScreen::copyFromAbove()
{
    QFETCH(bool, newestFirst);
    QFETCH(QString, expected);
    const QString home = QStringLiteral("home");
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("early"), home, QDate(2026, 1, 1), QStringLiteral("Early"), -100)));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("middle"), home, QDate(2026, 1, 2), QStringLiteral("Middle"), -200)));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("late"), home, QDate(2026, 1, 3), QStringLiteral("Late"), -300)));
    QVERIFY(m_state->preferences()->setBool(QStringLiteral("registerNewestFirst"), newestFirst));
    m_screen->refresh();
    RegisterModel *model = m_screen->model();
    // The new row in the oldest-first layout; the oldest row, opened, in the newest-first one. Both
    // stand last.
    const int row = newestFirst ? model->findRowById(QStringLiteral("early")) : model->newRowIndex();
    QCOMPARE(row, 3);
    m_screen->view()->setCurrentIndex(model->index(row, RegisterModel::Payee));
    key(Qt::Key_Apostrophe);
    QCOMPARE(model->pendingText(RegisterModel::Payee), expected);
    QCOMPARE(model->index(row, RegisterModel::Payee).data().toString(), expected);
    QVERIFY(rows(QStringLiteral("home")).size() == 3); // copying writes nothing
}

void TstRegisterScreen::splitRowSkipsItsLockedCells()
{
    Transaction split = Fixtures::transaction(QStringLiteral("split"), QStringLiteral("home"),
                                              QDate(2026, 2, 1), QStringLiteral("Warehouse"), -9000);
    split.isSplit = true;
    QVERIFY(m_state->transactions()->insert(split));
    m_screen->refresh();
    RegisterModel *model = m_screen->model();
    const int row = model->findRowById(QStringLiteral("split"));
    m_screen->view()->setCurrentIndex(model->index(row, RegisterModel::Payee));
    key(Qt::Key_Return);
    QVERIFY(openLineEditor());

    // Tab visits every field; the category and amounts belong to the lines and open no editor.
    const QList<QPair<int, bool>> expected = {
        {RegisterModel::Category, false},
        {RegisterModel::Memo,     true },
        {RegisterModel::Payment,  false},
        {RegisterModel::Deposit,  false},
        {RegisterModel::Cleared,  true }
    };
    for (const auto &[column, editable] : expected) {
        key(Qt::Key_Tab);
        QCOMPARE(m_screen->view()->currentIndex().column(), column);
        QCOMPARE(m_screen->view()->indexWidget(m_screen->view()->currentIndex()) != nullptr, editable);
    }

    // Enter on a locked cell asks for the split editor's form instead.
    QString opened;
    Prompt::setNextDialogHandler([&opened](QDialog *dialog) {
        opened = dialog->windowTitle();
        return int(QDialog::Rejected);
    });
    m_screen->view()->setCurrentIndex(model->index(row, RegisterModel::Payment));
    key(Qt::Key_Return);
    QCOMPARE(opened, QStringLiteral("Edit Transaction"));
}

void TstRegisterScreen::newestFirstEntersAtTheTop()
{
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("old"), QStringLiteral("home"), QDate(2025, 12, 1), QStringLiteral("Old"), 10000)));
    QVERIFY(m_state->preferences()->setBool(QStringLiteral("registerNewestFirst"), true));
    m_screen->setAccount(QStringLiteral("home"));
    RegisterModel *model = m_screen->model();
    QCOMPARE(model->newRowIndex(), 0);
    QCOMPARE(m_screen->view()->currentIndex(), model->index(0, 0));
    QCOMPARE(QSettings().value(QStringLiteral("register/sortOrder")).toInt(), int(Qt::DescendingOrder));

    model->setData(model->index(0, RegisterModel::Payee), QStringLiteral("Newer"));
    model->setData(model->index(0, RegisterModel::Payment), QStringLiteral("25"));
    key(Qt::Key_Return, Qt::ControlModifier);

    QCOMPARE(m_screen->view()->currentIndex(), model->index(0, 0));
    QCOMPARE(model->index(1, RegisterModel::Payee).data().toString(), QStringLiteral("Newer"));
    QCOMPARE(model->index(1, RegisterModel::Balance).data().toString(), QStringLiteral("75.00"));
    QCOMPARE(model->index(2, RegisterModel::Payee).data().toString(), QStringLiteral("Old"));
    QCOMPARE(m_screen->findChild<QLabel *>(QStringLiteral("balanceLabel"))->text(), QStringLiteral("$75.00"));
}

void TstRegisterScreen::saveReachesTheOpenedRow_data()
{
    // The header clicked; -1: a row arrives from elsewhere and the screen reloads.
    QTest::addColumn<int>("sortBy");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("memo"); // the opened row's memo once saved
    // The paycheck sits in the middle of every column's order, so that any sort moves it; the screen
    // opens on the dates in ascending order, with the paycheck newest.
    for (int column = RegisterModel::Date; column <= RegisterModel::Balance; ++column)
        QTest::addRow("sort by column %d", column) << column << "pay"
                                                   << "typed";
    QTest::newRow("newest first, the oldest open") << int(RegisterModel::Date) << "bonus"
                                                   << "typed";
    // A reload returns to a blank buffer and opens the row again from what was read.
    QTest::newRow("reload") << -1 << "pay"
                            << "m";
}

void TstRegisterScreen::saveReachesTheOpenedRow()
{
    QFETCH(int, sortBy);
    QFETCH(QString, opened);
    QFETCH(QString, memo);
    struct Row {
        const char *id;
        QDate date;
        const char *check;
        const char *payee;
        const char *memo;
        qint64 amount;
        int status; // 1 cleared, 2 reconciled
    };
    const Row records[] = {
        {"bonus", QDate(2025, 9,  1),  "",    "Bonus",      "",  500000,  0},
        {"water", QDate(2025, 10, 1),  "101", "City Water", "a", -100000, 0},
        {"fund",  QDate(2025, 10, 1),  "102", "Zoo Fund",   "z", -250000, 2},
        {"pay",   QDate(2025, 11, 18), "100", "Payroll",    "m", 286599,  1},
    };
    QList<Transaction> before;
    int minute = 0;
    for (const Row &r : records) {
        Transaction t = Fixtures::transaction(QLatin1String(r.id), QStringLiteral("home"), r.date,
                                              QLatin1String(r.payee), r.amount, QTime(12, minute++));
        t.checkNumber = QLatin1String(r.check);
        t.memo = QLatin1String(r.memo);
        t.cleared = r.status > 0;
        t.reconciled = r.status > 1;
        QVERIFY(m_state->transactions()->insert(t));
        before << t;
    }
    m_screen->refresh();
    RegisterModel *model = m_screen->model();
    RegisterTableView *view = m_screen->view();
    const int row = model->findRowById(opened);

    // Open the row's memo by mouse, type over it, move on, leave the editor with Esc.
    const QModelIndex memoCell = model->index(row, RegisterModel::Memo);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(memoCell).center());
    QVERIFY(openLineEditor());
    openLineEditor()->selectAll();
    type(QStringLiteral("typed"));
    key(Qt::Key_Tab);
    key(Qt::Key_Escape);
    QCOMPARE(model->editingRow(), row);

    if (sortBy >= 0) {
        QHeaderView *header = view->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(sortBy) + header->sectionSize(sortBy) / 2,
                                 header->height() / 2));
        QCOMPARE(model->sortColumn(), sortBy);
        QVERIFY(model->findRowById(opened) != row); // the row did move
    } else {
        QVERIFY(m_state->transactions()->insert(
            Fixtures::transaction(QStringLiteral("synced"), QStringLiteral("home"), QDate(2025, 1, 1),
                                  QStringLiteral("Early"), -1)));
        m_screen->refresh();
    }
    key(Qt::Key_Return, Qt::ControlModifier);

    QList<Transaction> after = rows(QStringLiteral("home"));
    after.removeIf([](const Transaction &t) { return t.id == QLatin1String("synced"); });
    QCOMPARE(after.size(), before.size()); // nothing inserted
    for (const Transaction &was : before) {
        const auto now = std::find_if(after.cbegin(), after.cend(),
                                      [&was](const Transaction &t) { return t.id == was.id; });
        QVERIFY(now != after.cend());
        QCOMPARE(now->payee, was.payee);
        QCOMPARE(now->amount, was.amount);
        QCOMPARE(now->date, was.date);
        QCOMPARE(now->memo, was.id == opened ? memo : was.memo);
    }
}

void TstRegisterScreen::columnLayoutPersistsAndResets()
{
    QHeaderView *header = m_screen->view()->horizontalHeader();
    const int viewport = m_screen->view()->viewport()->width();
    QCOMPARE(header->length(), viewport); // Payee takes what is left
    header->resizeSection(RegisterModel::Payee, 321);
    QCOMPARE(QSettings().value(QStringLiteral("register/colWidth/2")).toInt(), 321);
    QCOMPARE(header->length(), viewport); // now Memo does

    // The header menu is a popup with its own loop: pick the entry once it is up, as a user would.
    const auto toggleFromMenu = [this](const QString &entry) {
        QTimer::singleShot(0, [entry] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            for (QAction *action : menu->actions()) {
                if (action->text() == entry)
                    action->trigger();
            }
            menu->close();
        });
        m_screen->showHeaderContextMenu(QPoint(10, 10));
    };
    toggleFromMenu(QStringLiteral("Chk #"));
    QVERIFY(m_screen->view()->isColumnHidden(RegisterModel::Check));
    QCOMPARE(QSettings().value(QStringLiteral("register/colHidden/1")).toBool(), true);
    // Date and Balance cannot be hidden, whatever the settings say.
    QSettings().setValue(QStringLiteral("register/colHidden/0"), true);
    QSettings().setValue(QStringLiteral("register/colHidden/8"), true);

    RegisterScreen again(m_state.get());
    QCOMPARE(again.view()->horizontalHeader()->sectionSize(RegisterModel::Payee), 321);
    QVERIFY(again.view()->isColumnHidden(RegisterModel::Check));
    QVERIFY(!again.view()->isColumnHidden(RegisterModel::Date));
    QVERIFY(!again.view()->isColumnHidden(RegisterModel::Balance));

    toggleFromMenu(QStringLiteral("Reset register layout"));
    QVERIFY(header->sectionSize(RegisterModel::Payee) > 250);
    QCOMPARE(header->sectionSize(RegisterModel::Memo), 180);
    QVERIFY(!m_screen->view()->isColumnHidden(RegisterModel::Check));
    QVERIFY(!QSettings().contains(QStringLiteral("register/colWidth/2")));
    QVERIFY(!QSettings().contains(QStringLiteral("register/colHidden/1")));
}

void TstRegisterScreen::registerFitsItsWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("twoLine");
    QTest::addColumn<int>("fontScale");
    QTest::addColumn<bool>("fits"); // every column on screen, with no sideways scrolling
    // 1000 is what the main window leaves the register at its default size.
    QTest::newRow("default window") << 1000 << false << 100 << true;
    QTest::newRow("default window, two lines") << 1000 << true << 100 << true;
    QTest::newRow("default window, large font") << 1000 << false << 150 << true;
    QTest::newRow("default window, large font, two lines") << 1000 << true << 150 << true;
    QTest::newRow("narrow") << 560 << false << 100 << false;
}

void TstRegisterScreen::registerFitsItsWidth()
{
    QFETCH(int, width);
    QFETCH(bool, twoLine);
    QFETCH(int, fontScale);
    QFETCH(bool, fits);
    const QString home = QStringLiteral("home");
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("big"), home, QDate(2026, 1, 1), QStringLiteral("Sale of the house"), 123456789)));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("buy"), home, QDate(2026, 1, 2), QStringLiteral("New house"), -234567890)));
    QVERIFY(m_state->preferences()->setBool(QStringLiteral("registerTwoLine"), twoLine));
    m_state->themeManager()->setFontScale(fontScale);
    const auto restoreScale = qScopeGuard([this] { m_state->themeManager()->setFontScale(100); });
    m_screen->resize(width, 600);
    m_screen->refresh();
    QCoreApplication::processEvents();

    RegisterTableView *view = m_screen->view();
    QHeaderView *header = view->horizontalHeader();
    const QRect visible = view->viewport()->rect();
    if (fits) {
        QCOMPARE(header->length(), visible.width());
        QVERIFY(header->sectionViewportPosition(RegisterModel::Balance) +
                    header->sectionSize(RegisterModel::Balance) <=
                visible.width());
    }
    // No figure is cut, whatever the room.
    const int margins = 2 * (view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    for (int row = 0; row < m_screen->model()->rowCount() - 1; ++row) {
        for (int column : {RegisterModel::Payment, RegisterModel::Deposit, RegisterModel::Balance}) {
            const QModelIndex cell = m_screen->model()->index(row, column);
            const QFontMetrics metrics(cell.data(Qt::FontRole).value<QFont>());
            QVERIFY2(metrics.horizontalAdvance(cell.data().toString()) + margins <= view->columnWidth(column),
                     qPrintable(cell.data().toString()));
        }
    }
    // Each field the keyboard reaches is on screen while it is edited, with the height it asks for.
    focusNewRow(RegisterModel::Date);
    key(Qt::Key_Return);
    for (int step = 0; step < 7; ++step) {
        const QString column = QString::number(view->currentIndex().column());
        QWidget *editor = view->indexWidget(view->currentIndex());
        QVERIFY2(editor, qPrintable(column));
        const QRect at(editor->mapTo(view->viewport(), QPoint(0, 0)), editor->size());
        QVERIFY2(visible.contains(at), qPrintable(column));
        QVERIFY2(editor->sizeHint().height() <= editor->height(), qPrintable(column));
        key(Qt::Key_Tab);
    }
}

// Settings go to a temporary place so the user's own are never touched.
int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    QApplication app(argc, argv);
    TstRegisterScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_registerscreen.moc"
