#pragma once

#include <QDialog>
#include <QString>
#include <QUrl>

class QTextBrowser;

namespace HalcUpdate {

// The notes of the version now running, shown once after an upgrade and whenever the user asks.
class WhatsNewDialog : public QDialog {
    Q_OBJECT
public:
    // Without a valid downloadUrl there is no download button.
    WhatsNewDialog(const QString &applicationName, const QString &version, const QString &markdown,
                   QWidget *parent = nullptr, const QUrl &downloadUrl = QUrl());

    QTextBrowser *notesBrowser() const { return m_notes; }
    void setMarkdown(const QString &markdown);

private:
    void setupUi(const QString &applicationName, const QString &version, const QString &markdown);

    QUrl m_downloadUrl;
    QTextBrowser *m_notes = nullptr;
};

} // namespace HalcUpdate
