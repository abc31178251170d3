#include "ui/SettingsScreen.h"

#include "core/Dates.h"
#include "core/ThemeManager.h"
#include "services/ZipArchiveReader.h"
#include "support/Columns.h"
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
    QString path(const QString &name) const { return QDir(m_state->directory()).filePath(name); }
    QString scalar(const QString &sql) const
    {
        QSqlQuery q(s()->database()->connection());
        return q.exec(sql) && q.next() ? q.value(0).toString() : u"<none>"_s;
    }
    void deletedAt(const char *table, const char *id, const QDateTime &when) const
    {
        QVERIFY(QSqlQuery(s()->database()->connection())
                    .exec(u"UPDATE %1 SET deleted_at = '%2' WHERE id = '%3'"_s.arg(
                        QLatin1String(table), timestampText(when), QLatin1String(id))));
    }

private slots:
    void init()
    {
        m_screen.reset();
        m_state.reset();
        QSettings().clear();
        QVERIFY(m_state.emplace().ok());
    }

    // The cascade of the main window, then the restore: what the cascade took comes back, and so does a row
    // deleted up to ten seconds before the account; one deleted eleven seconds before does not.
    void restoreBringsBackWhatTheCascadeTook()
    {
        QVERIFY(s()->accounts()->insert(Fixtures::account("acc", "Old Savings")));
        for (const char *t : {"kept", "cascaded", "edge", "earlier"})
            QVERIFY(s()->transactions()->insert(
                Fixtures::transaction(t, "acc", QDate(2025, 1, 1), "Payee", -100)));
        QVERIFY(s()->recurring()->insert(Fixtures::rule("rule", "acc", QDate(2025, 1, 1), -1000)));
        Reconciliation reconciliation;
        reconciliation.id = u"rec"_s;
        reconciliation.accountId = u"acc"_s;
        reconciliation.statementDate = QDate(2025, 1, 31);
        reconciliation.completedAt = reconciliation.createdAt = reconciliation.updatedAt = utcNow();
        QVERIFY(s()->reconciliations()->insert(reconciliation));
        start();
        auto *section = child<QWidget>(&*m_screen, "deletedAccountsSection");
        QVERIFY(section->isHidden());

        QCOMPARE(s()->transactions()->softDeleteByAccount(u"acc"_s), 4);
        QCOMPARE(s()->recurring()->softDeleteByAccount(u"acc"_s), 1);
        QCOMPARE(s()->reconciliations()->softDeleteByAccount(u"acc"_s), 1);
        QVERIFY(s()->accounts()->softDelete(u"acc"_s));
        const QDateTime gone = *s()->accounts()->getById(u"acc"_s)->deletedAt;
        deletedAt("transactions", "edge", gone.addSecs(-10));
        deletedAt("transactions", "earlier", gone.addSecs(-11));
        m_screen->refresh();
        QVERIFY(!section->isHidden());
        QCOMPARE(deletedList()->count(), 1);
        QCOMPARE(deletedList()->item(0)->text(), u"Old Savings"_s);
        QVERIFY(!button("restoreAccountButton")->isEnabled());
        deletedList()->setCurrentRow(0);

        QSignalSpy restored(&*m_screen, &SettingsScreen::deletedAccountRestored);
        m_screen->findChild<QStackedWidget *>()->setCurrentIndex(2);
        QTest::mouseClick(button("restoreAccountButton"), Qt::LeftButton);
        QCOMPARE(restored.count(), 1);
        QCOMPARE(scalar(u"SELECT group_concat(id) FROM (SELECT id FROM transactions WHERE deleted_at IS NULL "
                        "ORDER BY id)"_s),
                 u"cascaded,edge,kept"_s);
        QCOMPARE(scalar(u"SELECT sync_status FROM accounts WHERE deleted_at IS NULL"_s), u"pending"_s);
        QCOMPARE(scalar(u"SELECT count(*) FROM recurring_transactions r, reconciliations c "
                        "WHERE r.deleted_at IS NULL AND c.deleted_at IS NULL"_s),
                 u"1"_s);
        QCOMPARE(deletedList()->count(), 0);
        QVERIFY(section->isHidden());
    }

    void exportBackup_data()
    {
        addColumns<QString, QString, QString>({"chosen", "title", "text"}); // "" cancels; %1: the path
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
        const QString file = chosen.isEmpty() ? QString() : path(chosen);
        Prompt::setNextFileName(file);
        if (!file.isEmpty())
            Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);
        QCOMPARE(Prompt::lastTitle(), title);
        QCOMPARE(Prompt::lastText(), text.arg(file));
        QFile archive(file);
        QCOMPARE(archive.open(QIODevice::ReadOnly), title == u"Backup Complete");
        if (archive.isOpen()) {
            const QByteArray bytes = archive.readAll();
            ZipArchiveReader reader(bytes);
            QVERIFY(reader.open() && reader.indexOf("accounts/acc.json") >= 0);
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
        Prompt::setNextFileName(path(u"b.zip"_s));
        Prompt::setNextAnswer(QMessageBox::Ok);
        QTest::mouseClick(button("exportBackupButton"), Qt::LeftButton);

        // Changed and newer here, yet Replace takes the backup's.
        Account renamed = *s()->accounts()->getById(u"acc"_s);
        renamed.name = u"Renamed"_s;
        renamed.updatedAt = utcNow().addDays(1);
        QVERIFY(s()->accounts()->update(renamed) && s()->accounts()->restore(u"gone"_s));
        m_screen->refresh();

        QSignalSpy reload(&*m_screen, &SettingsScreen::deletedAccountRestored);
        Prompt::setNextOpenFileNames({path(u"b.zip"_s)});
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
        // file: "" cancels the file dialog; mode: "" cancels the mode choice; text: empty, not looked at.
        addColumns<QString, QString, QString, QString>({"file", "mode", "title", "text"});
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
        QFile notes(path(file));
        if (!file.isEmpty() && file != u"missing.zip" && notes.open(QIODevice::WriteOnly))
            notes.write("Shopping list: milk, eggs.");
        Prompt::setNextOpenFileNames(file.isEmpty() ? QStringList() : QStringList{path(file)});
        if (!file.isEmpty())
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
        // A scale between the offered sizes shows as the default.
        for (const auto &[scale, shown] : {
                 std::pair{110, "Default"},
                 std::pair{115, "Medium" }
        }) {
            s()->themeManager()->setFontScale(scale);
            start();
            QCOMPARE(child<QComboBox>(&*m_screen, "fontSizeCombo")->currentText(), QLatin1String(shown));
        }
        s()->themeManager()->setFontScale(100);
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
        child<QCheckBox>(&*m_screen, "newestFirstCheck")->setChecked(true);
        QVERIFY(preferences->getBool(u"registerTwoLine"_s, false) &&
                preferences->getBool(u"registerNewestFirst"_s, false));
    }
};

OMBREL_GUI_TEST_MAIN(TstSettingsScreen)
#include "tst_settingsscreen.moc"
