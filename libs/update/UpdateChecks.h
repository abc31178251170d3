#pragma once

#include "update/Artifact.h"
#include "update/Config.h"

#include <QString>

#include <functional>

class QObject;
class QWidget;

namespace HalcUpdate {

class Client;

// The version the user was last offered at start, kept wherever the application keeps its preferences.
struct DismissedVersionStore {
    std::function<QString()> read;
    std::function<void(const QString &)> write;
};

// How the manual check talks on the window's status bar: a message that stays while the check runs,
// then either nothing (the dialog says it) or a message that goes after msec milliseconds.
struct StatusReporter {
    std::function<void(const QString &)> showProgress;
    std::function<void()> hideProgress;
    std::function<void(const QString &, int)> showMessage;
};

// The quiet check at start: a failure is only logged, and a version offered once is not offered again,
// however the user closed its dialog. The client is a child of owner and goes once it has answered.
Client *checkAtStartup(const Config &config, const QString &applicationName, QWidget *window,
                       const DismissedVersionStore &dismissed, QObject *owner);

// What the start-up check does with an offer: the dialog unless this version (or a later one) was
// already offered; closing it records the version. Null when nothing was shown.
QWidget *offerAtStartup(const Artifact &artifact, const Config &config, const QString &applicationName,
                        QWidget *window, const DismissedVersionStore &dismissed);

// The user asked: every answer is told on the status bar, and an offer shows even if it was dismissed.
Client *checkForUpdates(const Config &config, const QString &applicationName, QWidget *window,
                        const StatusReporter &status);

} // namespace HalcUpdate
