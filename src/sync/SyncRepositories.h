#pragma once

class AccountRepository;
class CategoryRepository;
class PreferencesRepository;
class ReconciliationRepository;
class RecurringRepository;
class TransactionRepository;

// The tables a sync cycle reads and writes, borrowed from AppState.
struct SyncRepositories {
    AccountRepository *accounts = nullptr;
    TransactionRepository *transactions = nullptr;
    CategoryRepository *categories = nullptr;
    RecurringRepository *recurring = nullptr;
    ReconciliationRepository *reconciliations = nullptr;
    PreferencesRepository *preferences = nullptr;
};
