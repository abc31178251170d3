#include "ui/register/RegisterDelegate.h"

#include "core/AppState.h"
#include "core/Money.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/TransactionRepository.h"
#include "ui/UiStyle.h"
#include "ui/register/RegisterComboBox.h"
#include "ui/register/RegisterLineEdit.h"
#include "ui/register/RegisterModel.h"
#include "ui/register/SmartDateEdit.h"
#include "ui/register/TabCompleter.h"

#include <QApplication>
#include <QHash>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int kLineHeight = 36;
constexpr int kMemoLineHeight = 16;
constexpr char kMuted[] = "#6E8A7E";
constexpr char kCategoryIdProperty[] = "_halcCategoryId";
const QString kPayeeMemoEditor = QStringLiteral("PayeeMemoEditor");

RegisterModel *registerModel(const QModelIndex &index)
{
    return qobject_cast<RegisterModel *>(const_cast<QAbstractItemModel *>(index.model()));
}

QFont memoFont(const QFont &base)
{
    QFont font = base;
    font.setItalic(true);
    font.setPointSize(qMax(7, base.pointSize() - 1));
    return font;
}

// The painted memo's font; the memo line of the editor is a point smaller, so this one sets the height.
int memoLineHeight(const QFont &base)
{
    return qMax(kMemoLineHeight, QFontMetrics(memoFont(base)).height());
}

} // namespace

int RegisterDelegate::lineHeight(const QFont &font)
{
    // Room for an editor's frame and margins around the text.
    return qMax(kLineHeight, QFontMetrics(font).height() + 18);
}

int RegisterDelegate::rowHeight(const QFont &font, bool twoLine)
{
    return lineHeight(font) + (twoLine ? memoLineHeight(font) : 0);
}

RegisterDelegate::RegisterDelegate(AppState *state, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_state(state)
{
}

QStringList RegisterDelegate::payeeSuggestions() const
{
    QStringList suggestions = m_state->transactions()->getPayees();
    // Each is put in front, so transfers stand first and the last account first of all.
    for (const Account &account : m_state->accounts()->getAll()) {
        if (account.id == m_accountId)
            continue;
        const QString entry = tr("[Transfer] %1").arg(account.name);
        if (!suggestions.contains(entry))
            suggestions.prepend(entry);
    }
    return suggestions;
}

QWidget *RegisterDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    switch (index.column()) {
    case RegisterModel::Date: editor = new SmartDateEdit(parent); break;
    case RegisterModel::Payee: editor = createPayeeEditor(parent, index); break;
    case RegisterModel::Category: editor = createCategoryEditor(parent); break;
    case RegisterModel::Check:
    case RegisterModel::Memo:
    case RegisterModel::Payment:
    case RegisterModel::Deposit:
    case RegisterModel::Cleared: {
        auto *line = new RegisterLineEdit(parent);
        if (index.column() == RegisterModel::Payment || index.column() == RegisterModel::Deposit)
            line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (index.column() == RegisterModel::Cleared) {
            line->setMaxLength(1);
            line->setAlignment(Qt::AlignCenter);
        }
        editor = line;
        break;
    }
    default: return nullptr;
    }
    editor->setFocusPolicy(Qt::ClickFocus);
    return editor;
}

QWidget *RegisterDelegate::createPayeeEditor(QWidget *parent, const QModelIndex &index) const
{
    auto *completer = new TabCompleter(payeeSuggestions());
    auto *payee = new RegisterLineEdit;
    payee->setCompleter(completer);
    completer->setParent(payee);
    const QPersistentModelIndex at(index);
    connect(completer, qOverload<const QString &>(&QCompleter::activated), payee,
            [this, at, payee](const QString &text) {
                RegisterModel *model = registerModel(at);
                if (!model || !at.isValid() || at.row() != model->newRowIndex() ||
                    !fillInFromPayee(model, text.trimmed()))
                    return;
                // The memo line is on screen beside the payee; it shows the filled-in memo at once.
                if (auto *memo = payee->parentWidget() ? payee->parentWidget()->findChild<QLineEdit *>(
                                                             QStringLiteral("memoEdit"))
                                                       : nullptr;
                    memo && payee->parentWidget()->objectName() == kPayeeMemoEditor) {
                    memo->setText(model->pendingText(RegisterModel::Memo));
                }
                model->emitRowChanged(at.row());
            });

    if (!m_twoLineMode) {
        payee->setParent(parent);
        return payee;
    }
    auto *box = new QWidget(parent);
    box->setObjectName(kPayeeMemoEditor);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    payee->setObjectName(QStringLiteral("payeeEdit"));
    layout->addWidget(payee);
    auto *memo = new RegisterLineEdit(box);
    memo->setObjectName(QStringLiteral("memoEdit"));
    applyFontRole(memo, 2, true);
    QFont font = memo->font();
    font.setItalic(true);
    font.setPointSize(qMax(7, ThemeManager::scaledPointSize() - 2));
    memo->setFont(font);
    memo->setPlaceholderText(tr("Memo"));
    layout->addWidget(memo);
    box->setFocusProxy(payee);
    return box;
}

QWidget *RegisterDelegate::createCategoryEditor(QWidget *parent) const
{
    auto *combo = new RegisterComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->addItem(QString(), QString());
    const QList<Category> categories = m_state->categories()->getAll();
    QHash<QString, QString> names;
    for (const Category &c : categories)
        names.insert(c.id, c.name);
    for (const Category &c : categories) {
        const QString parentName = c.parentId.isEmpty() ? QString() : names.value(c.parentId);
        combo->addItem(parentName.isEmpty() ? c.name : QStringLiteral("%1 > %2").arg(parentName, c.name),
                       c.id);
    }
    auto *completer = new TabCompleter(combo->model(), combo);
    combo->setCompleter(completer);
    connect(completer, qOverload<const QString &>(&QCompleter::activated), combo,
            [combo](const QString &text) {
                const int found = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
                if (found >= 0)
                    combo->setCurrentIndex(found);
            });
    connect(combo, &QComboBox::currentIndexChanged, combo,
            [combo] { combo->setProperty(kCategoryIdProperty, combo->currentData()); });
    return combo;
}

void RegisterDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *date = qobject_cast<SmartDateEdit *>(editor)) {
        // QDate reads "yy" years as 19yy, the base year a two-digit entry means.
        const QDate parsed = QDate::fromString(text, QStringLiteral("M/d/yyyy"));
        date->setDate(parsed.isValid() ? parsed : QDate::currentDate());
        return;
    }
    if (editor->objectName() == kPayeeMemoEditor) {
        editor->findChild<QLineEdit *>(QStringLiteral("payeeEdit"))->setText(text);
        editor->findChild<QLineEdit *>(QStringLiteral("memoEdit"))
            ->setText(index.siblingAtColumn(RegisterModel::Memo).data(Qt::EditRole).toString());
        return;
    }
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        const int found = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (found >= 0)
            combo->setCurrentIndex(found);
        else
            combo->setCurrentText(text); // an unknown category stays as free text, resolved at commit
        // Typing replaces the category, as it does the text of every other field; the view selects a
        // line edit's text by itself but not a combo box's.
        if (QLineEdit *line = combo->lineEdit())
            line->selectAll();
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->setText(text);
}

void RegisterDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    auto *registerModel = qobject_cast<RegisterModel *>(model);
    const bool newRow = registerModel && index.row() == registerModel->newRowIndex();
    if (auto *date = qobject_cast<SmartDateEdit *>(editor)) {
        model->setData(index, RegisterModel::dateText(date->date()), Qt::EditRole);
        return;
    }
    if (editor->objectName() == kPayeeMemoEditor && registerModel) {
        const QString payee = editor->findChild<QLineEdit *>(QStringLiteral("payeeEdit"))->text();
        registerModel->setPendingText(RegisterModel::Memo,
                                      editor->findChild<QLineEdit *>(QStringLiteral("memoEdit"))->text());
        registerModel->setPendingText(RegisterModel::Payee, payee);
        if (newRow)
            fillInFromPayee(registerModel, payee.trimmed());
        return;
    }
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, combo->currentText(), Qt::EditRole);
        // Free text that matches no item leaves no id; commit resolves it by name.
        const int found = combo->findText(combo->currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (registerModel)
            registerModel->setPendingCategoryId(found >= 0 ? combo->itemData(found).toString() : QString());
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        model->setData(index, line->text(), Qt::EditRole);
        if (index.column() == RegisterModel::Payee && newRow && registerModel)
            fillInFromPayee(registerModel, line->text().trimmed());
    }
}

bool RegisterDelegate::fillInFromPayee(RegisterModel *model, const QString &payee) const
{
    const std::optional<Transaction> last = m_state->transactions()->getLastForPayee(payee, m_accountId);
    if (!last)
        return false;
    // Deliberately replaces whatever was typed: this repeats on every commit of the payee.
    const QString amount = formatAmountPlain(last->amount < 0 ? -last->amount : last->amount, Currency::USD);
    model->setPendingText(RegisterModel::Payment, last->amount < 0 ? amount : QString());
    model->setPendingText(RegisterModel::Deposit, last->amount < 0 ? QString() : amount);
    if (!last->categoryId.isEmpty()) {
        if (const std::optional<Category> category = m_state->categories()->getById(last->categoryId)) {
            model->setPendingText(RegisterModel::Category, category->name);
            model->setPendingCategoryId(category->id);
        }
    }
    if (!last->memo.isEmpty())
        model->setPendingText(RegisterModel::Memo, last->memo);
    return true;
}

QSize RegisterDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (m_twoLineMode)
        size.setHeight(rowHeight(option.font, true));
    return size;
}

void RegisterDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    if (!m_twoLineMode) {
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
        return;
    }
    QRect rect = option.rect;
    // Only the payee cell holds two lines (payee and memo); every other editor covers the first line.
    if (index.column() != RegisterModel::Payee)
        rect.setHeight(lineHeight(option.font));
    editor->setGeometry(rect);
}

void RegisterDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    if (!m_twoLineMode) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    opt.text.clear();
    const QColor base = opt.palette.color(index.row() % 2 ? QPalette::AlternateBase : QPalette::Base);
    QStyle *style = opt.widget ? opt.widget->style() : QApplication::style();
    const int column = index.column();
    const int line = lineHeight(opt.font);

    // Selection and the editing tint cover the first line only, except under the payee and its memo.
    if (column == RegisterModel::Payee) {
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);
    } else {
        QStyleOptionViewItem firstLine = opt;
        firstLine.rect.setHeight(line);
        style->drawControl(QStyle::CE_ItemViewItem, &firstLine, painter, opt.widget);
        painter->fillRect(
            QRect(opt.rect.left(), opt.rect.top() + line, opt.rect.width(), opt.rect.height() - line), base);
    }

    const QRect textRect(opt.rect.left() + 4, opt.rect.top(), opt.rect.width() - 8, line);
    int alignment = Qt::AlignLeft;
    if (column == RegisterModel::Payment || column == RegisterModel::Deposit ||
        column == RegisterModel::Balance)
        alignment = Qt::AlignRight;
    else if (column == RegisterModel::Cleared)
        alignment = Qt::AlignHCenter;
    const bool selected = opt.state & QStyle::State_Selected;
    QColor color = opt.palette.color(QPalette::Text);
    if (selected) {
        color = opt.palette.color(QPalette::HighlightedText);
    } else if (const QVariant fg = index.data(Qt::ForegroundRole); fg.isValid()) {
        color = fg.value<QColor>();
    }
    const QString text = index.data(Qt::DisplayRole).toString();
    if (column == RegisterModel::Balance && !selected) {
        QString number = text;
        number.remove(QLatin1Char('$'))
            .remove(QLatin1Char(','))
            .remove(QLatin1Char('('))
            .remove(QLatin1Char(')'));
        bool ok = false;
        const double value = number.toDouble(&ok);
        if ((ok && value < 0) || text.contains(QLatin1Char('(')))
            color = ThemeManager::negativeColor();
    }
    painter->setFont(opt.font);
    painter->setPen(color);
    // Cut text says so with an ellipsis, as in the one-line layout.
    painter->drawText(textRect, alignment | Qt::AlignVCenter,
                      QFontMetrics(opt.font).elidedText(text, Qt::ElideRight, textRect.width()));

    if (column == RegisterModel::Payee || column == RegisterModel::Category) {
        const QString memo = index.siblingAtColumn(RegisterModel::Memo).data(Qt::DisplayRole).toString();
        if (!memo.isEmpty()) {
            QRect memoRect(opt.rect.left() + 4, opt.rect.top() + line, opt.rect.width() - 8,
                           opt.rect.height() - line);
            // The memo runs on under the category, so it is cut only at the category's right edge; the
            // payee cell cuts it only when no category follows to paint over the rest.
            const auto *view = qobject_cast<const QTableView *>(opt.widget);
            if (column == RegisterModel::Category && view)
                memoRect.setLeft(view->horizontalHeader()->sectionViewportPosition(RegisterModel::Payee) + 4);
            const bool cut =
                column == RegisterModel::Category || !view || view->isColumnHidden(RegisterModel::Category);
            const QFont font = memoFont(opt.font);
            painter->setFont(font);
            painter->setPen(selected ? opt.palette.color(QPalette::HighlightedText) : QColor(kMuted));
            painter->drawText(memoRect, Qt::AlignLeft | Qt::AlignVCenter,
                              cut ? QFontMetrics(font).elidedText(memo, Qt::ElideRight, memoRect.width())
                                  : memo);
        }
    }
    painter->restore();
}
