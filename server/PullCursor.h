#pragma once

#include <QDateTime>
#include <QString>

namespace OmbrelServer {

// Where a device stands in the stream of changes it may see: the position of the last row it was
// sent. Rows are ordered by (key, seq): key is the row's change number, or for the rows a share
// brought, the change number of the grant when that is later. The text is opaque to the program,
// which hands it back as `since`; it reads as an ISO date-time (the time of the pull) whose fraction
// of a second carries the position, so that "Last synced" shows a real time.
struct PullCursor {
    qint64 key = 0;
    qint64 seq = 0;

    QString encode(const QDateTime &now) const;
    // Anything this server did not write decodes to the start: a full pull loses nothing.
    static PullCursor decode(const QString &text);
};

inline bool operator<(const PullCursor &a, const PullCursor &b)
{
    return a.key != b.key ? a.key < b.key : a.seq < b.seq;
}

} // namespace OmbrelServer
