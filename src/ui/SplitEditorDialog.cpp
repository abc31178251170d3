#include "ui/SplitEditorDialog.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "core/Money.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {
enum Column { CategoryColumn, AmountColumn, MemoColumn };

// The spin box holds the nearest double to a two-decimal value; rounding recovers what it shows.
qint64 centsOf(double value)
{
    return std::llround(value * 100.0);
}
} // namespace

SplitEditorDialog::SplitEditorDialog(qint64 amount, const QList<QPair<QString, QString>> &categories,
                                     const QList<SplitLine> &lines, QWidget *parent)
    : QDialog(parent)
    , m_total(amount < 0 ? -amount : amount)
    , m_negative(amount < 0)
{
    m_categories.append({QString(), tr("(none)")});
    m_categories.append(categories);
    setupUi();
    if (lines.isEmpty()) {
        addRow();
        addRow();
    } else {
        for (const SplitLine &line : lines) {
            addRow();
            fillRow(m_table->rowCount() - 1, line);
        }
    }
    updateRemaining();
}

void SplitEditorDialog::setupUi()
{
    setWindowTitle(tr("Split Transaction"));
    setMinimumSize(550, 350);

    auto *totalLabel = new QLabel(tr("Total: %1").arg(formatAmount(m_total, Currency::USD)));
    totalLabel->setObjectName(QStringLiteral("totalLabel"));

    m_table = new QTableWidget(0, 3);
    m_table->setObjectName(QStringLiteral("table"));
    m_table->setHorizontalHeaderLabels({tr("Category"), tr("Amount"), tr("Memo")});
    m_table->verticalHeader()->hide();
    QHeaderView *header = m_table->horizontalHeader();
    header->setSectionResizeMode(CategoryColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(AmountColumn, QHeaderView::Fixed);
    header->setSectionResizeMode(MemoColumn, QHeaderView::Stretch);
    m_table->setColumnWidth(AmountColumn, 120);

    auto *addButton = new QPushButton(tr("+ Add Line"));
    addButton->setObjectName(QStringLiteral("addButton"));
    auto *removeButton = new QPushButton(tr("- Remove"));
    removeButton->setObjectName(QStringLiteral("removeButton"));
    m_remainingLabel = new QLabel;
    m_remainingLabel->setObjectName(QStringLiteral("remainingLabel"));

    auto *row = new QHBoxLayout;
    row->addWidget(addButton);
    row->addWidget(removeButton);
    row->addStretch();
    row->addWidget(m_remainingLabel);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(totalLabel);
    layout->addWidget(m_table);
    layout->addLayout(row);
    layout->addWidget(buttons);

    connect(addButton, &QPushButton::clicked, this, &SplitEditorDialog::addRow);
    connect(removeButton, &QPushButton::clicked, this, &SplitEditorDialog::removeSelectedRow);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void SplitEditorDialog::addRow()
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);

    auto *combo = new QComboBox;
    for (const auto &[id, label] : std::as_const(m_categories))
        combo->addItem(label, id);
    m_table->setCellWidget(row, CategoryColumn, combo);

    auto *spin = new QDoubleSpinBox;
    spin->setDecimals(2);
    spin->setRange(0.0, 99999999.99);
    spin->setPrefix(QStringLiteral("$ "));
    connect(spin, &QDoubleSpinBox::valueChanged, this, &SplitEditorDialog::updateRemaining);
    m_table->setCellWidget(row, AmountColumn, spin);

    m_table->setItem(row, MemoColumn, new QTableWidgetItem);
}

void SplitEditorDialog::fillRow(int row, const SplitLine &line)
{
    auto *combo = static_cast<QComboBox *>(m_table->cellWidget(row, CategoryColumn));
    // A category deleted since the line was written is not in the list: the row falls back to "(none)".
    combo->setCurrentIndex(qMax(0, combo->findData(line.categoryId)));
    auto *spin = static_cast<QDoubleSpinBox *>(m_table->cellWidget(row, AmountColumn));
    spin->setValue(static_cast<double>(line.amount < 0 ? -line.amount : line.amount) / 100.0);
    m_table->item(row, MemoColumn)->setText(line.memo);
}

void SplitEditorDialog::removeSelectedRow()
{
    const int row = m_table->currentRow();
    if (row < 0)
        return;
    m_table->removeRow(row);
    updateRemaining();
}

qint64 SplitEditorDialog::rowCents(int row) const
{
    const auto *spin = static_cast<QDoubleSpinBox *>(m_table->cellWidget(row, AmountColumn));
    return spin ? centsOf(spin->value()) : 0;
}

void SplitEditorDialog::updateRemaining()
{
    qint64 sum = 0;
    for (int row = 0; row < m_table->rowCount(); ++row)
        sum += rowCents(row);
    const qint64 remaining = m_total - sum;
    m_remainingLabel->setText(tr("Remaining: %1").arg(formatAmount(remaining, Currency::USD)));
    if (remaining == 0)
        m_remainingLabel->setStyleSheet(QStringLiteral("color: green;"));
    else if (remaining > 0)
        m_remainingLabel->setStyleSheet(QString());
    else
        m_remainingLabel->setStyleSheet(QStringLiteral("color: #cc0000;"));
}

QList<SplitLine> SplitEditorDialog::lines() const
{
    QList<SplitLine> result;
    const QDateTime now = utcNow();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const qint64 cents = rowCents(row);
        if (cents == 0)
            continue;
        SplitLine line;
        line.id = newId();
        const auto *combo = static_cast<QComboBox *>(m_table->cellWidget(row, CategoryColumn));
        line.categoryId = combo->currentData().toString();
        line.amount = m_negative ? -cents : cents;
        line.memo = m_table->item(row, MemoColumn)->text();
        line.createdAt = now;
        line.updatedAt = now;
        result.append(line);
    }
    return result;
}
