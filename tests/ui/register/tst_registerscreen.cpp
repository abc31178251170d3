#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterScreen.h"
#include "ui/register/RegisterTableView.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

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

private:
    void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier);
    void type(const QString &text);
    QList<Transaction> rows(const QString &accountId) const;

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<RegisterScreen> m_screen;
};

void TstRegisterScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
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

void TstRegisterScreen::type(const QString &text)
{
    QWidget *target = QApplication::focusWidget() ? QApplication::focusWidget() : m_screen->view();
    QTest::keyClicks(target, text);
    QCoreApplication::processEvents();
}

QList<Transaction> TstRegisterScreen::rows(const QString &accountId) const
{
    return m_state->transactions()->getByAccount(accountId);
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
