#include "support/SyncFixture.h"

#include <QJsonDocument>
#include <QTest>

bool SyncFixture::open()
{
    if (!m_db.open())
        return false;
    Database *d = m_db.database();
    accounts = std::make_unique<AccountRepository>(d);
    transactions = std::make_unique<TransactionRepository>(d);
    categories = std::make_unique<CategoryRepository>(d);
    recurring = std::make_unique<RecurringRepository>(d);
    reconciliations = std::make_unique<ReconciliationRepository>(d);
    preferences = std::make_unique<PreferencesRepository>(d);
    return true;
}

SyncRepositories SyncFixture::repositories() const
{
    return {accounts.get(),  transactions.get(),    categories.get(),
            recurring.get(), reconciliations.get(), preferences.get()};
}

namespace JsonCompare {

static const char *typeName(QJsonValue::Type t)
{
    switch (t) {
    case QJsonValue::Null: return "null";
    case QJsonValue::Bool: return "bool";
    case QJsonValue::Double: return "number";
    case QJsonValue::String: return "string";
    case QJsonValue::Array: return "array";
    case QJsonValue::Object: return "object";
    default: return "undefined";
    }
}

bool sameObject(const QJsonObject &actual, const QJsonObject &expected, const QString &path)
{
    const QStringList keys = actual.keys(), wanted = expected.keys();
    if (keys != wanted) {
        QTest::qFail(qPrintable(QStringLiteral("keys of '%1' differ: %2 against %3")
                                    .arg(path, keys.join(u','), wanted.join(u','))),
                     __FILE__, __LINE__);
        return false;
    }
    for (const QString &key : keys) {
        const QJsonValue a = actual.value(key), e = expected.value(key);
        const QString where = path.isEmpty() ? key : path + u'.' + key;
        if (a.type() != e.type()) {
            QTest::qFail(qPrintable(QStringLiteral("'%1' is a %2, wanted a %3")
                                        .arg(where, QLatin1String(typeName(a.type())),
                                             QLatin1String(typeName(e.type())))),
                         __FILE__, __LINE__);
            return false;
        }
        if (e.isObject()) {
            if (!sameObject(a.toObject(), e.toObject(), where))
                return false;
        } else if (a != e) {
            QTest::qFail(qPrintable(QStringLiteral("'%1' is %2, wanted %3")
                                        .arg(where, a.toVariant().toString(), e.toVariant().toString())),
                         __FILE__, __LINE__);
            return false;
        }
    }
    return true;
}

QJsonObject parse(const char *json)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(QByteArray(json), &error);
    if (error.error != QJsonParseError::NoError)
        qFatal("bad JSON in a test: %s", qPrintable(error.errorString()));
    return doc.object();
}

} // namespace JsonCompare
