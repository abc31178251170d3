#include "support/TestServer.h"

#include <QTest>

namespace {

QJsonObject payload(std::initializer_list<QPair<QString, QJsonValue>> fields)
{
    return QJsonObject(fields);
}

} // namespace

// Ann owns the account "joint" and shares it with Bob; Cleo is in the group without the share; Dan
// had the share and lost it; Eve is in no group.
class TstServerSharing : public QObject {
    Q_OBJECT

private slots:
    void init();
    void memberReceivesTheSharedAccount();
    void memberAddsAndEditsTransactions();
    void withdrawalStopsBothWays();
    void nobodyElseReadsOrChanges_data();
    void nobodyElseReadsOrChanges();

private:
    QString status(const QJsonArray &results) const
    {
        return results.at(0).toObject().value("status").toString();
    }

    std::unique_ptr<TestServer> m_server;
    TestUser m_ann, m_bob, m_cleo, m_dan, m_eve;
};

void TstServerSharing::init()
{
    m_server = std::make_unique<TestServer>();
    QVERIFY(m_server->start());
    m_ann = m_server->signUp("ann@example.org");
    m_bob = m_server->signUp("bob@example.org");
    m_cleo = m_server->signUp("cleo@example.org");
    m_dan = m_server->signUp("dan@example.org");
    m_eve = m_server->signUp("eve@example.org");
    QVERIFY(m_server->joinGroup(m_ann, m_bob));
    QVERIFY(m_server->joinGroup(m_ann, m_cleo));
    QVERIFY(m_server->joinGroup(m_ann, m_dan));

    const QJsonArray rows{
        TestServer::change("account", "joint", 4, payload({{"name", "Joint"},             {"is_shared", 0}       }
           )),
        TestServer::change("account", "private", 1, payload({{"name", "Private"}          }
           )),
        TestServer::change("category", "pets", 1, payload({{"name", "Pets"}, {"category_type", "expense"}                       }
           )),
        TestServer::change("recurring", "rent", 1, payload({{"account_id", "joint"},           {"amount", -90000}}
           )),
        TestServer::change("transaction", "vet", 1,
                           payload({{"account_id", "joint"},            {"amount", -4000},                        {"category_id", "pets"}}
           )),
        TestServer::change("transaction", "secret", 1, payload({{"account_id", "private"},     {"amount", -1}}
           )),
        TestServer::change("reconciliation", "march", 1,
                           payload({{"account_id", "joint"},       {"statement_date", "2025-03-31"}         }
           )),
    };
    QCOMPARE(m_server->push(m_ann, rows).size(), rows.size());
    for (const TestUser *member : {&m_bob, &m_dan})
        QCOMPARE(m_server
                     ->post("/ombrel/v1/accounts/joint/share",
                            {
                                {"user_id", member->id}
        },
                            m_ann.accessToken)
                     .status,
                 200);
    QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + m_dan.id, m_ann.accessToken).status, 204);
}

void TstServerSharing::memberReceivesTheSharedAccount()
{
    const PulledRows bob = m_server->pullAll(m_bob);
    QVERIFY(bob.ok);
    QCOMPARE(bob.orphans, QStringList());
    QStringList keys = bob.rows.keys();
    keys.sort();
    QCOMPARE(keys, (QStringList{"accounts/joint", "categories/pets", "reconciliations/march",
                                "recurring_transactions/rent", "transactions/vet"}));
    QCOMPARE(bob.rows.value("accounts/joint").value("is_shared").toInt(), 1);

    // The owner's devices take the flag: the server raised the version.
    const QJsonObject joint = m_server->pullAll(m_ann).rows.value("accounts/joint");
    QCOMPARE(joint.value("is_shared").toInt(), 1);
    QVERIFY(joint.value("version").toInteger() > 4);

    const QJsonArray members =
        m_server->get("/ombrel/v1/accounts/joint/members", m_bob.accessToken).json.value("members").toArray();
    QCOMPARE(members.size(), 2);
    QCOMPARE(members.at(0)["role"].toString(), QStringLiteral("owner"));
    QCOMPARE(members.at(1)["email"].toString(), QStringLiteral("bob@example.org"));
}

void TstServerSharing::memberAddsAndEditsTransactions()
{
    const PulledRows annBefore = m_server->pullAll(m_ann);
    const QJsonArray results = m_server->push(
        m_bob, {
                   TestServer::change("transaction", "bob-new", 1,
                                      payload({{"account_id", "joint"}, {"amount", -250}       }
                                      )),
                   TestServer::change(
                       "transaction", "vet", 1,
                       payload({ {"account_id", "joint"},      {"amount", -4500}, {"category_id", "pets"}}
                                      ))
    });
    QCOMPARE(results.at(0)["status"].toString(), QStringLiteral("ok"));
    QCOMPARE(results.at(1)["status"].toString(), QStringLiteral("ok"));
    const PulledRows ann = m_server->pullAll(m_ann, 200, &annBefore);
    QCOMPARE(ann.rows.value("transactions/bob-new").value("amount").toInt(), -250);
    QCOMPARE(ann.rows.value("transactions/vet").value("amount").toInt(), -4500);
    // The member's own rows are still only the member's: Bob has no account of his own.
    QVERIFY(!m_server->pullAll(m_bob).rows.contains("accounts/private"));
}

void TstServerSharing::withdrawalStopsBothWays()
{
    const PulledRows bobBefore = m_server->pullAll(m_bob);
    QCOMPARE(m_server->del("/ombrel/v1/accounts/joint/share/" + m_bob.id, m_ann.accessToken).status, 204);
    m_server->push(m_ann,
                   {
                       TestServer::change("transaction", "after", 1, payload({{"account_id", "joint"}}
                          ))
    });
    const PulledRows bob = m_server->pullAll(m_bob, 200, &bobBefore);
    QVERIFY(bob.ok);
    QCOMPARE(bob.rows.keys(), QStringList());
    QCOMPARE(
        status(m_server->push(m_bob,
                              {
                                  TestServer::change("transaction", "vet", 9,
                                                     payload({{"account_id", "joint"}, {"amount", 0}}
                                                     ))
    })),
        QStringLiteral("forbidden"));
    const QJsonObject joint = m_server->pullAll(m_ann).rows.value("accounts/joint");
    QCOMPARE(joint.value("is_shared").toInt(), 0);
    QCOMPARE(m_server->pullAll(m_ann).rows.value("transactions/vet").value("amount").toInt(), -4000);
}

void TstServerSharing::nobodyElseReadsOrChanges_data()
{
    QTest::addColumn<QString>("who");
    QTest::newRow("outsider") << "eve";
    QTest::newRow("group member without the share") << "cleo";
    QTest::newRow("member after withdrawal") << "dan";
}

void TstServerSharing::nobodyElseReadsOrChanges()
{
    QFETCH(QString, who);
    const TestUser &actor = who == QLatin1String("eve")    ? m_eve
                            : who == QLatin1String("cleo") ? m_cleo
                                                           : m_dan;
    const PulledRows annBefore = m_server->pullAll(m_ann);

    const PulledRows seen = m_server->pullAll(actor);
    QVERIFY(seen.ok);
    QCOMPARE(seen.rows.keys(), QStringList());
    for (const QString &account : {QStringLiteral("joint"), QStringLiteral("private")}) {
        QCOMPARE(m_server->get("/ombrel/v1/accounts/" + account + "/members", actor.accessToken).status, 404);
        QCOMPARE(m_server
                     ->post("/ombrel/v1/accounts/" + account + "/share",
                            {
                                {"user_id", actor.id}
        },
                            actor.accessToken)
                     .status,
                 404);
        QCOMPARE(
            m_server->del("/ombrel/v1/accounts/" + account + "/share/" + m_bob.id, actor.accessToken).status,
            404);
    }
    // Guessed ids in every kind of change: refused, or kept as the actor's own rows; never Ann's.
    m_server->push(
        actor,
        {
            TestServer::change("account", "joint", 99, payload({{"name", "Mine"}       }
               )),
            TestServer::change("transaction", "vet", 99, payload({{"account_id", "joint"}, {"amount", 1}}
               )),
            TestServer::change("transaction", "secret", 99,
                               payload({{"account_id", "joint"},                       {"amount", 1}}
               )),
            TestServer::change("transaction", "new", 1, payload({{"account_id", "joint"}}
               )),
            TestServer::change("reconciliation", "march", 99, payload({{"account_id", "joint"}}
               )),
            TestServer::change("category", "pets", 99, payload({{"name", "Mine"}}
               ))
    });

    const PulledRows annAfter = m_server->pullAll(m_ann, 200, &annBefore);
    QCOMPARE(annAfter.rows.keys(), QStringList());
    QCOMPARE(m_server->pullAll(m_ann).rows, annBefore.rows);
    QCOMPARE(m_server->pullAll(m_bob).rows.value("transactions/vet").value("amount").toInt(), -4000);
}

QTEST_GUILESS_MAIN(TstServerSharing)
#include "tst_serversharing.moc"
