#include "update/UpdateChecks.h"

#include "update/Client.h"
#include "update/UpdateDialog.h"
#include "update/Version.h"

#include <QCoreApplication>
#include <QDebug>
#include <QPointer>

namespace HalcUpdate {

namespace {

constexpr int kMessageMsec = 5000;

} // namespace

Client *checkAtStartup(const Config &config, const QString &applicationName, QWidget *window,
                       const DismissedVersionStore &dismissed, QObject *owner)
{
    auto *client = new Client(config, owner);
    const QPointer<QWidget> context(window);
    // The window is the context: an offer that comes after it closed shows nothing.
    QObject::connect(client, &Client::updateAvailable, window ? static_cast<QObject *>(window) : client,
                     [client, config, applicationName, context, dismissed](const Artifact &artifact) {
                         client->deleteLater();
                         offerAtStartup(artifact, config, applicationName, context.data(), dismissed);
                     });
    QObject::connect(client, &Client::checkFailed, client, [client](const QString &reason) {
        client->deleteLater();
        qWarning() << "update check failed:" << reason;
    });
    QObject::connect(client, &Client::upToDate, client, &QObject::deleteLater);
    client->check();
    return client;
}

QWidget *offerAtStartup(const Artifact &artifact, const Config &config, const QString &applicationName,
                        QWidget *window, const DismissedVersionStore &dismissed)
{
    const QString dismissedVersion = dismissed.read ? dismissed.read() : QString();
    if (!dismissedVersion.isEmpty() &&
        !(Version::fromString(dismissedVersion) < Version::fromString(artifact.version)))
        return nullptr;

    auto *dialog = new UpdateDialog(artifact, applicationName, config.currentVersion, window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // Download dismisses too: the user has the file, and the next start should not ask again.
    QObject::connect(dialog, &QDialog::finished, dialog, [dismissed, version = artifact.version] {
        if (dismissed.write)
            dismissed.write(version);
    });
    dialog->show();
    return dialog;
}

Client *checkForUpdates(const Config &config, const QString &applicationName, QWidget *window,
                        const StatusReporter &status)
{
    auto *client = new Client(config, window);
    if (status.showProgress)
        status.showProgress(QCoreApplication::translate("HalcUpdate", "Checking for updates…"));
    const auto message = [status](const QString &text) {
        if (status.showMessage)
            status.showMessage(text, kMessageMsec);
    };
    const QPointer<QWidget> context(window);
    QObject::connect(client, &Client::updateAvailable, client,
                     [client, config, applicationName, context, status](const Artifact &artifact) {
                         client->deleteLater();
                         if (status.hideProgress)
                             status.hideProgress();
                         auto *dialog = new UpdateDialog(artifact, applicationName, config.currentVersion,
                                                         context.data());
                         dialog->setAttribute(Qt::WA_DeleteOnClose);
                         dialog->show();
                     });
    QObject::connect(client, &Client::upToDate, client, [client, config, applicationName, message] {
        client->deleteLater();
        message(QCoreApplication::translate("HalcUpdate", "%1 is up to date (version %2)")
                    .arg(applicationName, config.currentVersion));
    });
    QObject::connect(client, &Client::checkFailed, client, [client, message](const QString &reason) {
        client->deleteLater();
        message(QCoreApplication::translate("HalcUpdate", "Update check failed: %1").arg(reason));
    });
    client->check();
    return client;
}

} // namespace HalcUpdate
