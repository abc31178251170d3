#include "update/UpdateDialog.h"

#include "update/NotesBrowser.h"
#include "update/ReleaseNotesFetcher.h"

#include <QDebug>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace HalcUpdate {

UpdateDialog::UpdateDialog(const Artifact &artifact, const QString &applicationName,
                           const QString &currentVersion, QWidget *parent)
    : QDialog(parent)
    , m_artifact(artifact)
    , m_downloadUrl(artifact.url)
{
    setupUi(applicationName, currentVersion);
    if (m_notes) {
        auto *fetcher =
            new ReleaseNotesFetcher(artifact.releaseNotesUrl, QStringLiteral("update-dialog"), this);
        connect(fetcher, &ReleaseNotesFetcher::notesReady, this, &UpdateDialog::onNotesReady);
        connect(fetcher, &ReleaseNotesFetcher::notesUnavailable, this, &UpdateDialog::onNotesUnavailable);
        fetcher->fetch();
    }
}

void UpdateDialog::setupUi(const QString &applicationName, const QString &currentVersion)
{
    setWindowTitle(tr("Update available"));
    setMinimumWidth(440);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);

    auto *heading = new QLabel(tr("A new version of %1 is available.").arg(applicationName), this);
    heading->setObjectName(QStringLiteral("headingLabel"));
    QFont headingFont = heading->font();
    headingFont.setBold(true);
    headingFont.setPointSizeF(headingFont.pointSizeF() * 1.25);
    heading->setFont(headingFont);
    heading->setWordWrap(true);
    layout->addWidget(heading);

    auto *versions = new QLabel(
        tr("You have version %1. The latest version is %2.").arg(currentVersion, m_artifact.version), this);
    versions->setWordWrap(true);
    layout->addWidget(versions);

    if (m_artifact.releaseNotesUrl.isValid()) {
        m_notes = new NotesBrowser(this);
        m_notes->setMinimumHeight(150);
        m_notes->setPlaceholderText(tr("Loading release notes…"));
        layout->addWidget(m_notes, 1);
    } else {
        layout->addSpacing(12);
        layout->addStretch(1);
    }

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *download = buttons->addButton(tr("Download"), QDialogButtonBox::AcceptRole);
    download->setObjectName(QStringLiteral("downloadButton"));
    download->setDefault(true);
    connect(download, &QPushButton::clicked, this, &UpdateDialog::onDownloadClicked);
    if (!m_artifact.mandatory) {
        QPushButton *later = buttons->addButton(tr("Later"), QDialogButtonBox::RejectRole);
        later->setObjectName(QStringLiteral("laterButton"));
        connect(later, &QPushButton::clicked, this, &QDialog::reject);
    }
    layout->addWidget(buttons);
}

void UpdateDialog::onDownloadClicked()
{
    if (m_downloadUrl.isValid()) {
        if (!QDesktopServices::openUrl(m_downloadUrl))
            qWarning() << "HalcUpdate: QDesktopServices::openUrl failed for:" << m_downloadUrl.toString();
    } else {
        qWarning() << "HalcUpdate: download URL is empty or invalid";
    }
    accept();
}

void UpdateDialog::onNotesReady(const QString &markdown)
{
    if (m_notes)
        m_notes->setNotes(markdown);
}

void UpdateDialog::onNotesUnavailable()
{
    if (m_notes)
        m_notes->setNotes(tr("*Release notes are not available for this version.*"));
}

} // namespace HalcUpdate
