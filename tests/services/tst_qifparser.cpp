// Reading what other programs wrote: QIF records, and the text helpers every import uses (decoding a
// file's bytes, and the transfer hint it leaves in a memo).

#include "services/ImportBytes.h"
#include "services/QifParser.h"
#include "services/TransferHint.h"

#include "support/Line.h"

#include <QTest>

Q_DECLARE_METATYPE(QifDateOrder)
Q_DECLARE_METATYPE(QifSection)
Q_DECLARE_METATYPE(QifAccountType)

class TstQifParser : public QObject {
    Q_OBJECT
private slots:

    void parseDate_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QifDateOrder>("order");
        QTest::addColumn<QDate>("expected");
        const auto month = QifDateOrder::MonthFirst;
        const auto day = QifDateOrder::DayFirst;
        const auto autoOrder = QifDateOrder::Auto;
        QTest::newRow("69 is 2069") << "1/2/69" << month << QDate(2069, 1, 2);
        QTest::newRow("70 is 1970") << "1/2/70" << month << QDate(1970, 1, 2);
        QTest::newRow("apostrophe, long year") << "2/10'2020" << month << QDate(2020, 2, 10);
        QTest::newRow("blanks everywhere") << " 3/ 5' 4" << month << QDate(2004, 3, 5);
        QTest::newRow("dots") << "10.18.23" << month << QDate(2023, 10, 18);
        QTest::newRow("dashes") << "10-18-2023" << month << QDate(2023, 10, 18);
        QTest::newRow("day first") << "15/8/13" << day << QDate(2013, 8, 15);
        QTest::newRow("auto, 13 reads day first") << "13/1/2024" << autoOrder << QDate(2024, 1, 13);
        QTest::newRow("auto, 12 reads month first") << "12/1/2024" << autoOrder << QDate(2024, 12, 1);
        QTest::newRow("iso") << "2024-03-15" << day << QDate(2024, 3, 15);
        QTest::newRow("padded four-digit year") << "1/2/0070" << month << QDate(1970, 1, 2);
        QTest::newRow("fourth piece ignored") << "1/2/2024/7" << month << QDate(2024, 1, 2);
        QTest::newRow("no such day") << "2/30/2024" << month << QDate();
        QTest::newRow("month 13 read day first") << "1/13/2024" << day << QDate();
        QTest::newRow("two pieces") << "1/2" << month << QDate();
        QTest::newRow("letters") << "Jan/2/2024" << month << QDate();
        QTest::newRow("empty") << "" << month << QDate();
        QTest::newRow("beyond an int") << "1/2/99999999999" << month << QDate();
        QTest::newRow("beyond four digits") << "1/2/10000" << month << QDate();
        QTest::newRow("year zero takes a century") << "0000/1/2" << month << QDate(2000, 1, 2);
    }

    void parseDate()
    {
        QFETCH(QString, value);
        QFETCH(QifDateOrder, order);
        QFETCH(QDate, expected);
        QCOMPARE(QifParser::parseDate(value, order), expected);
    }

    void parseAmount_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<qint64>("cents");
        const auto row = [](const char *name, const char *value, qint64 cents) {
            QTest::newRow(name) << QString::fromUtf8(value) << true << cents;
        };
        const auto fails = [](const char *name, const char *value) {
            QTest::newRow(name) << QString::fromUtf8(value) << false << qint64(0);
        };
        row("decimal point", "12.34", 1234);
        row("whole", "1500", 150000);
        row("thousands comma", "1,234", 123400);
        row("thousands dot", "1.234", 123400);
        row("three decimals read as a group", "1.005", 100500);
        row("leading mark is decimal", ".123", 12);
        row("millions", "1,234,567", 123456700);
        row("both marks", "2,345.00", 234500);
        row("both marks, comma decimal", "1.234,56", 123456);
        row("group marks unchecked with both", "1,2,3.50", 12350);
        row("decimal comma", "12,50", 1250);
        row("four behind is decimal", "1,2345", 123);
        row("negative", "-30,020.00", -3002000);
        row("parentheses", "(12.00)", -1200);
        row("minus inside parentheses", "(-5.00)", 500);
        row("sign after symbol", "$-5", -500);
        row("plus", "+5", 500);
        row("euro and blank group", "€1 234,56", 123456);
        row("half away from zero", "1,000.125", 100013);
        row("negative half away from zero", "-1,000.125", -100013);
        row("trailing point", "5.", 500);
        for (const char *value : {"", "$", "-", ".", "()", "+-5", "5-", "=746.36", "1e5", "1234.567",
                                  "1234,567", "1.2.3", "1,234.5.6", "99999999999999999999", "abc"})
            fails(qPrintable(QStringLiteral("not \"%1\"").arg(value)), value);
    }

    void parseAmount()
    {
        QFETCH(QString, value);
        QFETCH(bool, ok);
        QFETCH(qint64, cents);
        const std::optional<qint64> amount = QifParser::parseAmount(value);
        QCOMPARE(amount.has_value(), ok);
        if (ok)
            QCOMPARE(*amount, cents);
    }

    void headers_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QifSection>("section");
        QTest::addColumn<QifAccountType>("type");
        QTest::newRow("bank") << "!Type:Bank" << QifSection::Transactions << QifAccountType::Bank;
        QTest::newRow("upper case") << "!TYPE:BANK" << QifSection::Transactions << QifAccountType::Bank;
        QTest::newRow("blanks") << "!Type: CCard " << QifSection::Transactions << QifAccountType::CreditCard;
        QTest::newRow("investment") << "!Type:Invst" << QifSection::Transactions
                                    << QifAccountType::Investment;
        QTest::newRow("cash") << "!Type:Cash" << QifSection::Transactions << QifAccountType::Cash;
        QTest::newRow("asset") << "!Type:Oth A" << QifSection::Transactions << QifAccountType::OtherAsset;
        QTest::newRow("liability") << "!Type:Oth L" << QifSection::Transactions
                                   << QifAccountType::OtherLiability;
        QTest::newRow("unheard of") << "!Type:Foo" << QifSection::Transactions << QifAccountType::Bank;
        QTest::newRow("categories") << "!Type:Cat" << QifSection::Categories << QifAccountType::Bank;
        QTest::newRow("memorized") << "!Type:Memorized" << QifSection::Metadata << QifAccountType::Bank;
        QTest::newRow("option") << "!Option:AutoSwitch" << QifSection::Metadata << QifAccountType::Bank;
        QTest::newRow("clear") << "!Clear:AutoSwitch" << QifSection::Metadata << QifAccountType::Bank;
        QTest::newRow("account") << "!Account" << QifSection::AccountBlock << QifAccountType::Bank;
        QTest::newRow("other") << "!Something" << QifSection::Unknown << QifAccountType::Bank;
    }

    void headers()
    {
        QFETCH(QString, line);
        QFETCH(QifSection, section);
        QFETCH(QifAccountType, type);
        QCOMPARE(QifParser::sectionOf(line), section);
        if (section == QifSection::Transactions)
            QCOMPARE(QifParser::accountTypeOf(line), type);

        // The type reaches the account of the records behind the header.
        const QifParseResult r =
            QifParser::parse(QStringLiteral("!Account\nNMine\n^\n%1\nD1/2/2024\nT5\n^\n").arg(line));
        if (section == QifSection::Transactions) {
            QCOMPARE(r.transactions.size(), 1);
            QCOMPARE(r.accounts.size(), 1);
            QCOMPARE(r.accounts.first().type, type);
        }
    }

    void metadataSections_data()
    {
        QTest::addColumn<QString>("header");
        for (const char *header : {"!Type:Memorized", "!Type:Tag", "!Type:Security", "!Type:Prices",
                                   "!Type:Class", "!Option:AutoSwitch"})
            QTest::newRow(header) << QString::fromLatin1(header);
    }

    void metadataSections()
    {
        QFETCH(QString, header);
        const QifParseResult r = QifParser::parse(
            header +
            QStringLiteral(
                "\nNOne\nD1/2/2024\nT5\n^\nNTwo\n^\n^\nNThree\nT-1\n^\n!Type:Bank\nD1/3/2024\nT7\n^"));
        QCOMPARE(r.metadataRecords, 3);
        QCOMPARE(r.transactions.size(), 1);
        QCOMPARE(r.transactions.first().amount, 700);
        QCOMPARE(r.skippedRecords, 0);
    }

    void dateOrderComesFromAnyLine()
    {
        // The deciding line stands below the first record and in a category record.
        const QifParseResult r = QifParser::parse(
            QStringLiteral("!Type:Bank\nD1/2/2024\nT1\n^\n!Type:Cat\nNFood\nD13/1/2024\n^\n"));
        QCOMPARE(r.dateOrder, QifDateOrder::DayFirst);
        QCOMPARE(r.transactions.first().date, QDate(2024, 2, 1));

        const QifParseResult month = QifParser::parse(QStringLiteral("D1/13/2024\nT1\n^\nD2/1/2024\nT1\n^"));
        QCOMPARE(month.dateOrder, QifDateOrder::MonthFirst);
        QCOMPARE(month.transactions.at(1).date, QDate(2024, 2, 1));

        // An order given by the caller stands.
        QCOMPARE(QifParser::parse(QStringLiteral("D13/1/2024\nT1\n^"), QifDateOrder::MonthFirst).dateOrder,
                 QifDateOrder::MonthFirst);
        QCOMPARE(QifParser::parse(QString()).dateOrder, QifDateOrder::MonthFirst);
    }

    void dateOrderIgnoresYearFirstAndTheSecondNumber()
    {
        const QifParseResult r = QifParser::parse(
            QStringLiteral("D2024-03-15\nT1\n^\nD2024/3/25\nT1\n^\nD1/31/2024\nT1\n^\nd13/1/2024\n"));
        QCOMPARE(r.dateOrder, QifDateOrder::MonthFirst);
        QCOMPARE(r.transactions.size(), 3);
        QCOMPARE(r.transactions.at(2).date, QDate(2024, 1, 31));
    }

    void recordsNeedDateAndAmount()
    {
        const QifParseResult r = QifParser::parse(QStringLiteral(
            "PBefore any header\nD1/5/2024\nT-5.00\n^\n"
            "!Type:Bank\nPNo amount\nD1/5/2024\n^\nPNo date\nT1\n^\nPBad date\nD2/30/2024\nT1\n^\n"
            "PBad amount\nD1/5/2024\nTabc\n^\n^\n^\nXunknown letters only\n^\nPLast\nD1/6/2024\nT2"));
        const QifTransaction &first = r.transactions.first();
        QCOMPARE(line(r.skippedRecords, r.transactions.size(), first.payee, first.amount,
                      "[" + first.sourceAccount + "]", r.transactions.last().payee, r.accounts.size()),
                 "4 2 Before any header -500 [] Last 0");
    }

    void splits()
    {
        const QifParseResult r =
            QifParser::parse(QStringLiteral("!Type:Bank\nD1/5/2024\nT-15.00\nPMarket\n"
                                            "SFood\n$-10.00\nEBread\nSHome\n$-5.00\n"
                                            "S[Savings]\n$bad\nEout\nMmemo after splits\n^\n"
                                            "D1/6/2024\n$-3\nEno split open\nT-4\n^"));
        QCOMPARE(r.transactions.size(), 2);
        const QifTransaction &t = r.transactions.first();
        QCOMPARE(t.amount, -1500);
        QCOMPARE(t.memo, QStringLiteral("memo after splits"));
        QStringList splits;
        for (const QifSplit &split : t.splits)
            splits << QStringLiteral("%1[%2] %3 %4")
                          .arg(split.category, split.transferAccount)
                          .arg(split.amount)
                          .arg(split.memo);
        QCOMPARE(splits.join('|'), QStringLiteral("Food[] -1000 Bread|Home[] -500 |[Savings] 0 out"));
        // A "$" before any split is the record's amount, and a later "T" replaces it.
        QCOMPARE(r.transactions.at(1).amount, -400);
        QVERIFY(r.transactions.at(1).splits.isEmpty());
    }

    void categoryField_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("transfer");
        // clang-format off
    QTest::newRow("plain")               << "LGroceries"          << "Groceries" << "";
    QTest::newRow("class dropped")       << "LGroceries/Family"   << "Groceries" << "";
    QTest::newRow("colon kept")          << "LAuto:Fuel"          << "Auto:Fuel" << "";
    QTest::newRow("transfer")            << "L[Savings]"          << ""          << "Savings";
    QTest::newRow("transfer with class") << "L[Savings]/Vacation" << ""          << "Savings";
    QTest::newRow("blanks in brackets")  << "L[ Livret bleu ]"    << ""          << "Livret bleu";
    QTest::newRow("open bracket")        << "L[Savings"           << "[Savings"  << "";
    QTest::newRow("empty")               << "L"                   << ""          << "";
        // clang-format on
    }

    void categoryField()
    {
        QFETCH(QString, line);
        QFETCH(QString, category);
        QFETCH(QString, transfer);
        const QifParseResult r =
            QifParser::parse(QStringLiteral("D1/5/2024\nT1\n%1\nS%2\n^").arg(line, line.mid(1)));
        const QifTransaction &t = r.transactions.first();
        QCOMPARE(::line(r.transactions.size(), t.category, t.transferAccount, t.splits.first().category,
                        t.splits.first().transferAccount),
                 ::line(1, category, transfer, category, transfer));
    }

    void clearedMarks_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("cleared");
        QTest::addColumn<bool>("reconciled");
        QTest::newRow("star") << "C*" << true << false;
        QTest::newRow("c") << "Cc" << true << false;
        QTest::newRow("X") << "CX" << true << false;
        QTest::newRow("R") << "CR" << true << true;
        QTest::newRow("r") << "Cr" << true << true;
        QTest::newRow("empty") << "C" << false << false;
        QTest::newRow("other") << "C?" << false << false;
    }

    void clearedMarks()
    {
        QFETCH(QString, line);
        QFETCH(bool, cleared);
        QFETCH(bool, reconciled);
        const QifParseResult r = QifParser::parse(QStringLiteral("D1/5/2024\nT1\n%1\n^").arg(line));
        QCOMPARE(::line(r.transactions.first().cleared, r.transactions.first().reconciled),
                 ::line(cleared, reconciled));
    }

    void accountBlocks()
    {
        const QifParseResult r = QifParser::parse(QStringLiteral(
            "!Option:AutoSwitch\n!Account\nNChecking\nTBank\n^\nNUnused\nD2/5/92\n^\nNVisa\nTCCard\n^\n"
            "!Clear:AutoSwitch\n!Type:CCard\nD1/5/2024\nT-20\n^\n"
            "!Account\nNChecking\n^\n!Type:Bank\nD1/6/2024\nT100\nL[Visa]\n^\n"
            "!Account\nNCHECKING\n^\n!Type:Cash\nD1/7/2024\nT5\n^\n"
            "!Account\n^\nD1/8/2024\nT9\n^"));
        QCOMPARE(r.metadataRecords, 0);
        QStringList records, accounts;
        for (const QifTransaction &t : r.transactions)
            records << t.sourceAccount + '>' + t.transferAccount;
        QCOMPARE(records.join(' '), QStringLiteral("Visa> Checking>Visa CHECKING>"));
        // Names enter by their first kept record, once whatever the case, with the type then in force;
        // the last record sits in an account block, where fields are not read.
        for (const QifAccountRef &a : r.accounts)
            accounts << a.name + ':' + QString::number(int(a.type));
        QCOMPARE(accounts, (QStringList{"Visa:" + QString::number(int(QifAccountType::CreditCard)),
                                        "Checking:" + QString::number(int(QifAccountType::Bank))}));
    }

    void categories()
    {
        const QifParseResult r =
            QifParser::parse(QStringLiteral("!Type:Cat\nNSalary\nDPay\nI\n^\nNFood\nE\n^\n"
                                            "NFood\n^\nDno name\n^\n!Type:Bank\nD1/2/2024\nT1\n"));
        QCOMPARE(
            lines(r.categories, [](const QifCategory &c) { return line(c.name, c.description, c.isIncome); }),
            (QStringList{"Salary Pay 1", "Food  0", "Food  0"}));
        QCOMPARE(r.transactions.size(), 1);
    }

    void lineEndsMarksAndBlankLines()
    {
        const QString text =
            QStringLiteral("\uFEFF!Type:Bank\r\n\r\nD1/2/2024\r\nT1\r\n^\rD1/3/2024\r  T2  \r^\n"
                           "\uFEFF\r   PSpaced  \nD1/4/2024\nT3\nd1/9/2024\n");
        const QifParseResult r = QifParser::parse(text);
        QCOMPARE(line(r.transactions.size(), r.transactions.at(1).amount, r.transactions.at(2).payee,
                      r.transactions.at(2).date),
                 "3 200 Spaced 2024-01-04");
        QVERIFY(QifParser::parse(QString()).transactions.isEmpty());
    }

    void decodeImportBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("ascii") << QByteArray("!Type:Bank\n") << QStringLiteral("!Type:Bank\n");
        QTest::newRow("utf-8") << QByteArray("Caf\xC3\xA9 \xE2\x82\xAC") << QStringLiteral("Café €");
        QTest::newRow("utf-8, four bytes") << QByteArray("\xF0\x9F\x98\x80") << QStringLiteral("\U0001F600");
        QTest::newRow("utf-8 mark") << QByteArray("\xEF\xBB\xBFTag") << QStringLiteral("Tag");
        QTest::newRow("utf-8 mark only") << QByteArray("\xEF\xBB\xBF") << QString();
        QTest::newRow("utf-16 le") << QByteArray("\xFF\xFEO\0k\0\xE9\0", 8) << QStringLiteral("Oké");
        QTest::newRow("utf-16 be") << QByteArray("\xFE\xFF\0O\0k\0\xE9", 8) << QStringLiteral("Oké");
        QTest::newRow("iso-8859-1") << QByteArray("C\xE2"
                                                  "ble Electricit\xE9")
                                    << QStringLiteral("Câble Electricité");
        QTest::newRow("1252 euro and dash") << QByteArray("\x80"
                                                          "20 \x97 \x93x\x94")
                                            << QStringLiteral("€20 — “x”");
        QTest::newRow("1252 unassigned")
            << QByteArray("\x81\x8D\x8F\x90\x9D") << QStringLiteral("\u0081\u008D\u008F\u0090\u009D");
        QTest::newRow("overlong") << QByteArray("\xC0\xAF") << QStringLiteral("À¯");
        QTest::newRow("overlong three bytes") << QByteArray("\xE0\x80\xAF") << QStringLiteral("à€¯");
        QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << QStringLiteral("í\u00A0€");
        QTest::newRow("above U+10FFFF") << QByteArray("\xF4\x90\x80\x80") << QStringLiteral("ô\u0090€€");
        QTest::newRow("cut short at the end") << QByteArray("ab\xE2\x82") << QStringLiteral("abâ‚");
        QTest::newRow("lone continuation") << QByteArray("a\x80") << QStringLiteral("a€");
        QTest::newRow("five-byte lead") << QByteArray("\xF8\x88\x80\x80\x80") << QStringLiteral("øˆ€€€");
        QTest::newRow("nul kept") << QByteArray("a\0b", 3)
                                  << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
    }

    void decodeImportBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(::decodeImportBytes(bytes), text);
    }

    void makeTransferHint()
    {
        QCOMPARE(QStringList({::makeTransferHint("Savings"), memoWithTransferHint("Savings", QString()),
                              memoWithTransferHint("Savings", "rent"), memoWithTransferHint("100%1", "%2")}),
                 QStringList({"[→ Savings]", "[→ Savings]", "[→ Savings] rent", "[→ 100%1] %2"}));
    }

    void parseTransferHint_data()
    {
        QTest::addColumn<QString>("memo");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("hint");
        QTest::addColumn<QString>("rest");
        const auto row = [](const char *name, const char *memo, const char *hint = nullptr,
                            const char *rest = "") {
            QTest::newRow(name) << QString::fromUtf8(memo) << bool(hint) << QString::fromUtf8(hint)
                                << QString::fromUtf8(rest);
        };
        row("with memo", "[\u2192 Savings] rent", "Savings", "rent");
        row("alone", "[\u2192 Savings]", "Savings");
        row("one blank dropped", "[\u2192 Savings]  two", "Savings", " two");
        row("no blank behind", "[\u2192 Savings]rest", "Savings", "rest");
        row("blanks in the name kept", "[\u2192  Livret bleu ]", " Livret bleu ");
        row("first bracket ends it", "[\u2192 A]B] x", "A", "B] x");
        row("empty hint", "[\u2192 ]");
        row("no blank in the prefix", "[\u2192Savings]");
        row("no closing bracket", "[\u2192 Savings");
        row("not at the head", "x [\u2192 Savings]");
        row("plain bracket", "[Savings]");
        row("empty", "");
    }

    void parseTransferHint()
    {
        QFETCH(QString, memo);
        QFETCH(bool, found);
        QFETCH(QString, hint);
        QFETCH(QString, rest);
        const std::optional<TransferHint> parsed = ::parseTransferHint(memo);
        QCOMPARE(parsed.has_value(), found);
        if (found) {
            QCOMPARE(QStringList({parsed->hint, parsed->rest}), QStringList({hint, rest}));
            // What the import writes, it reads back.
            QCOMPARE(::parseTransferHint(memoWithTransferHint(hint, QStringLiteral("m")))->rest,
                     QStringLiteral("m"));
        }
    }
};

QTEST_GUILESS_MAIN(TstQifParser)
#include "tst_qifparser.moc"
