#pragma once

#include "services/ImportResult.h"
#include "services/QifSourceAccount.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class AppState;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTableWidget;
struct CsvImportOptions;

// Leads the user through an import: the format, the file or files, the CSV columns or the QIF
// accounts and where each goes, then the counters of what happened. Page 0 is the form, page 1 the
// result.
class ImportScreen : public QWidget {
    Q_OBJECT
public:
    explicit ImportScreen(AppState *state, QWidget *parent = nullptr);

    // Reloads the target accounts, keeping the one chosen where it still exists.
    void refresh();

    // The result page's text: each counter that is not 0 on a line of its own. unreadableFiles counts
    // the chosen files that could not be opened.
    static QString resultText(const ImportResult &result, int unreadableFiles = 0);

signals:
    void importCompleted();

private slots:
    void selectFile();
    void runImport();

private:
    struct QifMapRow {
        QString key;
        QString displayName;
        qint32 suggestedType = 0;
        QComboBox *combo = nullptr;
    };

    void setupUi();
    QWidget *buildCsvSection();
    QWidget *buildQifSection();
    void connectSignals();

    bool isQif() const;
    void onFormatChanged();
    void clearFileChoice();
    void updateImportButton();
    // Leaves the files out with a warning that says why; true when there was anything to say.
    bool refuseFiles(const QStringList &reasons);
    bool loadPreview();
    void markHeaderRow();
    void fillColumnCombos(int columns);
    void fillPreviewTable(int columns);
    void buildMappingRows(const QList<QifSourceAccount> &sources);
    void clearMappingRows();
    // The CSV flow with no account to import into: offers to create one, and selects it.
    bool ensureTargetAccount();
    QHash<QString, QString> buildAccountMap();
    CsvImportOptions csvOptions() const;
    int countUnreadableFiles() const;
    void onDone();
    void reset();

    AppState *m_state = nullptr;
    QString m_csvPath;
    QStringList m_qifPaths;
    QList<QStringList> m_previewRows;
    QList<QifMapRow> m_mapRows;

    QStackedWidget *m_pages = nullptr;
    QRadioButton *m_csvRadio = nullptr;
    QRadioButton *m_qifRadio = nullptr;
    QLabel *m_accountLabel = nullptr;
    QComboBox *m_accountCombo = nullptr;
    QLabel *m_fileLabel = nullptr;
    QPushButton *m_browseButton = nullptr;
    QWidget *m_csvSection = nullptr;
    QComboBox *m_dateColumn = nullptr;
    QComboBox *m_payeeColumn = nullptr;
    QComboBox *m_amountColumn = nullptr;
    QComboBox *m_memoColumn = nullptr;
    QComboBox *m_categoryColumn = nullptr;
    QComboBox *m_dateFormat = nullptr;
    QCheckBox *m_headerCheck = nullptr;
    QTableWidget *m_preview = nullptr;
    QWidget *m_qifSection = nullptr;
    QFormLayout *m_qifMapRows = nullptr;
    QPushButton *m_importButton = nullptr;
    QPlainTextEdit *m_resultText = nullptr;
    QPushButton *m_doneButton = nullptr;
};
