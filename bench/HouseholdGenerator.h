#pragma once

#include "core/Account.h"
#include "core/Category.h"
#include "core/Reconciliation.h"
#include "core/RecurringTransaction.h"
#include "core/SplitLine.h"
#include "core/Transaction.h"

#include <QDate>
#include <QList>
#include <QString>

class Database;

// A made-up household with years of history, for benchmarks and tests that need volume. Everything
// it writes follows from the seed alone: ids, dates, payees, amounts and time stamps, never the
// clock, so two runs with one seed write the same rows. Only the seeded categories carry the time of
// the run, and their ids are fixed by their names.
class HouseholdGenerator {
public:
    struct Options {
        quint64 seed = 20240917;
        int accounts = 12;
        int years = 20;
        int transactions = 150000; // rows, both legs of a transfer counted
        int recurringRules = 60;
        int reconciliations = 100;
        // The share of rows in the first account, the one a register benchmark reads.
        int bigAccountPermille = 333;
        // The last day with rows; fixed rather than today, so the household does not move.
        QDate lastDate = QDate(2025, 6, 30);
    };

    struct Summary {
        bool ok = false;
        QString bigAccountId;
        int bigAccountRows = 0;
        int accounts = 0;
        int transactions = 0;
        int transferPairs = 0;
        int splitTransactions = 0;
        int splitLines = 0;
        int recurringRules = 0;
        int recurringRows = 0; // rows posted by a rule, both legs of a transfer counted
        int reconciliations = 0;
        int payees = 0;     // distinct payee names
        QString searchWord; // a word of the most frequent payee, lower case
    };

    // Where the rows go, in an order the foreign keys accept: accounts, rules, transactions each
    // followed by its split lines, reconciliations. A false result stops the run.
    class Sink {
    public:
        virtual ~Sink() = default;
        virtual bool begin() = 0;
        virtual bool addAccount(const Account &account) = 0;
        virtual bool addRecurring(const RecurringTransaction &rule) = 0;
        virtual bool addTransaction(const Transaction &transaction) = 0;
        virtual bool addSplitLine(const SplitLine &line) = 0;
        virtual bool addReconciliation(const Reconciliation &reconciliation) = 0;
        virtual bool commit() = 0;
    };

    // Seeds the default categories if the table is empty, then writes the household through the
    // connection with the statements the repositories use, all in one transaction.
    static Summary generate(Database *db, const Options &options);
    static Summary generate(Database *db) { return generate(db, Options()); }
    // The same household through another writer; categories are the live rows of the table.
    static Summary generate(Sink &sink, const QList<Category> &categories, const Options &options);
};
