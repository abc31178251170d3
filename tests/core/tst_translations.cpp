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

#include <algorithm>
#include <memory>

namespace {

const QStringList kTranslatedLanguages = {QStringLiteral("es"), QStringLiteral("de"), QStringLiteral("fr"),
                                          QStringLiteral("ja")};

QString catalogue(const QString &language)
{
    return QStringLiteral(OMBREL_SOURCE_DIR "/resources/i18n/ombrel_%1.ts").arg(language);
}

struct Message {
    QString context;
    QString source;
    QString translationType; // "unfinished", "obsolete", "vanished" or empty
    QStringList forms;       // the translation, or each plural form
};

QList<Message> readCatalogue(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> out;
    QString context;
    QXmlStreamReader xml(&file);
    while (xml.readNextStartElement() || !xml.atEnd()) {
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            Message m;
            m.context = context;
            while (xml.readNextStartElement()) {
                if (xml.name() == QLatin1String("source")) {
                    m.source = xml.readElementText();
                } else if (xml.name() == QLatin1String("translation")) {
                    m.translationType = xml.attributes().value(QLatin1String("type")).toString();
                    bool plural = false;
                    QString text;
                    while (!xml.atEnd()) {
                        xml.readNext();
                        if (xml.isCharacters())
                            text += xml.text();
                        else if (xml.isStartElement() && xml.name() == QLatin1String("numerusform")) {
                            plural = true;
                            m.forms << xml.readElementText();
                        } else if (xml.isEndElement() && xml.name() == QLatin1String("translation"))
                            break;
                    }
                    if (!plural)
                        m.forms << text;
                } else {
                    xml.skipCurrentElement();
                }
            }
            out << m;
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

// The letters after a single '&', in the case the shortcut ignores.
QStringList mnemonics(const QList<QAction *> &actions)
{
    QStringList letters;
    for (const QAction *action : actions) {
        const QString text = action->text();
        for (qsizetype i = text.indexOf(QLatin1Char('&')); i >= 0 && i + 1 < text.size();
             i = text.indexOf(QLatin1Char('&'), i + 2)) {
            if (text.at(i + 1) != QLatin1Char('&')) {
                letters << text.at(i + 1).toLower();
                break;
            }
        }
    }
    return letters;
}

QString firstDuplicate(const QStringList &list)
{
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (list.indexOf(list.at(i), i + 1) > 0)
            return list.at(i);
    }
    return {};
}

} // namespace

class TstTranslations : public QObject {
    Q_OBJECT
private slots:
    void catalogueIsUpToDate_data();
    void catalogueIsUpToDate();
    void placeholdersSurvive_data();
    void placeholdersSurvive();
    void knownStringsTranslate_data();
    void knownStringsTranslate();
    void qtBaseTranslatesButtons_data();
    void qtBaseTranslatesButtons();
    void menuAcceleratorsAreUnique_data();
    void menuAcceleratorsAreUnique();
};

void TstTranslations::catalogueIsUpToDate_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : kTranslatedLanguages)
        QTest::newRow(qPrintable(language)) << language;
}

// lupdate run over today's sources against a copy: nothing may come out new, unfinished or gone.
void TstTranslations::catalogueIsUpToDate()
{
#ifndef OMBREL_STRICT_TRANSLATIONS
    QSKIP("OMBREL_STRICT_TRANSLATIONS is off: catalogues may lag behind the sources");
#endif
    QFETCH(QString, language);
    QTemporaryDir dir;
    const QString copy = dir.filePath(QStringLiteral("copy.ts"));
    QVERIFY(QFile::copy(catalogue(language), copy));
    const QDir root(QStringLiteral(OMBREL_SOURCE_DIR));
    QProcess lupdate;
    lupdate.start(QStringLiteral(OMBREL_LUPDATE),
                  {QStringLiteral("-no-obsolete"), QStringLiteral("-locations"), QStringLiteral("none"),
                   QStringLiteral("-extensions"), QStringLiteral("cpp,h"),
                   // The include paths let lupdate see the libraries' namespaces, as the build's
                   // lupdate target does; without them their screens' texts land in other contexts.
                   QStringLiteral("-I"), root.filePath(QStringLiteral("src")), QStringLiteral("-I"),
                   root.filePath(QStringLiteral("libs")), root.filePath(QStringLiteral("src")),
                   root.filePath(QStringLiteral("libs/account")),
                   root.filePath(QStringLiteral("libs/update")), QStringLiteral("-ts"), copy});
    QVERIFY(lupdate.waitForFinished(60000));
    QCOMPARE(lupdate.exitCode(), 0);

    QStringList committed;
    for (const Message &m : readCatalogue(catalogue(language))) {
        QVERIFY2(m.translationType != QLatin1String("obsolete") &&
                     m.translationType != QLatin1String("vanished"),
                 qPrintable(m.context + QLatin1String(": ") + m.source));
        committed << m.context + QLatin1Char('|') + m.source;
    }
    QStringList unfinished;
    QStringList current;
    for (const Message &m : readCatalogue(copy)) {
        current << m.context + QLatin1Char('|') + m.source;
        if (m.translationType == QLatin1String("unfinished"))
            unfinished << current.last();
    }
    QVERIFY2(unfinished.isEmpty(), qPrintable(QStringLiteral("%1 unfinished, run the lupdate target and "
                                                             "translate: %2")
                                                  .arg(unfinished.size())
                                                  .arg(unfinished.mid(0, 5).join(QLatin1String(" / ")))));
    committed.sort();
    current.sort();
    QCOMPARE(committed, current);
}

void TstTranslations::placeholdersSurvive_data()
{
    catalogueIsUpToDate_data();
}

void TstTranslations::placeholdersSurvive()
{
    QFETCH(QString, language);
    const QList<Message> messages = readCatalogue(catalogue(language));
    QVERIFY(!messages.isEmpty());
    QStringList broken;
    for (const Message &m : messages) {
        if (m.translationType == QLatin1String("unfinished"))
            continue;
        for (const QString &form : m.forms) {
            if (placeholders(form) != placeholders(m.source))
                broken << m.source.left(40) + QLatin1String(" → ") + form.left(40);
        }
    }
    QVERIFY2(broken.isEmpty(), qPrintable(broken.join(QLatin1Char('\n'))));
}

void TstTranslations::knownStringsTranslate_data()
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
    // clang-format off
    // clang-format on
}

void TstTranslations::knownStringsTranslate()
{
    QFETCH(QString, language);
    QFETCH(QString, context);
    QFETCH(QString, source);
    QFETCH(int, n);
    QFETCH(QString, expected);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/i18n/ombrel_%1.qm").arg(language)));
    QString text = translator.translate(qPrintable(context), qPrintable(source), nullptr, n);
    if (n >= 0)
        text.replace(QLatin1String("%n"), QString::number(n));
    QCOMPARE(text, expected);
}

void TstTranslations::qtBaseTranslatesButtons_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("cancel");
    QTest::newRow("es") << "es"
                        << "Cancelar";
    QTest::newRow("de") << "de"
                        << "Abbrechen";
    QTest::newRow("fr") << "fr"
                        << "Annuler";
    QTest::newRow("ja") << "ja"
                        << "キャンセル";
}

// Loaded the way the application loads it, then seen on a standard dialog's button.
void TstTranslations::qtBaseTranslatesButtons()
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

void TstTranslations::menuAcceleratorsAreUnique_data()
{
    catalogueIsUpToDate_data();
}

// English doubles the A of "New &Account" and "Halcyra &Account..."; a translation need not.
void TstTranslations::menuAcceleratorsAreUnique()
{
    QFETCH(QString, language);
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

    const QList<QAction *> top = window->menuBar()->actions();
    QCOMPARE(firstDuplicate(mnemonics(top)), QString());
    for (const QAction *menuAction : top) {
        const QList<QAction *> items = menuAction->menu()->actions();
        const auto separators =
            std::count_if(items.begin(), items.end(), [](QAction *a) { return a->isSeparator(); });
        QVERIFY2(mnemonics(items).size() == items.size() - separators,
                 qPrintable(menuAction->text() + QLatin1String(": an item has no accelerator")));
        QVERIFY2(firstDuplicate(mnemonics(items)).isEmpty(),
                 qPrintable(menuAction->text() + QLatin1String(": ") + firstDuplicate(mnemonics(items))));
    }
    window.reset();
    state.reset();
    qunsetenv("OMBREL_DEV");
}

QTEST_MAIN(TstTranslations)
#include "tst_translations.moc"
