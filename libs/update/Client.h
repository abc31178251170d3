#pragma once

#include "update/Artifact.h"
#include "update/Config.h"

#include <QObject>
#include <QString>

class QNetworkAccessManager;
class QNetworkReply;

namespace HalcUpdate {

// Fetches the channel's manifest and tells whether this platform has a newer version than the one
// running. It only looks: nothing is downloaded or installed, and it never throttles itself.
class Client : public QObject {
    Q_OBJECT
public:
    explicit Client(const Config &config, QObject *parent = nullptr);

    void check();
    bool isChecking() const { return m_inFlight; }

signals:
    void updateAvailable(HalcUpdate::Artifact artifact);
    void upToDate();
    void checkFailed(QString reason);

private:
    void onReplyFinished(QNetworkReply *reply);
    void decide(const QByteArray &body);

    Config m_config;
    QNetworkAccessManager *m_network = nullptr;
    bool m_inFlight = false;
};

} // namespace HalcUpdate
