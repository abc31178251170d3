#pragma once

#include "core/AppState.h"
// What a screen test reaches through the AppState, so that it needs no list of its own.
#include "data/AccountRepository.h"
#include "data/CategoryRepository.h"
#include "data/Database.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/SplitLineRepository.h"
#include "data/TransactionRepository.h"

#include <QTemporaryDir>

#include <memory>

// The program's AppState over a data directory of its own, never the user's; a fresh one each time.
class TempAppState {
public:
    TempAppState();

    // False when the directory or the database could not be made.
    bool ok() const { return m_ok; }
    AppState *get() const { return m_state.get(); }
    AppState *operator->() const { return m_state.get(); }
    QString directory() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<AppState> m_state;
    bool m_ok = false;
};
