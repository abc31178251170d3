#include "ui/ImportScreen.h"

#include "services/ImportService.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/MainWindow.h"
#include "ui/Prompt.h"

#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(ImportResult)

class TstImportScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_app;
    std::optional<ImportScreen> m_screen;

    AppState *s() const { return m_app->get(); }
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(QDir(m_app->directory()).filePath(name));
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(bytes);
        return file.fileName();
    }
    template <typename T>
    T *c(const char *name) const
    {
        return child<T>(&*m_screen, name);
    }
    bool shown(const char *name) const { return c<QWidget>(name)->isVisibleTo(&*m_screen); }
    QString result() const { return c<QPlainTextEdit>("resultText")->toPlainText(); }
    void browse(const QStringList &paths)
    {
        Prompt::setNextOpenFileNames(paths);
        c<QPushButton>("browseButton")->click();
    }
    void chooseQif(const QStringList &paths)
    {
        c<QRadioButton>("qifRadio")->click();
        browse(paths);
    }
    // Each QIF source with its label and the texts of its choices, the current one marked with "*".
    QStringList mappings() const
    {
        auto *layout = m_screen->findChild<QFormLayout *>(u"qifMapRowsLayout"_s);
        QStringList rows;
        for (int row = 0; layout && row < layout->rowCount(); ++row) {
            auto *combo = qobject_cast<QComboBox *>(layout->itemAt(row, QFormLayout::FieldRole)->widget());
            QString line =
                qobject_cast<QLabel *>(layout->itemAt(row, QFormLayout::LabelRole)->widget())->text();
            for (int i = 0; i < combo->count(); ++i)
                line += (i == combo->currentIndex() ? u" *"_s : u" | "_s) + combo->itemText(i);
            rows << line;
        }
        return rows;
    }
    QComboBox *mapping(int row) const
    {
        auto *layout = m_screen->findChild<QFormLayout *>(u"qifMapRowsLayout"_s);
        return qobject_cast<QComboBox *>(layout->itemAt(row, QFormLayout::FieldRole)->widget());
    }

private slots:
    void init()
    {
        m_screen.reset();
        QVERIFY(m_app.emplace().ok());
    }

    void csvPreviewMapsAndImports()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("chk", "Checking")));
        QByteArray csv("Posted,Description,Amount,Note with a rather long header\n");
        for (int i = 1; i <= 7; ++i)
            csv += u"2024-01-0%1,Shop %1,-%1.00,n%1\n"_s.arg(i).toUtf8();
        const QString path = write(u"bank.csv"_s, csv);
        m_screen.emplace(s());
        m_screen->show();
        QVERIFY(!shown("qifSection"));
        auto *import = c<QPushButton>("importButton");
        QVERIFY(!import->isEnabled());
        browse({path});
        QCOMPARE(Prompt::lastTitle(), u"Select File"_s);
        QCOMPARE(Prompt::lastText(), Prompt::startDirectory());
        QVERIFY(import->isEnabled());
        QCOMPARE(c<QLabel>("fileLabel")->text(), u"bank.csv"_s);
        auto *date = c<QComboBox>("dateColumnCombo");
        auto *memo = c<QComboBox>("memoColumnCombo");
        QCOMPARE(date->count(), 4);
        QCOMPARE(date->currentText(), u"Col 0: Posted"_s);
        QCOMPARE(c<QComboBox>("payeeColumnCombo")->currentData().toInt(), 1);
        QCOMPARE(c<QComboBox>("amountColumnCombo")->currentData().toInt(), 2);
        QCOMPARE(memo->itemData(0).toInt(), -1);
        QCOMPARE(memo->itemText(4), u"Col 3: Note with a rather l"_s);
        // Five rows at most, and with the box ticked the first is no transaction and must not look like one.
        auto *preview = c<QTableWidget>("previewTable");
        QCOMPARE(preview->rowCount(), 5);
        QCOMPARE(preview->columnCount(), 4);
        QCOMPARE(preview->item(1, 1)->text(), u"Shop 1"_s);
        QCOMPARE(preview->verticalHeaderItem(0)->text() + preview->verticalHeaderItem(1)->text(),
                 u"Header1"_s);
        QVERIFY(preview->item(0, 0)->font().bold());
        c<QCheckBox>("headerCheck")->setChecked(false);
        QCOMPARE(preview->verticalHeaderItem(0)->text(), u"1"_s);
        QVERIFY(!preview->item(0, 0)->font().bold());
        c<QCheckBox>("headerCheck")->setChecked(true);

        memo->setCurrentIndex(4);
        QSignalSpy completed(&*m_screen, &ImportScreen::importCompleted);
        import->click();
        QCOMPARE(result(), u"Import complete!\n\n7 transaction(s) imported"_s);
        QCOMPARE(s()->transactions()->getByAccount(u"chk"_s).first().memo, u"n7"_s);
        c<QPushButton>("doneButton")->click();
        QCOMPARE(completed.count(), 1);
        QCOMPARE(c<QLabel>("fileLabel")->text(), u"No file selected"_s);
        QCOMPARE(preview->rowCount(), 0);
        QVERIFY(result().isEmpty());
        // The header row read as data fails its date.
        browse({path});
        c<QCheckBox>("headerCheck")->setChecked(false);
        import->click();
        QCOMPARE(result(), u"Import complete!\n\n0 transaction(s) imported\n7 duplicate(s) skipped\n"
                           "1 record(s) skipped (unparseable)"_s);
        c<QRadioButton>("qifRadio")->click();
        QVERIFY(!import->isEnabled());
    }

    void csvWithoutAccountOffersToCreateOne()
    {
        m_screen.emplace(s());
        browse({write(u"bank.csv"_s, "Date,Payee,Amount\n2024-02-01,Shop,-5\n")});
        Prompt::setNextAnswer(QMessageBox::No);
        c<QPushButton>("importButton")->click();
        QCOMPARE(Prompt::lastTitle(), u"No target account"_s);
        QCOMPARE(Prompt::lastText(), u"Pick an account to import into, or create one now."_s);
        QVERIFY(s()->accounts()->getAll().isEmpty());
        QCOMPARE(c<QStackedWidget>("")->currentIndex(), 0);

        Prompt::setNextAnswer(QMessageBox::Yes);
        Prompt::setNextDialogHandler([](QDialog *dialog) {
            child<QLineEdit>(dialog, "nameEdit")->setText(u"Everyday"_s);
            child<QDoubleSpinBox>(dialog, "balanceSpin")->setValue(250.0);
            return int(QDialog::Accepted);
        });
        c<QPushButton>("importButton")->click();
        const QList<Account> accounts = s()->accounts()->getAll();
        QCOMPARE(accounts.size(), 1);
        QCOMPARE(accounts.first().name, u"Everyday"_s);
        QCOMPARE(accounts.first().startingBalance, 0);
        QCOMPARE(c<QComboBox>("accountCombo")->currentData().toString(), accounts.first().id);
        QStringList rows;
        for (const Transaction &t : s()->transactions()->getByAccount(accounts.first().id))
            rows << u"%1 %2 %3"_s.arg(t.payee).arg(t.amount).arg(t.reconciled);
        rows.sort();
        QCOMPARE(rows, QStringList({"Opening Balance 25000 1", "Shop -500 0"}));
        QCOMPARE(result(), u"Import complete!\n\n1 transaction(s) imported"_s);
    }

    void qifRowsOfferCreateSkipAndAccounts()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("s", "savings")));
        QVERIFY(s()->accounts()->insert(Fixtures::account("v", "Visa")));
        const QString one = write(u"one.qif"_s, "!Account\nNChecking\n^\n!Type:Bank\nD1/1/2024\nT1\n^\n"
                                                "!Account\nNSavings\n^\n!Type:Bank\nD1/1/2024\nT2\n^\n");
        const QString two = write(u"two.qif"_s, "!Account\nNchecking\n^\n!Type:Bank\nD1/2/2024\nT3\n^\n");
        const QString bare = write(u"bare.qif"_s, "!Type:Bank\nD1/3/2024\nT4\n^\n");
        m_screen.emplace(s());
        chooseQif({one, two, bare});
        QVERIFY(!shown("accountCombo") && !shown("csvSection") && shown("qifSection"));
        QCOMPARE(Prompt::lastTitle(), u"Select QIF File(s)"_s);
        QCOMPARE(c<QLabel>("fileLabel")->text(), u"3 file(s) selected"_s);
        QCOMPARE(c<QLabel>("fileLabel")->toolTip(), QStringList({one, two, bare}).join(u'\n'));
        // Sources of the same name in any case are one; a known account is picked for its source.
        const QString skip = u" | — Skip these transactions —"_s;
        QCOMPARE(
            mappings(),
            QStringList({u"Checking *— Create new account \"Checking\" —"_s + skip + u" | Visa | savings"_s,
                         u"Savings | — Create new account \"Savings\" —"_s + skip + u" | Visa *savings"_s,
                         u"bare.qif (no account header) *— Create new account \"bare.qif\" —"_s + skip +
                             u" | Visa | savings"_s}));
        // Back to CSV empties the rows; choosing the same files again rebuilds them from today's accounts.
        c<QRadioButton>("csvRadio")->click();
        QVERIFY(mappings().isEmpty());
        QVERIFY(!shown("qifSection"));
        QVERIFY(s()->accounts()->insert(Fixtures::account("c", "CHECKING")));
        chooseQif({one, two});
        QCOMPARE(mappings().size(), 2);
        QCOMPARE(mapping(0)->currentData().toString(), u"c"_s);
    }

    void qifDefaultsCreateAccounts()
    {
        const QString bank =
            write(u"my.bank.qif"_s, "!Type:Bank\nD1/3/2024\nT-4\nPShop\n^\nD1/4/2024\nT-5\nL[Card]\n^\n");
        const QString card =
            write(u"card.qif"_s, "!Account\nNCard\nTCCard\n^\n!Type:CCard\nD1/4/2024\nT5\nL[Elsewhere]\n^\n");
        m_screen.emplace(s());
        chooseQif({bank, card});
        QCOMPARE(mappings().size(), 2);
        c<QPushButton>("importButton")->click();
        QHash<QString, Account> byName;
        for (const Account &a : s()->accounts()->getAll())
            byName.insert(a.name, a);
        QCOMPARE(byName.keys().size(), 2);
        QCOMPARE(byName.value(u"Card"_s).accountType, AccountType::CreditCard);
        QCOMPARE(byName.value(u"my"_s).accountType, AccountType::Checking);
        QCOMPARE(s()->transactions()->getByAccount(byName.value(u"my"_s).id).size(), 2);
        QCOMPARE(result(), u"Import complete!\n\n3 transaction(s) imported"_s);
    }

    void qifAllSkipped()
    {
        const QString path = write(u"two.qif"_s, "!Type:Memorized\nPRent\nT5\n^\n!Account\nNChecking\n^\n"
                                                 "!Type:Bank\nD1/2/2024\nT3\n^\nD1/2/2024\n^\n");
        m_screen.emplace(s());
        chooseQif({path});
        QCOMPARE(c<QLabel>("fileLabel")->text(), u"two.qif"_s);
        QCOMPARE(c<QLabel>("fileLabel")->toolTip(), path);
        QCOMPARE(mappings().size(), 1);
        mapping(0)->setCurrentIndex(1);
        c<QPushButton>("importButton")->click();
        QCOMPARE(result(),
                 u"Import complete!\n\n0 transaction(s) imported\n1 record(s) skipped (unparseable)\n"
                 "1 metadata record(s) skipped\n1 record(s) skipped (unmapped source account)"_s);
        QVERIFY(s()->accounts()->getAll().isEmpty());
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
        m_screen.emplace(s());
        Prompt::setNextAnswer(QMessageBox::Ok);
        name.endsWith(u".qif") ? chooseQif({path}) : browse({path});
        QCOMPARE(Prompt::lastTitle(), u"File Not Imported"_s);
        QVERIFY(Prompt::lastText().contains(name));
        QCOMPARE(c<QLabel>("fileLabel")->text(), u"No file selected"_s);
        QVERIFY(!c<QPushButton>("importButton")->isEnabled());
        QVERIFY(mappings().isEmpty());
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
            << u"Import complete!\n\n12 transaction(s) imported\n"
               "3 transfer(s) linked across accounts\n"
               "  (including 1 linked to previously imported row(s))\n"
               "4 duplicate(s) skipped\n5 record(s) skipped (unparseable)\n"
               "6 metadata record(s) skipped\n"
               "7 record(s) skipped (unmapped source account)\n"
               "8 record(s) skipped (database error \u2014 see log)\n"
               "9 split line(s) left out (no category)\n\n\"x.qif\" was not imported."_s;
        ImportResult batchOnly;
        batchOnly.transfersLinked = 2;
        QTest::newRow("no retroactive line")
            << batchOnly << 0
            << u"Import complete!\n\n0 transaction(s) imported\n2 transfer(s) linked across accounts"_s;
        QTest::newRow("unreadable file")
            << ImportResult() << 1
            << u"Import complete!\n\n0 transaction(s) imported\n1 file(s) could not be opened"_s;
        ImportResult aborted = all;
        aborted.aborted = true;
        QTest::newRow("aborted")
            << aborted << 0
            << u"Import failed.\n\nA database error stopped the import and all changes were rolled "
               "back. No transactions were added."_s;
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
        MainWindow window(s());
        window.show();
        QAction *import = nullptr;
        for (QAction *action : window.menuBar()->actions().first()->menu()->actions())
            if (action->text() == u"&Import...")
                import = action;
        QVERIFY(import);
        QCOMPARE(import->shortcut(), QKeySequence(u"Ctrl+I"_s));
        import->trigger();
        auto *screen = window.findChild<ImportScreen *>();
        QVERIFY(screen && screen->isVisible() && screen->isWindow());
        QCOMPARE(screen->windowTitle(), u"Import Transactions"_s);
        screen->close();
        import->trigger();
        QCOMPARE(window.findChildren<ImportScreen *>().size(), 1);
        QVERIFY(screen->isVisible());
    }
};

OMBREL_GUI_TEST_MAIN(TstImportScreen)
#include "tst_importscreen.moc"
