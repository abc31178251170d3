#include "ui/CategoriesScreen.h"

#include "support/Widgets.h"

#include "data/CategoryRepository.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "ui/CategoryTreeModel.h"
#include "ui/Prompt.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

class TstCategoriesScreen : public QObject {
    Q_OBJECT
private slots:
    // A small tree of its own in place of the seeded one: two parents with children, a lone top-level
    // category and an income one.
    void init()
    {
        m_screen.reset();
        QVERIFY(m_app.emplace().ok());
        m_state = m_app->get();
        CategoryRepository *repo = m_state->categories();
        for (const Category &c : repo->getAll())
            QVERIFY(repo->softDelete(c.id));
        for (const Category &c :
             {Fixtures::category("home", "Housing"), Fixtures::category("rent", "Rent", "home"),
              Fixtures::category("hoa", "HOA", "home"), Fixtures::category("car", "Transportation"),
              Fixtures::category("fuel", "Gas/Fuel", "car"), Fixtures::category("pets", "Pets"),
              Fixtures::category("pay", "Salary", {}, CategoryType::Income, "wages")})
            QVERIFY(repo->insert(c));
        m_screen = std::make_unique<CategoriesScreen>(m_state);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_screen.get()));
    }

    void orphanStandsAtTheTop()
    {
        CategoryTreeModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QVERIFY(m_state->categories()->softDelete(u"home"_s));
        model.setCategories(m_state->categories()->getAll());
        QStringList top;
        for (int row = 0; row < model.rowCount(); ++row)
            top.append(model.index(row, 0).data().toString());
        // The repository's order, by name; the children of the deleted parent among the others.
        QCOMPARE(top, QStringList({"HOA", "Pets", "Rent", "Salary", "Transportation"}));
        const QModelIndex car = model.indexOfId(u"car"_s);
        QCOMPARE(model.rowCount(car), 1);
        const QModelIndex fuel = model.indexOfId(u"fuel"_s);
        QCOMPARE(fuel.parent(), car);
        QCOMPARE(model.categoryAt(fuel)->name, u"Gas/Fuel"_s);
        QVERIFY(!model.indexOfId(u"home"_s).isValid());

        // A reload frees the old tree and builds the new one.
        model.setCategories({});
        QCOMPARE(model.rowCount(), 0);
    }

    void filterOnAChildKeepsItsParent()
    {
        // Sorted without regard to case, and collapsed.
        QCOMPARE(visibleNames(), QStringList({"Housing", "Pets", "Salary", "Transportation"}));
        auto *search = child<QLineEdit>(m_screen.get(), "searchEdit");
        QTest::keyClicks(search, u"FUEL"_s);
        QCOMPARE(visibleNames(), QStringList({"Transportation", "Gas/Fuel"}));
        search->clear();
        QCOMPARE(visibleNames(), QStringList({"Housing", "Pets", "Salary", "Transportation"}));
    }

    void expandedBranchesSurviveADelete()
    {
        m_screen->view()->expand(proxyIndexOf(u"Housing"_s));
        m_screen->view()->setCurrentIndex(proxyIndexOf(u"HOA"_s));
        Prompt::setNextAnswer(QMessageBox::Yes);
        QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "onDeleteCategory"));
        QCOMPARE(Prompt::lastText(),
                 u"Delete \"HOA\"? Transactions using this category will become uncategorized."_s);
        QCOMPARE(visibleNames(), QStringList({"Housing", "Rent", "Pets", "Salary", "Transportation"}));

        // No: nothing goes.
        m_screen->view()->setCurrentIndex(proxyIndexOf(u"Rent"_s));
        Prompt::setNextAnswer(QMessageBox::No);
        QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "onDeleteCategory"));
        QVERIFY(m_state->categories()->getByName(u"Rent"_s));
    }

    void contextMenuHasTwoLevels_data()
    {
        QTest::addColumn<QString>("node");
        QTest::addColumn<QStringList>("entries");
        QTest::newRow("empty space") << QString() << QStringList({"&New Category"});
        QTest::newRow("top level") << u"Housing"_s
                                   << QStringList(
                                          {"&New Category", "Add &Subcategory", "", "&Edit", "&Delete"});
        QTest::newRow("subcategory") << u"Rent"_s << QStringList({"&New Category", "", "&Edit", "&Delete"});
    }

    void contextMenuHasTwoLevels()
    {
        QFETCH(QString, node);
        QFETCH(QStringList, entries);
        m_screen->view()->expandAll();
        QMenu menu;
        m_screen->fillContextMenu(&menu, node.isEmpty() ? QModelIndex() : proxyIndexOf(node));
        QStringList texts;
        for (const QAction *action : menu.actions())
            texts.append(action->text());
        QCOMPARE(texts, entries);
    }

    void newSubcategoryGoesUnderTheCurrentNode()
    {
        m_screen->view()->setCurrentIndex(proxyIndexOf(u"Pets"_s));
        Prompt::setNextDialogHandler([](QDialog *dialog) {
            child<QLineEdit>(dialog, "nameEdit")->setText(u"Vet"_s);
            return int(QDialog::Accepted);
        });
        QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "onCreateSubcategory"));
        const std::optional<Category> vet = m_state->categories()->getByName(u"Vet"_s);
        QVERIFY(vet);
        QCOMPARE(vet->parentId, u"pets"_s);
        QCOMPARE(m_screen->model()->rowCount(m_screen->model()->indexOfId(u"pets"_s)), 1);

        // Under a subcategory nothing is asked: the scripted form waits for the button below, which
        // is cancelled and adds nothing.
        int asked = 0;
        Prompt::setNextDialogHandler([&asked](QDialog *dialog) {
            ++asked;
            child<QLineEdit>(dialog, "nameEdit")->setText(u"Nope"_s);
            return int(QDialog::Rejected);
        });
        m_screen->view()->expandAll();
        m_screen->view()->setCurrentIndex(proxyIndexOf(u"Vet"_s));
        QVERIFY(QMetaObject::invokeMethod(m_screen.get(), "onCreateSubcategory"));
        QCOMPARE(asked, 0);
        QTest::mouseClick(child<QPushButton>(m_screen.get(), "newButton"), Qt::LeftButton);
        QCOMPARE(asked, 1);
        QVERIFY(!m_state->categories()->getByName(u"Nope"_s));
    }

private:
    QModelIndex proxyIndexOf(const QString &name) const
    {
        const QModelIndexList found =
            m_screen->view()->model()->match(m_screen->view()->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                             Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }

    QStringList visibleNames(const QModelIndex &parent = {}) const
    {
        QStringList names;
        const QAbstractItemModel *model = m_screen->view()->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            names.append(index.data().toString());
            if (m_screen->view()->isExpanded(index))
                names.append(visibleNames(index));
        }
        return names;
    }

    std::optional<TempAppState> m_app;
    AppState *m_state = nullptr;
    std::unique_ptr<CategoriesScreen> m_screen;
};

QTEST_MAIN(TstCategoriesScreen)
#include "tst_categoriesscreen.moc"
