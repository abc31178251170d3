#pragma once

#include "update/Artifact.h"

#include <QDialog>
#include <QString>
#include <QUrl>

namespace HalcUpdate {

class NotesBrowser;

// Offers a newer version: which one, its notes when the manifest names them, and a button that opens the
// download in the browser. A mandatory release cannot be put off.
class UpdateDialog : public QDialog {
    Q_OBJECT
public:
    UpdateDialog(const Artifact &artifact, const QString &applicationName, const QString &currentVersion,
                 QWidget *parent = nullptr);

    // The notes area; null when the artifact names no notes.
    NotesBrowser *notesBrowser() const { return m_notes; }

public slots:
    void onDownloadClicked();
    void onNotesReady(const QString &markdown);

private:
    void setupUi(const QString &applicationName, const QString &currentVersion);
    void onNotesUnavailable();

    Artifact m_artifact;
    QUrl m_downloadUrl;
    NotesBrowser *m_notes = nullptr;
};

} // namespace HalcUpdate
