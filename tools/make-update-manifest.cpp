// Writes the update channel's latest.json for one release: version, download URL, and the size and
// SHA-256 of the file published there. Other platforms already in the output file are kept.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>

#include <cstdio>

namespace {

int fail(const QString &message)
{
    std::fprintf(stderr, "make-update-manifest: %s\n", qPrintable(message));
    return 1;
}

bool isVersion(const QString &text)
{
    static const QRegularExpression version(QStringLiteral("^\\d+(\\.\\d+){0,2}$"));
    return version.match(text).hasMatch();
}

bool isWebUrl(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http")) &&
           !url.host().isEmpty();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes latest.json of an update channel for one release."));
    parser.addHelpOption();
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("Release version, such as 1.2.0."),
                                     QStringLiteral("VERSION"));
    const QCommandLineOption url(QStringLiteral("url"), QStringLiteral("Where the release is downloaded."),
                                 QStringLiteral("URL"));
    const QCommandLineOption file(QStringLiteral("file"),
                                  QStringLiteral("The published file, for size and SHA-256."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption platform(QStringLiteral("platform"), QStringLiteral("Platform key."),
                                      QStringLiteral("KEY"), QStringLiteral("windows-x64"));
    const QCommandLineOption app_(QStringLiteral("app"), QStringLiteral("Application id."),
                                  QStringLiteral("ID"), QStringLiteral("ombrel"));
    const QCommandLineOption channel(QStringLiteral("channel"), QStringLiteral("Channel name."),
                                     QStringLiteral("NAME"), QStringLiteral("stable"));
    const QCommandLineOption notes(QStringLiteral("notes-url"),
                                   QStringLiteral("Release notes of this version."), QStringLiteral("URL"));
    const QCommandLineOption minimum(QStringLiteral("min-upgradable-from"),
                                     QStringLiteral("Oldest version that may upgrade straight to this one."),
                                     QStringLiteral("VERSION"));
    const QCommandLineOption mandatory(QStringLiteral("mandatory"),
                                       QStringLiteral("The update cannot be put off."));
    const QCommandLineOption released(QStringLiteral("released-at"),
                                      QStringLiteral("Release time, ISO 8601; default now."),
                                      QStringLiteral("TIME"));
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("File to write; default standard output."),
                                    QStringLiteral("FILE"));
    parser.addOptions(
        {version, url, file, platform, app_, channel, notes, minimum, mandatory, released, output});
    parser.process(app);

    if (!isVersion(parser.value(version)))
        return fail(QStringLiteral("--version wants one to three numbers joined by dots, such as 1.2.0"));
    if (!isWebUrl(parser.value(url)))
        return fail(QStringLiteral("--url wants an http or https address"));
    if (parser.isSet(notes) && !isWebUrl(parser.value(notes)))
        return fail(QStringLiteral("--notes-url wants an http or https address"));
    if (parser.isSet(minimum) && !isVersion(parser.value(minimum)))
        return fail(QStringLiteral("--min-upgradable-from wants a version such as 1.0.0"));
    QDateTime releasedAt = QDateTime::currentDateTimeUtc();
    if (parser.isSet(released))
        releasedAt = QDateTime::fromString(parser.value(released), Qt::ISODate);
    if (!releasedAt.isValid())
        return fail(QStringLiteral("--released-at wants an ISO 8601 date-time"));

    QFile published(parser.value(file));
    if (!published.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("cannot read --file %1").arg(parser.value(file)));
    QCryptographicHash sha(QCryptographicHash::Sha256);
    if (!sha.addData(&published) || published.size() < 1)
        return fail(QStringLiteral("--file is empty or unreadable"));

    QJsonObject artifact{
        {QStringLiteral("version"),     parser.value(version)                    },
        {QStringLiteral("released_at"), releasedAt.toUTC().toString(Qt::ISODate) },
        {QStringLiteral("url"),         parser.value(url)                        },
        {QStringLiteral("size"),        published.size()                         },
        {QStringLiteral("sha256"),      QString::fromLatin1(sha.result().toHex())},
        {QStringLiteral("mandatory"),   parser.isSet(mandatory)                  }
    };
    if (parser.isSet(minimum))
        artifact.insert(QStringLiteral("min_upgradable_from"), parser.value(minimum));
    if (parser.isSet(notes))
        artifact.insert(QStringLiteral("release_notes_url"), parser.value(notes));

    QJsonObject artifacts;
    if (parser.isSet(output)) {
        QFile existing(parser.value(output));
        if (existing.open(QIODevice::ReadOnly))
            artifacts = QJsonDocument::fromJson(existing.readAll())
                            .object()
                            .value(QLatin1String("artifacts"))
                            .toObject();
    }
    artifacts.insert(parser.value(platform), artifact);
    const QJsonObject manifest{
        {QStringLiteral("schema"),    1                    },
        {QStringLiteral("app"),       parser.value(app_)   },
        {QStringLiteral("channel"),   parser.value(channel)},
        {QStringLiteral("artifacts"), artifacts            }
    };
    const QByteArray text = QJsonDocument(manifest).toJson(QJsonDocument::Indented);
    if (!parser.isSet(output)) {
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        return 0;
    }
    QSaveFile out(parser.value(output));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit())
        return fail(QStringLiteral("cannot write %1").arg(parser.value(output)));
    return 0;
}
