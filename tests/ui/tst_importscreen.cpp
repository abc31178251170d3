#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/ImportScreen.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
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
#include <QTest>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(ImportResult)

class TstImportScreen : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_screen.reset();
        m_app.reset();
        m_app.emplace();
        QVERIFY(m_app->ok());
        m_state = m_app->get();
    }
    void csvPreviewMapsAndImports()
    {
        QVERIFY(m_state->accounts()->insert(Fixtures::account("chk", "Checking")));
        QByteArray csv("Posted,Description,Amount,Note with a rather long header\n");
        for (int i = 1; i <= 7; ++i)
            csv += u"2024-01-0%1,Shop %1,-%1.00,n%1\n"_s.arg(i).toUtf8();
        const QString path = write(u"bank.csv"_s, csv);
        m_screen.emplace(m_state);
        m_screen->show();
        QVERIFY(child<QRadioButton>("csvRadio")->isChecked());
        QVERIFY(!shown("qifSection"));

        Prompt::setNextOpenFileNames({path});
        child<QPushButton>("browseButton")->click();
        QCOMPARE(Prompt::lastTitle(), u"Select File"_s);
        QCOMPARE(child<QLabel>("fileLabel")->text(), u"bank.csv"_s);
        auto *date = child<QComboBox>("dateColumnCombo");
        auto *memo = child<QComboBox>("memoColumnCombo");
        QCOMPARE(date->count(), 4);
        QCOMPARE(date->currentText(), u"Col 0: Posted"_s);
        QCOMPARE(child<QComboBox>("payeeColumnCombo")->currentData().toInt(), 1);
        QCOMPARE(child<QComboBox>("amountColumnCombo")->currentData().toInt(), 2);
        QCOMPARE(memo->itemText(0), u"(none)"_s);
        QCOMPARE(memo->itemData(0).toInt(), -1);
        QCOMPARE(memo->itemText(4), u"Col 3: Note with a rather l"_s);
        auto *preview = child<QTableWidget>("previewTable");
        QCOMPARE(preview->rowCount(), 5);
        QCOMPARE(preview->columnCount(), 4);
        QCOMPARE(preview->horizontalHeaderItem(3)->text(), u"Col 3"_s);
        QCOMPARE(preview->item(1, 1)->text(), u"Shop 1"_s);
        QCOMPARE(child<QComboBox>("dateFormatCombo")->itemText(0), u"Auto-detect"_s);
        QCOMPARE(child<QComboBox>("dateFormatCombo")->count(), 7);

        memo->setCurrentIndex(4);
        QSignalSpy completed(&*m_screen, &ImportScreen::importCompleted);
        child<QPushButton>("importButton")->click();
        QCOMPARE(resultShown(), u"Import complete!\n\n7 transaction(s) imported"_s);
        QCOMPARE(m_state->transactions()->getByAccount(u"chk"_s).first().memo, u"n7"_s);

        // The header row read as data fails its date.
        child<QPushButton>("doneButton")->click();
        QCOMPARE(completed.count(), 1);
        QCOMPARE(child<QLabel>("fileLabel")->text(), u"No file selected"_s);
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
    void csvWithoutAccountOffersToCreateOne()
    {
        const QString path = write(u"bank.csv"_s, "Date,Payee,Amount\n2024-02-01,Shop,-5\n");
        m_screen.emplace(m_state);
        Prompt::setNextOpenFileNames({path});
        child<QPushButton>("browseButton")->click();

        Prompt::setNextAnswer(QMessageBox::No);
        child<QPushButton>("importButton")->click();
        QCOMPARE(Prompt::lastTitle(), u"No target account"_s);
        QCOMPARE(Prompt::lastText(), u"Pick an account to import into, or create one now."_s);
        QVERIFY(m_state->accounts()->getAll().isEmpty());
        QCOMPARE(child<QStackedWidget>("")->currentIndex(), 0);

        Prompt::setNextAnswer(QMessageBox::Yes);
        Prompt::setNextDialogHandler([](QDialog *dialog) {
            dialog->findChild<QLineEdit *>(u"nameEdit"_s)->setText(u"Everyday"_s);
            dialog->findChild<QDoubleSpinBox *>(u"balanceSpin"_s)->setValue(250.0);
            return int(QDialog::Accepted);
        });
        child<QPushButton>("importButton")->click();
        const QList<Account> accounts = m_state->accounts()->getAll();
        QCOMPARE(accounts.size(), 1);
        QCOMPARE(accounts.first().name, u"Everyday"_s);
        QCOMPARE(accounts.first().startingBalance, 0);
        QCOMPARE(child<QComboBox>("accountCombo")->currentData().toString(), accounts.first().id);
        const QList<Transaction> rows = m_state->transactions()->getByAccount(accounts.first().id);
        QCOMPARE(rows.size(), 2);
        const Transaction &opening = rows.first().payee == u"Shop"_s ? rows.last() : rows.first();
        QCOMPARE(opening.payee, u"Opening Balance"_s);
        QCOMPARE(opening.amount, 25000);
        QVERIFY(opening.reconciled);
        QCOMPARE(resultShown(), u"Import complete!\n\n1 transaction(s) imported"_s);
    }
    void qifRowsOfferCreateSkipAndAccounts()
    {
        QVERIFY(m_state->accounts()->insert(Fixtures::account("s", "savings")));
        QVERIFY(m_state->accounts()->insert(Fixtures::account("v", "Visa")));
        const QString one = write(u"one.qif"_s, "!Account\nNChecking\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                                "!Account\nNSavings\n^\n!Type:Bank\nD1/1/2024\nT2\n^\n");
        const QString two = write(u"two.qif"_s, "!Account\nNchecking\n^\n!Type:Bank\nD1/2/2024\nT3\n^\n");
        const QString bare = write(u"bare.qif"_s, "!Type:Bank\nD1/3/2024\nT4\n^\n");
        m_screen.emplace(m_state);
        chooseQif({one, two, bare});
        QVERIFY(!shown("accountCombo"));
        QVERIFY(!shown("csvSection"));
        QCOMPARE(Prompt::lastTitle(), u"Select QIF File(s)"_s);
        QCOMPARE(child<QLabel>("fileLabel")->text(), u"3 file(s) selected"_s);
        QCOMPARE(child<QLabel>("fileLabel")->toolTip(),
                 QStringList({one, two, bare}).join(QLatin1Char('\n')));
        QVERIFY(shown("qifSection"));

        auto *layout = m_screen->findChild<QFormLayout *>(u"qifMapRowsLayout"_s);
        const QList<QComboBox *> combos = mappingCombos();
        QCOMPARE(combos.size(), 3);
        const auto label = [layout](int row) {
            return qobject_cast<QLabel *>(layout->itemAt(row, QFormLayout::LabelRole)->widget())->text();
        };
        QCOMPARE(label(0), u"Checking"_s);
        QCOMPARE(label(1), u"Savings"_s);
        QCOMPARE(label(2), u"bare.qif (no account header)"_s);
        QCOMPARE(combos.at(0)->itemText(0), u"\u2014 Create new account \"Checking\" \u2014"_s);
        QCOMPARE(combos.at(0)->itemText(1), u"\u2014 Skip these transactions \u2014"_s);
        QCOMPARE(combos.at(0)->count(), 4);
        QCOMPARE(combos.at(0)->currentIndex(), 0);
        QCOMPARE(combos.at(1)->currentData().toString(), u"s"_s);
        QCOMPARE(combos.at(2)->itemText(0), u"\u2014 Create new account \"bare.qif\" \u2014"_s);

        // Back to CSV empties the rows; choosing the same files again rebuilds them from today's accounts.
        child<QRadioButton>("csvRadio")->click();
        QVERIFY(mappingCombos().isEmpty());
        QVERIFY(!shown("qifSection"));
        QVERIFY(m_state->accounts()->insert(Fixtures::account("c", "CHECKING")));
        chooseQif({one, two});
        QCOMPARE(mappingCombos().size(), 2);
        QCOMPARE(mappingCombos().first()->currentData().toString(), u"c"_s);
    }
    void qifDefaultsCreateAccounts()
    {
        const QString bank =
            write(u"my.bank.qif"_s, "!Type:Bank\nD1/3/2024\nT-4\nPShop\n^\nD1/4/2024\nT-5\nL[Card]\n^\n");
        const QString card = write(u"card.qif"_s, "!Account\nNCard\nTCCard\n^\n!Type:CCard\n"
                                                  "D1/4/2024\nT5\nL[Elsewhere]\n^\n");
        m_screen.emplace(m_state);
        chooseQif({bank, card});
        QCOMPARE(mappingCombos().size(), 2);
        child<QPushButton>("importButton")->click();

        QHash<QString, Account> byName;
        for (const Account &a : m_state->accounts()->getAll())
            byName.insert(a.name, a);
        QCOMPARE(byName.size(), 2);
        QVERIFY(byName.contains(u"my"_s));
        QCOMPARE(byName.value(u"Card"_s).accountType, AccountType::CreditCard);
        QCOMPARE(byName.value(u"my"_s).accountType, AccountType::Checking);
        QCOMPARE(m_state->transactions()->getByAccount(byName.value(u"my"_s).id).size(), 2);
        QCOMPARE(resultShown(), u"Import complete!\n\n3 transaction(s) imported"_s);
    }
    void qifAllSkipped()
    {
        const QString path = write(u"two.qif"_s, "!Type:Memorized\nPRent\nT5\n^\n!Account\nNChecking\n^\n"
                                                 "!Type:Bank\nD1/2/2024\nT3\n^\nD1/2/2024\n^\n");
        m_screen.emplace(m_state);
        chooseQif({path});
        QCOMPARE(child<QLabel>("fileLabel")->text(), u"two.qif"_s);
        QCOMPARE(child<QLabel>("fileLabel")->toolTip(), path);
        const QList<QComboBox *> combos = mappingCombos();
        QCOMPARE(combos.size(), 1);
        combos.first()->setCurrentIndex(1);
        child<QPushButton>("importButton")->click();
        QCOMPARE(resultShown(),
                 QStringLiteral(
                     "Import complete!\n\n0 transaction(s) imported\n1 record(s) skipped (unparseable)\n"
                     "1 metadata record(s) skipped\n1 record(s) skipped (unmapped source account)"));
        QVERIFY(m_state->accounts()->getAll().isEmpty());
    }
    void importNeedsAFileAndSetsTheHeaderApart()
    {
        const QString path = write(u"bank.csv"_s, "Date,Payee,Amount\n2024-02-01,Shop,-5\n");
        m_screen.emplace(m_state);
        auto *import = child<QPushButton>("importButton");
        QVERIFY(!import->isEnabled());

        Prompt::setNextOpenFileNames({path});
        child<QPushButton>("browseButton")->click();
        QCOMPARE(Prompt::lastText(), Prompt::startDirectory());
        QVERIFY(import->isEnabled());
        // With the box ticked, the first row is no transaction and must not look like one.
        auto *preview = child<QTableWidget>("previewTable");
        QCOMPARE(preview->verticalHeaderItem(0)->text(), u"Header"_s);
        QCOMPARE(preview->verticalHeaderItem(1)->text(), u"1"_s);
        QVERIFY(preview->item(0, 0)->font().bold());
        child<QCheckBox>("headerCheck")->setChecked(false);
        QCOMPARE(preview->verticalHeaderItem(0)->text(), u"1"_s);
        QVERIFY(!preview->item(0, 0)->font().bold());

        child<QRadioButton>("qifRadio")->click();
        QVERIFY(!import->isEnabled());
    }
    void brokenFileIsRefusedWhenChosen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("CSV with a NUL")
            << u"a.csv"_s << QByteArrayLiteral("Date,Payee,Amount\n2024-02-01,Sh\0op,-5\n");
        QTest::newRow("CSV row of commas")
            << u"b.csv"_s << QByteArray(ImportService::kMaxCsvRowFields + 1, ',');
        QTest::newRow("QIF with a NUL")
            << u"c.qif"_s << QByteArrayLiteral("!Type:Bank\nD1/1/2024\nT3\0.00\n^\n");
    }
    void brokenFileIsRefusedWhenChosen()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const QString path = write(name, bytes);
        m_screen.emplace(m_state);
        if (name.endsWith(QLatin1String(".qif"))) {
            Prompt::setNextAnswer(QMessageBox::Ok);
            chooseQif({path});
        } else {
            Prompt::setNextOpenFileNames({path});
            Prompt::setNextAnswer(QMessageBox::Ok);
            child<QPushButton>("browseButton")->click();
        }
        QCOMPARE(Prompt::lastTitle(), u"File Not Imported"_s);
        QVERIFY(Prompt::lastText().contains(name));
        QCOMPARE(child<QLabel>("fileLabel")->text(), u"No file selected"_s);
        QVERIFY(!child<QPushButton>("importButton")->isEnabled());
        QVERIFY(mappingCombos().isEmpty());
    }
    void resultText_data()
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
        all.refusedFiles << u"\"x.qif\" was not imported."_s;
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
        QTest::newRow("no retroactive line")
            << batchOnly << 0
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
    void resultText()
    {
        QFETCH(ImportResult, result);
        QFETCH(int, unreadable);
        QFETCH(QString, text);
        QCOMPARE(ImportScreen::resultText(result, unreadable), text);
    }
    void menuOpensOneScreen()
    {
        MainWindow window(m_state);
        window.show();
        QAction *import = nullptr;
        for (QAction *action : window.menuBar()->actions().first()->menu()->actions()) {
            if (action->text() == u"&Import..."_s)
                import = action;
        }
        QVERIFY(import);
        QCOMPARE(import->shortcut(), QKeySequence(u"Ctrl+I"_s));
        import->trigger();
        auto *screen = window.findChild<ImportScreen *>();
        QVERIFY(screen);
        QVERIFY(screen->isVisible());
        QVERIFY(screen->isWindow());
        QCOMPARE(screen->windowTitle(), u"Import Transactions"_s);
        screen->close();
        import->trigger();
        QCOMPARE(window.findChildren<ImportScreen *>().size(), 1);
        QVERIFY(screen->isVisible());
    }

private:
    QString write(const QString &name, const QByteArray &bytes)
    {
        const QString path = QDir(m_app->directory()).filePath(name);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(bytes);
        return path;
    }
    template <typename T>
    T *child(const char *name) const
    {
        return m_screen->findChild<T *>(QString::fromLatin1(name));
    }
    bool shown(const char *name) const { return child<QWidget>(name)->isVisibleTo(&*m_screen); }
    QString resultShown() const { return child<QPlainTextEdit>("resultText")->toPlainText(); }
    QList<QComboBox *> mappingCombos() const
    {
        auto *layout = m_screen->findChild<QFormLayout *>(u"qifMapRowsLayout"_s);
        QList<QComboBox *> combos;
        for (int row = 0; layout && row < layout->rowCount(); ++row)
            combos << qobject_cast<QComboBox *>(layout->itemAt(row, QFormLayout::FieldRole)->widget());
        return combos;
    }
    void chooseQif(const QStringList &paths)
    {
        child<QRadioButton>("qifRadio")->click();
        Prompt::setNextOpenFileNames(paths);
        child<QPushButton>("browseButton")->click();
    }

    std::optional<TempAppState> m_app;
    AppState *m_state = nullptr;
    std::optional<ImportScreen> m_screen;
};

OMBREL_GUI_TEST_MAIN(TstImportScreen)
#include "tst_importscreen.moc"
