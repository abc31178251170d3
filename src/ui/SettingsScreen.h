#pragma once

#include <QList>
#include <QWidget>

class AppState;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

// The "Preferences" window: a list of pages on the left (General, Register, Data & Sync, About) and the
// chosen page beside it. Every control takes effect the moment it is changed; there is no OK button.
class SettingsScreen : public QWidget {
    Q_OBJECT
public:
    explicit SettingsScreen(AppState *state, QWidget *parent = nullptr);

    // Reads the sync status and the deleted accounts anew; the main window calls it on every opening.
    void refresh();

signals:
    // Also after a restore from a backup: either way the main window has accounts to reload.
    void deletedAccountRestored();

public slots:
    void onCategoryChanged(int row);
    void onThemeChanged(int index);
    void onFontScaleChanged(int index);
    void onWeekStartChanged(int index);
    void onLanguageChanged(int index);
    void onRegisterOrderChanged(bool newestFirst);
    void onTwoLineModeChanged(bool twoLine);
    void restoreSelectedAccount();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setupUi();
    QWidget *buildGeneralPage();
    QWidget *buildRegisterPage();
    QWidget *buildDataPage();
    QWidget *buildAboutPage();
    // A scrolling page with its title and, if given, a description; sections go into the layout.
    QVBoxLayout *newPage(QWidget **page, const QString &title, const QString &description, int titleRole = 4);
    // A section: a line above it unless it is the page's first, its heading, an optional description.
    QVBoxLayout *addSection(QVBoxLayout *page, const QString &heading, const QString &description,
                            QWidget **section = nullptr);
    void loadControls();
    void refreshSyncStatus();
    void refreshDeletedAccounts();
    void applyColors();

    void syncNow();
    void forceFullSync();
    // The buttons come back when the cycle they started has ended, however it ended.
    void startWatchedSync();
    void releaseSyncButtons();

    void exportBackup();
    void importBackup();

    AppState *m_state = nullptr;
    QListWidget *m_categoryList = nullptr;
    QStackedWidget *m_pages = nullptr;
    QComboBox *m_theme = nullptr;
    QComboBox *m_fontSize = nullptr;
    QComboBox *m_weekStart = nullptr;
    QComboBox *m_language = nullptr;
    QCheckBox *m_twoLine = nullptr;
    QCheckBox *m_newestFirst = nullptr;
    QLabel *m_syncStatus = nullptr;
    QLabel *m_lastSync = nullptr;
    QLabel *m_syncError = nullptr;
    QPushButton *m_syncNow = nullptr;
    QPushButton *m_forceFullSync = nullptr;
    QPushButton *m_exportButton = nullptr;
    QPushButton *m_importButton = nullptr;
    QWidget *m_deletedSection = nullptr;
    QListWidget *m_deletedList = nullptr;
    QPushButton *m_restoreButton = nullptr;
    QMetaObject::Connection m_syncWatch;
    QList<QFrame *> m_separators;
    QList<QLabel *> m_links;
};
