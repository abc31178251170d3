#include "ui/CategoryFormDialog.h"

#include "core/Dates.h"
#include "core/Identifiers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

CategoryFormDialog::CategoryFormDialog(QWidget *parent)
    : QDialog(parent)
{
    setupUi(QString());
    setWindowTitle(tr("New Category"));
}

CategoryFormDialog::CategoryFormDialog(const QString &parentId, const QString &parentName, QWidget *parent)
    : QDialog(parent)
{
    m_original.parentId = parentId;
    setupUi(parentName);
    setWindowTitle(tr("New Subcategory"));
}

CategoryFormDialog::CategoryFormDialog(const Category &category, QWidget *parent)
    : QDialog(parent)
    , m_original(category)
    , m_editMode(true)
{
    setupUi(QString());
    setWindowTitle(tr("Edit Category"));
    fill(category);
}

void CategoryFormDialog::setupUi(const QString &parentName)
{
    setMinimumWidth(420);
    auto *form = new QFormLayout;

    if (!m_editMode && !m_original.parentId.isEmpty()) {
        auto *parentLabel = new QLabel(parentName);
        parentLabel->setObjectName(QStringLiteral("parentLabel"));
        parentLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto *caption = new QLabel(tr("&Parent:"));
        caption->setBuddy(parentLabel);
        form->addRow(caption, parentLabel);
    }

    m_nameEdit = new QLineEdit;
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    m_nameEdit->setPlaceholderText(tr("Category name"));
    form->addRow(tr("&Name:"), m_nameEdit);

    // Transfer is left out on purpose: a transfer category edited here is saved as an expense.
    m_typeCombo = new QComboBox;
    m_typeCombo->setObjectName(QStringLiteral("typeCombo"));
    m_typeCombo->addItem(tr("Expense"), QStringLiteral("expense"));
    m_typeCombo->addItem(tr("Income"), QStringLiteral("income"));
    form->addRow(tr("&Type:"), m_typeCombo);

    m_taxCheck = new QCheckBox(tr("Tax-relevant"));
    m_taxCheck->setObjectName(QStringLiteral("taxCheck"));
    m_taxCheck->setToolTip(tr("Mark this category for inclusion in tax-time reports."));
    form->addRow(m_taxCheck);

    m_taxCodeEdit = new QLineEdit;
    m_taxCodeEdit->setObjectName(QStringLiteral("taxCodeEdit"));
    m_taxCodeEdit->setPlaceholderText(tr("e.g. charitable_contributions, mortgage_interest"));
    m_taxCodeLabel = new QLabel(tr("Tax &Code:"));
    m_taxCodeLabel->setObjectName(QStringLiteral("taxCodeLabel"));
    m_taxCodeLabel->setBuddy(m_taxCodeEdit);
    form->addRow(m_taxCodeLabel, m_taxCodeEdit);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);

    onTaxRelevantToggled(false);
    m_nameEdit->setFocus();

    connect(m_taxCheck, &QCheckBox::toggled, this, &CategoryFormDialog::onTaxRelevantToggled);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CategoryFormDialog::fill(const Category &category)
{
    m_nameEdit->setText(category.name);
    const int typeIndex = m_typeCombo->findData(categoryTypeToString(category.categoryType));
    m_typeCombo->setCurrentIndex(typeIndex < 0 ? 0 : typeIndex);
    m_taxCodeEdit->setText(category.taxCategory);
    m_taxCheck->setChecked(category.isTaxRelevant);
}

void CategoryFormDialog::onTaxRelevantToggled(bool on)
{
    m_taxCodeLabel->setEnabled(on);
    m_taxCodeEdit->setEnabled(on);
    if (!on)
        m_taxCodeEdit->clear();
}

Category CategoryFormDialog::category() const
{
    Category c = m_original;
    const QDateTime now = utcNow();
    if (!m_editMode) {
        c.id = newId();
        c.createdAt = now;
    }
    c.name = m_nameEdit->text().trimmed();
    c.categoryType = categoryTypeFromString(m_typeCombo->currentData().toString());
    c.isTaxRelevant = m_taxCheck->isChecked();
    c.taxCategory = c.isTaxRelevant ? m_taxCodeEdit->text().trimmed() : QString();
    c.updatedAt = now;
    c.syncStatus = SyncStatus::Pending;
    return c;
}
