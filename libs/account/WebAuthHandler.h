#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

class QTcpServer;

namespace HalcAccount {

// The one-shot HTTP listener on the loopback interface that the browser is sent back to after sign-in.
// It answers the first request it gets with a fixed page, hands on its URL, and stops listening.
class WebAuthHandler : public QObject {
    Q_OBJECT
public:
    static constexpr quint16 kPreferredPort = 19876;

    explicit WebAuthHandler(QObject *parent = nullptr);
    ~WebAuthHandler() override;

    // The redirect URI, or an empty string when no port could be opened.
    QString start();
    QString redirectUri() const;

signals:
    void callbackReceived(const QUrl &url);

private:
    void onNewConnection();

    QTcpServer *m_server = nullptr;
    quint16 m_port = 0;
};

} // namespace HalcAccount
