#include "update/WhatsNew.h"

#include "update/NotesBrowser.h"
#include "update/ReleaseNotesFetcher.h"
#include "update/Version.h"
#include "update/WhatsNewDialog.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSettings>

namespace HalcUpdate {

bool showWhatsNewIfUpgraded(const Config &config, const QString &applicationName, QWidget *parent,
                            const std::function<QString()> &olderLastShownVersion)
{
    QSettings settings;
    const QString settingsKey = QString::fromLatin1(kWhatsNewSettingsKey);
    QString lastShown = settings.value(settingsKey).toString();
    if (lastShown.isEmpty() && olderLastShownVersion) {
        lastShown = olderLastShownVersion();
        if (!lastShown.isEmpty())
            settings.setValue(settingsKey, lastShown);
    }
    if (!(Version::fromString(lastShown) < Version::fromString(config.currentVersion)))
        return false;

    // Written before anything shows, so that a crash while the dialog is up does not show it twice.
    settings.setValue(settingsKey, config.currentVersion);
    settings.sync();
    showWhatsNewWhenNotesArrive(config, applicationName, parent);
    return true;
}

void showWhatsNewWhenNotesArrive(const Config &config, const QString &applicationName, QWidget *parent)
{
    auto *fetcher = new ReleaseNotesFetcher(config, QCoreApplication::instance());
    const QPointer<QWidget> window(parent);
    QObject::connect(fetcher, &ReleaseNotesFetcher::notesReady, fetcher,
                     [fetcher, window, config, applicationName](const QString &markdown) {
                         fetcher->deleteLater();
                         auto *dialog = new WhatsNewDialog(applicationName, config.currentVersion, markdown,
                                                           window.data());
                         dialog->setAttribute(Qt::WA_DeleteOnClose);
                         dialog->show();
                     });
    QObject::connect(fetcher, &ReleaseNotesFetcher::notesUnavailable, fetcher, &QObject::deleteLater);
    fetcher->fetch();
}

WhatsNewDialog *showWhatsNew(const Config &config, const QString &applicationName, QWidget *parent)
{
    auto *dialog = new WhatsNewDialog(applicationName, config.currentVersion, QString(), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->notesBrowser()->setPlaceholderText(
        QCoreApplication::translate("HalcUpdate", "Loading release notes…"));
    auto *fetcher = new ReleaseNotesFetcher(config, dialog);
    QObject::connect(fetcher, &ReleaseNotesFetcher::notesReady, dialog, &WhatsNewDialog::setMarkdown);
    QObject::connect(fetcher, &ReleaseNotesFetcher::notesUnavailable, dialog, [dialog] {
        dialog->setMarkdown(
            QCoreApplication::translate("HalcUpdate", "*Release notes are not available for this version.*"));
    });
    fetcher->fetch();
    dialog->show();
    return dialog;
}

} // namespace HalcUpdate
