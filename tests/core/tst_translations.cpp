#include "core/AppState.h"
#include "ui/MainWindow.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

#include <memory>

namespace {

QString catalogue(const QString &language)
{
    return QStringLiteral(OMBREL_SOURCE_DIR "/resources/i18n/ombrel_%1.ts").arg(language);
}

struct Message {
    QString context;
    bool plural = false;
    QString source;
    QString translationType; // "unfinished", "obsolete", "vanished" or empty
    QStringList forms;       // the translation, or each plural form
    QString key() const { return context + QLatin1Char('|') + source; }
};

QList<Message> readCatalogue(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> out;
    QString context;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"name") {
            context = xml.readElementText();
        } else if (xml.name() == u"message") {
            out.append(Message{context, xml.attributes().value(QLatin1String("numerus")) == u"yes"});
        } else if (xml.name() == u"source" && !out.isEmpty()) {
            out.last().source = xml.readElementText();
        } else if (xml.name() == u"translation" && !out.isEmpty()) {
            out.last().translationType = xml.attributes().value(QLatin1String("type")).toString();
            if (!out.last().plural)
                out.last().forms << xml.readElementText();
        } else if (xml.name() == u"numerusform" && !out.isEmpty()) {
            out.last().forms << xml.readElementText();
        }
    }
    return out;
}

// %1 … %99 (also as %L1) and %n, sorted, each as often as it occurs.
QStringList placeholders(const QString &text)
{
    static const QRegularExpression re(QStringLiteral("%L?(\\d{1,2}|n)"));
    QStringList found;
    for (auto it = re.globalMatch(text); it.hasNext();)
        found << it.next().captured(1);
    found.sort();
    return found;
}

// The letter after the first single '&' of each action, in the case the shortcut ignores; "-" for none.
QStringList mnemonics(const QList<QAction *> &actions)
{
    static const QRegularExpression re(QStringLiteral("(?<!&)(?:&&)*&([^&])"));
    QStringList letters;
    for (const QAction *action : actions) {
        if (!action->isSeparator())
            letters << re.match(action->text()).captured(1).toLower().rightJustified(1, QLatin1Char('-'));
    }
    return letters;
}

QString firstDuplicate(const QStringList &list)
{
    const auto it =
        std::find_if(list.begin(), list.end(), [&list](const QString &s) { return list.count(s) > 1; });
    return it == list.end() ? QString() : *it;
}

} // namespace

class TstTranslations : public QObject {
    Q_OBJECT
private slots:
    void catalogues_data()
    {
        QTest::addColumn<QString>("language");
        for (const char *language : {"es", "de", "fr", "ja"})
            QTest::newRow(language) << QString::fromLatin1(language);
    }

    // Every translation keeps the source's placeholders, every menu has an accelerator for each item and
    // none twice (English doubles the A of "New &Account" and "Halcyra &Account..."; a translation need
    // not), and lupdate run over today's sources against a copy finds nothing new, unfinished or gone.
    void catalogues()
    {
        QFETCH(QString, language);
        const QList<Message> messages = readCatalogue(catalogue(language));
        QVERIFY(!messages.isEmpty());
        QStringList broken;
        for (const Message &m : messages) {
            for (const QString &form : m.forms) {
                if (m.translationType != u"unfinished" && placeholders(form) != placeholders(m.source))
                    broken << m.source.left(40) + QLatin1String(" → ") + form.left(40);
            }
        }
        QVERIFY2(broken.isEmpty(), qPrintable(broken.join(QLatin1Char('\n'))));

        QTemporaryDir dir;
        qputenv("OMBREL_DATA_DIR", dir.path().toUtf8());
        qputenv("OMBREL_DEV", "1"); // the sample-data commands join the help menu
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/i18n/ombrel_%1.qm").arg(language)));
        QCoreApplication::installTranslator(&translator);
        auto state = std::make_unique<AppState>();
        QVERIFY(state->initialize());
        auto window = std::make_unique<MainWindow>(state.get());
        QCoreApplication::removeTranslator(&translator);
        qunsetenv("OMBREL_DEV");

        const QList<QAction *> top = window->menuBar()->actions();
        QCOMPARE(firstDuplicate(mnemonics(top)), QString());
        for (const QAction *menuAction : top) {
            const QStringList letters = mnemonics(menuAction->menu()->actions());
            QVERIFY2(!letters.contains(QStringLiteral("-")),
                     qPrintable(menuAction->text() + QLatin1String(": an item has no accelerator")));
            QVERIFY2(firstDuplicate(letters).isEmpty(),
                     qPrintable(menuAction->text() + QLatin1String(": ") + firstDuplicate(letters)));
        }

#ifdef OMBREL_STRICT_TRANSLATIONS
        const QString copy = dir.filePath(QStringLiteral("copy.ts"));
        QVERIFY(QFile::copy(catalogue(language), copy));
        const QDir root(QStringLiteral(OMBREL_SOURCE_DIR));
        QProcess lupdate;
        // The include paths let lupdate see the libraries' namespaces, as the build's lupdate target does;
        // without them their screens' texts land in other contexts.
        lupdate.start(QStringLiteral(OMBREL_LUPDATE),
                      {"-no-obsolete", "-locations", "none", "-extensions", "cpp,h", "-I",
                       root.filePath("src"), "-I", root.filePath("libs"), root.filePath("src"),
                       root.filePath("libs/account"), root.filePath("libs/update"), "-ts", copy});
        QVERIFY(lupdate.waitForFinished(60000));
        QCOMPARE(lupdate.exitCode(), 0);
        QStringList committed, current, unfinished;
        for (const Message &m : messages) {
            QVERIFY2(m.translationType != u"obsolete" && m.translationType != u"vanished",
                     qPrintable(m.key()));
            committed << m.key();
        }
        for (const Message &m : readCatalogue(copy)) {
            current << m.key();
            if (m.translationType == u"unfinished")
                unfinished << m.key();
        }
        // Run the lupdate target and translate these.
        QCOMPARE(unfinished.mid(0, 5), QStringList());
        committed.sort();
        current.sort();
        QCOMPARE(committed, current);
#endif
    }

    void knownStringsTranslate_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("context");
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("expected");
        // clang-format off
        QTest::newRow("es reconcile")   << "es" << "RegisterScreen"  << "Reconcile"    << -1 << "Conciliar";
        QTest::newRow("es plural one")  << "es" << "StatusBar"       << "%n account(s)" << 1 << "1 cuenta";
        QTest::newRow("es plural many") << "es" << "StatusBar"       << "%n account(s)" << 3 << "3 cuentas";
        QTest::newRow("de reconcile")   << "de" << "RegisterScreen"  << "Reconcile"    << -1 << "Abgleichen";
        QTest::newRow("de menu")        << "de" << "MainWindow"      << "&File"        << -1 << "&Datei";
        QTest::newRow("de plural many") << "de" << "StatusBar"       << "%n account(s)" << 2 << "2 Konten";
        QTest::newRow("fr reconcile")   << "fr" << "RegisterScreen"  << "Reconcile"    << -1 << "Rapprocher";
        QTest::newRow("fr zero is one") << "fr" << "StatusBar"       << "%n account(s)" << 0 << "0 compte";
        QTest::newRow("ja reconcile")   << "ja" << "RegisterScreen"  << "Reconcile"    << -1 << "照合";
        QTest::newRow("ja one form")    << "ja" << "StatusBar"       << "%n account(s)" << 5 << "5 口座";
        // clang-format on
    }

    void knownStringsTranslate()
    {
        QFETCH(QString, language);
        QFETCH(QString, context);
        QFETCH(QString, source);
        QFETCH(int, n);
        QFETCH(QString, expected);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/i18n/ombrel_%1.qm").arg(language)));
        QString text = translator.translate(qPrintable(context), qPrintable(source), nullptr, n);
        QCOMPARE(text.replace(QLatin1String("%n"), QString::number(n)), expected);
    }

    void qtBaseTranslatesButtons_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("cancel");
        // clang-format off
        QTest::newRow("es") << "es" << "Cancelar";
        QTest::newRow("de") << "de" << "Abbrechen";
        QTest::newRow("fr") << "fr" << "Annuler";
        QTest::newRow("ja") << "ja" << "キャンセル";
        // clang-format on
    }

    // Loaded the way the application loads it, then seen on a standard dialog's button.
    void qtBaseTranslatesButtons()
    {
        QFETCH(QString, language);
        QFETCH(QString, cancel);
        QTranslator translator;
        QVERIFY2(translator.load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)),
                 "qtbase translations are missing: install qt6-translations-l10n");
        QCoreApplication::installTranslator(&translator);
        QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        const QString text = box.button(QDialogButtonBox::Cancel)->text();
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(QString(text).remove(QLatin1Char('&')), cancel);
    }
};

QTEST_MAIN(TstTranslations)
#include "tst_translations.moc"
