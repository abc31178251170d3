#include "ui/PayeeScreen.h"

#include "core/AppState.h"
#include "data/Database.h"
#include "data/TransactionRepository.h"
#include "ui/Prompt.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSqlQuery>
#include <QVBoxLayout>

PayeeScreen::PayeeScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    connect(m_renameButton, &QPushButton::clicked, this, &PayeeScreen::onRename);
    connect(m_mergeButton, &QPushButton::clicked, this, &PayeeScreen::onMerge);
    reload();
}

void PayeeScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(tr("Payee Management"), this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);

    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("payeeList"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    layout->addWidget(m_list, 1);

    auto *nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel(tr("Rename to:"), this));
    m_nameEdit = new QLineEdit(this);
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    nameRow->addWidget(m_nameEdit, 1);
    layout->addLayout(nameRow);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    m_renameButton = new QPushButton(tr("Rename Selected"), this);
    m_renameButton->setObjectName(QStringLiteral("renameButton"));
    m_mergeButton = new QPushButton(tr("Merge Selected"), this);
    m_mergeButton->setObjectName(QStringLiteral("mergeButton"));
    buttons->addWidget(m_renameButton);
    buttons->addWidget(m_mergeButton);
    layout->addLayout(buttons);
}

void PayeeScreen::reload()
{
    m_list->clear();
    m_list->addItems(m_state->transactions()->getPayees());
}

QStringList PayeeScreen::selectedPayees() const
{
    // In the order of selecting, so that a merge goes into the name the user picked first.
    QStringList payees;
    for (const QListWidgetItem *item : m_list->selectedItems())
        payees.append(item->text());
    return payees;
}

int PayeeScreen::renamePayee(const QString &oldName, const QString &newName)
{
    // A rename touches rows of every account at once, which no single-row repository call does. It
    // leaves the version alone: the rows go out with the next push as they are.
    QSqlQuery q(m_state->database()->connection());
    q.prepare(QStringLiteral("UPDATE transactions SET payee = ?, updated_at = datetime('now'), sync_status = "
                             "'pending' WHERE payee = ? AND deleted_at IS NULL"));
    q.addBindValue(newName);
    q.addBindValue(oldName);
    return q.exec() ? q.numRowsAffected() : 0;
}

void PayeeScreen::onRename()
{
    const QString newName = m_nameEdit->text().trimmed();
    const QStringList selected = selectedPayees();
    if (newName.isEmpty() || selected.isEmpty())
        return;
    int changed = 0;
    for (const QString &payee : selected) {
        if (payee != newName)
            changed += renamePayee(payee, newName);
    }
    Prompt::information(this, tr("Rename Complete"), tr("Renamed %n transaction(s).", nullptr, changed));
    reload();
    emit payeesChanged();
}

void PayeeScreen::onMerge()
{
    const QStringList selected = selectedPayees();
    if (selected.size() < 2) {
        Prompt::information(this, tr("Merge"), tr("Select 2 or more payees to merge."));
        return;
    }
    QString target = m_nameEdit->text().trimmed();
    if (target.isEmpty())
        target = selected.first();
    const auto answer = Prompt::question(this, tr("Merge Payees"),
                                         tr("Merge %1 payees into \"%2\"?").arg(selected.size()).arg(target),
                                         QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    int changed = 0;
    for (const QString &payee : selected) {
        if (payee != target)
            changed += renamePayee(payee, target);
    }
    Prompt::information(this, tr("Merge Complete"), tr("Merged %n transaction(s).", nullptr, changed));
    reload();
    emit payeesChanged();
}
