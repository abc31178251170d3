#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class AppState;
class CategoryTreeModel;
class QLineEdit;
class QMenu;
class QModelIndex;
class QPoint;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;
struct Category;

// The category tree: add, add under, edit and delete, with a filter that keeps the parents of what
// it finds. The tree keeps its open branches over every change made here.
class CategoriesScreen : public QWidget {
    Q_OBJECT
public:
    explicit CategoriesScreen(AppState *state, QWidget *parent = nullptr);

    // Reloads the tree from the repository with the same branches open.
    void refresh();

    QTreeView *view() const { return m_tree; }
    CategoryTreeModel *model() const { return m_model; }
    // What the context menu offers at a place in the view (an invalid index for empty space).
    void fillContextMenu(QMenu *menu, const QModelIndex &proxyIndex);

private slots:
    void onCreateCategory();
    void onCreateSubcategory();
    void onEditCategory();
    void onDeleteCategory();

private:
    void setupUi();
    void onContextMenu(const QPoint &pos);
    void onSearchChanged(const QString &text);
    const Category *currentCategory() const;
    QStringList expandedIds() const;
    void collectExpanded(const QModelIndex &parent, QStringList *ids) const;

    AppState *m_state = nullptr;
    QLineEdit *m_searchEdit = nullptr;
    QPushButton *m_newButton = nullptr;
    QTreeView *m_tree = nullptr;
    CategoryTreeModel *m_model = nullptr;
    QSortFilterProxyModel *m_proxy = nullptr;
};
