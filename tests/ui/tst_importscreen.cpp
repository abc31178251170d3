#include "core/AppState.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "ui/AccountFormDialog.h"
#include "ui/ImportScreen.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

Q_DECLARE_METATYPE(ImportResult)

class TstImportScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void csvPreviewMapsAndImports();
    void csvWithoutAccountOffersToCreateOne();
    void qifRowsOfferCreateSkipAndAccounts();
    void qifDefaultsCreateAccounts();
    void qifAllSkipped();
    void importNeedsAFileAndSetsTheHeaderApart();
    void brokenFileIsRefusedWhenChosen_data();
    void brokenFileIsRefusedWhenChosen();
    void resultText_data();
    void resultText();
    void menuOpensOneScreen();

private:
    QString write(const QString &name, const QByteArray &bytes);
    template <typename T>
    T *child(const char *name) const
    {
        return m_screen->findChild<T *>(QString::fromLatin1(name));
    }
    QString resultShown() const { return child<QPlainTextEdit>("resultText")->toPlainText(); }
    QList<QComboBox *> mappingCombos() const;
    void chooseQif(const QStringList &paths);

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<ImportScreen> m_screen;
};

void TstImportScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
}

void TstImportScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

QString TstImportScreen::write(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

QList<QComboBox *> TstImportScreen::mappingCombos() const
{
    auto *layout = m_screen->findChild<QFormLayout *>(QStringLiteral("qifMapRowsLayout"));
    QList<QComboBox *> combos;
    for (int row = 0; layout && row < layout->rowCount(); ++row)
        combos << qobject_cast<QComboBox *>(layout->itemAt(row, QFormLayout::FieldRole)->widget());
    return combos;
}

void TstImportScreen::chooseQif(const QStringList &paths)
{
    child<QRadioButton>("qifRadio")->click();
    Prompt::setNextOpenFileNames(paths);
    child<QPushButton>("browseButton")->click();
}

void TstImportScreen::csvPreviewMapsAndImports()
{
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("chk"), QStringLiteral("Checking"))));
    QByteArray csv("Posted,Description,Amount,Note with a rather long header\n");
    for (int i = 1; i <= 7; ++i)
        csv += QStringLiteral("2024-01-0%1,Shop %1,-%1.00,n%1\n").arg(i).toUtf8();
    const QString path = write(QStringLiteral("bank.csv"), csv);
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    m_screen->show();
    QVERIFY(child<QRadioButton>("csvRadio")->isChecked());
    QVERIFY(!child<QWidget>("qifSection")->isVisibleTo(m_screen.get()));

    Prompt::setNextOpenFileNames({path});
    child<QPushButton>("browseButton")->click();
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Select File"));
    QCOMPARE(child<QLabel>("fileLabel")->text(), QStringLiteral("bank.csv"));
    auto *date = child<QComboBox>("dateColumnCombo");
    auto *memo = child<QComboBox>("memoColumnCombo");
    QCOMPARE(date->count(), 4);
    QCOMPARE(date->currentText(), QStringLiteral("Col 0: Posted"));
    QCOMPARE(child<QComboBox>("payeeColumnCombo")->currentData().toInt(), 1);
    QCOMPARE(child<QComboBox>("amountColumnCombo")->currentData().toInt(), 2);
    QCOMPARE(memo->itemText(0), QStringLiteral("(none)"));
    QCOMPARE(memo->itemData(0).toInt(), -1);
    QCOMPARE(memo->itemText(4), QStringLiteral("Col 3: Note with a rather l"));
    auto *preview = child<QTableWidget>("previewTable");
    QCOMPARE(preview->rowCount(), 5);
    QCOMPARE(preview->columnCount(), 4);
    QCOMPARE(preview->horizontalHeaderItem(3)->text(), QStringLiteral("Col 3"));
    QCOMPARE(preview->item(1, 1)->text(), QStringLiteral("Shop 1"));
    QCOMPARE(child<QComboBox>("dateFormatCombo")->itemText(0), QStringLiteral("Auto-detect"));
    QCOMPARE(child<QComboBox>("dateFormatCombo")->count(), 7);

    memo->setCurrentIndex(4);
    QSignalSpy completed(m_screen.get(), &ImportScreen::importCompleted);
    child<QPushButton>("importButton")->click();
    QCOMPARE(resultShown(), QStringLiteral("Import complete!\n\n7 transaction(s) imported"));
    QCOMPARE(m_state->transactions()->getByAccount(QStringLiteral("chk")).first().memo, QStringLiteral("n7"));

    // The header row read as data fails its date.
    child<QPushButton>("doneButton")->click();
    QCOMPARE(completed.count(), 1);
    QCOMPARE(child<QLabel>("fileLabel")->text(), QStringLiteral("No file selected"));
    QCOMPARE(child<QTableWidget>("previewTable")->rowCount(), 0);
    QVERIFY(resultShown().isEmpty());
    Prompt::setNextOpenFileNames({path});
    child<QPushButton>("browseButton")->click();
    child<QCheckBox>("headerCheck")->setChecked(false);
    child<QPushButton>("importButton")->click();
    QCOMPARE(resultShown(),
             QStringLiteral("Import complete!\n\n0 transaction(s) imported\n7 duplicate(s) skipped\n"
                            "1 record(s) skipped (unparseable)"));
}

void TstImportScreen::csvWithoutAccountOffersToCreateOne()
{
    const QString path = write(QStringLiteral("bank.csv"), "Date,Payee,Amount\n2024-02-01,Shop,-5\n");
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    Prompt::setNextOpenFileNames({path});
    child<QPushButton>("browseButton")->click();

    Prompt::setNextAnswer(QMessageBox::No);
    child<QPushButton>("importButton")->click();
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("No target account"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Pick an account to import into, or create one now."));
    QVERIFY(m_state->accounts()->getAll().isEmpty());
    QCOMPARE(child<QStackedWidget>("")->currentIndex(), 0);

    Prompt::setNextAnswer(QMessageBox::Yes);
    Prompt::setNextDialogHandler([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("nameEdit"))->setText(QStringLiteral("Everyday"));
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("balanceSpin"))->setValue(250.0);
        return int(QDialog::Accepted);
    });
    child<QPushButton>("importButton")->click();
    const QList<Account> accounts = m_state->accounts()->getAll();
    QCOMPARE(accounts.size(), 1);
    QCOMPARE(accounts.first().name, QStringLiteral("Everyday"));
    QCOMPARE(accounts.first().startingBalance, 0);
    QCOMPARE(child<QComboBox>("accountCombo")->currentData().toString(), accounts.first().id);
    const QList<Transaction> rows = m_state->transactions()->getByAccount(accounts.first().id);
    QCOMPARE(rows.size(), 2);
    const Transaction &opening = rows.first().payee == QStringLiteral("Shop") ? rows.last() : rows.first();
    QCOMPARE(opening.payee, QStringLiteral("Opening Balance"));
    QCOMPARE(opening.amount, 25000);
    QVERIFY(opening.reconciled);
    QCOMPARE(resultShown(), QStringLiteral("Import complete!\n\n1 transaction(s) imported"));
}

void TstImportScreen::qifRowsOfferCreateSkipAndAccounts()
{
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("s"), QStringLiteral("savings"))));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("v"), QStringLiteral("Visa"))));
    const QString one =
        write(QStringLiteral("one.qif"), "!Account\nNChecking\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                         "!Account\nNSavings\n^\n!Type:Bank\nD1/1/2024\nT2\n^\n");
    const QString two =
        write(QStringLiteral("two.qif"), "!Account\nNchecking\n^\n!Type:Bank\nD1/2/2024\nT3\n^\n");
    const QString bare = write(QStringLiteral("bare.qif"), "!Type:Bank\nD1/3/2024\nT4\n^\n");
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    chooseQif({one, two, bare});
    QVERIFY(!child<QComboBox>("accountCombo")->isVisibleTo(m_screen.get()));
    QVERIFY(!child<QWidget>("csvSection")->isVisibleTo(m_screen.get()));
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Select QIF File(s)"));
    QCOMPARE(child<QLabel>("fileLabel")->text(), QStringLiteral("3 file(s) selected"));
    QCOMPARE(child<QLabel>("fileLabel")->toolTip(), QStringList({one, two, bare}).join(QLatin1Char('\n')));
    QVERIFY(child<QWidget>("qifSection")->isVisibleTo(m_screen.get()));

    auto *layout = m_screen->findChild<QFormLayout *>(QStringLiteral("qifMapRowsLayout"));
    const QList<QComboBox *> combos = mappingCombos();
    QCOMPARE(combos.size(), 3);
    const auto label = [layout](int row) {
        return qobject_cast<QLabel *>(layout->itemAt(row, QFormLayout::LabelRole)->widget())->text();
    };
    QCOMPARE(label(0), QStringLiteral("Checking"));
    QCOMPARE(label(1), QStringLiteral("Savings"));
    QCOMPARE(label(2), QStringLiteral("bare.qif (no account header)"));
    QCOMPARE(combos.at(0)->itemText(0), QStringLiteral("\u2014 Create new account \"Checking\" \u2014"));
    QCOMPARE(combos.at(0)->itemText(1), QStringLiteral("\u2014 Skip these transactions \u2014"));
    QCOMPARE(combos.at(0)->count(), 4);
    QCOMPARE(combos.at(0)->currentIndex(), 0);
    QCOMPARE(combos.at(1)->currentData().toString(), QStringLiteral("s"));
    QCOMPARE(combos.at(2)->itemText(0), QStringLiteral("\u2014 Create new account \"bare.qif\" \u2014"));

    // Back to CSV empties the rows; choosing the same files again rebuilds them from today's accounts.
    child<QRadioButton>("csvRadio")->click();
    QVERIFY(mappingCombos().isEmpty());
    QVERIFY(!child<QWidget>("qifSection")->isVisibleTo(m_screen.get()));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("c"), QStringLiteral("CHECKING"))));
    chooseQif({one, two});
    QCOMPARE(mappingCombos().size(), 2);
    QCOMPARE(mappingCombos().first()->currentData().toString(), QStringLiteral("c"));
}

void TstImportScreen::qifDefaultsCreateAccounts()
{
    const QString bank = write(QStringLiteral("my.bank.qif"),
                               "!Type:Bank\nD1/3/2024\nT-4\nPShop\n^\nD1/4/2024\nT-5\nL[Card]\n^\n");
    const QString card = write(QStringLiteral("card.qif"), "!Account\nNCard\nTCCard\n^\n!Type:CCard\n"
                                                           "D1/4/2024\nT5\nL[Elsewhere]\n^\n");
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    chooseQif({bank, card});
    QCOMPARE(mappingCombos().size(), 2);
    child<QPushButton>("importButton")->click();

    QHash<QString, Account> byName;
    for (const Account &a : m_state->accounts()->getAll())
        byName.insert(a.name, a);
    QCOMPARE(byName.size(), 2);
    QVERIFY(byName.contains(QStringLiteral("my")));
    QCOMPARE(byName.value(QStringLiteral("Card")).accountType, AccountType::CreditCard);
    QCOMPARE(byName.value(QStringLiteral("my")).accountType, AccountType::Checking);
    QCOMPARE(m_state->transactions()->getByAccount(byName.value(QStringLiteral("my")).id).size(), 2);
    QCOMPARE(resultShown(), QStringLiteral("Import complete!\n\n3 transaction(s) imported"));
}

void TstImportScreen::qifAllSkipped()
{
    const QString path =
        write(QStringLiteral("two.qif"), "!Type:Memorized\nPRent\nT5\n^\n!Account\nNChecking\n^\n"
                                         "!Type:Bank\nD1/2/2024\nT3\n^\nD1/2/2024\n^\n");
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    chooseQif({path});
    QCOMPARE(child<QLabel>("fileLabel")->text(), QStringLiteral("two.qif"));
    QCOMPARE(child<QLabel>("fileLabel")->toolTip(), path);
    const QList<QComboBox *> combos = mappingCombos();
    QCOMPARE(combos.size(), 1);
    combos.first()->setCurrentIndex(1);
    child<QPushButton>("importButton")->click();
    QCOMPARE(
        resultShown(),
        QStringLiteral("Import complete!\n\n0 transaction(s) imported\n1 record(s) skipped (unparseable)\n"
                       "1 metadata record(s) skipped\n1 record(s) skipped (unmapped source account)"));
    QVERIFY(m_state->accounts()->getAll().isEmpty());
}

void TstImportScreen::importNeedsAFileAndSetsTheHeaderApart()
{
    const QString path = write(QStringLiteral("bank.csv"), "Date,Payee,Amount\n2024-02-01,Shop,-5\n");
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    auto *import = child<QPushButton>("importButton");
    QVERIFY(!import->isEnabled());

    Prompt::setNextOpenFileNames({path});
    child<QPushButton>("browseButton")->click();
    QCOMPARE(Prompt::lastText(), Prompt::startDirectory());
    QVERIFY(import->isEnabled());
    // With the box ticked, the first row is no transaction and must not look like one.
    auto *preview = child<QTableWidget>("previewTable");
    QCOMPARE(preview->verticalHeaderItem(0)->text(), QStringLiteral("Header"));
    QCOMPARE(preview->verticalHeaderItem(1)->text(), QStringLiteral("1"));
    QVERIFY(preview->item(0, 0)->font().bold());
    child<QCheckBox>("headerCheck")->setChecked(false);
    QCOMPARE(preview->verticalHeaderItem(0)->text(), QStringLiteral("1"));
    QVERIFY(!preview->item(0, 0)->font().bold());

    child<QRadioButton>("qifRadio")->click();
    QVERIFY(!import->isEnabled());
}

void TstImportScreen::brokenFileIsRefusedWhenChosen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("CSV with a NUL") << "a.csv"
                                    << QByteArrayLiteral("Date,Payee,Amount\n2024-02-01,Sh\0op,-5\n");
    QTest::newRow("CSV row of commas") << "b.csv" << QByteArray(ImportService::kMaxCsvRowFields + 1, ',');
    QTest::newRow("QIF with a NUL") << "c.qif" << QByteArrayLiteral("!Type:Bank\nD1/1/2024\nT3\0.00\n^\n");
}

void TstImportScreen::brokenFileIsRefusedWhenChosen()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = write(name, bytes);
    m_screen = std::make_unique<ImportScreen>(m_state.get());
    if (name.endsWith(QLatin1String(".qif"))) {
        Prompt::setNextAnswer(QMessageBox::Ok);
        chooseQif({path});
    } else {
        Prompt::setNextOpenFileNames({path});
        Prompt::setNextAnswer(QMessageBox::Ok);
        child<QPushButton>("browseButton")->click();
    }
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("File Not Imported"));
    QVERIFY(Prompt::lastText().contains(name));
    QCOMPARE(child<QLabel>("fileLabel")->text(), QStringLiteral("No file selected"));
    QVERIFY(!child<QPushButton>("importButton")->isEnabled());
    QVERIFY(mappingCombos().isEmpty());
}

void TstImportScreen::resultText_data()
{
    QTest::addColumn<ImportResult>("result");
    QTest::addColumn<int>("unreadable");
    QTest::addColumn<QString>("text");
    ImportResult all;
    all.imported = 12;
    all.transfersLinked = 3;
    all.retroactiveLinks = 1;
    all.duplicates = 4;
    all.skippedRecords = 5;
    all.metadataRecords = 6;
    all.unmappedRecords = 7;
    all.insertFailures = 8;
    all.splitLinesDropped = 9;
    all.refusedFiles << QStringLiteral("\"x.qif\" was not imported.");
    QTest::newRow("every line")
        << all << 0
        << QStringLiteral("Import complete!\n\n12 transaction(s) imported\n"
                          "3 transfer(s) linked across accounts\n"
                          "  (including 1 linked to previously imported row(s))\n"
                          "4 duplicate(s) skipped\n5 record(s) skipped (unparseable)\n"
                          "6 metadata record(s) skipped\n"
                          "7 record(s) skipped (unmapped source account)\n"
                          "8 record(s) skipped (database error \u2014 see log)\n"
                          "9 split line(s) left out (no category)\n\n\"x.qif\" was not imported.");
    ImportResult batchOnly;
    batchOnly.transfersLinked = 2;
    QTest::newRow("no retroactive line") << batchOnly << 0
                                         << QStringLiteral("Import complete!\n\n0 transaction(s) imported\n"
                                                           "2 transfer(s) linked across accounts");
    QTest::newRow("unreadable file") << ImportResult() << 1
                                     << QStringLiteral("Import complete!\n\n0 transaction(s) imported\n"
                                                       "1 file(s) could not be opened");
    ImportResult aborted = all;
    aborted.aborted = true;
    QTest::newRow("aborted") << aborted << 0
                             << QStringLiteral(
                                    "Import failed.\n\nA database error stopped the import and all "
                                    "changes were rolled back. No transactions were added.");
}

void TstImportScreen::resultText()
{
    QFETCH(ImportResult, result);
    QFETCH(int, unreadable);
    QFETCH(QString, text);
    QCOMPARE(ImportScreen::resultText(result, unreadable), text);
}

void TstImportScreen::menuOpensOneScreen()
{
    MainWindow window(m_state.get());
    window.show();
    QAction *import = nullptr;
    for (QAction *action : window.menuBar()->actions().first()->menu()->actions()) {
        if (action->text() == QStringLiteral("&Import..."))
            import = action;
    }
    QVERIFY(import);
    QCOMPARE(import->shortcut(), QKeySequence(QStringLiteral("Ctrl+I")));
    import->trigger();
    auto *screen = window.findChild<ImportScreen *>();
    QVERIFY(screen);
    QVERIFY(screen->isVisible());
    QVERIFY(screen->isWindow());
    QCOMPARE(screen->windowTitle(), QStringLiteral("Import Transactions"));
    screen->close();
    import->trigger();
    QCOMPARE(window.findChildren<ImportScreen *>().size(), 1);
    QVERIFY(screen->isVisible());
}

QTEST_MAIN(TstImportScreen)
#include "tst_importscreen.moc"
