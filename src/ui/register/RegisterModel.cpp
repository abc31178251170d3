#include "ui/register/RegisterModel.h"

#include "core/Money.h"
#include "core/ThemeManager.h"
#include "ui/UiStyle.h"

#include <QColor>

#include <algorithm>

namespace {

constexpr char kMuted[] = "#6E8A7E";

QString amountText(qint64 cents)
{
    // Cells show two decimals whatever the account's currency: the register reads as one ledger.
    return formatAmountPlain(cents, Currency::USD);
}

QString clearedText(const Transaction &t)
{
    if (t.reconciled)
        return QStringLiteral("R");
    return t.cleared ? QStringLiteral("C") : QString();
}

QColor openRowBackground()
{
    return QColor(isDarkPalette() ? "#1A2E28" : "#E8F5E9");
}

bool isMoneyColumn(int column)
{
    return column == RegisterModel::Payment || column == RegisterModel::Deposit ||
           column == RegisterModel::Balance;
}

// The key of one column; -1 and 0 for payments, deposits and status so that rows without one sort together.
bool lessByColumn(const RegisterRow &a, const RegisterRow &b, int column)
{
    switch (column) {
    case RegisterModel::Date: return a.date < b.date;
    case RegisterModel::Check: return QString::localeAwareCompare(a.checkNumber, b.checkNumber) < 0;
    case RegisterModel::Payee: return QString::localeAwareCompare(a.payee, b.payee) < 0;
    case RegisterModel::Category: return QString::localeAwareCompare(a.categoryName, b.categoryName) < 0;
    case RegisterModel::Memo: return QString::localeAwareCompare(a.memo, b.memo) < 0;
    case RegisterModel::Payment: {
        const auto key = [](const RegisterRow &r) { return r.amount < 0 ? -r.amount : qint64(-1); };
        return key(a) < key(b);
    }
    case RegisterModel::Deposit: {
        const auto key = [](const RegisterRow &r) { return r.amount >= 1 ? r.amount : qint64(-1); };
        return key(a) < key(b);
    }
    case RegisterModel::Cleared: {
        const auto rank = [](const RegisterRow &r) { return r.reconciled ? 2 : (r.cleared ? 1 : 0); };
        return rank(a) < rank(b);
    }
    case RegisterModel::Balance: return a.runningBalance < b.runningBalance;
    default: return false;
    }
}

} // namespace

RegisterModel::RegisterModel(QObject *parent)
    : QAbstractTableModel(parent)
{
    clearPending();
}

QString RegisterModel::dateText(const QDate &date)
{
    return date.toString(QStringLiteral("M/d/yyyy"));
}

int RegisterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size()) + 1;
}

int RegisterModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

int RegisterModel::newRowIndex() const
{
    return m_sortColumn == Date && m_sortOrder == Qt::DescendingOrder ? 0 : int(m_rows.size());
}

const RegisterRow *RegisterModel::recordAt(int row) const
{
    const int index = newRowIndex() == 0 ? row - 1 : row;
    if (row == newRowIndex() || index < 0 || index >= m_rows.size())
        return nullptr;
    return &m_rows.at(index);
}

QVariant RegisterModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (const QVariant v = bufferData(index, role); v.isValid())
        return v;

    const int column = index.column();
    const bool open = index.row() == m_editingRow;
    const bool pendingNew = isPendingNew(index.row());
    if (role == Qt::ForegroundRole && pendingNew && column != Balance && pendingText(column).isEmpty())
        return QColor(kMuted);
    if (role == Qt::BackgroundRole && (open || pendingNew) && !m_twoLineMode)
        return openRowBackground();

    const RegisterRow *row = recordAt(index.row());
    if (!row)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return displayText(*row, column, role);
    case Qt::TextAlignmentRole:
        if (isMoneyColumn(column))
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return column == Cleared ? int(Qt::AlignCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        switch (column) {
        case Memo:
        case Cleared: return QColor(kMuted);
        case Payment: return ThemeManager::negativeColor();
        case Deposit: return row->amount >= 0 ? QVariant(ThemeManager::positiveColor()) : QVariant();
        case Balance: return row->runningBalance < 0 ? QVariant(ThemeManager::negativeColor()) : QVariant();
        default: return {};
        }
    case Qt::FontRole: return isMoneyColumn(column) ? QVariant(ThemeManager::amountFont()) : QVariant();
    default: return {};
    }
}

// The open row and the new row show the buffer, not the record, in their text columns.
QVariant RegisterModel::bufferData(const QModelIndex &index, int role) const
{
    const int column = index.column();
    if (column == Balance || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    if (index.row() == m_editingRow) {
        const RegisterRow *row = recordAt(index.row());
        if (role == Qt::DisplayRole && column == Category && row && row->isSplit)
            return tr("—Split—");
        return pendingText(column);
    }
    if (!isPendingNew(index.row()))
        return {};
    const QString text = pendingText(column);
    // The editor opens on the plain buffer; only the painted cell shows the grey hint.
    if (role == Qt::DisplayRole && text.isEmpty())
        return placeholder(column);
    return text;
}

QVariant RegisterModel::displayText(const RegisterRow &row, int column, int role) const
{
    switch (column) {
    case Date: return dateText(row.date);
    case Check: return row.checkNumber;
    case Payee: return row.payee;
    case Category: return row.isSplit && role == Qt::DisplayRole ? tr("—Split—") : row.categoryName;
    case Memo: return row.memo;
    case Payment: return row.amount < 0 ? amountText(-row.amount) : QString();
    case Deposit: return row.amount >= 0 ? amountText(row.amount) : QString();
    case Cleared: return clearedText(row);
    case Balance: return role == Qt::DisplayRole ? QVariant(amountText(row.runningBalance)) : QVariant();
    default: return {};
    }
}

bool RegisterModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid())
        return false;
    if (QString *field = pendingField(index.column()))
        *field = value.toString();
    emit dataChanged(index, index);
    return true;
}

QVariant RegisterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    if (section == Payee && m_twoLineMode)
        return tr("Payee / Memo");
    if (section == Balance)
        return tr("Balance");
    return placeholder(section);
}

QString RegisterModel::placeholder(int column) const
{
    switch (column) {
    case Date: return tr("Date");
    case Check: return tr("Chk #");
    case Payee: return tr("Payee");
    case Category: return tr("Category");
    case Memo: return tr("Memo");
    case Payment: return tr("Payment");
    case Deposit: return tr("Deposit");
    case Cleared: return tr("Clr");
    default: return {};
    }
}

Qt::ItemFlags RegisterModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags readOnly = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const int row = index.row();
    if (index.column() == Balance || (row != newRowIndex() && row != m_editingRow))
        return readOnly;
    // A split's category and amounts belong to its lines; they are edited in the split editor.
    const RegisterRow *record = recordAt(row);
    const int column = index.column();
    if (record && record->isSplit && (column == Category || column == Payment || column == Deposit))
        return readOnly;
    return readOnly | Qt::ItemIsEditable;
}

void RegisterModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= ColumnCount)
        return;
    // A row number names another record once the rows move: the open row is followed by its id, so
    // that a save can only ever reach the transaction that was opened. The made-up opening row has no
    // id to follow; it goes back to a blank new row, so that its values cannot be saved as a new one.
    const RegisterRow *open = m_editingRow >= 0 ? recordAt(m_editingRow) : nullptr;
    const QString openId = open ? open->id : QString();
    const bool wasOpen = m_editingRow >= 0;
    m_sortColumn = column;
    m_sortOrder = order;
    beginResetModel();
    sortRows();
    if (wasOpen) {
        m_editingRow = findRowById(openId);
        if (m_editingRow < 0)
            clearPending();
    }
    endResetModel();
    emit sortChanged(column, order);
}

void RegisterModel::sortRows()
{
    const int column = m_sortColumn;
    const bool ascending = m_sortOrder == Qt::AscendingOrder;
    // Equal keys show the newest first in both directions; equal dates keep the repository's order.
    const auto before = [column, ascending](const RegisterRow &a, const RegisterRow &b) {
        if (lessByColumn(a, b, column))
            return ascending;
        if (lessByColumn(b, a, column))
            return !ascending;
        return a.date > b.date;
    };
    // The repository's order is the ascending date order: checked on the shared list, it saves
    // copying and sorting a large account on every refresh.
    if (std::is_sorted(m_rows.cbegin(), m_rows.cend(), before))
        return;
    std::stable_sort(m_rows.begin(), m_rows.end(), before);
}

void RegisterModel::setTransactions(const QList<RegisterRow> &rows)
{
    beginResetModel();
    m_rows = rows;
    sortRows();
    m_editingRow = -1;
    clearPending();
    endResetModel();
}

void RegisterModel::clearPending()
{
    m_pendingDate = m_lastEnteredDate.isEmpty() ? dateText(QDate::currentDate()) : m_lastEnteredDate;
    m_pendingCheckNumber.clear();
    m_pendingPayee.clear();
    m_pendingMemo.clear();
    m_pendingCategory.clear();
    m_pendingPayment.clear();
    m_pendingDeposit.clear();
    m_pendingCleared.clear();
    m_pendingCategoryId.clear();
}

void RegisterModel::loadPending(int row)
{
    const RegisterRow *record = recordAt(row);
    if (!record)
        return;
    m_pendingDate = dateText(record->date);
    m_pendingCheckNumber = record->checkNumber;
    m_pendingPayee = record->payee;
    m_pendingMemo = record->memo;
    m_pendingCategory = record->categoryName;
    m_pendingCategoryId = record->categoryId;
    m_pendingPayment = record->amount < 0 ? amountText(-record->amount) : QString();
    m_pendingDeposit = record->amount < 0 ? QString() : amountText(record->amount);
    m_pendingCleared = clearedText(*record);
}

void RegisterModel::setEditingRow(int row)
{
    const int old = m_editingRow;
    m_editingRow = row;
    if (old >= 0)
        emitRowChanged(old);
    if (row >= 0)
        emitRowChanged(row);
}

int RegisterModel::findRowById(const QString &id) const
{
    if (id.isEmpty())
        return -1;
    for (int row = 0; row < rowCount(); ++row) {
        const RegisterRow *record = recordAt(row);
        if (record && record->id == id)
            return row;
    }
    return -1;
}

void RegisterModel::setTwoLineMode(bool on)
{
    if (m_twoLineMode == on)
        return;
    m_twoLineMode = on;
    emit headerDataChanged(Qt::Horizontal, Payee, Payee);
}

QString RegisterModel::pendingText(int column) const
{
    switch (column) {
    case Date: return m_pendingDate;
    case Check: return m_pendingCheckNumber;
    case Payee: return m_pendingPayee;
    case Category: return m_pendingCategory;
    case Memo: return m_pendingMemo;
    case Payment: return m_pendingPayment;
    case Deposit: return m_pendingDeposit;
    case Cleared: return m_pendingCleared;
    default: return {};
    }
}

void RegisterModel::setPendingText(int column, const QString &text)
{
    if (QString *field = pendingField(column))
        *field = text;
}

void RegisterModel::emitRowChanged(int row)
{
    emit dataChanged(index(row, 0), index(row, Balance));
}

QString *RegisterModel::pendingField(int column)
{
    switch (column) {
    case Date: return &m_pendingDate;
    case Check: return &m_pendingCheckNumber;
    case Payee: return &m_pendingPayee;
    case Category: return &m_pendingCategory;
    case Memo: return &m_pendingMemo;
    case Payment: return &m_pendingPayment;
    case Deposit: return &m_pendingDeposit;
    case Cleared: return &m_pendingCleared;
    default: return nullptr;
    }
}
