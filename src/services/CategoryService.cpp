#include "services/CategoryService.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/CategoryRepository.h"

#include <QCoreApplication>

namespace {

// The default tree in seeding order: each parent before its children. Names are translated when
// seeded, so they are marked here for the catalogue and looked up in this class's context. The marks
// are written out in full: lupdate does not see through a macro around them.
struct DefaultCategory {
    const char *name;
    const char *parent; // empty at the top level
    const char *type;
    bool isTaxRelevant;
    const char *taxCategory;
};

// clang-format off
constexpr DefaultCategory kDefaults[] = {
    {QT_TRANSLATE_NOOP("CategoryService", "Charitable Donations"),   "",                                                        "expense", true,  "charitable_contributions"},
    {QT_TRANSLATE_NOOP("CategoryService", "Medical Expenses"),       "",                                                        "expense", true,  "medical_dental"          },
    {QT_TRANSLATE_NOOP("CategoryService", "Business Expenses"),      "",                                                        "expense", true,  "business_expense"        },
    {QT_TRANSLATE_NOOP("CategoryService", "Home Office"),            QT_TRANSLATE_NOOP("CategoryService", "Business Expenses"), "expense", true,  "home_office"             },
    {QT_TRANSLATE_NOOP("CategoryService", "Education Expenses"),     "",                                                        "expense", true,  "education"               },
    {QT_TRANSLATE_NOOP("CategoryService", "State & Local Taxes"),    "",                                                        "expense", true,  "salt"                    },
    {QT_TRANSLATE_NOOP("CategoryService", "Mortgage Interest"),      "",                                                        "expense", true,  "mortgage_interest"       },
    {QT_TRANSLATE_NOOP("CategoryService", "Property Tax"),           "",                                                        "expense", true,  "schedule_a_property_tax" },
    {QT_TRANSLATE_NOOP("CategoryService", "Housing"),                "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Rent/Mortgage Payment"),  QT_TRANSLATE_NOOP("CategoryService", "Housing"),           "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Maintenance"),            QT_TRANSLATE_NOOP("CategoryService", "Housing"),           "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "HOA"),                    QT_TRANSLATE_NOOP("CategoryService", "Housing"),           "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Utilities"),              "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Electric"),               QT_TRANSLATE_NOOP("CategoryService", "Utilities"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Gas"),                    QT_TRANSLATE_NOOP("CategoryService", "Utilities"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Water"),                  QT_TRANSLATE_NOOP("CategoryService", "Utilities"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Internet"),               QT_TRANSLATE_NOOP("CategoryService", "Utilities"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Phone"),                  QT_TRANSLATE_NOOP("CategoryService", "Utilities"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Transportation"),         "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Gas/Fuel"),               QT_TRANSLATE_NOOP("CategoryService", "Transportation"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Car Payment"),            QT_TRANSLATE_NOOP("CategoryService", "Transportation"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Auto Insurance"),         QT_TRANSLATE_NOOP("CategoryService", "Transportation"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Maintenance"),            QT_TRANSLATE_NOOP("CategoryService", "Transportation"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Public Transit"),         QT_TRANSLATE_NOOP("CategoryService", "Transportation"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Groceries"),              "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Dining & Restaurants"),   "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Personal Care"),          "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Pets"),                   "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Subscriptions"),          "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Gifts"),                  "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Miscellaneous"),          "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),          "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Streaming"),              QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),     "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Movies"),                 QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),     "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Events"),                 QT_TRANSLATE_NOOP("CategoryService", "Entertainment"),     "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Shopping"),               "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Clothing"),               QT_TRANSLATE_NOOP("CategoryService", "Shopping"),          "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Electronics"),            QT_TRANSLATE_NOOP("CategoryService", "Shopping"),          "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Household"),              QT_TRANSLATE_NOOP("CategoryService", "Shopping"),          "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Insurance"),              "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Health"),                 QT_TRANSLATE_NOOP("CategoryService", "Insurance"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Life"),                   QT_TRANSLATE_NOOP("CategoryService", "Insurance"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Home/Renters"),           QT_TRANSLATE_NOOP("CategoryService", "Insurance"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Auto"),                   QT_TRANSLATE_NOOP("CategoryService", "Insurance"),         "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Fees & Charges"),         "",                                                        "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Bank Fees"),              QT_TRANSLATE_NOOP("CategoryService", "Fees & Charges"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "ATM Fees"),               QT_TRANSLATE_NOOP("CategoryService", "Fees & Charges"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Late Fees"),              QT_TRANSLATE_NOOP("CategoryService", "Fees & Charges"),    "expense", false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Salary / Wages"),         "",                                                        "income",  false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Interest Income"),        "",                                                        "income",  true,  "interest_income"         },
    {QT_TRANSLATE_NOOP("CategoryService", "Dividend Income"),        "",                                                        "income",  true,  "dividend_income"         },
    {QT_TRANSLATE_NOOP("CategoryService", "Rental Income"),          "",                                                        "income",  true,  "rental_income"           },
    {QT_TRANSLATE_NOOP("CategoryService", "Freelance / Consulting"), "",                                                        "income",  true,  "self_employment"         },
    {QT_TRANSLATE_NOOP("CategoryService", "Refunds"),                "",                                                        "income",  false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Gifts Received"),         "",                                                        "income",  false, ""                        },
    {QT_TRANSLATE_NOOP("CategoryService", "Other Income"),           "",                                                        "income",  false, ""                        },
};
// clang-format on

QString translated(const char *text)
{
    return *text ? QCoreApplication::translate("CategoryService", text) : QString();
}

} // namespace

CategoryService::CategoryService(CategoryRepository *categories, QObject *parent)
    : QObject(parent)
    , m_categories(categories)
{
}

void CategoryService::seedDefaultsIfEmpty()
{
    if (m_categories->count() != 0)
        return;
    seedDefaults();
}

void CategoryService::seedDefaults()
{
    m_nameToId.clear();
    m_idToName.clear();
    for (const DefaultCategory &entry : kDefaults) {
        // Parents are seeded first, so the map already knows them. Of the two "Maintenance" rows the
        // second overwrites the first there, which is harmless: neither has children.
        const QString parentId = *entry.parent ? m_nameToId.value(translated(entry.parent)) : QString();
        addDefaultCategory(translated(entry.name), QString::fromLatin1(entry.type), parentId,
                           entry.isTaxRelevant, QString::fromLatin1(entry.taxCategory));
    }
    m_nameToId.clear();
    m_idToName.clear();
}

void CategoryService::addDefaultCategory(const QString &name, const QString &typeWord,
                                         const QString &parentId, bool isTaxRelevant,
                                         const QString &taxCategory)
{
    const QString parentName = m_idToName.value(parentId);
    const CategoryType type = categoryTypeFromString(typeWord);

    Category category;
    category.id = seededCategoryId(type, parentName, name);
    category.name = name;
    category.categoryType = type;
    category.parentId = parentId;
    category.isTaxRelevant = isTaxRelevant;
    category.taxCategory = taxCategory;
    category.isDefault = true;
    category.version = 1;
    category.syncStatus = SyncStatus::Pending;
    category.createdAt = utcNow();
    category.updatedAt = category.createdAt;
    // A failed insert (say, the name was seeded once and soft-deleted since) is logged by the
    // repository; the rest of the tree still goes in, and nothing is undeleted.
    m_categories->insert(category);

    m_nameToId.insert(name, category.id);
    m_idToName.insert(category.id, name);
}
