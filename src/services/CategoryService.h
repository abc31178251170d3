#pragma once

#include <QHash>
#include <QObject>
#include <QString>

class CategoryRepository;

// Seeds the default category tree into an empty table. Names are translated first and identifiers
// made from the translated names, so two devices seeding in one language hold the same rows.
class CategoryService : public QObject {
    Q_OBJECT
public:
    explicit CategoryService(CategoryRepository *categories, QObject *parent = nullptr);

    void seedDefaultsIfEmpty();
    void seedDefaults();

private:
    void addDefaultCategory(const QString &name, const QString &typeWord, const QString &parentId,
                            bool isTaxRelevant, const QString &taxCategory);

    CategoryRepository *m_categories = nullptr;
    QHash<QString, QString> m_nameToId;
    QHash<QString, QString> m_idToName;
};
