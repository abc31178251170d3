#include "ui/register/RegisterDelegate.h"

#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/register/RegisterModel.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;
using M = RegisterModel;

class TstRegisterDelegate : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_app;
    std::optional<M> m_model;
    std::optional<QTableView> m_view;
    RegisterDelegate *m_delegate = nullptr;

    AppState *s() const { return m_app->get(); }
    QModelIndex newRow(int column) const { return m_model->index(m_model->newRowIndex(), column); }
    std::unique_ptr<QWidget> editor(const QModelIndex &index) const
    {
        return std::unique_ptr<QWidget>(
            m_delegate->createEditor(m_view->viewport(), QStyleOptionViewItem(), index));
    }
    // Opens the editor of a cell of the new row, types into it and leaves it, as Tab would.
    void typeInNewRow(int column, const QString &text)
    {
        const std::unique_ptr<QWidget> edit = editor(newRow(column));
        m_delegate->setEditorData(edit.get(), newRow(column));
        if (auto *combo = qobject_cast<QComboBox *>(edit.get()))
            combo->setCurrentText(text);
        else if (auto *line = child<QLineEdit>(edit.get(), "payeeEdit"))
            line->setText(text);
        else
            qobject_cast<QLineEdit *>(edit.get())->setText(text);
        m_delegate->setModelData(edit.get(), &*m_model, newRow(column));
    }

private slots:
    void init()
    {
        m_view.reset();
        m_model.reset();
        QVERIFY(m_app.emplace().ok());
        for (const char *id : {"home", "savings", "visa"})
            QVERIFY(s()->accounts()->insert(Fixtures::account(id, id)));
        Transaction grocer = Fixtures::transaction("g1", "home", QDate(2026, 1, 5), "Grocer", -4599);
        grocer.memo = u"weekly shop"_s;
        grocer.categoryId = s()->categories()->getByName(u"Groceries"_s)->id;
        QVERIFY(s()->transactions()->insert(grocer));
        QVERIFY(s()->transactions()->insert(
            Fixtures::transaction("p1", "home", QDate(2026, 1, 6), "Payroll", 250000)));
        QVERIFY(s()->transactions()->insert(
            Fixtures::transaction("e1", "visa", QDate(2026, 1, 7), "Elsewhere", -100)));
        m_model.emplace();
        m_model->setTransactions(s()->transactions()->getByAccountWithBalances(u"home"_s));
        m_view.emplace();
        m_view->setModel(&*m_model);
        m_delegate = new RegisterDelegate(s(), &*m_view);
        m_delegate->setAccountId(u"home"_s);
        m_view->setItemDelegate(m_delegate);
        m_view->show();
    }

    void transfersComeFirstAndNeverToThisAccount()
    {
        const QStringList suggestions = m_delegate->payeeSuggestions();
        QCOMPARE(suggestions.mid(0, 2), QStringList({"[Transfer] visa", "[Transfer] savings"}));
        QVERIFY(!suggestions.contains(u"[Transfer] home"_s));
        QVERIFY(suggestions.contains(u"Elsewhere"_s)); // payees come from every account
        QCOMPARE(suggestions.size(), 5);
    }

    void fillIn_data()
    {
        QTest::addColumn<QString>("payee");
        QTest::addColumn<QString>("filled"); // payment, deposit, category, memo
        QTest::newRow("payment with category and memo") << u"Grocer"_s << u"45.99||Groceries|weekly shop"_s;
        QTest::newRow("deposit replaces a typed payment") << u"Payroll"_s << u"|2,500.00||typed memo"_s;
        QTest::newRow("payee of another account fills nothing") << u"Elsewhere"_s << u"9.00|||typed memo"_s;
    }

    void fillIn()
    {
        QFETCH(QString, payee);
        QFETCH(QString, filled);
        typeInNewRow(M::Memo, u"typed memo"_s);
        typeInNewRow(M::Payment, u"9.00"_s);
        typeInNewRow(M::Payee, payee);
        QCOMPARE(m_model->pendingText(M::Payee), payee);
        QStringList pending;
        for (int column : {M::Payment, M::Deposit, M::Category, M::Memo})
            pending << m_model->pendingText(column);
        QCOMPARE(pending.join(u'|'), filled);
        QCOMPARE(m_model->pendingCategoryId().isEmpty(), pending[2].isEmpty());
    }

    void categoryEditorShowsParentsAndKeepsFreeText()
    {
        const std::unique_ptr<QWidget> edit = editor(newRow(M::Category));
        auto *combo = qobject_cast<QComboBox *>(edit.get());
        QVERIFY(combo);
        QVERIFY(combo->findText(u"Utilities > Electric"_s) > 0);
        QCOMPARE(combo->itemText(0), QString());
        typeInNewRow(M::Category, u"Housing > Maintenance"_s);
        QVERIFY(!m_model->pendingCategoryId().isEmpty());
        typeInNewRow(M::Category, u"Hobbies"_s);
        QCOMPARE(m_model->pendingText(M::Category), u"Hobbies"_s);
        QVERIFY(m_model->pendingCategoryId().isEmpty());
    }

    void twoLineRowsAreTaller()
    {
        const QModelIndex index = m_model->index(0, M::Date);
        QVERIFY(m_delegate->sizeHint(QStyleOptionViewItem(), index).height() < 52);
        m_delegate->setTwoLineMode(true);
        QCOMPARE(m_delegate->sizeHint(QStyleOptionViewItem(), index).height(), 52);
        const std::unique_ptr<QWidget> edit = editor(newRow(M::Payee));
        QCOMPARE(edit->objectName(), u"PayeeMemoEditor"_s);
        QCOMPARE(edit->focusProxy(), child<QLineEdit>(edit.get(), "payeeEdit"));
    }
};

OMBREL_GUI_TEST_MAIN(TstRegisterDelegate)
#include "tst_registerdelegate.moc"
