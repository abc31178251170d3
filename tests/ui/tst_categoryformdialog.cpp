#include "ui/CategoryFormDialog.h"

#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace {
Category stored(CategoryType type)
{
    Category c;
    c.id = QStringLiteral("cat-1");
    c.name = QStringLiteral("Gifts");
    c.categoryType = type;
    c.parentId = QStringLiteral("cat-parent");
    c.isTaxRelevant = true;
    c.taxCategory = QStringLiteral("charitable_contributions");
    c.version = 3;
    c.createdAt = QDateTime(QDate(2022, 1, 2), QTime(3, 4, 5), Qt::UTC);
    return c;
}
} // namespace

class TstCategoryFormDialog : public QObject {
    Q_OBJECT
private slots:
    void newSubcategoryKeepsParent()
    {
        CategoryFormDialog top;
        QCOMPARE(top.windowTitle(), QStringLiteral("New Category"));
        QVERIFY(!child<QLabel>(&top, "parentLabel"));

        CategoryFormDialog dialog(QStringLiteral("cat-parent"), QStringLiteral("Housing"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("New Subcategory"));
        QCOMPARE(child<QLabel>(&dialog, "parentLabel")->text(), QStringLiteral("Housing"));
        child<QLineEdit>(&dialog, "nameEdit")->setText(QStringLiteral("  Rent "));
        child<QComboBox>(&dialog, "typeCombo")->setCurrentIndex(1);

        const Category c = dialog.category();
        QCOMPARE(c.name, QStringLiteral("Rent"));
        QCOMPARE(c.parentId, QStringLiteral("cat-parent"));
        QCOMPARE(c.categoryType, CategoryType::Income);
        QCOMPARE(c.id.size(), 36);
        QVERIFY(c.createdAt.isValid());
    }

    void editKeepsIdentity_data()
    {
        QTest::addColumn<CategoryType>("type");
        QTest::addColumn<CategoryType>("expected");
        QTest::newRow("income") << CategoryType::Income << CategoryType::Income;
        QTest::newRow("expense") << CategoryType::Expense << CategoryType::Expense;
        QTest::newRow("transfer as expense") << CategoryType::Transfer << CategoryType::Expense;
    }

    void editKeepsIdentity()
    {
        QFETCH(CategoryType, type);
        QFETCH(CategoryType, expected);
        const Category original = stored(type);
        CategoryFormDialog dialog(original);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Category"));

        const Category c = dialog.category();
        QCOMPARE(c.id, original.id);
        QCOMPARE(c.createdAt, original.createdAt);
        QCOMPARE(c.parentId, original.parentId);
        QCOMPARE(c.version, 3);
        QCOMPARE(c.categoryType, expected);
        QCOMPARE(c.taxCategory, original.taxCategory);
        QVERIFY(child<QLineEdit>(&dialog, "taxCodeEdit")->isEnabled());
    }

    void turningTaxOffClearsTheCode()
    {
        CategoryFormDialog dialog(stored(CategoryType::Expense));
        auto *check = child<QCheckBox>(&dialog, "taxCheck");
        auto *code = child<QLineEdit>(&dialog, "taxCodeEdit");

        check->setChecked(false);
        QVERIFY(!code->isEnabled());
        QVERIFY(!child<QLabel>(&dialog, "taxCodeLabel")->isEnabled());
        check->setChecked(true);
        QCOMPARE(code->text(), QString()); // gone for good, not merely hidden while off

        code->setText(QStringLiteral(" mortgage_interest "));
        Category c = dialog.category();
        QVERIFY(c.isTaxRelevant);
        QCOMPARE(c.taxCategory, QStringLiteral("mortgage_interest"));
    }
};

QTEST_MAIN(TstCategoryFormDialog)
#include "tst_categoryformdialog.moc"
