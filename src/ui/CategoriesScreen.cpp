#include "ui/CategoriesScreen.h"

#include "core/AppState.h"
#include "data/CategoryRepository.h"
#include "ui/CategoryFormDialog.h"
#include "ui/CategoryTreeModel.h"
#include "ui/Prompt.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

CategoriesScreen::CategoriesScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    connect(m_searchEdit, &QLineEdit::textChanged, this, &CategoriesScreen::onSearchChanged);
    connect(m_newButton, &QPushButton::clicked, this, &CategoriesScreen::onCreateCategory);
    connect(m_tree, &QTreeView::customContextMenuRequested, this, &CategoriesScreen::onContextMenu);
    refresh();
}

void CategoriesScreen::setupUi()
{
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(tr("Categories"), this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);

    auto *bar = new QHBoxLayout;
    m_searchEdit = new QLineEdit(this);
    m_searchEdit->setObjectName(QStringLiteral("searchEdit"));
    m_searchEdit->setPlaceholderText(tr("Search categories..."));
    m_searchEdit->setClearButtonEnabled(true);
    bar->addWidget(m_searchEdit, 1);
    m_newButton = new QPushButton(tr("+ New Category"), this);
    m_newButton->setObjectName(QStringLiteral("newButton"));
    bar->addWidget(m_newButton);
    layout->addLayout(bar);

    m_model = new CategoryTreeModel(this);
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_model);
    m_proxy->setFilterKeyColumn(CategoryTreeModel::Name);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    // A match deep in the tree keeps its parents, or a found subcategory would have nowhere to stand.
    m_proxy->setRecursiveFilteringEnabled(true);
    m_proxy->setSortLocaleAware(true);
    m_proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_proxy->setDynamicSortFilter(true);

    m_tree = new QTreeView(this);
    m_tree->setObjectName(QStringLiteral("categoryTree"));
    m_tree->setModel(m_proxy);
    m_tree->setAlternatingRowColors(true);
    m_tree->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setSortingEnabled(true);
    // The header's own default would sort descending.
    m_tree->sortByColumn(CategoryTreeModel::Name, Qt::AscendingOrder);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(CategoryTreeModel::Name, QHeaderView::Stretch);
    m_tree->header()->resizeSection(CategoryTreeModel::Type, 100);
    m_tree->header()->resizeSection(CategoryTreeModel::TaxCode, 180);
    layout->addWidget(m_tree, 1);
}

void CategoriesScreen::refresh()
{
    const QStringList expanded = expandedIds();
    m_model->setCategories(m_state->categories()->getAll());
    for (const QString &id : expanded) {
        const QModelIndex index = m_proxy->mapFromSource(m_model->indexOfId(id));
        if (index.isValid())
            m_tree->expand(index);
    }
}

QStringList CategoriesScreen::expandedIds() const
{
    QStringList ids;
    collectExpanded(QModelIndex(), &ids);
    return ids;
}

void CategoriesScreen::collectExpanded(const QModelIndex &parent, QStringList *ids) const
{
    for (int row = 0; row < m_proxy->rowCount(parent); ++row) {
        const QModelIndex index = m_proxy->index(row, 0, parent);
        if (!m_tree->isExpanded(index))
            continue;
        if (const Category *category = m_model->categoryAt(m_proxy->mapToSource(index)))
            ids->append(category->id);
        collectExpanded(index, ids);
    }
}

void CategoriesScreen::onSearchChanged(const QString &text)
{
    m_proxy->setFilterFixedString(text);
    if (text.isEmpty())
        m_tree->collapseAll();
    else
        m_tree->expandAll();
}

const Category *CategoriesScreen::currentCategory() const
{
    return m_model->categoryAt(m_proxy->mapToSource(m_tree->currentIndex()));
}

void CategoriesScreen::fillContextMenu(QMenu *menu, const QModelIndex &proxyIndex)
{
    menu->addAction(tr("&New Category"), this, &CategoriesScreen::onCreateCategory);
    const Category *category = m_model->categoryAt(m_proxy->mapToSource(proxyIndex));
    if (!category)
        return;
    // Two levels only: a subcategory offers no subcategory of its own.
    if (category->parentId.isEmpty())
        menu->addAction(tr("Add &Subcategory"), this, &CategoriesScreen::onCreateSubcategory);
    menu->addSeparator();
    menu->addAction(tr("&Edit"), this, &CategoriesScreen::onEditCategory);
    menu->addAction(tr("&Delete"), this, &CategoriesScreen::onDeleteCategory);
}

void CategoriesScreen::onContextMenu(const QPoint &pos)
{
    const QModelIndex index = m_tree->indexAt(pos);
    // The entries act on the current node, so the node under the pointer becomes it.
    if (index.isValid())
        m_tree->setCurrentIndex(index);
    QMenu menu(this);
    fillContextMenu(&menu, index);
    menu.exec(m_tree->viewport()->mapToGlobal(pos));
}

void CategoriesScreen::onCreateCategory()
{
    CategoryFormDialog dialog(this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Category category = dialog.category();
    if (category.name.isEmpty())
        return;
    m_state->categories()->insert(category);
    refresh();
}

void CategoriesScreen::onCreateSubcategory()
{
    const Category *parent = currentCategory();
    if (!parent || !parent->parentId.isEmpty())
        return;
    CategoryFormDialog dialog(parent->id, parent->name, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Category category = dialog.category();
    if (category.name.isEmpty())
        return;
    m_state->categories()->insert(category);
    refresh();
}

void CategoriesScreen::onEditCategory()
{
    const Category *current = currentCategory();
    if (!current)
        return;
    CategoryFormDialog dialog(*current, this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return;
    const Category category = dialog.category();
    if (category.name.isEmpty())
        return;
    m_state->categories()->update(category);
    refresh();
}

void CategoriesScreen::onDeleteCategory()
{
    const Category *current = currentCategory();
    if (!current)
        return;
    // Copied: the refresh below frees the node the pointer points into.
    const QString id = current->id;
    const auto answer = Prompt::question(
        this, tr("Delete Category"),
        tr("Delete \"%1\"? Transactions using this category will become uncategorized.").arg(current->name),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    m_state->categories()->softDelete(id);
    refresh();
}
