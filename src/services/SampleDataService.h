#pragma once

#include <QHash>
#include <QObject>
#include <QString>

class Database;

// A believable household for development and demonstrations: three accounts, 49 transactions over the
// last 60 days with two transfers, and three recurring rules, all with ids that begin with "sample-" so
// that they can be found and removed again. It writes straight to the tables.
class SampleDataService : public QObject {
    Q_OBJECT
public:
    explicit SampleDataService(Database *db, QObject *parent = nullptr);

    // Expects the default category tree; the caller checks hasSampleData() first. All or nothing.
    bool loadSampleData();
    // Removes the rows for good, children first; a sample account the user added rows to stays.
    void clearSampleData();
    bool hasSampleData() const;

private:
    QString categoryId(const char *parent, const char *name) const;

    Database *m_db = nullptr;
    // Only during a load: category ids by "name" and by "parent/name".
    QHash<QString, QString> m_categories;
};
