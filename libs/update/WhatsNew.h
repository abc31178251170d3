#pragma once

#include "update/Config.h"

#include <QString>

#include <functional>

class QWidget;

namespace HalcUpdate {

class WhatsNewDialog;

// Where the last version whose notes were shown is kept, in QSettings.
inline constexpr char kWhatsNewSettingsKey[] = "whatsNew/lastShownVersion";

// At start: when the running version is newer than the last one shown (a first run counts), records it
// and starts showWhatsNewWhenNotesArrive. olderLastShownVersion reads where earlier versions kept it; a
// value found there moves to the settings. True when the flow started.
bool showWhatsNewIfUpgraded(const Config &config, const QString &applicationName, QWidget *parent,
                            const std::function<QString()> &olderLastShownVersion);

// Fetches the notes and shows the dialog only once they have come: unreachable notes show nothing.
void showWhatsNewWhenNotesArrive(const Config &config, const QString &applicationName, QWidget *parent);

// The user asked: the dialog shows at once and fills in when the notes come. Deletes itself on close.
WhatsNewDialog *showWhatsNew(const Config &config, const QString &applicationName, QWidget *parent);

} // namespace HalcUpdate
