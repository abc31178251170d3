// Every input kept from fuzzing the import parsers and the archive reader, and a few written by hand at their
// edges, run through the same checks the fuzz targets make.

#include "FuzzChecks.h"

#include <QDir>
#include <QFile>
#include <QTest>

class TstFuzzRegressions : public QObject {
    Q_OBJECT
private slots:
    void inputs_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("path");
        const QDir root(QStringLiteral(OMBREL_FUZZ_REGRESSIONS_DIR));
        for (const QString &target : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
            const QDir dir(root.filePath(target));
            for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
                QTest::newRow(qPrintable(target + QLatin1Char('/') + name)) << target << dir.filePath(name);
        }
    }

    void inputs()
    {
        QFETCH(QString, target);
        QFETCH(QString, path);
        using Check = QString (*)(const QByteArray &);
        const QHash<QString, Check> checks{
            {"importbytes", FuzzChecks::decodeImportBytes},
            {"qifparser",   FuzzChecks::qifParser        },
            {"parsecsv",    FuzzChecks::parseCsv         },
            {"zipreader",   FuzzChecks::zipReader        }
        };
        const Check check = checks.value(target);
        QVERIFY2(check, qPrintable(QStringLiteral("no fuzz target called %1").arg(target)));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString failure = check(file.readAll());
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }
};

QTEST_GUILESS_MAIN(TstFuzzRegressions)
#include "tst_fuzzregressions.moc"
