#include "services/CategoryService.h"

#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/CategoryRepository.h"

#include <QCoreApplication>

namespace {

// The default tree in seeding order: each parent before its children. Names are translated when
// seeded, so they are marked here for the catalogue and looked up in this class's context.
struct DefaultCategory {
    const char *name;
    const char *parent; // empty at the top level
    const char *type;
    bool isTaxRelevant;
    const char *taxCategory;
};

#define CATEGORY(text) QT_TRANSLATE_NOOP("CategoryService", text)

constexpr DefaultCategory kDefaults[] = {
    {CATEGORY("Charitable Donations"),   "",                            "expense", true,  "charitable_contributions"},
    {CATEGORY("Medical Expenses"),       "",                            "expense", true,  "medical_dental"          },
    {CATEGORY("Business Expenses"),      "",                            "expense", true,  "business_expense"        },
    {CATEGORY("Home Office"),            CATEGORY("Business Expenses"), "expense", true,  "home_office"             },
    {CATEGORY("Education Expenses"),     "",                            "expense", true,  "education"               },
    {CATEGORY("State & Local Taxes"),    "",                            "expense", true,  "salt"                    },
    {CATEGORY("Mortgage Interest"),      "",                            "expense", true,  "mortgage_interest"       },
    {CATEGORY("Property Tax"),           "",                            "expense", true,  "schedule_a_property_tax" },
    {CATEGORY("Housing"),                "",                            "expense", false, ""                        },
    {CATEGORY("Rent/Mortgage Payment"),  CATEGORY("Housing"),           "expense", false, ""                        },
    {CATEGORY("Maintenance"),            CATEGORY("Housing"),           "expense", false, ""                        },
    {CATEGORY("HOA"),                    CATEGORY("Housing"),           "expense", false, ""                        },
    {CATEGORY("Utilities"),              "",                            "expense", false, ""                        },
    {CATEGORY("Electric"),               CATEGORY("Utilities"),         "expense", false, ""                        },
    {CATEGORY("Gas"),                    CATEGORY("Utilities"),         "expense", false, ""                        },
    {CATEGORY("Water"),                  CATEGORY("Utilities"),         "expense", false, ""                        },
    {CATEGORY("Internet"),               CATEGORY("Utilities"),         "expense", false, ""                        },
    {CATEGORY("Phone"),                  CATEGORY("Utilities"),         "expense", false, ""                        },
    {CATEGORY("Transportation"),         "",                            "expense", false, ""                        },
    {CATEGORY("Gas/Fuel"),               CATEGORY("Transportation"),    "expense", false, ""                        },
    {CATEGORY("Car Payment"),            CATEGORY("Transportation"),    "expense", false, ""                        },
    {CATEGORY("Auto Insurance"),         CATEGORY("Transportation"),    "expense", false, ""                        },
    {CATEGORY("Maintenance"),            CATEGORY("Transportation"),    "expense", false, ""                        },
    {CATEGORY("Public Transit"),         CATEGORY("Transportation"),    "expense", false, ""                        },
    {CATEGORY("Groceries"),              "",                            "expense", false, ""                        },
    {CATEGORY("Dining & Restaurants"),   "",                            "expense", false, ""                        },
    {CATEGORY("Personal Care"),          "",                            "expense", false, ""                        },
    {CATEGORY("Pets"),                   "",                            "expense", false, ""                        },
    {CATEGORY("Subscriptions"),          "",                            "expense", false, ""                        },
    {CATEGORY("Gifts"),                  "",                            "expense", false, ""                        },
    {CATEGORY("Miscellaneous"),          "",                            "expense", false, ""                        },
    {CATEGORY("Entertainment"),          "",                            "expense", false, ""                        },
    {CATEGORY("Streaming"),              CATEGORY("Entertainment"),     "expense", false, ""                        },
    {CATEGORY("Movies"),                 CATEGORY("Entertainment"),     "expense", false, ""                        },
    {CATEGORY("Events"),                 CATEGORY("Entertainment"),     "expense", false, ""                        },
    {CATEGORY("Shopping"),               "",                            "expense", false, ""                        },
    {CATEGORY("Clothing"),               CATEGORY("Shopping"),          "expense", false, ""                        },
    {CATEGORY("Electronics"),            CATEGORY("Shopping"),          "expense", false, ""                        },
    {CATEGORY("Household"),              CATEGORY("Shopping"),          "expense", false, ""                        },
    {CATEGORY("Insurance"),              "",                            "expense", false, ""                        },
    {CATEGORY("Health"),                 CATEGORY("Insurance"),         "expense", false, ""                        },
    {CATEGORY("Life"),                   CATEGORY("Insurance"),         "expense", false, ""                        },
    {CATEGORY("Home/Renters"),           CATEGORY("Insurance"),         "expense", false, ""                        },
    {CATEGORY("Auto"),                   CATEGORY("Insurance"),         "expense", false, ""                        },
    {CATEGORY("Fees & Charges"),         "",                            "expense", false, ""                        },
    {CATEGORY("Bank Fees"),              CATEGORY("Fees & Charges"),    "expense", false, ""                        },
    {CATEGORY("ATM Fees"),               CATEGORY("Fees & Charges"),    "expense", false, ""                        },
    {CATEGORY("Late Fees"),              CATEGORY("Fees & Charges"),    "expense", false, ""                        },
    {CATEGORY("Salary / Wages"),         "",                            "income",  false, ""                        },
    {CATEGORY("Interest Income"),        "",                            "income",  true,  "interest_income"         },
    {CATEGORY("Dividend Income"),        "",                            "income",  true,  "dividend_income"         },
    {CATEGORY("Rental Income"),          "",                            "income",  true,  "rental_income"           },
    {CATEGORY("Freelance / Consulting"), "",                            "income",  true,  "self_employment"         },
    {CATEGORY("Refunds"),                "",                            "income",  false, ""                        },
    {CATEGORY("Gifts Received"),         "",                            "income",  false, ""                        },
    {CATEGORY("Other Income"),           "",                            "income",  false, ""                        },
};

#undef CATEGORY

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
