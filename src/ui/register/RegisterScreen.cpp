#include "ui/register/RegisterScreen.h"

#include "core/AppState.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/PreferencesRepository.h"
#include "data/RecurringRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"
#include "ui/Prompt.h"
#include "ui/RecurringFormDialog.h"
#include "ui/TransactionDetailsDialog.h"
#include "ui/TransactionFormDialog.h"
#include "ui/UiStyle.h"
#include "ui/register/RegisterDelegate.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/RegisterTableView.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSettings>
#include <QStyle>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace {

constexpr int kDefaultWidths[] = {130, 60, 250, 180, 180, 100, 100, 35, 110};
constexpr int kLastField = RegisterModel::Cleared;
constexpr int kHintShort = 3000;
constexpr int kHintLong = 5000;
const QString kTransferPrefix = QStringLiteral("[Transfer] ");

QString uuid()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString nativeKeys(const char *keys)
{
    return QKeySequence(QString::fromLatin1(keys)).toString(QKeySequence::NativeText);
}

QDate parseRegisterDate(const QString &text)
{
    // "yy" years read as 19yy: the base year a two-digit entry means.
    const QDate date = QDate::fromString(text, QStringLiteral("M/d/yyyy"));
    return date.isValid() ? date : QDate::currentDate();
}

} // namespace

RegisterScreen::RegisterScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    restoreColumns();

    connect(m_reconcileButton, &QPushButton::clicked, this, [this] { emit reconcileRequested(m_accountId); });
    connect(m_view, &QWidget::customContextMenuRequested, this, &RegisterScreen::onContextMenu);
    connect(m_view->horizontalHeader(), &QWidget::customContextMenuRequested, this,
            &RegisterScreen::showHeaderContextMenu);
    connect(m_view->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int size) {
                if (m_restoringColumns)
                    return;
                QSettings().setValue(QStringLiteral("register/colWidth/%1").arg(section), size);
                // The column that fills the rest gives or takes what the user's column took or gave.
                fitColumns();
            });
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        const QModelIndex current = m_view->currentIndex();
        m_columnBeforeReset = current.isValid() ? current.column() : 0;
    });
    connect(m_model, &RegisterModel::sortChanged, this, [this](int column, Qt::SortOrder order) {
        QSettings settings;
        settings.setValue(QStringLiteral("register/sortColumn"), column);
        settings.setValue(QStringLiteral("register/sortOrder"), int(order));
        // The reset took the current cell away; it comes back on the open row, wherever that went.
        const int row = m_model->editingRow() >= 0 ? m_model->editingRow() : m_model->newRowIndex();
        const QModelIndex target = m_model->index(row, m_columnBeforeReset);
        m_view->setCurrentIndex(target);
        m_view->scrollTo(target);
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current, const QModelIndex &previous) {
                if (current.isValid() && (!previous.isValid() || previous.row() != current.row()))
                    startEditingRow(current.row());
            });
    connect(m_view, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        if (!index.isValid())
            return;
        startEditingRow(index.row());
        if (index.column() != RegisterModel::Balance && !isLockedSplitCell(index))
            m_view->edit(index);
    });
    connect(m_view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        const RegisterRow *record = m_model->recordAt(index.row());
        if (record && record->isSplit)
            openEditDialog(index.row());
    });
    connect(m_state->preferences(), &PreferencesRepository::changed, this, [this](const QString &key) {
        if (key == QLatin1String("registerNewestFirst")) {
            const bool newestFirst = m_state->preferences()->getBool(key, false);
            m_view->sortByColumn(RegisterModel::Date, newestFirst ? Qt::DescendingOrder : Qt::AscendingOrder);
        }
    });
}

RegisterScreen::~RegisterScreen() = default;

void RegisterScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);

    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    m_titleLabel = new QLabel(this);
    applyFontRole(m_titleLabel, 5);
    top->addWidget(m_titleLabel);
    top->addStretch();
    m_balanceLabel = new QLabel(this);
    m_balanceLabel->setObjectName(QStringLiteral("balanceLabel"));
    applyFontRole(m_balanceLabel, 4);
    m_balanceLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    top->addWidget(m_balanceLabel);
    m_reconcileButton = new QPushButton(tr("Reconcile"), this);
    m_reconcileButton->setFocusPolicy(Qt::ClickFocus);
    top->addWidget(m_reconcileButton);
    layout->addLayout(top);

    m_metaLabel = new QLabel(this);
    applyFontRole(m_metaLabel, 2);
    m_metaLabel->setStyleSheet(QStringLiteral("color: #6E8A7E;"));
    layout->addWidget(m_metaLabel);
    layout->addSpacing(8);

    m_model = new RegisterModel(this);
    m_delegate = new RegisterDelegate(m_state, this);
    m_view = new RegisterTableView(this);
    m_view->screen = this;
    m_view->setObjectName(QStringLiteral("registerView"));
    m_view->setModel(m_model);
    m_view->setItemDelegate(m_delegate);
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setTabKeyNavigation(false);
    m_view->setFocusPolicy(Qt::StrongFocus);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(36);
    m_view->setShowGrid(false);
    // A long category or payee wrapped onto a second line that a one-line row cuts off; elided, it
    // says that there is more.
    m_view->setWordWrap(false);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed);
    m_view->setSortingEnabled(true);
    m_view->horizontalHeader()->setSortIndicatorShown(true);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    m_view->horizontalHeader()->setStretchLastSection(false);
    m_view->horizontalHeader()->setMinimumSectionSize(24);
    m_view->horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
    layout->addWidget(m_view, 1);

    auto *bottom = new QHBoxLayout;
    m_statusHint = new QLabel(this);
    m_statusHint->setObjectName(QStringLiteral("statusHint"));
    applyFontRole(m_statusHint, 0);
    m_statusHint->setStyleSheet(
        QStringLiteral("color: %1; padding: 2px 4px;").arg(QStringLiteral("#6E8A7E")));
    bottom->addWidget(m_statusHint);
    bottom->addStretch();
    auto *help = new QLabel(tr("%1: save  |  Enter: next  |  %2: delete  |  %3: memorize  |  ': copy above")
                                .arg(nativeKeys("Ctrl+Return"), nativeKeys("Ctrl+D"), nativeKeys("Ctrl+M")),
                            this);
    applyFontRole(help, 0);
    help->setStyleSheet(QStringLiteral("color: %1; padding: 2px 4px;").arg(QStringLiteral("#5A7A6E")));
    bottom->addWidget(help);
    layout->addLayout(bottom);
}

void RegisterScreen::restoreColumns()
{
    QSettings settings;
    m_restoringColumns = true;
    for (int column = 0; column <= RegisterModel::Balance; ++column) {
        // A translated header may be wider than the English one the defaults were measured for.
        const int fallback =
            std::max(kDefaultWidths[column], m_view->horizontalHeader()->sectionSizeHint(column));
        m_view->setColumnWidth(
            column, settings.value(QStringLiteral("register/colWidth/%1").arg(column), fallback).toInt());
        const bool hidden =
            column != RegisterModel::Date && column != RegisterModel::Balance &&
            settings.value(QStringLiteral("register/colHidden/%1").arg(column), false).toBool();
        m_view->setColumnHidden(column, hidden);
    }
    m_restoringColumns = false;
    fitColumns();
    if (settings.contains(QStringLiteral("register/sortColumn"))) {
        int column = settings.value(QStringLiteral("register/sortColumn")).toInt();
        if (column < 0 || column > RegisterModel::Balance)
            column = 0;
        m_view->sortByColumn(column,
                             Qt::SortOrder(settings.value(QStringLiteral("register/sortOrder"), 0).toInt()));
    } else {
        const bool newestFirst =
            m_state->preferences()->getBool(QStringLiteral("registerNewestFirst"), false);
        m_view->sortByColumn(RegisterModel::Date, newestFirst ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}

void RegisterScreen::resetColumnLayout()
{
    QSettings().remove(QStringLiteral("register"));
    restoreColumns();
    applyTwoLineMode(m_state->preferences()->getBool(QStringLiteral("registerTwoLine"), false));
}

void RegisterScreen::setAccount(const QString &accountId)
{
    m_accountId = accountId;
    m_delegate->setAccountId(accountId);
    refresh();
    goToNewRow();
}

void RegisterScreen::refresh()
{
    if (m_accountId.isEmpty() || m_view->isEditing())
        return;
    const std::optional<Account> account = m_state->accounts()->getById(m_accountId);
    if (!account)
        return;

    m_titleLabel->setText(account->name);
    QString meta = account->institution;
    // With no institution before it, the separator would stand alone at the start of the line.
    if (!account->accountNumberLast4.isEmpty())
        meta += (meta.isEmpty() ? QStringLiteral("*%1") : QStringLiteral("  ·  *%1"))
                    .arg(account->accountNumberLast4);
    m_metaLabel->setText(meta);
    m_metaLabel->setVisible(!meta.isEmpty());

    // Where the user was: rows are found again by id, since a write can move them.
    const QModelIndex top = m_view->indexAt(QPoint(0, 0));
    const RegisterRow *topRecord = top.isValid() ? m_model->recordAt(top.row()) : nullptr;
    const QString topId = topRecord ? topRecord->id : QString();
    const QModelIndex current = m_view->currentIndex();
    const RegisterRow *currentRecord = current.isValid() ? m_model->recordAt(current.row()) : nullptr;
    const QString currentId = currentRecord ? currentRecord->id : QString();
    const int currentRow = current.row();
    const int currentColumn = current.isValid() ? current.column() : 0;

    const QList<RegisterRow> rows = m_state->transactions()->getByAccountWithBalances(m_accountId);
    applyTwoLineMode(m_state->preferences()->getBool(QStringLiteral("registerTwoLine"), false));
    m_model->setTransactions(rows);
    measureFigures(rows);

    const qint64 balance = rows.isEmpty() ? account->startingBalance : rows.last().runningBalance;
    m_balanceLabel->setText(formatAmount(balance, account->currency));
    m_balanceLabel->setStyleSheet(
        QStringLiteral("color: %1;")
            .arg((balance < 0 ? ThemeManager::negativeColor() : ThemeManager::positiveColor()).name()));

    int row = m_model->findRowById(currentId);
    if (row < 0 && currentRow >= 0)
        row = qMin(currentRow, m_model->rowCount() - 1);
    const int topRow = m_model->findRowById(topId);
    if (row >= 0)
        m_view->setCurrentIndex(m_model->index(row, currentColumn));
    if (topRow >= 0)
        m_view->scrollTo(m_model->index(topRow, 0), QAbstractItemView::PositionAtTop);
    if (row >= 0)
        m_view->scrollTo(m_model->index(row, 0), QAbstractItemView::EnsureVisible);
}

void RegisterScreen::measureFigures(const QList<RegisterRow> &rows)
{
    qint64 payment = 0;
    qint64 deposit = 0;
    qint64 highest = 0;
    qint64 lowest = 0;
    for (const RegisterRow &row : rows) {
        if (row.amount < 0)
            payment = qMax(payment, -row.amount);
        else
            deposit = qMax(deposit, row.amount);
        highest = qMax(highest, row.runningBalance);
        lowest = qMin(lowest, row.runningBalance);
    }
    const QString high = formatAmountPlain(highest, Currency::USD);
    const QString low = formatAmountPlain(lowest, Currency::USD);
    m_widestFigures = {formatAmountPlain(payment, Currency::USD), formatAmountPlain(deposit, Currency::USD),
                       low.size() > high.size() ? low : high};
    fitColumns();
}

// Columns the user sized keep their width. The others start from their default, widened to what they
// must show whole (dates and figures in the current font); Payee, or Memo when the user sized Payee,
// takes what is left of the viewport. When the defaults do not fit, the date and the text columns give
// up room in proportion, down to a floor, before the table scrolls sideways.
void RegisterScreen::fitColumns()
{
    const int available = m_view->viewport()->width();
    if (m_fitting || available <= 0)
        return;
    const QScopedValueRollback fitting(m_fitting, true);
    QSettings settings;
    const QFontMetrics text(m_view->font());
    const QFontMetrics figures(ThemeManager::amountFont());
    const QFontMetrics header(m_view->horizontalHeader()->font());
    // A cell's text margins, with a little air.
    const int padding = 2 * (m_view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1) + 8;
    const int textFloor = 8 * text.averageCharWidth();

    struct Column {
        bool visible = false;
        bool byHand = false;
        int width = 0;
        int floor = 0;
    };
    std::array<Column, RegisterModel::ColumnCount> columns;
    for (int c = 0; c < RegisterModel::ColumnCount; ++c) {
        Column &column = columns[c];
        column.visible = !m_view->isColumnHidden(c);
        const QVariant stored = settings.value(QStringLiteral("register/colWidth/%1").arg(c));
        column.byHand = stored.isValid() && stored.toInt() > 0;
        if (column.byHand) {
            column.width = column.floor = stored.toInt();
            continue;
        }
        int content = header.horizontalAdvance(m_model->headerData(c, Qt::Horizontal).toString()) + padding;
        switch (c) {
        case RegisterModel::Date:
            // The editor's calendar button stands beside the text.
            content = qMax(content, text.horizontalAdvance(QStringLiteral("12/28/2026")) + padding + 24);
            break;
        case RegisterModel::Payment:
        case RegisterModel::Deposit:
        case RegisterModel::Balance: {
            const int i = c == RegisterModel::Payment ? 0 : (c == RegisterModel::Deposit ? 1 : 2);
            content = qMax(content, figures.horizontalAdvance(m_widestFigures[i]) + padding);
            break;
        }
        case RegisterModel::Payee:
        case RegisterModel::Category:
        case RegisterModel::Memo: content = qMax(content, textFloor); break;
        default: break;
        }
        column.floor = content;
        column.width = qMax(kDefaultWidths[c], content);
    }

    int flex = -1;
    if (columns[RegisterModel::Payee].visible && !columns[RegisterModel::Payee].byHand)
        flex = RegisterModel::Payee;
    else if (columns[RegisterModel::Memo].visible && !columns[RegisterModel::Memo].byHand)
        flex = RegisterModel::Memo;
    if (flex >= 0)
        columns[flex].floor = qMax(columns[flex].floor, 12 * text.averageCharWidth());

    const auto total = [&columns] {
        int sum = 0;
        for (const Column &column : columns)
            sum += column.visible ? column.width : 0;
        return sum;
    };
    // Too wide: the date first gives up its spare room, then the text columns in proportion.
    int excess = total() - available;
    const auto shrink = [&columns, &excess](std::initializer_list<int> which) {
        for (int pass = 0; pass < 4 && excess > 0; ++pass) {
            int spare = 0;
            for (int c : which) {
                const Column &column = columns[c];
                if (column.visible && !column.byHand)
                    spare += column.width - column.floor;
            }
            if (spare <= 0)
                return;
            const int take = qMin(excess, spare);
            int taken = 0;
            for (int c : which) {
                Column &column = columns[c];
                if (!column.visible || column.byHand)
                    continue;
                const int share =
                    qMin(column.width - column.floor,
                         int((qint64(take) * (column.width - column.floor) + spare - 1) / spare));
                column.width -= share;
                taken += share;
            }
            excess -= taken;
        }
    };
    if (excess > 0)
        shrink({RegisterModel::Date});
    if (excess > 0)
        shrink({RegisterModel::Payee, RegisterModel::Category, RegisterModel::Memo});
    if (flex >= 0 && excess < 0)
        columns[flex].width -= excess;

    const QScopedValueRollback restoring(m_restoringColumns, true);
    for (int c = 0; c < RegisterModel::ColumnCount; ++c) {
        if (columns[c].visible && m_view->columnWidth(c) != columns[c].width)
            m_view->setColumnWidth(c, columns[c].width);
    }
}

void RegisterScreen::applyTwoLineMode(bool on)
{
    m_delegate->setTwoLineMode(on);
    {
        // Hiding resizes the section to nothing; that is not a width to keep.
        const QScopedValueRollback restoring(m_restoringColumns, true);
        m_view->setColumnHidden(
            RegisterModel::Memo,
            on || QSettings().value(QStringLiteral("register/colHidden/4"), false).toBool());
    }
    m_model->setTwoLineMode(on);
    m_view->verticalHeader()->setDefaultSectionSize(RegisterDelegate::rowHeight(m_view->font(), on));
    fitColumns();
    m_view->viewport()->update();
}

void RegisterScreen::goToNewRow()
{
    if (m_model->rowCount() > 0) {
        if (m_model->newRowIndex() == 0)
            m_view->scrollToTop();
        else
            m_view->scrollToBottom();
    }
    m_view->setCurrentIndex(m_model->index(m_model->newRowIndex(), 0));
}

void RegisterScreen::startEditingRow(int row)
{
    if (row == m_model->newRowIndex()) {
        if (m_model->editingRow() >= 0)
            m_model->clearPending();
        m_model->setEditingRow(-1);
    } else if (row != m_model->editingRow()) {
        m_model->loadPending(row);
        m_model->setEditingRow(row);
    }
}

bool RegisterScreen::isLockedSplitCell(const QModelIndex &index) const
{
    const RegisterRow *record = m_model->recordAt(index.row());
    const int column = index.column();
    return record && record->isSplit &&
           (column == RegisterModel::Category || column == RegisterModel::Payment ||
            column == RegisterModel::Deposit);
}

void RegisterScreen::syncEditor()
{
    const QModelIndex index = m_view->currentIndex();
    QWidget *editor = index.isValid() ? m_view->indexWidget(index) : nullptr;
    if (!editor)
        return;
    m_delegate->setModelData(editor, m_model, index);
    if (auto *combo = qobject_cast<QComboBox *>(editor); combo && index.column() == RegisterModel::Category) {
        m_model->setPendingCategoryId(combo->currentData().toString());
        m_model->setPendingText(RegisterModel::Category, combo->currentText());
    }
    if (editor->objectName() == QLatin1String("PayeeMemoEditor")) {
        m_view->setFocus();
        emit m_delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

int RegisterScreen::nextVisibleField(int column, int step) const
{
    for (int c = column + step; c >= 0 && c <= kLastField; c += step) {
        if (!m_view->isColumnHidden(c))
            return c;
    }
    return -1;
}

void RegisterScreen::advanceToNextField()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid())
        return;
    syncEditor();
    const int column = nextVisibleField(current.column(), 1);
    if (column < 0)
        return;
    const QModelIndex target = m_model->index(current.row(), column);
    {
        const QSignalBlocker block(m_view->selectionModel());
        m_view->setCurrentIndex(target);
    }
    // With the selection model quiet the view does not scroll by itself; the field may be off-screen.
    m_view->scrollTo(target);
    if (m_model->flags(target) & Qt::ItemIsEditable)
        m_view->edit(target);
}

void RegisterScreen::advanceToPreviousField()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid())
        return;
    syncEditor();
    const int column = nextVisibleField(current.column(), -1);
    if (column < 0)
        return;
    const QModelIndex target = m_model->index(current.row(), column);
    {
        const QSignalBlocker block(m_view->selectionModel());
        m_view->setCurrentIndex(target);
    }
    m_view->scrollTo(target);
    if (!(m_model->flags(target) & Qt::ItemIsEditable))
        return;
    m_view->edit(target);
    // Going backward arrives at the last field of the payee cell: its memo line.
    if (QWidget *editor = m_view->indexWidget(target);
        editor && editor->objectName() == QLatin1String("PayeeMemoEditor")) {
        if (auto *memo = editor->findChild<QLineEdit *>(QStringLiteral("memoEdit")))
            memo->setFocus();
    }
}

void RegisterScreen::enterAdvanceOrSave()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid())
        return;
    syncEditor();
    const int column = current.column() == RegisterModel::Balance ? nextVisibleField(-1, 1)
                                                                  : nextVisibleField(current.column(), 1);
    if (column < 0) {
        commitCurrentRow();
        return;
    }
    const QModelIndex target = m_model->index(current.row(), column);
    m_view->setCurrentIndex(target);
    m_view->edit(target);
}

bool RegisterScreen::focusNextPrevChild(bool next)
{
    QWidget *focus = QApplication::focusWidget();
    if (!m_view->hasFocus() && !m_view->isAncestorOf(focus))
        return QWidget::focusNextPrevChild(next);
    if (focus && focus->parentWidget() &&
        focus->parentWidget()->objectName() == QLatin1String("PayeeMemoEditor")) {
        QWidget *box = focus->parentWidget();
        if (next && focus->objectName() == QLatin1String("payeeEdit")) {
            box->findChild<QLineEdit *>(QStringLiteral("memoEdit"))->setFocus();
            return true;
        }
        if (!next && focus->objectName() == QLatin1String("memoEdit")) {
            box->findChild<QLineEdit *>(QStringLiteral("payeeEdit"))->setFocus();
            return true;
        }
    }
    if (next)
        advanceToNextField();
    else
        advanceToPreviousField();
    return true;
}

bool RegisterScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    if (watched == m_view && event->type() == QEvent::FontChange)
        applyTwoLineMode(m_model->twoLineMode());
    if (event->type() != QEvent::KeyPress || (watched != m_view && watched != m_view->viewport()))
        return QWidget::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    const Qt::KeyboardModifiers mods = key->modifiers();
    const QModelIndex current = m_view->currentIndex();
    const bool control = mods & Qt::ControlModifier;

    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        if (control) {
            commitCurrentRow();
        } else if (mods & Qt::AltModifier) {
            if (current.isValid() && current.row() != m_model->newRowIndex())
                showDetails(current.row());
        } else if (current.isValid() && m_view->indexWidget(current)) {
            enterAdvanceOrSave();
        } else if (current.isValid() && isLockedSplitCell(current) &&
                   current.row() != m_model->newRowIndex()) {
            openEditDialog(current.row());
        } else if (current.isValid()) {
            startEditingRow(current.row());
            m_view->edit(current);
        }
        return true;
    }
    if (control && key->key() == Qt::Key_D) {
        deleteCurrentRow();
        return true;
    }
    if (control && !(mods & Qt::ShiftModifier) && key->key() == Qt::Key_I) {
        insertNewRow();
        return true;
    }
    if (control && key->key() == Qt::Key_N) {
        newTransactionDialog();
        return true;
    }
    if (control && key->key() == Qt::Key_M) {
        memorizeCurrentRow();
        return true;
    }
    if (!control && key->key() == Qt::Key_Apostrophe) {
        copyFromAbove();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void RegisterScreen::insertNewRow()
{
    m_model->clearPending();
    m_model->setEditingRow(-1);
    const QModelIndex target = m_model->index(m_model->newRowIndex(), 0);
    m_view->scrollTo(target);
    m_view->setCurrentIndex(target);
    m_view->edit(target);
}

void RegisterScreen::copyFromAbove()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid() || current.row() < 1 || current.row() - 1 >= m_model->rowCount() - 1)
        return;
    const QString value = m_model->index(current.row() - 1, current.column()).data(Qt::EditRole).toString();
    m_model->setData(current, value, Qt::EditRole);
    if (auto *line = qobject_cast<QLineEdit *>(m_view->indexWidget(current)))
        line->setText(value);
}

void RegisterScreen::showStatusHint(const QString &text, int msec)
{
    m_statusHint->setText(text);
    // Not cancelled on purpose: an older timer may clear a newer hint a little early, which is harmless.
    QTimer::singleShot(msec, m_statusHint, [label = m_statusHint] { label->clear(); });
}

QString RegisterScreen::statusHint() const
{
    return m_statusHint->text();
}

void RegisterScreen::commitCurrentRow()
{
    const QModelIndex current = m_view->currentIndex();
    if (QWidget *editor = current.isValid() ? m_view->indexWidget(current) : nullptr) {
        m_delegate->setModelData(editor, m_model, current);
        if (auto *combo = qobject_cast<QComboBox *>(editor);
            combo && current.column() == RegisterModel::Category)
            m_model->setPendingCategoryId(combo->currentData().toString());
    }
    const int editingRow = m_model->editingRow();
    // Clearing the current index closes the editor; a failure below keeps the typed text.
    m_view->setCurrentIndex(QModelIndex());

    const QString payeeText = m_model->pendingText(RegisterModel::Payee).trimmed();
    if (payeeText.isEmpty()) {
        showStatusHint(tr("Payee is required"), kHintShort);
        return;
    }
    // Every register parses as dollars: the cells show two decimals whatever the currency.
    const QString payment = m_model->pendingText(RegisterModel::Payment).trimmed();
    const QString deposit = m_model->pendingText(RegisterModel::Deposit).trimmed();
    qint64 amount = 0;
    if (!payment.isEmpty())
        amount = -parseAmount(payment, Currency::USD);
    else if (!deposit.isEmpty())
        amount = parseAmount(deposit, Currency::USD);
    else {
        showStatusHint(tr("Enter a payment or deposit amount"), kHintShort);
        return;
    }
    const QDate date = parseRegisterDate(m_model->pendingText(RegisterModel::Date));

    QString categoryId = m_model->pendingCategoryId();
    if (categoryId.isEmpty()) {
        const QString text = m_model->pendingText(RegisterModel::Category).trimmed();
        std::optional<Category> category =
            text.isEmpty() ? std::nullopt : m_state->categories()->getByName(text);
        if (!category && text.contains(QLatin1String(" > ")))
            category = m_state->categories()->getByName(text.section(QLatin1String(" > "), 1).trimmed());
        if (category)
            categoryId = category->id;
    }
    const QString status = m_model->pendingText(RegisterModel::Cleared).trimmed().toUpper();
    const bool reconciled = status == QLatin1String("R");
    const bool cleared = reconciled || status == QLatin1String("C");
    const bool isNew = editingRow < 0 || editingRow == m_model->newRowIndex();

    QString payee = payeeText;
    std::optional<Account> other;
    if (payeeText.startsWith(kTransferPrefix)) {
        const QString name = payeeText.mid(kTransferPrefix.size());
        for (const Account &a : m_state->accounts()->getAll()) {
            if (a.name == name) {
                other = a;
                break;
            }
        }
        if (!other) {
            showStatusHint(tr("Transfer account not found"), kHintShort);
            return;
        }
        const std::optional<Account> self = m_state->accounts()->getById(m_accountId);
        if (self && self->currency != other->currency) {
            emit errorMessage(tr("Transfers require both accounts to use the same currency"));
            return;
        }
        payee = tr("Transfer to %1").arg(other->name);
    }

    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (!isNew) {
        const RegisterRow *record = m_model->recordAt(editingRow);
        if (!record)
            return;
        Transaction t = *record;
        t.date = date;
        t.payee = payee;
        t.checkNumber = m_model->pendingText(RegisterModel::Check).trimmed();
        t.memo = m_model->pendingText(RegisterModel::Memo).trimmed();
        t.amount = amount;
        t.categoryId = categoryId;
        t.cleared = cleared;
        t.reconciled = reconciled;
        t.version += 1;
        t.updatedAt = now;
        t.syncStatus = SyncStatus::Pending;
        m_state->transactions()->update(t);
        refresh();
        if (editingRow + 1 < m_model->rowCount())
            m_view->setCurrentIndex(m_model->index(editingRow + 1, 0));
        return;
    }

    Transaction t;
    t.id = uuid();
    t.accountId = m_accountId;
    t.date = date;
    t.payee = payee;
    t.checkNumber = m_model->pendingText(RegisterModel::Check).trimmed();
    t.memo = m_model->pendingText(RegisterModel::Memo).trimmed();
    t.amount = amount;
    t.categoryId = categoryId;
    t.cleared = cleared;
    t.reconciled = reconciled;
    t.createdAt = now;
    t.updatedAt = now;
    if (other) {
        const std::optional<Account> self = m_state->accounts()->getById(m_accountId);
        Transaction mirror;
        mirror.id = uuid();
        mirror.accountId = other->id;
        mirror.date = date;
        mirror.payee = tr("Transfer from %1").arg(self ? self->name : QString());
        mirror.amount = -amount;
        mirror.cleared = cleared;
        mirror.reconciled = reconciled;
        mirror.transferLinkId = t.id;
        mirror.transferDestAccountId = m_accountId;
        mirror.createdAt = now;
        mirror.updatedAt = now;
        t.transferLinkId = mirror.id;
        t.transferDestAccountId = other->id;
        m_state->transactions()->insert(mirror);
    }
    m_state->transactions()->insert(t);
    m_model->setLastEnteredDate(m_model->pendingText(RegisterModel::Date));
    refresh();
    goToNewRow();
}

void RegisterScreen::deleteCurrentRow()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid())
        return;
    if (current.row() == m_model->newRowIndex()) {
        m_model->clearPending();
        m_model->emitRowChanged(current.row());
        const QModelIndex first = m_model->index(current.row(), 0);
        m_view->setCurrentIndex(first);
        m_view->edit(first);
        showStatusHint(tr("Fields cleared"), kHintShort);
        return;
    }
    const RegisterRow *record = m_model->recordAt(current.row());
    if (!record)
        return;
    const Transaction t = *record;
    const QString amount = formatAmount(t.amount < 0 ? -t.amount : t.amount, Currency::USD);
    const QString text =
        t.transferLinkId.isEmpty()
            ? tr("Delete \"%1\" for %2?").arg(t.payee, amount)
            : tr("Delete transfer \"%1\" for %2?\n\nBoth sides of the transfer will be deleted.")
                  .arg(t.payee, amount);
    if (Prompt::question(this, tr("Delete Transaction"), text, QMessageBox::Yes | QMessageBox::No,
                         QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!t.transferLinkId.isEmpty())
        m_state->transactions()->softDelete(t.transferLinkId);
    m_state->transactions()->softDelete(t.id);
    refresh();
}

void RegisterScreen::toggleClearedCurrentRow()
{
    const QModelIndex current = m_view->currentIndex();
    const RegisterRow *record = current.isValid() ? m_model->recordAt(current.row()) : nullptr;
    if (!record)
        return;
    Transaction t = *record;
    t.cleared = !t.cleared;
    t.updatedAt = QDateTime::currentDateTimeUtc();
    t.syncStatus = SyncStatus::Pending;
    m_state->transactions()->update(t);
    refresh();
}

void RegisterScreen::memorizeCurrentRow()
{
    const QModelIndex current = m_view->currentIndex();
    const RegisterRow *record = current.isValid() ? m_model->recordAt(current.row()) : nullptr;
    if (!record)
        return;
    if (!record->date.isValid() || record->date.year() < 2000) {
        showStatusHint(tr("Cannot memorize: source transaction has an invalid date"), kHintLong);
        return;
    }
    RecurringTransaction seed;
    seed.accountId = m_accountId;
    seed.payee = record->payee;
    seed.memo = record->memo;
    seed.amount = record->amount;
    seed.categoryId = record->categoryId;
    seed.frequency = Frequency::Monthly;
    seed.startDate = record->date;
    seed.nextDueDate = record->date;
    seed.autoPost = false;
    seed.isActive = true;
    RecurringFormDialog *dialog = RecurringFormDialog::createFromSeed(seed, m_state->accounts()->getAll(),
                                                                      m_state->categories()->getAll(), this);
    if (Prompt::exec(dialog) == QDialog::Accepted) {
        RecurringTransaction rule = dialog->recurring();
        rule.updatedAt = rule.createdAt;
        m_state->recurring()->insert(rule);
        showStatusHint(tr("Transaction memorized as recurring"), kHintShort);
    }
    dialog->deleteLater();
}

void RegisterScreen::onContextMenu(const QPoint &pos)
{
    const QModelIndex index = m_view->indexAt(pos);
    QMenu menu(this);
    menu.addAction(tr("&Insert New"), this, &RegisterScreen::insertNewRow)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+I")));
    menu.addAction(tr("&New Transaction..."), this, &RegisterScreen::newTransactionDialog)
        ->setShortcut(QKeySequence::New);
    const RegisterRow *record = index.isValid() ? m_model->recordAt(index.row()) : nullptr;
    if (record) {
        const int row = index.row();
        m_view->setCurrentIndex(index);
        menu.addSeparator();
        menu.addAction(tr("Show &Details..."), this, [this, row] { showDetails(row); })
            ->setShortcut(QKeySequence(QStringLiteral("Alt+Return")));
        menu.addAction(record->isSplit ? tr("Edit &Splits...") : tr("&Edit in Dialog..."), this,
                       [this, row] { openEditDialog(row); });
        menu.addAction(record->cleared ? tr("Mark &Uncleared") : tr("Mark &Cleared"), this,
                       &RegisterScreen::toggleClearedCurrentRow);
        menu.addAction(tr("&Delete"), this, &RegisterScreen::deleteCurrentRow)
            ->setShortcut(QKeySequence(QStringLiteral("Ctrl+D")));
    }
    menu.exec(m_view->viewport()->mapToGlobal(pos));
}

void RegisterScreen::showHeaderContextMenu(const QPoint &pos)
{
    QMenu menu(this);
    menu.addSection(tr("Show columns"));
    for (int column = 0; column <= RegisterModel::Balance; ++column) {
        QAction *action = menu.addAction(m_model->headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setChecked(!m_view->isColumnHidden(column));
        action->setEnabled(column != RegisterModel::Date && column != RegisterModel::Balance &&
                           !(column == RegisterModel::Memo && m_model->twoLineMode()));
        connect(action, &QAction::toggled, this, [this, column](bool visible) {
            {
                const QScopedValueRollback restoring(m_restoringColumns, true);
                m_view->setColumnHidden(column, !visible);
            }
            QSettings().setValue(QStringLiteral("register/colHidden/%1").arg(column), !visible);
            fitColumns();
        });
    }
    menu.addSeparator();
    menu.addAction(tr("Reset register layout"), this, &RegisterScreen::resetColumnLayout);
    menu.exec(m_view->horizontalHeader()->mapToGlobal(pos));
}

void RegisterScreen::openEditDialog(int row)
{
    const RegisterRow *record = m_model->recordAt(row);
    if (!record)
        return;
    TransactionFormDialog dialog(m_state, Transaction(*record), this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Transaction t = dialog.transaction();
    m_state->transactions()->update(t);
    m_state->splitLines()->replaceForTransaction(t.id, dialog.splitLines());
    refresh();
}

void RegisterScreen::newTransactionDialog()
{
    if (m_accountId.isEmpty())
        return;
    TransactionFormDialog dialog(m_state, m_accountId, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Transaction t = dialog.transaction();
    m_state->transactions()->insert(t);
    if (!dialog.splitLines().isEmpty())
        m_state->splitLines()->replaceForTransaction(t.id, dialog.splitLines());
    refresh();
    goToNewRow();
}

void RegisterScreen::showDetails(int row)
{
    const RegisterRow *record = m_model->recordAt(row);
    if (!record)
        return;
    const QString id = record->id;
    TransactionDetailsDialog dialog(m_state, Transaction(*record), this);
    Prompt::exec(&dialog);
    refresh();
    if (dialog.editRequested() && !dialog.deleted())
        openEditDialog(m_model->findRowById(id));
}
