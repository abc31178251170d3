#include "ui/RecurringModel.h"

#include "core/Money.h"
#include "core/ThemeManager.h"

#include <QColor>
#include <QLocale>

namespace {

const QColor kDueColor(0, 136, 0);
const QColor kInactiveColor(Qt::gray);

// The words of the recurring form, so a rule reads here as it was chosen there.
QString frequencyLabel(Frequency frequency)
{
    switch (frequency) {
    case Frequency::Daily: return RecurringModel::tr("Daily");
    case Frequency::Weekly: return RecurringModel::tr("Weekly");
    case Frequency::Biweekly: return RecurringModel::tr("Bi-weekly");
    case Frequency::Monthly: return RecurringModel::tr("Monthly");
    case Frequency::Quarterly: return RecurringModel::tr("Quarterly");
    case Frequency::SemiAnnual: return RecurringModel::tr("Semi-annual");
    case Frequency::Annual: return RecurringModel::tr("Annual");
    }
    return RecurringModel::tr("Monthly");
}

} // namespace

RecurringModel::RecurringModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void RecurringModel::setRecurring(const QList<RecurringTransaction> &rules,
                                  const QHash<QString, QString> &accountNames)
{
    beginResetModel();
    m_rules = rules;
    m_accountNames = accountNames;
    endResetModel();
}

const RecurringTransaction *RecurringModel::recordAt(int row) const
{
    return row >= 0 && row < m_rules.size() ? &m_rules[row] : nullptr;
}

bool RecurringModel::isDue(const RecurringTransaction &rule)
{
    return rule.isActive && rule.nextDueDate <= QDate::currentDate();
}

int RecurringModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rules.size());
}

int RecurringModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RecurringModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const RecurringTransaction *rule = recordAt(index.row());
    if (!rule)
        return {};
    switch (role) {
    case Qt::DisplayRole: return displayText(*rule, index.column());
    case Qt::TextAlignmentRole:
        return index.column() == AmountColumn ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ForegroundRole: return foreground(*rule, index.column());
    default: return {};
    }
}

QString RecurringModel::displayText(const RecurringTransaction &rule, int column) const
{
    switch (column) {
    case AccountColumn: return m_accountNames.value(rule.accountId);
    case PayeeColumn: return rule.payee;
    case AmountColumn: return formatAmount(rule.amount, Currency::USD);
    case FrequencyColumn: return frequencyLabel(rule.frequency);
    case NextDueColumn: return QLocale::system().toString(rule.nextDueDate, QLocale::ShortFormat);
    case AutoColumn: return rule.autoPost ? tr("Yes") : tr("No");
    case StatusColumn: return rule.isActive ? tr("Active") : tr("Inactive");
    default: return {};
    }
}

QVariant RecurringModel::foreground(const RecurringTransaction &rule, int column) const
{
    switch (column) {
    case AmountColumn: return rule.amount < 0 ? QVariant(ThemeManager::negativeColor()) : QVariant();
    case NextDueColumn: return isDue(rule) ? QVariant(kDueColor) : QVariant();
    case StatusColumn: return rule.isActive ? QVariant() : QVariant(kInactiveColor);
    default: return {};
    }
}

QVariant RecurringModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case AccountColumn: return tr("Account");
    case PayeeColumn: return tr("Payee");
    case AmountColumn: return tr("Amount");
    case FrequencyColumn: return tr("Frequency");
    case NextDueColumn: return tr("Next Due");
    case AutoColumn: return tr("Auto");
    case StatusColumn: return tr("Status");
    default: return {};
    }
}
