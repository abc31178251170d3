#pragma once

#include "core/Category.h"

#include <QAbstractItemModel>
#include <QList>

#include <memory>
#include <vector>

// The category tree for the categories screen, built from the flat list by parent id. A category
// whose parent is not in the list stands at the top, so nothing is lost from sight when a parent is
// deleted.
class CategoryTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Column { Name, Type, TaxCode, ColumnCount };

    explicit CategoryTreeModel(QObject *parent = nullptr);
    ~CategoryTreeModel() override;

    // Children keep the order of the list.
    void setCategories(const QList<Category> &categories);
    // Null for an invalid index.
    const Category *categoryAt(const QModelIndex &index) const;
    // Found depth-first; invalid when no node has the id.
    QModelIndex indexOfId(const QString &id) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Node {
        Category category;
        std::vector<std::unique_ptr<Node>> children;
        Node *parent = nullptr;
        int row = 0; // among the parent's children
    };

    Node *nodeAt(const QModelIndex &index) const;
    QModelIndex findIn(const Node *node, const QString &id) const;

    std::unique_ptr<Node> m_root;
};
