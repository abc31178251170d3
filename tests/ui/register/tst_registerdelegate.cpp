#include "core/AppState.h"
#include "core/Dates.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/TransactionRepository.h"
#include "support/Fixtures.h"
#include "ui/register/RegisterDelegate.h"
#include "ui/register/RegisterModel.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstRegisterDelegate : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void transfersComeFirstAndNeverToThisAccount();
    void fillIn_data();
    void fillIn();
    void categoryEditorShowsParentsAndKeepsFreeText();
    void twoLineRowsAreTaller();

private:
    // Opens the editor of a cell of the new row, types into it and leaves it, as Tab would.
    void typeInNewRow(int column, const QString &text);

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<RegisterModel> m_model;
    std::unique_ptr<QTableView> m_view;
    RegisterDelegate *m_delegate = nullptr;
};

void TstRegisterDelegate::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
    for (const char *id : {"home", "savings", "visa"}) {
        Account a = Fixtures::account(QString::fromLatin1(id), QString::fromLatin1(id));
        a.sortOrder = m_run;
        QVERIFY(m_state->accounts()->insert(a));
    }
    Transaction grocer = Fixtures::transaction(QStringLiteral("g1"), QStringLiteral("home"),
                                               QDate(2026, 1, 5), QStringLiteral("Grocer"), -4599);
    grocer.memo = QStringLiteral("weekly shop");
    grocer.categoryId = m_state->categories()->getByName(QStringLiteral("Groceries"))->id;
    QVERIFY(m_state->transactions()->insert(grocer));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("p1"), QStringLiteral("home"), QDate(2026, 1, 6), QStringLiteral("Payroll"), 250000)));
    QVERIFY(m_state->transactions()->insert(Fixtures::transaction(
        QStringLiteral("e1"), QStringLiteral("visa"), QDate(2026, 1, 7), QStringLiteral("Elsewhere"), -100)));

    m_model = std::make_unique<RegisterModel>();
    m_model->setTransactions(m_state->transactions()->getByAccountWithBalances(QStringLiteral("home")));
    m_view = std::make_unique<QTableView>();
    m_view->setModel(m_model.get());
    m_delegate = new RegisterDelegate(m_state.get(), m_view.get());
    m_delegate->setAccountId(QStringLiteral("home"));
    m_view->setItemDelegate(m_delegate);
    m_view->show();
}

void TstRegisterDelegate::cleanup()
{
    m_view.reset();
    m_model.reset();
    m_state.reset();
}

void TstRegisterDelegate::typeInNewRow(int column, const QString &text)
{
    const QModelIndex index = m_model->index(m_model->newRowIndex(), column);
    QWidget *editor = m_delegate->createEditor(m_view->viewport(), QStyleOptionViewItem(), index);
    QVERIFY(editor);
    m_delegate->setEditorData(editor, index);
    if (auto *combo = qobject_cast<QComboBox *>(editor))
        combo->setCurrentText(text);
    else if (auto *line = editor->findChild<QLineEdit *>(QStringLiteral("payeeEdit")))
        line->setText(text);
    else
        qobject_cast<QLineEdit *>(editor)->setText(text);
    m_delegate->setModelData(editor, m_model.get(), index);
    delete editor;
}

void TstRegisterDelegate::transfersComeFirstAndNeverToThisAccount()
{
    const QStringList suggestions = m_delegate->payeeSuggestions();
    QCOMPARE(suggestions.mid(0, 2), (QStringList{"[Transfer] visa", "[Transfer] savings"}));
    QVERIFY(!suggestions.contains(QStringLiteral("[Transfer] home")));
    QVERIFY(suggestions.contains(QStringLiteral("Elsewhere"))); // payees come from every account
    QCOMPARE(suggestions.size(), 5);
}

void TstRegisterDelegate::fillIn_data()
{
    QTest::addColumn<QString>("payee");
    QTest::addColumn<QString>("payment");
    QTest::addColumn<QString>("deposit");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("memo");
    QTest::newRow("payment with category and memo") << "Grocer"
                                                    << "45.99"
                                                    << ""
                                                    << "Groceries"
                                                    << "weekly shop";
    QTest::newRow("deposit replaces a typed payment") << "Payroll"
                                                      << ""
                                                      << "2,500.00"
                                                      << ""
                                                      << "typed memo";
    QTest::newRow("payee of another account fills nothing") << "Elsewhere"
                                                            << "9.00"
                                                            << ""
                                                            << ""
                                                            << "typed memo";
}

void TstRegisterDelegate::fillIn()
{
    QFETCH(QString, payee);
    QFETCH(QString, payment);
    QFETCH(QString, deposit);
    QFETCH(QString, category);
    QFETCH(QString, memo);
    typeInNewRow(RegisterModel::Memo, QStringLiteral("typed memo"));
    typeInNewRow(RegisterModel::Payment, QStringLiteral("9.00"));
    typeInNewRow(RegisterModel::Payee, payee);
    QCOMPARE(m_model->pendingText(RegisterModel::Payee), payee);
    QCOMPARE(m_model->pendingText(RegisterModel::Payment), payment);
    QCOMPARE(m_model->pendingText(RegisterModel::Deposit), deposit);
    QCOMPARE(m_model->pendingText(RegisterModel::Category), category);
    QCOMPARE(m_model->pendingCategoryId().isEmpty(), category.isEmpty());
    QCOMPARE(m_model->pendingText(RegisterModel::Memo), memo);
}

void TstRegisterDelegate::categoryEditorShowsParentsAndKeepsFreeText()
{
    const QModelIndex index = m_model->index(m_model->newRowIndex(), RegisterModel::Category);
    std::unique_ptr<QWidget> editor(
        m_delegate->createEditor(m_view->viewport(), QStyleOptionViewItem(), index));
    auto *combo = qobject_cast<QComboBox *>(editor.get());
    QVERIFY(combo);
    QVERIFY(combo->findText(QStringLiteral("Utilities > Electric")) > 0);
    QCOMPARE(combo->itemText(0), QString());

    typeInNewRow(RegisterModel::Category, QStringLiteral("Housing > Maintenance"));
    QVERIFY(!m_model->pendingCategoryId().isEmpty());
    typeInNewRow(RegisterModel::Category, QStringLiteral("Hobbies"));
    QCOMPARE(m_model->pendingText(RegisterModel::Category), QStringLiteral("Hobbies"));
    QVERIFY(m_model->pendingCategoryId().isEmpty());
}

void TstRegisterDelegate::twoLineRowsAreTaller()
{
    const QModelIndex index = m_model->index(0, RegisterModel::Date);
    QVERIFY(m_delegate->sizeHint(QStyleOptionViewItem(), index).height() < 52);
    m_delegate->setTwoLineMode(true);
    QCOMPARE(m_delegate->sizeHint(QStyleOptionViewItem(), index).height(), 52);
    const QModelIndex payee = m_model->index(m_model->newRowIndex(), RegisterModel::Payee);
    std::unique_ptr<QWidget> editor(
        m_delegate->createEditor(m_view->viewport(), QStyleOptionViewItem(), payee));
    QCOMPARE(editor->objectName(), QStringLiteral("PayeeMemoEditor"));
    QCOMPARE(editor->focusProxy(), editor->findChild<QLineEdit *>(QStringLiteral("payeeEdit")));
}

// Settings go to a temporary place so the user's own are never touched.
int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    QApplication app(argc, argv);
    TstRegisterDelegate test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_registerdelegate.moc"
