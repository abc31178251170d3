#include "server/SyncService.h"

#include "server/ServerDatabase.h"
#include "server/SharingService.h"
#include "server/TokenService.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <array>

namespace OmbrelServer {

namespace {

constexpr int kMaxChangesPerPush = 1000;
constexpr int kDefaultPageRows = 200;
constexpr int kMaxPageRows = 1000;

const QString kAccount = QStringLiteral("account");
const QString kCategory = QStringLiteral("category");
const QString kRecurring = QStringLiteral("recurring");
const QString kTransaction = QStringLiteral("transaction");
const QString kReconciliation = QStringLiteral("reconciliation");

// The pull's arrays in the order the program applies them: parents first.
struct Kind {
    const QString *type;
    const char *key;
};
const std::array<Kind, 5> kKinds{
    Kind{&kAccount,        "accounts"              },
    Kind{&kCategory,       "categories"            },
    Kind{&kRecurring,      "recurring_transactions"},
    Kind{&kTransaction,    "transactions"          },
    Kind{&kReconciliation, "reconciliations"       }
};

bool knownType(const QString &type)
{
    return std::any_of(kKinds.begin(), kKinds.end(), [&](const Kind &k) { return *k.type == type; });
}

QJsonObject result(const QString &status, const QString &entityId, const QString &entityType,
                   const QString &serverId, const QString &message = QString())
{
    QJsonObject r{
        {QStringLiteral("status"),      status    },
        {QStringLiteral("entity_id"),   entityId  },
        {QStringLiteral("entity_type"), entityType},
        {QStringLiteral("server_id"),   serverId  }
    };
    if (!message.isEmpty())
        r.insert(QStringLiteral("message"), message);
    return r;
}

bool isWholeNumber(const QJsonValue &v)
{
    if (!v.isDouble())
        return false;
    const double d = v.toDouble();
    return d >= 0 && d <= 9007199254740992.0 && d == double(qint64(d));
}

// A row on its way out, with the position that orders it for this reader.
struct Candidate {
    PullCursor position;
    StoredRow row;
};

QString rowKey(const StoredRow &row)
{
    return row.ownerId + QLatin1Char('\n') + row.entityType + QLatin1Char('\n') + row.clientId;
}

} // namespace

SyncService::SyncService(ServerDatabase *db, SyncStore *store, SharingService *sharing, TokenService *tokens)
    : m_db(db)
    , m_store(store)
    , m_sharing(sharing)
    , m_tokens(tokens)
{
}

std::optional<HttpResponse> SyncService::handle(const HttpRequest &request)
{
    const auto path = pathBelow(request.path, QStringLiteral("/ombrel/v1"));
    if (!path)
        return std::nullopt;
    const std::optional<Caller> caller = m_tokens->authenticate(request);
    if (!caller)
        return errorResponse(401, QStringLiteral("Sign in again"));
    if (*path == QStringList{QStringLiteral("sync"), QStringLiteral("push")} && request.method == "POST")
        return push(request, *caller);
    if (*path == QStringList{QStringLiteral("sync"), QStringLiteral("pull")} && request.method == "GET")
        return pull(request, *caller);
    if (auto r = m_sharing->handle(request, *path, *caller))
        return r;
    return errorResponse(404, QStringLiteral("Not found"));
}

HttpResponse SyncService::push(const HttpRequest &request, const Caller &caller)
{
    HttpResponse refusal;
    const auto body = jsonObjectBody(request, &refusal);
    if (!body)
        return refusal;
    const QJsonValue changes = body->value(QLatin1String("changes"));
    if (!changes.isArray())
        return errorResponse(400, QStringLiteral("changes must be an array"));
    const QJsonArray list = changes.toArray();
    if (list.size() > kMaxChangesPerPush)
        return errorResponse(400,
                             QStringLiteral("At most %1 changes go in one push").arg(kMaxChangesPerPush));

    // One transaction for the batch: a push is all stored or, when the disk fails, nothing is.
    QSqlDatabase db = m_db->connection();
    db.transaction();
    QJsonArray results;
    QHash<QString, std::optional<Share>> shares;
    for (const QJsonValue &change : list)
        results.append(applyChange(change, caller, shares));
    if (!db.commit()) {
        db.rollback();
        return errorResponse(500, QStringLiteral("The changes could not be stored"));
    }
    return jsonResponse(200, QJsonObject{
                                 {QStringLiteral("results"), results}
    });
}

QJsonObject SyncService::applyChange(const QJsonValue &value, const Caller &caller,
                                     QHash<QString, std::optional<Share>> &shares)
{
    const QJsonObject change = value.toObject();
    const QJsonValue idValue = change.value(QLatin1String("entity_id"));
    const QJsonValue typeValue = change.value(QLatin1String("entity_type"));
    const QString id = idValue.toString();
    const QString type = typeValue.toString();
    const QString action = change.value(QLatin1String("action")).toString();
    const QJsonValue versionValue = change.value(QLatin1String("version"));
    const QJsonValue payloadValue = change.value(QLatin1String("payload"));
    auto refuse = [&](const QString &status, const QString &message, const QString &serverId = QString()) {
        return result(status, id, type, serverId, message);
    };

    if (!value.isObject())
        return refuse(QStringLiteral("invalid"), QStringLiteral("A change must be an object"));
    if (!idValue.isString() || id.isEmpty() || id.size() > 100)
        return refuse(QStringLiteral("invalid"),
                      QStringLiteral("entity_id must be a text of 1 to 100 characters"));
    if (!knownType(type))
        return refuse(QStringLiteral("invalid"), QStringLiteral("Unknown entity_type"));
    if (action != QLatin1String("upsert") && action != QLatin1String("delete"))
        return refuse(QStringLiteral("invalid"), QStringLiteral("action must be \"upsert\" or \"delete\""));
    if (!isWholeNumber(versionValue))
        return refuse(QStringLiteral("invalid"), QStringLiteral("version must be a whole number"));
    if (!payloadValue.isObject())
        return refuse(QStringLiteral("invalid"), QStringLiteral("payload must be an object"));
    QJsonObject payload = payloadValue.toObject();
    const QJsonValue accountValue = payload.value(QLatin1String("account_id"));
    const bool needsAccount = type != kAccount && type != kCategory;
    if (needsAccount && (!accountValue.isString() || accountValue.toString().isEmpty()))
        return refuse(QStringLiteral("invalid"), QStringLiteral("payload.account_id must name an account"));
    const QString accountId = type == kAccount ? id : needsAccount ? accountValue.toString() : QString();

    // Whose row is it? The caller's own, unless it is a transaction of an account shared with them.
    QString ownerId = caller.userId;
    std::optional<StoredRow> existing = m_store->find(caller.userId, type, id);
    if (!existing && type != kCategory) {
        auto known = shares.find(accountId);
        if (known == shares.end())
            known = shares.insert(accountId, m_sharing->shareOf(accountId, caller.userId));
        const std::optional<Share> &share = *known;
        if (share && type != kTransaction)
            return refuse(QStringLiteral("forbidden"),
                          QStringLiteral("Only the owner can change this account"));
        if (share && !share->active)
            return refuse(QStringLiteral("forbidden"),
                          QStringLiteral("This account is no longer shared with you"));
        if (share) {
            ownerId = share->ownerId;
            existing = m_store->find(ownerId, type, id);
            // A guessed id of the owner's other rows stays out of reach.
            if (existing && existing->accountId != accountId)
                return refuse(QStringLiteral("forbidden"),
                              QStringLiteral("No such transaction in this account"));
        }
    }
    if (existing && existing->accountId != accountId && ownerId != caller.userId)
        return refuse(QStringLiteral("forbidden"), QStringLiteral("No such transaction in this account"));

    const qint64 version = qint64(versionValue.toDouble());
    if (existing && version < existing->version) {
        return refuse(QStringLiteral("conflict"),
                      QStringLiteral("Version %1 is older than the server's %2; pull first")
                          .arg(version)
                          .arg(existing->version),
                      existing->serverId);
    }

    const bool deleted = action == QLatin1String("delete");
    payload.insert(QStringLiteral("client_id"), id);
    payload.remove(QStringLiteral("server_id"));
    if (type != kRecurring)
        payload.insert(QStringLiteral("version"), version);
    if (deleted && payload.value(QLatin1String("deleted_at")).toString().isEmpty())
        payload.insert(QStringLiteral("deleted_at"), ServerDatabase::now());
    if (type == kAccount)
        payload.insert(QStringLiteral("is_shared"), m_sharing->isShared(ownerId, id) ? 1 : 0);

    StoredRow row{ownerId,
                  type,
                  id,
                  existing ? existing->serverId : QUuid::createUuid().toString(QUuid::WithoutBraces),
                  accountId,
                  version,
                  deleted,
                  0,
                  caller.userId,
                  QJsonDocument(payload).toJson(QJsonDocument::Compact)};
    // A change sent twice (the network stack re-sends after a dropped connection) is stored once.
    if (existing && existing->version == row.version && existing->deleted == row.deleted &&
        existing->payload == row.payload)
        return result(QStringLiteral("ok"), id, type, row.serverId);
    row.seq = m_store->nextSeq();
    if (!m_store->write(row))
        return refuse(QStringLiteral("error"), QStringLiteral("The row could not be stored"));
    return result(QStringLiteral("ok"), id, type, row.serverId);
}

HttpResponse SyncService::pull(const HttpRequest &request, const Caller &caller)
{
    const PullCursor since =
        PullCursor::decode(request.query.queryItemValue(QStringLiteral("since"), QUrl::FullyDecoded));
    bool limitOk = false;
    int limit = request.query.queryItemValue(QStringLiteral("limit")).toInt(&limitOk);
    if (!limitOk || limit < 1)
        limit = kDefaultPageRows;
    limit = qMin(limit, kMaxPageRows);

    // Every stream a reader sees, each asked for one row more than a page, merged by position. Own
    // rows stand at their change number. The rows of an account shared with the reader stand at the
    // grant's number when they are older than the grant, so that a new share brings them all.
    QList<Candidate> candidates;
    for (StoredRow &row : m_store->ownerRowsAfter(caller.userId, since.key, limit + 1))
        candidates.append(Candidate{
            PullCursor{row.seq, row.seq},
            std::move(row)
        });
    const QList<Share> shares = m_sharing->activeSharesFor(caller.userId);
    QHash<QString, qint64> grantOf; // owner and account -> grant
    for (const Share &share : shares) {
        grantOf.insert(share.ownerId + QLatin1Char('\n') + share.accountId, share.grantedSeq);
        const qint64 g = share.grantedSeq;
        if (since.key <= g) {
            const qint64 after = since.key == g ? since.seq : 0;
            for (StoredRow &row : m_store->accountRows(share.ownerId, share.accountId, after, g, limit + 1))
                candidates.append(Candidate{
                    PullCursor{g, row.seq},
                    std::move(row)
                });
        }
        for (StoredRow &row :
             m_store->accountRows(share.ownerId, share.accountId, qMax(g, since.key), -1, limit + 1))
            candidates.append(Candidate{
                PullCursor{row.seq, row.seq},
                std::move(row)
            });
    }
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate &a, const Candidate &b) { return a.position < b.position; });
    const bool hasMore = candidates.size() > limit;
    if (hasMore)
        candidates.resize(limit);
    // With nothing left the reader has seen everything up to now.
    const PullCursor next =
        hasMore ? candidates.last().position : PullCursor{m_store->lastSeq(), m_store->lastSeq()};

    // A page never hands over a child whose parent the device may lack: the program's tables have
    // foreign keys, and a transaction without its account would be lost there. Parents the reader may
    // not have yet ride along; a second copy later is harmless, as the version is the same.
    QList<StoredRow> out;
    QSet<QString> sent;
    QHash<QString, std::optional<StoredRow>> looked; // parents already looked up for this page
    for (const Candidate &c : std::as_const(candidates)) {
        sent.insert(rowKey(c.row));
        out.append(c.row);
    }
    auto positionFor = [&](const StoredRow &row) {
        if (row.ownerId == caller.userId)
            return PullCursor{row.seq, row.seq};
        const qint64 g = grantOf.value(row.ownerId + QLatin1Char('\n') + row.accountId, -1);
        return PullCursor{qMax(row.seq, g), row.seq};
    };
    auto addParent = [&](const StoredRow &child, const QString &type, const QString &clientId) {
        if (clientId.isEmpty())
            return;
        // The reader's own row of that id wins; then the child's owner's, then its author's.
        QStringList owners{caller.userId};
        if (!owners.contains(child.ownerId))
            owners.append(child.ownerId);
        if (type == kCategory && !owners.contains(child.authorId))
            owners.append(child.authorId);
        for (const QString &owner : owners) {
            const QString key = owner + QLatin1Char('\n') + type + QLatin1Char('\n') + clientId;
            if (sent.contains(key))
                return;
            auto cached = looked.find(key);
            if (cached == looked.end())
                cached = looked.insert(key, m_store->find(owner, type, clientId));
            const std::optional<StoredRow> &parent = *cached;
            if (!parent)
                continue;
            if (type == kAccount && owner != caller.userId &&
                !grantOf.contains(owner + QLatin1Char('\n') + clientId))
                return; // an account of the owner that is not shared with the reader stays hidden
            // Rows of other owners are sent with every child that uses them: whether the reader got
            // them before cannot be told from the position alone.
            if (owner == caller.userId || type == kAccount) {
                if (!(since < positionFor(*parent)))
                    return;
            }
            sent.insert(key);
            out.append(*parent);
            return;
        }
    };
    for (qsizetype i = 0; i < out.size(); ++i) {
        const StoredRow child = out.at(i);
        if (child.entityType == kAccount)
            continue;
        const QJsonObject payload = QJsonDocument::fromJson(child.payload).object();
        if (child.entityType != kCategory)
            addParent(child, kAccount, child.accountId);
        addParent(child, kCategory, payload.value(QLatin1String("category_id")).toString());
        if (child.entityType == kCategory)
            addParent(child, kCategory, payload.value(QLatin1String("parent_id")).toString());
    }

    QHash<QString, QJsonArray> arrays;
    QList<QJsonObject> categories;
    for (const StoredRow &row : std::as_const(out)) {
        QJsonObject o = QJsonDocument::fromJson(row.payload).object();
        o.insert(QStringLiteral("id"), row.serverId);
        o.insert(QStringLiteral("client_id"), row.clientId);
        // A rule's push payload has no version of its own, but its row goes out with the one the
        // change carried: a device that read no version would hold 0 and see its later edits refused.
        o.insert(QStringLiteral("version"), row.version);
        if (row.entityType == kAccount && row.ownerId != caller.userId)
            o.insert(QStringLiteral("is_shared"), 1);
        if (row.entityType == kCategory)
            categories.append(o);
        else
            arrays[row.entityType].append(o);
    }
    // A category's parent goes ahead of it in the array, as the program inserts them in order.
    QSet<QString> pendingIds;
    for (const QJsonObject &c : std::as_const(categories))
        pendingIds.insert(c.value(QLatin1String("client_id")).toString());
    while (!categories.isEmpty()) {
        const qsizetype before = categories.size();
        for (qsizetype i = 0; i < categories.size();) {
            const QString parent = categories[i].value(QLatin1String("parent_id")).toString();
            if (parent.isEmpty() || !pendingIds.contains(parent) ||
                parent == categories[i].value(QLatin1String("client_id")).toString()) {
                pendingIds.remove(categories[i].value(QLatin1String("client_id")).toString());
                arrays[kCategory].append(categories.takeAt(i));
            } else {
                ++i;
            }
        }
        if (categories.size() == before) { // a loop of parents: keep them in any order
            for (const QJsonObject &c : std::as_const(categories))
                arrays[kCategory].append(c);
            categories.clear();
        }
    }

    QJsonObject reply{
        {QStringLiteral("server_time"), next.encode(QDateTime::currentDateTimeUtc())},
        {QStringLiteral("has_more"),    hasMore                                     }
    };
    for (const Kind &kind : kKinds)
        reply.insert(QLatin1String(kind.key), arrays.value(*kind.type));
    return jsonResponse(200, reply);
}

} // namespace OmbrelServer
