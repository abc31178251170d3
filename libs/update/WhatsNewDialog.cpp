#include "update/WhatsNewDialog.h"

#include "update/NotesBrowser.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace HalcUpdate {

WhatsNewDialog::WhatsNewDialog(const QString &applicationName, const QString &version,
                               const QString &markdown, QWidget *parent, const QUrl &downloadUrl)
    : QDialog(parent)
    , m_downloadUrl(downloadUrl)
{
    setupUi(applicationName, version, markdown);
}

void WhatsNewDialog::setupUi(const QString &applicationName, const QString &version, const QString &markdown)
{
    setWindowTitle(tr("What's New in %1 %2").arg(applicationName, version));
    resize(560, 480);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);

    auto *heading = new QLabel(tr("What's new in %1 %2").arg(applicationName, version), this);
    heading->setObjectName(QStringLiteral("headingLabel"));
    QFont headingFont = heading->font();
    headingFont.setBold(true);
    headingFont.setPointSizeF(headingFont.pointSizeF() * 1.25);
    heading->setFont(headingFont);
    heading->setWordWrap(true);
    layout->addWidget(heading);

    m_notes = new NotesBrowser(this);
    m_notes->setNotes(markdown);
    layout->addWidget(m_notes, 1);

    auto *running = new QLabel(tr("You are running version %1").arg(version), this);
    running->setStyleSheet(QStringLiteral("color: gray; font-size: 11px;"));
    layout->addWidget(running);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (m_downloadUrl.isValid()) {
        QPushButton *download =
            buttons->addButton(tr("Download %1").arg(version), QDialogButtonBox::ActionRole);
        download->setObjectName(QStringLiteral("downloadButton"));
        connect(download, &QPushButton::clicked, this, [this] { QDesktopServices::openUrl(m_downloadUrl); });
    }
    layout->addWidget(buttons);
}

void WhatsNewDialog::setMarkdown(const QString &markdown)
{
    m_notes->setNotes(markdown);
}

} // namespace HalcUpdate
