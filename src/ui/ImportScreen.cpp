#include "ui/ImportScreen.h"

#include "core/AppState.h"
#include "core/Dates.h"
#include "core/Identifiers.h"
#include "data/AccountRepository.h"
#include "data/TransactionRepository.h"
#include "services/CsvImportOptions.h"
#include "services/ImportService.h"
#include "ui/AccountFormDialog.h"
#include "ui/Prompt.h"
#include "ui/UiStyle.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

const QString kCreate = QStringLiteral("__create__");
const QString kSkip = QStringLiteral("__skip__");
constexpr int kPreviewRows = 5;
constexpr int kColumnLabelChars = 20;

QString fileName(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

// The name a created account takes from a file without account header: "bank.2024.qif" is "bank".
QString baseName(const QString &path)
{
    return fileName(path).section(QLatin1Char('.'), 0, 0);
}

QLabel *sectionHeading(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    applyFontRole(label, 3);
    return label;
}

// Sets the index to the item whose data is value; false when there is none.
bool selectByData(QComboBox *combo, const QVariant &value)
{
    const int index = combo->findData(value);
    if (index < 0)
        return false;
    combo->setCurrentIndex(index);
    return true;
}

} // namespace

ImportScreen::ImportScreen(AppState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
{
    setupUi();
    connectSignals();
    refresh();
    onFormatChanged();
}

void ImportScreen::setupUi()
{
    auto *outer = new QVBoxLayout(this);
    m_pages = new QStackedWidget(this);
    outer->addWidget(m_pages);

    auto *form = new QWidget(m_pages);
    auto *layout = new QVBoxLayout(form);
    auto *title = new QLabel(tr("Import Transactions"), form);
    applyFontRole(title, 4);
    layout->addWidget(title);

    auto *choices = new QFormLayout;
    auto *formats = new QWidget(form);
    auto *formatsLayout = new QHBoxLayout(formats);
    formatsLayout->setContentsMargins(0, 0, 0, 0);
    m_csvRadio = new QRadioButton(tr("CSV"), formats);
    m_csvRadio->setObjectName(QStringLiteral("csvRadio"));
    m_csvRadio->setChecked(true);
    m_qifRadio = new QRadioButton(tr("QIF"), formats);
    m_qifRadio->setObjectName(QStringLiteral("qifRadio"));
    auto *group = new QButtonGroup(formats);
    group->addButton(m_csvRadio);
    group->addButton(m_qifRadio);
    formatsLayout->addWidget(m_csvRadio);
    formatsLayout->addWidget(m_qifRadio);
    formatsLayout->addStretch();
    auto *formatLabel = new QLabel(tr("&Format:"), form);
    formatLabel->setBuddy(m_csvRadio);
    choices->addRow(formatLabel, formats);

    m_accountCombo = new QComboBox(form);
    m_accountCombo->setObjectName(QStringLiteral("accountCombo"));
    m_accountLabel = new QLabel(tr("&Account:"), form);
    m_accountLabel->setBuddy(m_accountCombo);
    choices->addRow(m_accountLabel, m_accountCombo);

    auto *file = new QWidget(form);
    auto *fileLayout = new QHBoxLayout(file);
    fileLayout->setContentsMargins(0, 0, 0, 0);
    m_fileLabel = new QLabel(tr("No file selected"), file);
    m_fileLabel->setObjectName(QStringLiteral("fileLabel"));
    m_browseButton = new QPushButton(tr("Browse..."), file);
    m_browseButton->setObjectName(QStringLiteral("browseButton"));
    fileLayout->addWidget(m_fileLabel, 1);
    fileLayout->addWidget(m_browseButton);
    choices->addRow(tr("File:"), file);
    layout->addLayout(choices);

    m_csvSection = buildCsvSection();
    layout->addWidget(m_csvSection, 1);
    m_qifSection = buildQifSection();
    layout->addWidget(m_qifSection, 1);
    layout->addStretch(0);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    m_importButton = new QPushButton(tr("Import"), form);
    m_importButton->setObjectName(QStringLiteral("importButton"));
    applyPrimaryButtonStyle(m_importButton);
    buttons->addWidget(m_importButton);
    layout->addLayout(buttons);
    m_pages->addWidget(form);

    auto *result = new QWidget(m_pages);
    auto *resultLayout = new QVBoxLayout(result);
    m_resultText = new QPlainTextEdit(result);
    m_resultText->setObjectName(QStringLiteral("resultText"));
    m_resultText->setReadOnly(true);
    resultLayout->addWidget(m_resultText, 1);
    auto *doneRow = new QHBoxLayout;
    doneRow->addStretch();
    m_doneButton = new QPushButton(tr("Done"), result);
    m_doneButton->setObjectName(QStringLiteral("doneButton"));
    applyPrimaryButtonStyle(m_doneButton);
    doneRow->addWidget(m_doneButton);
    resultLayout->addLayout(doneRow);
    m_pages->addWidget(result);
}

QWidget *ImportScreen::buildCsvSection()
{
    auto *section = new QWidget(this);
    section->setObjectName(QStringLiteral("csvSection"));
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(sectionHeading(tr("CSV Column Mapping:"), section));

    auto *mapping = new QFormLayout;
    const auto combo = [section](const char *name) {
        auto *box = new QComboBox(section);
        box->setObjectName(QString::fromLatin1(name));
        return box;
    };
    m_dateColumn = combo("dateColumnCombo");
    m_payeeColumn = combo("payeeColumnCombo");
    m_amountColumn = combo("amountColumnCombo");
    m_memoColumn = combo("memoColumnCombo");
    m_categoryColumn = combo("categoryColumnCombo");
    m_dateFormat = combo("dateFormatCombo");
    m_dateFormat->addItem(tr("Auto-detect"), QString());
    for (const char *format : {"MM/dd/yyyy", "M/d/yyyy", "M/dd/yyyy", "dd/MM/yyyy", "yyyy-MM-dd", "MM/dd/yy"})
        m_dateFormat->addItem(QString::fromLatin1(format), QString::fromLatin1(format));
    mapping->addRow(tr("Date column:"), m_dateColumn);
    mapping->addRow(tr("Payee column:"), m_payeeColumn);
    mapping->addRow(tr("Amount column:"), m_amountColumn);
    mapping->addRow(tr("Memo column:"), m_memoColumn);
    mapping->addRow(tr("Category column:"), m_categoryColumn);
    mapping->addRow(tr("Date format:"), m_dateFormat);
    m_headerCheck = new QCheckBox(tr("First row is header"), section);
    m_headerCheck->setObjectName(QStringLiteral("headerCheck"));
    m_headerCheck->setChecked(true);
    mapping->addRow(QString(), m_headerCheck);
    layout->addLayout(mapping);

    m_preview = new QTableWidget(section);
    m_preview->setObjectName(QStringLiteral("previewTable"));
    m_preview->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_preview->setWordWrap(false);
    m_preview->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(m_preview, 1);
    return section;
}

QWidget *ImportScreen::buildQifSection()
{
    auto *section = new QWidget(this);
    section->setObjectName(QStringLiteral("qifSection"));
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(sectionHeading(tr("QIF source accounts:"), section));
    auto *note = new QLabel(tr("Choose where each Quicken account should be imported. Accounts mapped across "
                               "the selected files will have their transfers linked automatically."),
                            section);
    note->setWordWrap(true);
    layout->addWidget(note);

    // An export of many accounts gives many rows; they scroll rather than push the button away.
    auto *scroll = new QScrollArea(section);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto *rows = new QWidget(scroll);
    m_qifMapRows = new QFormLayout(rows);
    m_qifMapRows->setObjectName(QStringLiteral("qifMapRowsLayout"));
    m_qifMapRows->setContentsMargins(0, 0, 0, 0);
    scroll->setWidget(rows);
    layout->addWidget(scroll, 1);
    section->hide();
    return section;
}

void ImportScreen::connectSignals()
{
    connect(m_csvRadio, &QRadioButton::toggled, this, [this](bool checked) {
        if (checked)
            onFormatChanged();
    });
    connect(m_qifRadio, &QRadioButton::toggled, this, [this](bool checked) {
        if (checked)
            onFormatChanged();
    });
    connect(m_browseButton, &QPushButton::clicked, this, &ImportScreen::selectFile);
    connect(m_importButton, &QPushButton::clicked, this, &ImportScreen::runImport);
    connect(m_doneButton, &QPushButton::clicked, this, &ImportScreen::onDone);
    connect(m_headerCheck, &QCheckBox::toggled, this, &ImportScreen::markHeaderRow);
}

void ImportScreen::refresh()
{
    const QVariant current = m_accountCombo->currentData();
    m_accountCombo->clear();
    for (const Account &account : m_state->accounts()->getAll())
        m_accountCombo->addItem(account.name, account.id);
    if (current.isValid())
        selectByData(m_accountCombo, current);
}

bool ImportScreen::isQif() const
{
    return m_qifRadio->isChecked();
}

void ImportScreen::onFormatChanged()
{
    const bool qif = isQif();
    m_accountLabel->setVisible(!qif);
    m_accountCombo->setVisible(!qif);
    m_csvSection->setVisible(!qif);
    // The QIF section shows once an analysis has found accounts to map.
    m_qifSection->hide();
    clearMappingRows();
    // A file chosen for the other format would be imported as this one.
    clearFileChoice();
}

void ImportScreen::clearFileChoice()
{
    m_csvPath.clear();
    m_qifPaths.clear();
    m_previewRows.clear();
    m_fileLabel->setText(tr("No file selected"));
    m_fileLabel->setToolTip(QString());
    m_preview->clear();
    m_preview->setRowCount(0);
    m_preview->setColumnCount(0);
    updateImportButton();
}

// Import with nothing chosen would do nothing; the button says so before it is pressed.
void ImportScreen::updateImportButton()
{
    m_importButton->setEnabled(isQif() ? !m_qifPaths.isEmpty() : !m_csvPath.isEmpty());
}

bool ImportScreen::refuseFiles(const QStringList &reasons)
{
    if (reasons.isEmpty())
        return false;
    Prompt::warning(this, tr("File Not Imported"), reasons.join(QStringLiteral("\n\n")), QMessageBox::Ok,
                    QMessageBox::Ok);
    return true;
}

void ImportScreen::selectFile()
{
    clearMappingRows();
    m_qifSection->hide();

    if (!isQif()) {
        const QString path =
            Prompt::openFileName(this, tr("Select File"), tr("CSV Files (*.csv);;All Files (*)"));
        if (path.isEmpty())
            return;
        m_csvPath = path;
        m_qifPaths.clear();
        m_fileLabel->setText(fileName(path));
        m_fileLabel->setToolTip(path);
        if (!loadPreview())
            clearFileChoice();
        updateImportButton();
        return;
    }

    const QStringList paths = Prompt::openFileNames(this, tr("Select QIF File(s)"), tr("QIF Files (*.qif)"));
    if (paths.isEmpty())
        return;
    m_qifPaths = paths;
    m_csvPath.clear();
    if (paths.size() == 1) {
        m_fileLabel->setText(fileName(paths.first()));
        m_fileLabel->setToolTip(paths.first());
    } else {
        m_fileLabel->setText(tr("%n file(s) selected", nullptr, int(paths.size())));
        m_fileLabel->setToolTip(paths.join(QLatin1Char('\n')));
    }

    QProgressDialog progress(tr("Analyzing QIF file(s)..."), QString(), 0, 0, this);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(200);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    const QifAnalysis analysis = m_state->importService()->analyzeQifFiles(paths);
    progress.close();

    // The import leaves refused files out as well; only when none is left is there nothing to import.
    if (refuseFiles(analysis.refusedFiles) && analysis.refusedFiles.size() == paths.size())
        clearFileChoice();
    if (!analysis.sources.isEmpty()) {
        buildMappingRows(analysis.sources);
        m_qifSection->show();
    }
    updateImportButton();
}

// False when the file is refused.
bool ImportScreen::loadPreview()
{
    // The preview reads UTF-8 only; the import itself decodes as the file needs.
    QFile file(m_csvPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return true;
    const QString text = QString::fromUtf8(file.readAll());
    QString refusal = ImportService::textRefusal(m_csvPath, text);
    const QList<QStringList> rows =
        refusal.isEmpty() ? ImportService::parseCsv(text, m_csvPath, &refusal) : QList<QStringList>();
    if (refuseFiles(refusal.isEmpty() ? QStringList() : QStringList{refusal}))
        return false;
    if (rows.isEmpty())
        return true;
    m_previewRows = rows;
    const int columns = int(rows.first().size());
    fillColumnCombos(columns);
    if (columns >= 3) {
        m_dateColumn->setCurrentIndex(0);
        m_payeeColumn->setCurrentIndex(1);
        m_amountColumn->setCurrentIndex(2);
    }
    fillPreviewTable(columns);
    return true;
}

void ImportScreen::fillColumnCombos(int columns)
{
    const QStringList &first = m_previewRows.first();
    QStringList labels;
    for (int c = 0; c < columns; ++c) {
        labels.append(c < first.size() ? tr("Col %1: %2").arg(c).arg(first.at(c).left(kColumnLabelChars))
                                       : tr("Column %1").arg(c));
    }
    const auto fill = [&](QComboBox *combo, bool withNone) {
        const int current = combo->currentIndex();
        combo->clear();
        if (withNone)
            combo->addItem(tr("(none)"), -1);
        for (int c = 0; c < columns; ++c)
            combo->addItem(labels.at(c), c);
        if (current >= 0 && current < combo->count())
            combo->setCurrentIndex(current);
    };
    fill(m_dateColumn, false);
    fill(m_payeeColumn, false);
    fill(m_amountColumn, false);
    fill(m_memoColumn, true);
    fill(m_categoryColumn, true);
}

void ImportScreen::fillPreviewTable(int columns)
{
    const int rows = std::min(kPreviewRows, int(m_previewRows.size()));
    m_preview->clear();
    m_preview->setColumnCount(columns);
    m_preview->setRowCount(rows);
    QStringList headers;
    for (int c = 0; c < columns; ++c)
        headers.append(tr("Col %1").arg(c));
    m_preview->setHorizontalHeaderLabels(headers);
    for (int r = 0; r < rows; ++r) {
        const QStringList &row = m_previewRows.at(r);
        for (int c = 0; c < columns && c < row.size(); ++c)
            m_preview->setItem(r, c, new QTableWidgetItem(row.at(c)));
    }
    markHeaderRow();
}

// The first row stays in the preview either way, but a header is labelled and set apart, so that it
// does not read as a transaction about to be imported.
void ImportScreen::markHeaderRow()
{
    const int rows = m_preview->rowCount();
    if (rows == 0)
        return;
    const bool header = m_headerCheck->isChecked();
    QStringList labels;
    for (int r = 0; r < rows; ++r)
        labels << (header && r == 0 ? tr("Header") : QString::number(header ? r : r + 1));
    m_preview->setVerticalHeaderLabels(labels);
    QFont font = m_preview->font();
    font.setBold(header);
    for (int c = 0; c < m_preview->columnCount(); ++c) {
        if (QTableWidgetItem *item = m_preview->item(0, c)) {
            item->setFont(font);
            item->setForeground(header ? m_preview->palette().brush(QPalette::PlaceholderText) : QBrush());
            item->setToolTip(header ? tr("Column names: this row is not imported") : QString());
        }
    }
}

void ImportScreen::buildMappingRows(const QList<QifSourceAccount> &sources)
{
    const QList<Account> accounts = m_state->accounts()->getAll();
    for (const QifSourceAccount &source : sources) {
        auto *combo = new QComboBox(m_qifMapRows->parentWidget());
        // A file without account header is offered under its own name, not the note behind it.
        const QString createName = source.noAccountHeader ? fileName(source.key) : source.displayName;
        combo->addItem(tr("\u2014 Create new account \"%1\" \u2014").arg(createName), kCreate);
        combo->addItem(tr("\u2014 Skip these transactions \u2014"), kSkip);
        for (const Account &account : accounts)
            combo->addItem(account.name, account.id);
        if (!source.noAccountHeader) {
            for (const Account &account : accounts) {
                if (account.name.compare(source.key, Qt::CaseInsensitive) == 0) {
                    selectByData(combo, account.id);
                    break;
                }
            }
        }
        m_qifMapRows->addRow(source.displayName, combo);
        m_mapRows.append({source.key, source.displayName, source.suggestedType, combo});
    }
}

void ImportScreen::clearMappingRows()
{
    while (m_qifMapRows->rowCount() > 0)
        m_qifMapRows->removeRow(0);
    m_mapRows.clear();
}

bool ImportScreen::ensureTargetAccount()
{
    if (!m_accountCombo->currentData().toString().isEmpty())
        return true;
    if (Prompt::question(this, tr("No target account"),
                         tr("Pick an account to import into, or create one now."),
                         QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) != QMessageBox::Yes)
        return false;
    AccountFormDialog dialog(this);
    if (Prompt::exec(&dialog) != QDialog::Accepted)
        return false;
    Account account = dialog.account();
    if (account.name.isEmpty())
        return false;
    // As in the main window: the opening balance is a transaction, not a stored starting balance.
    const qint64 openingBalance = account.startingBalance;
    account.startingBalance = 0;
    if (!m_state->accounts()->insert(account))
        return false;
    if (openingBalance != 0) {
        Transaction opening;
        opening.id = newId();
        opening.accountId = account.id;
        opening.date = dialog.openingDate();
        opening.payee = tr("Opening Balance");
        opening.amount = openingBalance;
        opening.cleared = true;
        opening.reconciled = true;
        opening.createdAt = utcNow();
        opening.updatedAt = opening.createdAt;
        m_state->transactions()->insert(opening);
    }
    refresh();
    return selectByData(m_accountCombo, account.id);
}

QHash<QString, QString> ImportScreen::buildAccountMap()
{
    QHash<QString, QString> map;
    for (const QifMapRow &row : std::as_const(m_mapRows)) {
        const QString choice = row.combo->currentData().toString();
        if (choice == kSkip) {
            map.insert(row.key, QString());
        } else if (choice == kCreate) {
            Account account;
            account.id = newId();
            account.name = row.displayName;
            if (row.key != row.displayName) {
                account.name = baseName(row.key);
                if (account.name.isEmpty())
                    account.name = row.displayName;
            }
            account.accountType = AccountType(row.suggestedType);
            account.createdAt = utcNow();
            account.updatedAt = account.createdAt;
            map.insert(row.key, m_state->accounts()->insert(account) ? account.id : QString());
        } else {
            map.insert(row.key, choice);
        }
    }
    return map;
}

CsvImportOptions ImportScreen::csvOptions() const
{
    CsvImportOptions options;
    options.dateColumn = m_dateColumn->currentData().isValid() ? m_dateColumn->currentData().toInt() : -1;
    options.payeeColumn = m_payeeColumn->currentData().isValid() ? m_payeeColumn->currentData().toInt() : -1;
    options.amountColumn =
        m_amountColumn->currentData().isValid() ? m_amountColumn->currentData().toInt() : -1;
    options.memoColumn = m_memoColumn->currentData().isValid() ? m_memoColumn->currentData().toInt() : -1;
    options.categoryColumn =
        m_categoryColumn->currentData().isValid() ? m_categoryColumn->currentData().toInt() : -1;
    options.hasHeader = m_headerCheck->isChecked();
    options.dateFormat = m_dateFormat->currentData().toString();
    return options;
}

int ImportScreen::countUnreadableFiles() const
{
    int unreadable = 0;
    for (const QString &path : isQif() ? m_qifPaths : QStringList{m_csvPath}) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            ++unreadable;
    }
    return unreadable;
}

void ImportScreen::runImport()
{
    const bool qif = isQif();
    if ((qif && m_qifPaths.isEmpty()) || (!qif && m_csvPath.isEmpty()))
        return;
    if (!qif && !ensureTargetAccount())
        return;
    const int unreadable = countUnreadableFiles();

    ImportService *service = m_state->importService();
    QProgressDialog progress(tr("Importing..."), QString(), 0, 0, this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    // The dialog's own setValue would run the event loop with user input; the service already lets
    // it run without, so the value goes straight to the bar.
    auto *bar = new QProgressBar(&progress);
    progress.setBar(bar);
    const QMetaObject::Connection started =
        connect(service, &ImportService::importStarted, &progress, &QProgressDialog::setMaximum);
    const QMetaObject::Connection advanced = connect(service, &ImportService::importProgress, bar,
                                                     [bar](int current, int) { bar->setValue(current); });

    ImportResult result;
    if (qif)
        result = service->importQifFiles(m_qifPaths, buildAccountMap());
    else
        result = service->importCsvFile(m_csvPath, m_accountCombo->currentData().toString(), csvOptions());

    disconnect(started);
    disconnect(advanced);
    progress.close();

    m_resultText->setPlainText(resultText(result, unreadable));
    m_pages->setCurrentIndex(1);
}

QString ImportScreen::resultText(const ImportResult &result, int unreadableFiles)
{
    QStringList lines;
    if (result.aborted) {
        lines << tr("Import failed.") << QString()
              << tr("A database error stopped the import and all changes were rolled back. No transactions "
                    "were added.");
        return lines.join(QLatin1Char('\n'));
    }
    lines << tr("Import complete!") << QString()
          << tr("%n transaction(s) imported", nullptr, result.imported);
    if (result.transfersLinked > 0) {
        lines << tr("%n transfer(s) linked across accounts", nullptr, result.transfersLinked);
        if (result.retroactiveLinks > 0)
            lines << tr("  (including %n linked to previously imported row(s))", nullptr,
                        result.retroactiveLinks);
    }
    if (result.duplicates > 0)
        lines << tr("%n duplicate(s) skipped", nullptr, result.duplicates);
    if (result.skippedRecords > 0)
        lines << tr("%n record(s) skipped (unparseable)", nullptr, result.skippedRecords);
    if (result.metadataRecords > 0)
        lines << tr("%n metadata record(s) skipped", nullptr, result.metadataRecords);
    if (result.unmappedRecords > 0)
        lines << tr("%n record(s) skipped (unmapped source account)", nullptr, result.unmappedRecords);
    if (result.insertFailures > 0)
        lines << tr("%n record(s) skipped (database error \u2014 see log)", nullptr, result.insertFailures);
    if (result.splitLinesDropped > 0)
        lines << tr("%n split line(s) left out (no category)", nullptr, result.splitLinesDropped);
    if (unreadableFiles > 0)
        lines << tr("%n file(s) could not be opened", nullptr, unreadableFiles);
    for (const QString &refusal : result.refusedFiles)
        lines << QString() << refusal;
    return lines.join(QLatin1Char('\n'));
}

void ImportScreen::onDone()
{
    emit importCompleted();
    reset();
    close();
}

void ImportScreen::reset()
{
    m_csvRadio->setChecked(true);
    onFormatChanged();
    m_resultText->clear();
    m_pages->setCurrentIndex(0);
    updateImportButton();
}
