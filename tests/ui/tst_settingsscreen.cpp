#include "ui/SettingsScreen.h"

#include "core/AppState.h"
#include "core/Dates.h"
#include "core/ThemeManager.h"
#include "data/AccountRepository.h"
#include "data/Database.h"
#include "data/PreferencesRepository.h"
#include "data/ReconciliationRepository.h"
#include "data/RecurringRepository.h"
#include "data/TransactionRepository.h"
#include "services/ZipArchiveReader.h"
#include "support/Fixtures.h"
#include "ui/Prompt.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TstSettingsScreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void noDeletedAccountMeansNoSection();
    void restoreBringsBackWhatTheCascadeTook();
    void restoreWindowIsTenSeconds_data();
    void restoreWindowIsTenSeconds();
    void exportBackup_data();
    void exportBackup();
    void importBackupReplacesWhatTheFileHolds();
    void importBackupStopsOnCancelOrUnreadableFile_data();
    void importBackupStopsOnCancelOrUnreadableFile();
    void importOfANonZipCountsOneError();
    void fontSizeFallsBackToDefault_data();
    void fontSizeFallsBackToDefault();
    void languageChangeIsToldOnlyWhenItChanges();
    void controlsStoreTheirPreferences();

private:
    void start();
    QPushButton *button(const char *name) const { return m_screen->findChild<QPushButton *>(name); }
    QString scalar(const QString &sql);
    // The deleted account "acc" with its rows, the account and its rows deleted at the given times.
    void deletedAccount(const QString &accountDeletedAt, const QStringList &rowDeletedAt);

    QTemporaryDir m_dir;
    int m_run = 0;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<SettingsScreen> m_screen;
};

void TstSettingsScreen::init()
{
    qputenv("OMBREL_DATA_DIR", m_dir.filePath(QStringLiteral("run%1").arg(++m_run)).toUtf8());
    QSettings().clear();
    m_state = std::make_unique<AppState>();
    QVERIFY(m_state->initialize());
}

void TstSettingsScreen::cleanup()
{
    m_screen.reset();
    m_state.reset();
}

void TstSettingsScreen::start()
{
    m_screen = std::make_unique<SettingsScreen>(m_state.get());
    m_screen->resize(500, 550);
    m_screen->show();
}

QString TstSettingsScreen::scalar(const QString &sql)
{
    QSqlQuery q(m_state->database()->connection());
    if (!q.exec(sql) || !q.next())
        return QStringLiteral("<none>");
    return q.isNull(0) ? QStringLiteral("<null>") : q.value(0).toString();
}

void TstSettingsScreen::deletedAccount(const QString &accountDeletedAt, const QStringList &rowDeletedAt)
{
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("acc"), QStringLiteral("Old Savings"))));
    for (int i = 0; i < rowDeletedAt.size(); ++i) {
        QVERIFY(m_state->transactions()->insert(
            Fixtures::transaction(QStringLiteral("t%1").arg(i), QStringLiteral("acc"), QDate(2025, 1, 1 + i),
                                  QStringLiteral("Payee"), -100)));
        QSqlQuery q(m_state->database()->connection());
        q.prepare(QStringLiteral("UPDATE transactions SET deleted_at = ? WHERE id = ?"));
        q.addBindValue(rowDeletedAt.at(i));
        q.addBindValue(QStringLiteral("t%1").arg(i));
        QVERIFY(q.exec());
    }
    QSqlQuery q(m_state->database()->connection());
    q.prepare(QStringLiteral("UPDATE accounts SET deleted_at = ? WHERE id = 'acc'"));
    q.addBindValue(accountDeletedAt);
    QVERIFY(q.exec());
}

void TstSettingsScreen::noDeletedAccountMeansNoSection()
{
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("live"), QStringLiteral("Live"))));
    start();
    auto *section = m_screen->findChild<QWidget *>(QStringLiteral("deletedAccountsSection"));
    QVERIFY(section->isHidden());
    QVERIFY(m_state->accounts()->softDelete(QStringLiteral("live")));
    m_screen->refresh();
    QVERIFY(!section->isHidden());
}

// The cascade of the main window, then the restore: what the cascade took comes back, a row the user
// deleted a minute earlier does not.
void TstSettingsScreen::restoreBringsBackWhatTheCascadeTook()
{
    const QString id = QStringLiteral("acc");
    QVERIFY(m_state->accounts()->insert(Fixtures::account(id, QStringLiteral("Old Savings"))));
    for (const char *t : {"kept", "cascaded", "earlier"})
        QVERIFY(m_state->transactions()->insert(
            Fixtures::transaction(QLatin1String(t), id, QDate(2025, 1, 1), QStringLiteral("Payee"), -100)));
    RecurringTransaction rule;
    rule.id = QStringLiteral("rule");
    rule.accountId = id;
    rule.payee = QStringLiteral("Rent");
    rule.amount = -1000;
    rule.startDate = rule.nextDueDate = QDate(2025, 1, 1);
    rule.createdAt = rule.updatedAt = utcNow();
    QVERIFY(m_state->recurring()->insert(rule));
    Reconciliation reconciliation;
    reconciliation.id = QStringLiteral("rec");
    reconciliation.accountId = id;
    reconciliation.statementDate = QDate(2025, 1, 31);
    reconciliation.completedAt = reconciliation.createdAt = reconciliation.updatedAt = utcNow();
    QVERIFY(m_state->reconciliations()->insert(reconciliation));
    // Deleted by hand a minute before the account.
    QSqlQuery earlier(m_state->database()->connection());
    earlier.prepare(QStringLiteral("UPDATE transactions SET deleted_at = ? WHERE id = 'earlier'"));
    earlier.addBindValue(timestampText(utcNow().addSecs(-60)));
    QVERIFY(earlier.exec());

    QVERIFY(m_state->transactions()->softDeleteByAccount(id) == 2);
    QVERIFY(m_state->recurring()->softDeleteByAccount(id) == 1);
    QVERIFY(m_state->reconciliations()->softDeleteByAccount(id) == 1);
    QVERIFY(m_state->accounts()->softDelete(id));

    start();
    auto *list = m_screen->findChild<QListWidget *>(QStringLiteral("deletedAccountsList"));
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->text(), QStringLiteral("Old Savings"));
    QVERIFY(!button("restoreAccountButton")->isEnabled());
    list->setCurrentRow(0);
    QVERIFY(button("restoreAccountButton")->isEnabled());

    QSignalSpy restored(m_screen.get(), &SettingsScreen::deletedAccountRestored);
    m_screen->findChild<QStackedWidget *>()->setCurrentIndex(2);
    QTest::mouseClick(button("restoreAccountButton"), Qt::LeftButton);
    QCOMPARE(restored.count(), 1);
    QCOMPARE(scalar("SELECT deleted_at FROM accounts WHERE id = 'acc'"), QStringLiteral("<null>"));
    QCOMPARE(scalar("SELECT group_concat(id) FROM (SELECT id FROM transactions WHERE deleted_at IS NULL "
                    "ORDER BY id)"),
             QStringLiteral("cascaded,kept"));
    QCOMPARE(scalar("SELECT deleted_at IS NULL FROM recurring_transactions WHERE id = 'rule'"),
             QStringLiteral("1"));
    QCOMPARE(scalar("SELECT deleted_at IS NULL FROM reconciliations WHERE id = 'rec'"), QStringLiteral("1"));
    QCOMPARE(scalar("SELECT sync_status FROM accounts WHERE id = 'acc'"), QStringLiteral("pending"));
    QCOMPARE(list->count(), 0);
    QVERIFY(m_screen->findChild<QWidget *>(QStringLiteral("deletedAccountsSection"))->isHidden());
}

void TstSettingsScreen::restoreWindowIsTenSeconds_data()
{
    QTest::addColumn<QString>("rowDeletedAt");
    QTest::addColumn<bool>("restored");
    // The account went at 12:00:00.
    QTest::newRow("with the account") << "2025-05-01T12:00:00Z" << true;
    QTest::newRow("ten seconds before") << "2025-05-01T11:59:50Z" << true;
    QTest::newRow("eleven seconds before") << "2025-05-01T11:59:49Z" << false;
    QTest::newRow("a day before") << "2025-04-30T12:00:00Z" << false;
}

void TstSettingsScreen::restoreWindowIsTenSeconds()
{
    QFETCH(QString, rowDeletedAt);
    QFETCH(bool, restored);
    deletedAccount(QStringLiteral("2025-05-01T12:00:00Z"), {rowDeletedAt});
    start();
    m_screen->findChild<QListWidget *>(QStringLiteral("deletedAccountsList"))->setCurrentRow(0);
    m_screen->restoreSelectedAccount();
    QCOMPARE(scalar("SELECT deleted_at IS NULL FROM transactions WHERE id = 't0'"),
             restored ? QStringLiteral("1") : QStringLiteral("0"));
    QCOMPARE(scalar("SELECT deleted_at IS NULL FROM accounts WHERE id = 'acc'"), QStringLiteral("1"));
}

void TstSettingsScreen::exportBackup_data()
{
    QTest::addColumn<QString>("chosen"); // "" cancels; a relative name goes into the test directory
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("written");
    QTest::newRow("saved") << "backup.zip"
                           << "Backup Complete" << true;
    QTest::newRow("folder that does not exist") << "missing/backup.zip"
                                                << "Backup Failed" << false;
    QTest::newRow("cancelled") << ""
                               << "Export Backup" << false;
}

void TstSettingsScreen::exportBackup()
{
    QFETCH(QString, chosen);
    QFETCH(QString, title);
    QFETCH(bool, written);
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("acc"), QStringLiteral("Checking"))));
    start();
    QTemporaryDir out;
    const QString path = chosen.isEmpty() ? QString() : out.filePath(chosen);
    Prompt::setNextFileName(path);
    if (!chosen.isEmpty())
        Prompt::setNextAnswer(QMessageBox::Ok);
    QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);

    QCOMPARE(Prompt::lastTitle(), title);
    // Offered in the documents folder, not wherever the program happened to be started.
    if (chosen.isEmpty())
        QCOMPARE(
            Prompt::lastText(),
            QDir(Prompt::startDirectory())
                .filePath(
                    QStringLiteral("ombrel-backup-%1.zip").arg(QDate::currentDate().toString(Qt::ISODate))));
    else if (written)
        QCOMPARE(Prompt::lastText(), QStringLiteral("Backup saved to:\n%1").arg(path));
    else
        QCOMPARE(Prompt::lastText(), QStringLiteral("Could not write to:\n%1").arg(path));
    QCOMPARE(QFile::exists(path), written);
    if (written) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray archive = file.readAll();
        ZipArchiveReader reader(archive);
        QVERIFY(reader.open());
        QVERIFY(reader.indexOf("accounts/acc.json") >= 0);
    }
    QCOMPARE(button("exportBackupButton")->text(), QStringLiteral("Export Backup"));
    QVERIFY(button("exportBackupButton")->isEnabled());
}

void TstSettingsScreen::importBackupReplacesWhatTheFileHolds()
{
    QVERIFY(
        m_state->accounts()->insert(Fixtures::account(QStringLiteral("acc"), QStringLiteral("Checking"))));
    QVERIFY(m_state->accounts()->insert(Fixtures::account(QStringLiteral("gone"), QStringLiteral("Closed"))));
    QVERIFY(m_state->accounts()->softDelete(QStringLiteral("gone")));
    start();
    QTemporaryDir out;
    const QString path = out.filePath(QStringLiteral("b.zip"));
    Prompt::setNextFileName(path);
    Prompt::setNextAnswer(QMessageBox::Ok);
    QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);
    QVERIFY(QFile::exists(path));

    // Changed and newer here, yet Replace takes the backup's.
    Account renamed = *m_state->accounts()->getById(QStringLiteral("acc"));
    renamed.name = QStringLiteral("Renamed");
    renamed.updatedAt = utcNow().addDays(1);
    QVERIFY(m_state->accounts()->update(renamed));
    QVERIFY(m_state->accounts()->restore(QStringLiteral("gone")));
    m_screen->refresh();

    QSignalSpy reload(m_screen.get(), &SettingsScreen::deletedAccountRestored);
    Prompt::setNextOpenFileNames({path});
    Prompt::setNextItem(QStringLiteral("Replace all with backup data"));
    Prompt::setNextAnswer(QMessageBox::Ok);
    QTest::mouseClick(button("importBackupButton"), Qt::LeftButton);

    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Import Complete"));
    // Two accounts and the 56 seeded categories, nothing skipped.
    QCOMPARE(Prompt::lastText(), QStringLiteral("Imported 58 items, skipped 0."));
    QCOMPARE(reload.count(), 1);
    QCOMPARE(m_state->accounts()->getById(QStringLiteral("acc"))->name, QStringLiteral("Checking"));
    // The deleted account came back deleted, and the section shows it again.
    QCOMPARE(m_screen->findChild<QListWidget *>(QStringLiteral("deletedAccountsList"))->count(), 1);
    QCOMPARE(button("importBackupButton")->text(), QStringLiteral("Import Backup"));
    QVERIFY(button("importBackupButton")->isEnabled());
}

void TstSettingsScreen::importBackupStopsOnCancelOrUnreadableFile_data()
{
    QTest::addColumn<QString>("file"); // "" cancels the file dialog
    QTest::addColumn<QString>("mode"); // "" cancels the mode choice
    QTest::addColumn<QString>("title");
    QTest::newRow("no file chosen") << ""
                                    << ""
                                    << "Import Backup";
    QTest::newRow("no mode chosen") << "exists"
                                    << ""
                                    << "Import Mode";
    QTest::newRow("file that cannot be read") << "missing.zip"
                                              << "Skip existing items"
                                              << "Import Failed";
}

void TstSettingsScreen::importBackupStopsOnCancelOrUnreadableFile()
{
    QFETCH(QString, file);
    QFETCH(QString, mode);
    QFETCH(QString, title);
    start();
    QTemporaryDir dir;
    QFile exists(dir.filePath(QStringLiteral("exists")));
    QVERIFY(exists.open(QIODevice::WriteOnly));
    exists.close();
    Prompt::setNextOpenFileNames(file.isEmpty() ? QStringList() : QStringList{dir.filePath(file)});
    if (!file.isEmpty())
        Prompt::setNextItem(mode);
    if (title == QLatin1String("Import Failed"))
        Prompt::setNextAnswer(QMessageBox::Ok);
    QSignalSpy reload(m_screen.get(), &SettingsScreen::deletedAccountRestored);
    QTest::mouseClick(button("importBackupButton"), Qt::LeftButton);
    QCOMPARE(Prompt::lastTitle(), title);
    if (title == QLatin1String("Import Failed"))
        QCOMPARE(Prompt::lastText(), QStringLiteral("Could not read file."));
    QCOMPARE(reload.count(), 0);
}

void TstSettingsScreen::importOfANonZipCountsOneError()
{
    start();
    QTemporaryDir dir;
    QFile text(dir.filePath(QStringLiteral("notes.zip")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("Shopping list: milk, eggs, bread.");
    text.close();
    Prompt::setNextOpenFileNames({text.fileName()});
    Prompt::setNextItem(QStringLiteral("Keep newer (compare timestamps)"));
    Prompt::setNextAnswer(QMessageBox::Ok);
    QTest::mouseClick(button("importBackupButton"), Qt::LeftButton);
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Import Complete"));
    QCOMPARE(Prompt::lastText(), QStringLiteral("Imported 0 items, skipped 0.\n\n1 error(s) occurred."));
}

void TstSettingsScreen::fontSizeFallsBackToDefault_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stored 110") << 110 << "Default";
    QTest::newRow("stored 115") << 115 << "Medium";
    QTest::newRow("stored 150") << 150 << "Extra Large";
}

void TstSettingsScreen::fontSizeFallsBackToDefault()
{
    QFETCH(int, scale);
    QFETCH(QString, shown);
    m_state->themeManager()->setFontScale(scale);
    start();
    QCOMPARE(m_screen->findChild<QComboBox *>(QStringLiteral("fontSizeCombo"))->currentText(), shown);
    m_state->themeManager()->setFontScale(100);
}

void TstSettingsScreen::languageChangeIsToldOnlyWhenItChanges()
{
    QSettings().setValue(QStringLiteral("ui/language"), QStringLiteral("fr"));
    start();
    auto *language = m_screen->findChild<QComboBox *>(QStringLiteral("languageCombo"));
    QCOMPARE(language->currentData().toString(), QStringLiteral("fr"));

    // The stored language again: no box. A box that did come would take the scripted answer.
    Prompt::setNextAnswer(QMessageBox::Ok);
    Prompt::information(nullptr, QStringLiteral("marker"), QString());
    Prompt::setNextAnswer(QMessageBox::Ok);
    m_screen->onLanguageChanged(language->findData(QStringLiteral("fr")));
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("marker"));
    Prompt::information(nullptr, QStringLiteral("drain"), QString());

    Prompt::setNextAnswer(QMessageBox::Ok);
    language->setCurrentIndex(language->findData(QStringLiteral("de")));
    QCOMPARE(Prompt::lastTitle(), QStringLiteral("Language Changed"));
    QCOMPARE(Prompt::lastText(),
             QStringLiteral("The new language will take effect the next time you start Halcyra Ombrel."));
    QCOMPARE(QSettings().value(QStringLiteral("ui/language")).toString(), QStringLiteral("de"));
}

void TstSettingsScreen::controlsStoreTheirPreferences()
{
    start();
    PreferencesRepository *preferences = m_state->preferences();
    auto *theme = m_screen->findChild<QComboBox *>(QStringLiteral("themeCombo"));
    theme->setCurrentIndex(theme->findData(QStringLiteral("dark")));
    QCOMPARE(preferences->getOr(QStringLiteral("theme"), QString()), QStringLiteral("dark"));
    QCOMPARE(m_state->themeManager()->theme(), ThemeManager::Dark);
    theme->setCurrentIndex(theme->findData(QStringLiteral("light")));
    QCOMPARE(m_state->themeManager()->theme(), ThemeManager::Light);

    auto *week = m_screen->findChild<QComboBox *>(QStringLiteral("weekStartCombo"));
    week->setCurrentIndex(week->findData(6));
    QCOMPARE(preferences->getOr(QStringLiteral("weekStartDay"), QString()), QStringLiteral("6"));
    QCOMPARE(ThemeManager::firstDayOfWeek(), Qt::Saturday);

    auto *fontSize = m_screen->findChild<QComboBox *>(QStringLiteral("fontSizeCombo"));
    fontSize->setCurrentIndex(fontSize->findData(130));
    QCOMPARE(preferences->getOr(QStringLiteral("fontScale"), QString()), QStringLiteral("130"));
    fontSize->setCurrentIndex(fontSize->findData(100));

    m_screen->findChild<QCheckBox *>(QStringLiteral("twoLineCheck"))->setChecked(true);
    QCOMPARE(preferences->getBool(QStringLiteral("registerTwoLine"), false), true);
    m_screen->findChild<QCheckBox *>(QStringLiteral("newestFirstCheck"))->setChecked(true);
    QCOMPARE(preferences->getBool(QStringLiteral("registerNewestFirst"), false), true);
}

// Settings and data go to temporary places so the user's own are never touched.
int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    QApplication app(argc, argv);
    TstSettingsScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settingsscreen.moc"
