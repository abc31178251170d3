#include "core/Identifiers.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

class TstIdentifiers : public QObject {
    Q_OBJECT
private slots:
    void newIdIsBracelessRandomUuid()
    {
        static const QRegularExpression form(
            QStringLiteral("^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$"));
        QSet<QString> seen;
        for (int i = 0; i < 1000; ++i) {
            const QString id = newId();
            QVERIFY2(form.match(id).hasMatch(), qPrintable(id));
            seen.insert(id);
        }
        QCOMPARE(seen.size(), 1000);
    }

    // Expected values come from an independent UUID v5 implementation.
    void nameBasedIds()
    {
        const auto seeded = [](CategoryType type, const char *parent, const char *name) {
            return seededCategoryId(type, QString::fromUtf8(parent), QString::fromUtf8(name));
        };
        QCOMPARE(seeded(CategoryType::Expense, "", "Groceries"), "f80ec558-0a5d-59fd-bb97-1216bc91c991");
        // The same name under two parents.
        QCOMPARE(seeded(CategoryType::Expense, "Auto", "Maintenance"),
                 "96b28c2c-ce10-53cd-b9d7-a52bfcaf4cde");
        QCOMPARE(seeded(CategoryType::Expense, "Home", "Maintenance"),
                 "f1aca887-56b9-5446-9a57-b3b2e6511905");
        QCOMPARE(seeded(CategoryType::Income, "", "Salário"), "3125992d-bffc-5066-aa85-dd11cfc99e04");

        const QDate due(2026, 1, 31);
        QCOMPARE(recurringOccurrenceId(QStringLiteral("rule-1"), due, false),
                 "a4c92fa8-2417-591e-8527-9b72e9b4b91e");
        QCOMPARE(recurringOccurrenceId(QStringLiteral("rule-1"), due, true),
                 "e61df0da-b3b2-5207-8a5a-6090be5e023b");
    }
};

QTEST_GUILESS_MAIN(TstIdentifiers)
#include "tst_identifiers.moc"
