#include "ui/CategoryTreeModel.h"

#include <QColor>
#include <QFont>
#include <QHash>

CategoryTreeModel::CategoryTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>())
{
}

CategoryTreeModel::~CategoryTreeModel() = default;

void CategoryTreeModel::setCategories(const QList<Category> &categories)
{
    beginResetModel();
    auto root = std::make_unique<Node>();
    std::vector<std::unique_ptr<Node>> nodes;
    nodes.reserve(categories.size());
    QHash<QString, Node *> byId;
    for (const Category &category : categories) {
        auto node = std::make_unique<Node>();
        node->category = category;
        byId.insert(category.id, node.get());
        nodes.push_back(std::move(node));
    }
    for (std::unique_ptr<Node> &node : nodes) {
        Node *parent = byId.value(node->category.parentId, nullptr);
        // A node that names itself as its parent would hang outside the tree.
        if (node->category.parentId.isEmpty() || !parent || parent == node.get())
            parent = root.get();
        node->parent = parent;
        node->row = int(parent->children.size());
        parent->children.push_back(std::move(node));
    }
    m_root = std::move(root);
    endResetModel();
}

CategoryTreeModel::Node *CategoryTreeModel::nodeAt(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<Node *>(index.internalPointer()) : m_root.get();
}

const Category *CategoryTreeModel::categoryAt(const QModelIndex &index) const
{
    return index.isValid() ? &nodeAt(index)->category : nullptr;
}

QModelIndex CategoryTreeModel::indexOfId(const QString &id) const
{
    return id.isEmpty() ? QModelIndex() : findIn(m_root.get(), id);
}

QModelIndex CategoryTreeModel::findIn(const Node *node, const QString &id) const
{
    for (const std::unique_ptr<Node> &child : node->children) {
        if (child->category.id == id)
            return createIndex(child->row, 0, child.get());
        if (const QModelIndex found = findIn(child.get(), id); found.isValid())
            return found;
    }
    return {};
}

QModelIndex CategoryTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column < 0 || column >= ColumnCount || (parent.isValid() && parent.column() != 0))
        return {};
    const Node *node = nodeAt(parent);
    if (row < 0 || row >= int(node->children.size()))
        return {};
    return createIndex(row, column, node->children[size_t(row)].get());
}

QModelIndex CategoryTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid())
        return {};
    const Node *parent = nodeAt(child)->parent;
    if (!parent || parent == m_root.get())
        return {};
    return createIndex(parent->row, 0, const_cast<Node *>(parent));
}

int CategoryTreeModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return 0;
    return int(nodeAt(parent)->children.size());
}

int CategoryTreeModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant CategoryTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node *node = nodeAt(index);
    const Category &category = node->category;
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case Name: return category.name;
        case Type:
            switch (category.categoryType) {
            case CategoryType::Income: return tr("income");
            case CategoryType::Transfer: return tr("transfer");
            case CategoryType::Expense: break;
            }
            return tr("expense");
        case TaxCode: return category.isTaxRelevant ? category.taxCategory : QString();
        default: return {};
        }
    case Qt::FontRole:
        if (index.column() == Name && !node->children.empty()) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::ForegroundRole:
        if (index.column() == Type && category.categoryType == CategoryType::Income)
            return QColor(0, 136, 0);
        return {};
    default: return {};
    }
}

QVariant CategoryTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name: return tr("Category");
    case Type: return tr("Type");
    case TaxCode: return tr("Tax Code");
    default: return {};
    }
}
