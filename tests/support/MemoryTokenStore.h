#pragma once

#include "account/TokenStore.h"

#include <QHash>

// A token store that keeps what it is given in memory, for tests that must not touch the keyring.
class MemoryTokenStore : public HalcAccount::TokenStore {
public:
    explicit MemoryTokenStore(QHash<QString, QString> *entries)
        : m_entries(entries)
    {
    }
    std::optional<QString> load(const QString &key) override
    {
        if (!m_entries->contains(key))
            return std::nullopt;
        return m_entries->value(key);
    }
    bool store(const QString &key, const QString &value) override
    {
        m_entries->insert(key, value);
        return true;
    }
    bool remove(const QString &key) override { return m_entries->remove(key) > 0; }
    void clear() override { m_entries->clear(); }

private:
    QHash<QString, QString> *m_entries; // owned by the test, so that it outlives the manager
};
