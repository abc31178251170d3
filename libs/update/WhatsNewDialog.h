#pragma once

#include <QDialog>
#include <QString>
#include <QUrl>

namespace HalcUpdate {

class NotesBrowser;

// The notes of the version now running, shown once after an upgrade and whenever the user asks.
class WhatsNewDialog : public QDialog {
    Q_OBJECT
public:
    // Without a valid downloadUrl there is no download button.
    WhatsNewDialog(const QString &applicationName, const QString &version, const QString &markdown,
                   QWidget *parent = nullptr, const QUrl &downloadUrl = QUrl());

    NotesBrowser *notesBrowser() const { return m_notes; }
    void setMarkdown(const QString &markdown);

private:
    void setupUi(const QString &applicationName, const QString &version, const QString &markdown);

    QUrl m_downloadUrl;
    NotesBrowser *m_notes = nullptr;
};

} // namespace HalcUpdate
