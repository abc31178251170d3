#include "support/ImportStore.h"
#include "support/Line.h"
#include "support/SpyText.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <optional>

namespace {

const QString kChecking = QStringLiteral("!Account\nNChecking\nTBank\n^\n!Type:Bank\n"
                                         "D1/5/2024\nT-100.00\nPLandlord\nMrent\nL[Savings]\n^\n"
                                         "D1/6/2024\nT-20.00\nPMarket\nLGroceries\n^\n");
const QString kSavings = QStringLiteral("!Account\nNSavings\nTBank\n^\n!Type:Bank\n"
                                        "D1/5/2024\nT100.00\nPLandlord\nL[Checking]\n^\n");

// Source key, target account, source key, target account...
QHash<QString, QString> map(std::initializer_list<QString> pairs)
{
    QHash<QString, QString> out;
    for (auto it = pairs.begin(); it != pairs.end(); it += 2)
        out.insert(*it, *(it + 1));
    return out;
}

} // namespace

class TstQifImport : public QObject {
    Q_OBJECT
    std::optional<ImportStore> m_s;

    ImportResult import(const QStringList &paths, const QHash<QString, QString> &accounts)
    {
        return m_s->service.importQifFiles(paths, accounts);
    }
    int count(const char *table) { return m_s->count(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)); }
    // A row and its link as one line: account, amount, payee, memo, destination, version, state, and the
    // account of a partner that links back.
    QString describe(const Transaction &t)
    {
        const auto partner = m_s->transactions.getById(t.transferLinkId);
        return line(t.accountId, t.amount, t.payee, "[" + t.memo + "]", ">" + t.transferDestAccountId,
                    "v" + QString::number(t.version), syncStatusToString(t.syncStatus),
                    partner && partner->transferLinkId == t.id ? partner->accountId : "-");
    }
    QStringList describeAll(const QString &accountId)
    {
        QStringList out = lines(m_s->rows(accountId), [this](const Transaction &t) { return describe(t); });
        out.sort();
        return out;
    }

private slots:
    void init()
    {
        m_s.emplace();
        QVERIFY(m_s->ok && m_s->accountsOk);
    }

    void sidesInTwoFilesLinkOnceThenAreDuplicates()
    {
        const QStringList paths{m_s->write("c.qif", kChecking), m_s->write("s.qif", kSavings)};
        // Account names match whatever their case.
        const auto accounts = map({"checking", "chk", "SAVINGS", "sav"});
        QCOMPARE(ImportStore::counts(import(paths, accounts)), "i3 d0 s0 m0 u0 t1 r0 f0 x0");
        QCOMPARE(describeAll("sav"), QStringList{"sav 10000 Landlord [] >chk v1 pending chk"});
        QCOMPARE(describeAll("chk"), (QStringList{"chk -10000 Landlord [rent] >sav v1 pending sav",
                                                  "chk -2000 Market [] > v1 pending -"}));

        const int categories = m_s->categories.count();
        // Paired in the work list, then both found to be duplicates.
        QCOMPARE(ImportStore::counts(import(paths, accounts)), "i0 d3 s0 m0 u0 t1 r0 f0 x0");
        QCOMPARE(count("transactions"), 3);
        QCOMPARE(m_s->categories.count(), categories);
    }

    // A transfer with no partner to link keeps the other side's name in its memo, and never links.
    void unlinkedTransfersLeaveAHint_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("savingsTarget");
        QTest::addColumn<int>("unmapped");
        QTest::addColumn<QStringList>("rows"); // the checking account's, sorted
        QString noMemo = kChecking;
        noMemo.remove(QStringLiteral("Mrent\n"));
        QTest::newRow("partner skipped")
            << kChecking + kSavings << "" << 1
            << QStringList{"chk -10000 Landlord [[→ Savings] rent] > v1 pending -",
                           "chk -2000 Market [] > v1 pending -"};
        QTest::newRow("partner skipped, no memo")
            << noMemo + kSavings << "" << 1
            << QStringList{"chk -10000 Landlord [[→ Savings]] > v1 pending -",
                           "chk -2000 Market [] > v1 pending -"};
        QTest::newRow("two sources on one target")
            << kChecking + kSavings << "chk" << 0
            << QStringList{"chk -10000 Landlord [[→ Savings] rent] > v1 pending -",
                           "chk -2000 Market [] > v1 pending -",
                           "chk 10000 Landlord [[→ Checking]] > v1 pending -"};
        QTest::newRow("to itself is a plain row")
            << "!Account\nNChecking\n^\n!Type:Bank\nD1/1/"
               "2024\nT500\nPOpening Balance\nMfirst\nL[checking]\n^\n"
            << "" << 0 << QStringList{"chk 50000 Opening Balance [first] > v1 pending -"};
        // With no payee, the bracket names the row.
        QTest::newRow("unknown account")
            << "!Account\nNChecking\n^\n!Type:Bank\nD1/1/2024\nT-5\nL[Brokerage]\n^\n"
            << "" << 0 << QStringList{"chk -500 Brokerage [[→ Brokerage]] > v1 pending -"};
    }

    void unlinkedTransfersLeaveAHint()
    {
        QFETCH(QString, text);
        QFETCH(QString, savingsTarget);
        QFETCH(int, unmapped);
        QFETCH(QStringList, rows);
        const ImportResult r =
            import({m_s->write("c.qif", text)}, map({"Checking", "chk", "Savings", savingsTarget}));
        QCOMPARE(ImportStore::counts(r),
                 QStringLiteral("i%1 d0 s0 m0 u%2 t0 r0 f0 x0").arg(rows.size()).arg(unmapped));
        QCOMPARE(describeAll("chk"), rows);
        QVERIFY(m_s->rows("sav").isEmpty());
    }

    void laterImportLinksRetroactively()
    {
        import({m_s->write("c.qif", kChecking)}, map({"Checking", "chk"}));
        Transaction old = m_s->rows("chk").last();
        QVERIFY(m_s->transactions.markSynced(old.id, QStringLiteral("server-1")));
        const QString savings = m_s->write("s.qif", kSavings);
        const auto accounts = map({"Savings", "sav", "Checking", "chk"});
        QCOMPARE(ImportStore::counts(import({savings}, accounts)), "i1 d0 s0 m0 u0 t1 r1 f0 x0");
        old = *m_s->transactions.getById(old.id);
        QCOMPARE(line(describe(old), old.serverId),
                 "chk -10000 Landlord [rent] >sav v2 pending sav server-1");
        QCOMPARE(describeAll("sav"), QStringList{"sav 10000 Landlord [] >chk v1 pending chk"});

        // A linked row is no candidate any more: the same transfer once more is a duplicate, and a
        // mirror of it on another day finds nothing to link to.
        const QString again =
            QString(kSavings).replace(QStringLiteral("D1/5/2024"), QStringLiteral("D1/9/2024"));
        QCOMPARE(ImportStore::counts(import({savings, m_s->write("s2.qif", again)}, accounts)),
                 "i1 d1 s0 m0 u0 t0 r0 f0 x0");
    }

    void equalTransfersPairInFileOrder()
    {
        // Two equal transfers a day, both sides in one file; a third on the checking side has no partner.
        const QString path = m_s->write(
            "both.qif",
            QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n"
                           "D3/1/2024\nT-50\nPOne\nL[Savings]\n^\nD3/1/2024\nT-50\nPTwo\nL[Savings]\n^\n"
                           "D3/1/2024\nT-50\nPThree\nL[Savings]\n^\n!Account\nNSavings\n^\n!Type:Bank\n"
                           "D3/1/2024\nT50\nPOne\nL[Checking]\n^\nD3/1/2024\nT50\nPTwo\nL[Checking]\n^\n"));
        QCOMPARE(ImportStore::counts(import({path}, map({"Checking", "chk", "Savings", "sav"}))),
                 "i5 d0 s0 m0 u0 t2 r0 f0 x0");
        for (const Transaction &t : m_s->rows("sav"))
            QCOMPARE(m_s->transactions.getById(t.transferLinkId)->payee, t.payee);
        QCOMPARE(count("transactions WHERE account_id = 'chk' AND memo LIKE '[→ Savings]%'"), 1);
    }

    void failedPartnerUpdateRollsEverythingBack()
    {
        import({m_s->write("c.qif", kChecking)}, map({"Checking", "chk"}));
        const int rows = count("transactions");
        const int categories = count("categories");
        QVERIFY(m_s->db.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON transactions "
                                            "BEGIN SELECT RAISE(ABORT, 'refused'); END")));
        // Rows before and after the link, a new category and a split: none of it may remain.
        const QString savings =
            m_s->write("s.qif", QStringLiteral("!Type:Cat\nNBrand New\n^\n!Account\nNSavings\n^\n!Type:Bank\n"
                                               "D1/4/2024\nT7\nPBefore\nLAnother New\nSBrand New\n$7\n^\n") +
                                    kSavings.mid(kSavings.indexOf(QStringLiteral("D1/5"))) +
                                    QStringLiteral("D1/7/2024\nT8\nPAfter\n^\n"));
        QSignalSpy progress(&m_s->service, &ImportService::importProgress);
        QSignalSpy changed(&m_s->transactions, &TransactionRepository::transactionsChanged);
        const auto accounts = map({"Savings", "sav", "Checking", "chk"});
        QCOMPARE(ImportStore::counts(import({savings}, accounts)), "i1 d0 s0 m0 u0 t0 r0 f0 x0 aborted");
        QCOMPARE(line(spyText(progress).section(' ', -1), changed.count(), count("transactions"),
                      count("categories"), count("split_lines"),
                      count("transactions_fts WHERE transactions_fts MATCH 'Before'"),
                      m_s->rows("chk").last().memo),
                 line("3,3", 0, rows, categories, 0, 0, "[→ Savings] rent"));

        // The database is usable afterwards, and the same import goes through once the refusal is gone.
        QVERIFY(m_s->db.exec(QStringLiteral("DROP TRIGGER refuse")));
        QCOMPARE(ImportStore::counts(import({savings}, accounts)), "i3 d0 s0 m0 u0 t1 r1 f0 x0");
        // The search index holds the new rows, and the old one under its new memo.
        const auto found = [this](const char *word) { return m_s->transactions.search(word, {}).size(); };
        QCOMPARE(line(found("Before"), found("Landlord"), found("rent")), "1 2 1");
    }

    void refusedRowIsCountedAndTheRestStays()
    {
        QVERIFY(
            m_s->db.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON transactions WHEN new.payee "
                                        "= 'Market' BEGIN SELECT RAISE(ABORT, 'refused'); END")));
        const QRegularExpression failed(QStringLiteral("^TransactionRepository::insert failed:"));
        QTest::ignoreMessage(QtWarningMsg, failed);
        QTest::ignoreMessage(QtWarningMsg, failed);
        QTest::ignoreMessage(QtWarningMsg,
                             "QIF import: insert failed for 2024-01-06 Market amount -2000 account chk");
        QTest::ignoreMessage(QtWarningMsg,
                             "QIF import: insert failed for 2024-01-07 Market amount -100 account chk");
        QCOMPARE(ImportStore::counts(
                     import({m_s->write("c.qif", kChecking + "D1/7/2024\nT-1\nPMarket\nSFood\n$-1\n^\n")},
                            map({"Checking", "chk"}))),
                 "i1 d0 s0 m0 u0 t0 r0 f2 x0");
        QCOMPARE(count("split_lines"), 0);
        QCOMPARE(m_s->payees("chk"), QStringList{"Landlord"});
    }

    void splitsAndCategories()
    {
        QVERIFY(m_s->categories.insert(Fixtures::category("food", "Food")));
        const QString path =
            m_s->write("c.qif", QStringLiteral("!Type:Cat\nNSalary\nI\n^\nNfood\nE\n^\nNSalary\nE\n^\n"
                                               "!Account\nNChecking\n^\n!Type:Bank\n"
                                               "D2/1/2024\nT-15\nPMarket\nL--Split--\n"
                                               "SFood\n$-10\nEBread\nShome\n$-5\nEsoap\n"
                                               "S\n$-1\nEstamp\n^\n"
                                               "D2/2/2024\nT3000\nPEmployer\nLSalary\n^\n"));
        // The table keeps no line without a category; the user is told how many went.
        QCOMPARE(ImportStore::counts(import({path}, map({"Checking", "chk"}))), "i2 d0 s0 m0 u0 t0 r0 f0 x1");
        const auto category = [this](const char *name) { return m_s->categories.getByName(name); };
        QCOMPARE(category("Salary")->categoryType, CategoryType::Income);
        QCOMPARE(category("food")->categoryType, CategoryType::Expense);
        QCOMPARE(category("home")->categoryType, CategoryType::Expense);
        QVERIFY(category("--Split--"));

        const QList<Transaction> rows = m_s->rows("chk");
        const Transaction &market = rows.last();
        QVERIFY(market.isSplit && !rows.first().isSplit);
        QCOMPARE(rows.first().categoryId, category("Salary")->id);
        QStringList lines;
        for (const SplitLine &line : m_s->splitLines.getForTransaction(market.id)) {
            lines << QStringLiteral("%1 %2 %3")
                         .arg(line.memo)
                         .arg(line.amount)
                         .arg(line.categoryId == "food" ? "food" : "other");
            QCOMPARE(line.createdAt, market.createdAt);
        }
        lines.sort();
        QCOMPARE(lines, (QStringList{"Bread -1000 food", "soap -500 other"}));
    }

    void headerlessFileMapsByPathAndNamesPayees()
    {
        const QString path = m_s->write(
            "bank.qif",
            QStringLiteral("!Type:Bank\nD1/1/2024\nT-5\nL[Savings]\n^\n"
                           "D1/2/2024\nT-6\n^\nD1/2/2024\nT-6\n^\nD1/3/2024\nT-7\nN101\n^\n"
                           "!Type:Invst\nD1/4/2024\nNBuy\nYACME\nT-100\n^\nD1/5/2024\nYACME\nT1\n^\n"));
        QCOMPARE(ImportStore::counts(import({path}, map({path, "chk", "Savings", "sav"}))),
                 "i5 d1 s0 m0 u0 t0 r0 f0 x0");
        QCOMPARE(m_s->payees("chk"),
                 (QStringList{"ACME", "Buy: ACME", "101", "Imported transaction", "Savings"}));
        // Without an account header the bracket can only leave a hint, even with the account mapped.
        QCOMPARE(m_s->rows("chk").last().memo, QStringLiteral("[→ Savings]"));
    }

    void noPathsAndUnreadableFiles()
    {
        const QString missing = m_s->files.filePath(QStringLiteral("missing.qif"));
        for (const QStringList &paths : {QStringList(), QStringList{missing}}) {
            QSignalSpy started(&m_s->service, &ImportService::importStarted);
            QSignalSpy progress(&m_s->service, &ImportService::importProgress);
            QCOMPARE(ImportStore::counts(import(paths, {})), "i0 d0 s0 m0 u0 t0 r0 f0 x0");
            QCOMPARE(spyText(started) + ' ' + spyText(progress), QStringLiteral("0 0,0"));
        }
        QVERIFY(m_s->service.analyzeQifFiles({missing}).sources.isEmpty());
    }

    void progressEveryHundredRecords()
    {
        QString text = QStringLiteral("!Account\nNChecking\n^\n!Type:Bank\n");
        for (int i = 0; i < 250; ++i)
            text += QStringLiteral("D1/1/2024\nT-%1\nPShop\n^\n").arg(i + 1);
        text += QStringLiteral("!Account\nNElsewhere\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n");
        QSignalSpy started(&m_s->service, &ImportService::importStarted);
        QSignalSpy progress(&m_s->service, &ImportService::importProgress);
        QSignalSpy changed(&m_s->transactions, &TransactionRepository::transactionsChanged);
        QCOMPARE(ImportStore::counts(import({m_s->write("big.qif", text)}, map({"Checking", "chk"}))),
                 "i250 d0 s0 m0 u1 t0 r0 f0 x0");
        // The register hears once, after the commit, not once a row.
        QCOMPARE(line(spyText(started), spyText(progress), spyText(changed)),
                 "251 100,251 200,251 251,251 chk");
    }

    void analysisListsEachSourceOnce()
    {
        const auto block = [](const char *name, const char *type) {
            return QStringLiteral("!Account\nN%1\n^\n!Type:%2\nD1/1/2024\nT1\n^\n").arg(name, type);
        };
        const QString first =
            m_s->write("first.qif", block("Checking", "Bank") + block("Holiday Savings", "Bank") +
                                        block("Visa", "CCard") + block("House", "Oth A"));
        const QString second = m_s->write("second.qif", block("CHECKING", "Bank") + block("Wallet", "Cash") +
                                                            block("Funds", "Invst"));
        const QString bare = m_s->write("bare.qif", "!Type:Bank\nD1/1/2024\nT1\n^\n");
        const QifAnalysis analysis = m_s->service.analyzeQifFiles({first, second, bare});
        QCOMPARE(analysis.transactionCount, 8);
        QCOMPARE(lines(analysis.sources,
                       [](const QifSourceAccount &s) {
                           return line(s.key.section('/', -1), s.suggestedType, s.displayName,
                                       s.noAccountHeader);
                       }),
                 (QStringList{"Checking 0 Checking 0", "Holiday Savings 1 Holiday Savings 0", "Visa 2 Visa 0",
                              "House 5 House 0", "Wallet 3 Wallet 0", "Funds 4 Funds 0",
                              "bare.qif 0 bare.qif (no account header) 1"}));
        QCOMPARE(analysis.sources.last().key, bare);
    }

    void fileWithANulIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        const QChar nul(0);
        QTest::newRow("in an account name")
            << QStringLiteral("!Account\nNChe%1cking\n^\n!Type:Bank\nD1/1/2024\nT-5\n^\n").arg(nul);
        QTest::newRow("in an amount") << QStringLiteral("!Type:Bank\nD1/1/2024\nT3%1.00\n^\n").arg(nul);
    }

    // Read on, the NUL would end up in a name or turn 3.00 into 0.00; the file is left out, the other stays.
    void fileWithANulIsRefused()
    {
        QFETCH(QString, text);
        const QString bad = m_s->write("bad.qif", text);
        const QString good = m_s->write("good.qif", kSavings);
        const QifAnalysis analysis = m_s->service.analyzeQifFiles({bad, good});
        QCOMPARE(analysis.sources.size(), 1);
        QCOMPARE(analysis.refusedFiles.size(), 1);
        QVERIFY(analysis.refusedFiles.first().contains(QStringLiteral("bad.qif")));
        const ImportResult r = import({bad, good}, map({bad, "chk", "Checking", "chk", "Savings", "sav"}));
        QCOMPARE(r.refusedFiles, analysis.refusedFiles);
        QCOMPARE(ImportStore::counts(r), "i1 d0 s0 m0 u0 t0 r0 f0 x0");
        QVERIFY(m_s->rows("chk").isEmpty());
    }
};

QTEST_GUILESS_MAIN(TstQifImport)
#include "tst_qifimport.moc"
