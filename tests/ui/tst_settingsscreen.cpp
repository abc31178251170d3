#include "ui/SettingsScreen.h"

#include "core/Dates.h"
#include "core/ThemeManager.h"
#include "services/ZipArchiveReader.h"
#include "support/Fixtures.h"
#include "support/TempAppState.h"
#include "support/Widgets.h"
#include "ui/Prompt.h"

#include <QSqlQuery>
#include <QtTest>
#include <QtWidgets>

#include <optional>

using namespace Qt::StringLiterals;

class TstSettingsScreen : public QObject {
    Q_OBJECT
    std::optional<TempAppState> m_state;
    std::optional<SettingsScreen> m_screen;

    AppState *s() const { return m_state->get(); }
    void start()
    {
        m_screen.emplace(s());
        m_screen->resize(500, 550);
        m_screen->show();
    }
    QPushButton *button(const char *name) const { return child<QPushButton>(&*m_screen, name); }
    QListWidget *deletedList() const { return child<QListWidget>(&*m_screen, "deletedAccountsList"); }
    QString scalar(const QString &sql) const
    {
        QSqlQuery q(s()->database()->connection());
        if (!q.exec(sql) || !q.next())
            return u"<none>"_s;
        return q.isNull(0) ? u"<null>"_s : q.value(0).toString();
    }
    void deletedAt(const char *table, const QString &id, const QString &when) const
    {
        QSqlQuery q(s()->database()->connection());
        q.prepare(u"UPDATE %1 SET deleted_at = ? WHERE id = ?"_s.arg(QLatin1String(table)));
        q.addBindValue(when);
        q.addBindValue(id);
        QVERIFY(q.exec());
    }
    QString file(const QString &name, const QByteArray &bytes) const
    {
        QFile f(QDir(m_state->directory()).filePath(name));
        if (f.open(QIODevice::WriteOnly))
            f.write(bytes);
        return f.fileName();
    }

private slots:
    void init()
    {
        m_screen.reset();
        m_state.reset();
        QSettings().clear();
        m_state.emplace();
        QVERIFY(m_state->ok());
    }

    // The cascade of the main window, then the restore: what the cascade took comes back, a row the user
    // deleted a minute earlier does not.
    void restoreBringsBackWhatTheCascadeTook()
    {
        const QString id = u"acc"_s;
        QVERIFY(s()->accounts()->insert(Fixtures::account(id, "Old Savings")));
        for (const char *t : {"kept", "cascaded", "earlier"})
            QVERIFY(
                s()->transactions()->insert(Fixtures::transaction(t, id, QDate(2025, 1, 1), "Payee", -100)));
        QVERIFY(s()->recurring()->insert(Fixtures::rule("rule", id, QDate(2025, 1, 1), -1000)));
        Reconciliation reconciliation;
        reconciliation.id = u"rec"_s;
        reconciliation.accountId = id;
        reconciliation.statementDate = QDate(2025, 1, 31);
        reconciliation.completedAt = reconciliation.createdAt = reconciliation.updatedAt = utcNow();
        QVERIFY(s()->reconciliations()->insert(reconciliation));
        deletedAt("transactions", u"earlier"_s, timestampText(utcNow().addSecs(-60)));
        start();
        auto *section = child<QWidget>(&*m_screen, "deletedAccountsSection");
        QVERIFY(section->isHidden());

        QCOMPARE(s()->transactions()->softDeleteByAccount(id), 2);
        QCOMPARE(s()->recurring()->softDeleteByAccount(id), 1);
        QCOMPARE(s()->reconciliations()->softDeleteByAccount(id), 1);
        QVERIFY(s()->accounts()->softDelete(id));
        m_screen->refresh();
        QVERIFY(!section->isHidden());
        QCOMPARE(deletedList()->count(), 1);
        QCOMPARE(deletedList()->item(0)->text(), u"Old Savings"_s);
        QVERIFY(!button("restoreAccountButton")->isEnabled());
        deletedList()->setCurrentRow(0);
        QVERIFY(button("restoreAccountButton")->isEnabled());

        QSignalSpy restored(&*m_screen, &SettingsScreen::deletedAccountRestored);
        m_screen->findChild<QStackedWidget *>()->setCurrentIndex(2);
        QTest::mouseClick(button("restoreAccountButton"), Qt::LeftButton);
        QCOMPARE(restored.count(), 1);
        QCOMPARE(scalar(u"SELECT deleted_at FROM accounts WHERE id = 'acc'"_s), u"<null>"_s);
        QCOMPARE(scalar(u"SELECT group_concat(id) FROM (SELECT id FROM transactions WHERE deleted_at IS NULL "
                        "ORDER BY id)"_s),
                 u"cascaded,kept"_s);
        QCOMPARE(scalar(u"SELECT deleted_at IS NULL FROM recurring_transactions WHERE id = 'rule'"_s),
                 u"1"_s);
        QCOMPARE(scalar(u"SELECT deleted_at IS NULL FROM reconciliations WHERE id = 'rec'"_s), u"1"_s);
        QCOMPARE(scalar(u"SELECT sync_status FROM accounts WHERE id = 'acc'"_s), u"pending"_s);
        QCOMPARE(deletedList()->count(), 0);
        QVERIFY(section->isHidden());
    }

    void restoreWindowIsTenSeconds_data()
    {
        QTest::addColumn<QString>("rowDeletedAt");
        QTest::addColumn<QString>("restored");
        // The account went at 12:00:00.
        QTest::newRow("with the account") << u"2025-05-01T12:00:00Z"_s << u"1"_s;
        QTest::newRow("ten seconds before") << u"2025-05-01T11:59:50Z"_s << u"1"_s;
        QTest::newRow("eleven seconds before") << u"2025-05-01T11:59:49Z"_s << u"0"_s;
        QTest::newRow("a day before") << u"2025-04-30T12:00:00Z"_s << u"0"_s;
    }

    void restoreWindowIsTenSeconds()
    {
        QFETCH(QString, rowDeletedAt);
        QFETCH(QString, restored);
        QVERIFY(s()->accounts()->insert(Fixtures::account("acc", "Old Savings")));
        QVERIFY(s()->transactions()->insert(
            Fixtures::transaction("t0", "acc", QDate(2025, 1, 1), "Payee", -100)));
        deletedAt("transactions", u"t0"_s, rowDeletedAt);
        deletedAt("accounts", u"acc"_s, u"2025-05-01T12:00:00Z"_s);
        start();
        deletedList()->setCurrentRow(0);
        m_screen->restoreSelectedAccount();
        QCOMPARE(scalar(u"SELECT deleted_at IS NULL FROM transactions WHERE id = 't0'"_s), restored);
        QCOMPARE(scalar(u"SELECT deleted_at IS NULL FROM accounts WHERE id = 'acc'"_s), u"1"_s);
    }

    void exportBackup_data()
    {
        QTest::addColumn<QString>("chosen"); // "" cancels; a relative name goes into the test directory
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text"); // %1: the chosen path
        QTest::newRow("saved") << u"backup.zip"_s << u"Backup Complete"_s << u"Backup saved to:\n%1"_s;
        QTest::newRow("folder that does not exist")
            << u"missing/backup.zip"_s << u"Backup Failed"_s << u"Could not write to:\n%1"_s;
        // Offered in the documents folder, not wherever the program happened to be started.
        QTest::newRow("cancelled") << u""_s << u"Export Backup"_s
                                   << QDir(Prompt::startDirectory())
                                          .filePath(u"ombrel-backup-%1.zip"_s.arg(
                                              QDate::currentDate().toString(Qt::ISODate)));
    }

    void exportBackup()
    {
        QFETCH(QString, chosen);
        QFETCH(QString, title);
        QFETCH(QString, text);
        QVERIFY(s()->accounts()->insert(Fixtures::account("acc", "Checking")));
        start();
        const QString path = chosen.isEmpty() ? QString() : QDir(m_state->directory()).filePath(chosen);
        Prompt::setNextFileName(path);
        if (!chosen.isEmpty())
            Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);
        QCOMPARE(Prompt::lastTitle(), title);
        QCOMPARE(Prompt::lastText(), text.arg(path));
        QFile archive(path);
        QCOMPARE(archive.open(QIODevice::ReadOnly), title == u"Backup Complete");
        if (archive.isOpen()) {
            const QByteArray bytes = archive.readAll();
            ZipArchiveReader reader(bytes);
            QVERIFY(reader.open());
            QVERIFY(reader.indexOf("accounts/acc.json") >= 0);
        }
        QCOMPARE(button("exportBackupButton")->text(), u"Export Backup"_s);
        QVERIFY(button("exportBackupButton")->isEnabled());
    }

    void importBackupReplacesWhatTheFileHolds()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("acc", "Checking")));
        QVERIFY(s()->accounts()->insert(Fixtures::account("gone", "Closed")));
        QVERIFY(s()->accounts()->softDelete(u"gone"_s));
        start();
        const QString path = QDir(m_state->directory()).filePath(u"b.zip"_s);
        Prompt::setNextFileName(path);
        Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);
        QVERIFY(QFile::exists(path));

        // Changed and newer here, yet Replace takes the backup's.
        Account renamed = *s()->accounts()->getById(u"acc"_s);
        renamed.name = u"Renamed"_s;
        renamed.updatedAt = utcNow().addDays(1);
        QVERIFY(s()->accounts()->update(renamed));
        QVERIFY(s()->accounts()->restore(u"gone"_s));
        m_screen->refresh();

        QSignalSpy reload(&*m_screen, &SettingsScreen::deletedAccountRestored);
        Prompt::setNextOpenFileNames({path});
        Prompt::setNextItem(u"Replace all with backup data"_s);
        Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(button("importBackupButton"), Qt::LeftButton);
        QCOMPARE(Prompt::lastTitle(), u"Import Complete"_s);
        // Two accounts and the 56 seeded categories, nothing skipped.
        QCOMPARE(Prompt::lastText(), u"Imported 58 items, skipped 0."_s);
        QCOMPARE(reload.count(), 1);
        QCOMPARE(s()->accounts()->getById(u"acc"_s)->name, u"Checking"_s);
        // The deleted account came back deleted, and the section shows it again.
        QCOMPARE(deletedList()->count(), 1);
        QCOMPARE(button("importBackupButton")->text(), u"Import Backup"_s);
        QVERIFY(button("importBackupButton")->isEnabled());
    }

    void importBackupStopsOnCancelOrBadFile_data()
    {
        QTest::addColumn<QString>("file"); // "" cancels the file dialog
        QTest::addColumn<QString>("mode"); // "" cancels the mode choice
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text"); // empty: not looked at
        QTest::newRow("no file chosen") << u""_s << u""_s << u"Import Backup"_s << u""_s;
        QTest::newRow("no mode chosen") << u"empty.zip"_s << u""_s << u"Import Mode"_s << u""_s;
        QTest::newRow("file that cannot be read") << u"missing.zip"_s << u"Skip existing items"_s
                                                  << u"Import Failed"_s << u"Could not read file."_s;
        QTest::newRow("no zip") << u"notes.zip"_s << u"Keep newer (compare timestamps)"_s
                                << u"Import Complete"_s
                                << u"Imported 0 items, skipped 0.\n\n1 error(s) occurred."_s;
    }

    void importBackupStopsOnCancelOrBadFile()
    {
        QFETCH(QString, file);
        QFETCH(QString, mode);
        QFETCH(QString, title);
        QFETCH(QString, text);
        start();
        const QString path = file.isEmpty()           ? QString()
                             : file == u"missing.zip" ? QDir(m_state->directory()).filePath(file)
                                                      : this->file(file, "Shopping list: milk, eggs.");
        Prompt::setNextOpenFileNames(path.isEmpty() ? QStringList() : QStringList{path});
        if (!path.isEmpty())
            Prompt::setNextItem(mode);
        if (!text.isEmpty())
            Prompt::setNextAnswer(QMessageBox::Ok);
        QSignalSpy reload(&*m_screen, &SettingsScreen::deletedAccountRestored);
        QTest::mouseClick(button("importBackupButton"), Qt::LeftButton);
        QCOMPARE(Prompt::lastTitle(), title);
        if (!text.isEmpty())
            QCOMPARE(Prompt::lastText(), text);
        QCOMPARE(reload.count(), title == u"Import Complete" ? 1 : 0);
    }

    void fontSizeFallsBackToDefault_data()
    {
        QTest::addColumn<int>("scale");
        QTest::addColumn<QString>("shown");
        QTest::newRow("stored 110") << 110 << u"Default"_s;
        QTest::newRow("stored 115") << 115 << u"Medium"_s;
        QTest::newRow("stored 150") << 150 << u"Extra Large"_s;
    }

    void fontSizeFallsBackToDefault()
    {
        QFETCH(int, scale);
        QFETCH(QString, shown);
        s()->themeManager()->setFontScale(scale);
        start();
        QCOMPARE(child<QComboBox>(&*m_screen, "fontSizeCombo")->currentText(), shown);
        s()->themeManager()->setFontScale(100);
    }

    void languageChangeIsToldOnlyWhenItChanges()
    {
        QSettings().setValue(u"ui/language"_s, u"fr"_s);
        start();
        auto *language = child<QComboBox>(&*m_screen, "languageCombo");
        QCOMPARE(language->currentData().toString(), u"fr"_s);
        // The stored language again: no box. A box that did come would take the scripted answer.
        Prompt::setNextAnswer(QMessageBox::Ok);
        Prompt::information(nullptr, u"marker"_s, QString());
        Prompt::setNextAnswer(QMessageBox::Ok);
        m_screen->onLanguageChanged(language->findData(u"fr"_s));
        QCOMPARE(Prompt::lastTitle(), u"marker"_s);
        Prompt::information(nullptr, u"drain"_s, QString());

        Prompt::setNextAnswer(QMessageBox::Ok);
        language->setCurrentIndex(language->findData(u"de"_s));
        QCOMPARE(Prompt::lastTitle(), u"Language Changed"_s);
        QCOMPARE(Prompt::lastText(),
                 u"The new language will take effect the next time you start Halcyra Ombrel."_s);
        QCOMPARE(QSettings().value(u"ui/language"_s).toString(), u"de"_s);
    }

    void controlsStoreTheirPreferences()
    {
        start();
        PreferencesRepository *preferences = s()->preferences();
        const auto choose = [this](const char *combo, const QVariant &data) {
            auto *box = child<QComboBox>(&*m_screen, combo);
            box->setCurrentIndex(box->findData(data));
        };
        choose("themeCombo", u"dark"_s);
        QCOMPARE(preferences->getOr(u"theme"_s, QString()), u"dark"_s);
        QCOMPARE(s()->themeManager()->theme(), ThemeManager::Dark);
        choose("themeCombo", u"light"_s);
        QCOMPARE(s()->themeManager()->theme(), ThemeManager::Light);
        choose("weekStartCombo", 6);
        QCOMPARE(preferences->getOr(u"weekStartDay"_s, QString()), u"6"_s);
        QCOMPARE(ThemeManager::firstDayOfWeek(), Qt::Saturday);
        choose("fontSizeCombo", 130);
        QCOMPARE(preferences->getOr(u"fontScale"_s, QString()), u"130"_s);
        choose("fontSizeCombo", 100);
        child<QCheckBox>(&*m_screen, "twoLineCheck")->setChecked(true);
        QVERIFY(preferences->getBool(u"registerTwoLine"_s, false));
        child<QCheckBox>(&*m_screen, "newestFirstCheck")->setChecked(true);
        QVERIFY(preferences->getBool(u"registerNewestFirst"_s, false));
    }
};

OMBREL_GUI_TEST_MAIN(TstSettingsScreen)
#include "tst_settingsscreen.moc"
