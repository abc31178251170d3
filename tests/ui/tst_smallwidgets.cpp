// The window's small parts: the status bar, the welcome page and the label that elides an account name.
#include "support/Widgets.h"
#include "ui/ElidedLabel.h"
#include "ui/StatusBar.h"
#include "ui/WelcomeScreen.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

void setDarkPalette(bool dark)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(dark ? 0x0F1E19 : 0xFAFBFA));
    QApplication::setPalette(palette);
}

} // namespace

class TstSmallWidgets : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { setDarkPalette(false); }

    void recurringDueFollowsCountAndPalette_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("dark");
        QTest::addColumn<QString>("text"); // empty: hidden
        QTest::newRow("none") << 0 << false << QString();
        QTest::newRow("negative") << -2 << false << QString();
        QTest::newRow("one light") << 1 << false << u"  •  1 recurring due"_s;
        QTest::newRow("many dark") << 12 << true << u"  •  12 recurring due"_s;
    }

    void recurringDueFollowsCountAndPalette()
    {
        QFETCH(int, count);
        QFETCH(bool, dark);
        QFETCH(QString, text);
        setDarkPalette(dark);
        StatusBar bar;
        auto *due = child<QLabel>(&bar, "recurringDueLabel");
        // A count that drops to nothing must take away what an earlier count showed.
        bar.setRecurringDue(5);
        bar.setRecurringDue(count);
        QCOMPARE(due->isHidden(), text.isEmpty());
        if (text.isEmpty())
            return;
        QCOMPARE(due->text(), text);
        const auto colours = [&](bool inDark) {
            return QStringList{due->styleSheet(), child<QLabel>(&bar, "syncLabel")->styleSheet(),
                               child<QLabel>(&bar, "accountCountLabel")->styleSheet()} ==
                   QStringList{u"color: %1; font-weight: bold;"_s.arg(inDark ? u"#FFA726"_s : u"#E65100"_s),
                               inDark ? u"color: #8FAF9F;"_s : u"color: #2A3D33;"_s,
                               inDark ? u"color: #8FAF9F;"_s : u"color: #2A3D33;"_s};
        };
        QVERIFY(colours(dark));
        // A palette changed afterwards recolours what is shown.
        setDarkPalette(!dark);
        bar.refreshColors();
        QVERIFY(colours(!dark));
    }

    void timedMessageEndsProgress()
    {
        StatusBar bar;
        auto *progressBar = child<QProgressBar>(&bar, "progressBar");
        bar.showProgress(u"Importing…"_s);
        QVERIFY(!progressBar->isHidden());
        QCOMPARE(child<QLabel>(&bar, "progressLabel")->text(), u"Importing…"_s);
        bar.showTimedMessage(u"Imported 12 transactions."_s, 3000);
        QVERIFY(progressBar->isHidden());
        QVERIFY(child<QLabel>(&bar, "progressLabel")->isHidden());
        QCOMPARE(bar.currentMessage(), u"Imported 12 transactions."_s);
    }

    void messageKeepsLabelsAside_data()
    {
        QTest::addColumn<bool>("shownFirst");
        QTest::newRow("message before the window shows") << false;
        QTest::newRow("count arrives during a message") << true;
    }

    // A message and the left labels drawn in one place are both unreadable.
    void messageKeepsLabelsAside()
    {
        QFETCH(bool, shownFirst);
        QWidget window;
        auto *bar = new StatusBar(&window);
        bar->setAccountCount(12);
        if (shownFirst) {
            window.show();
            bar->showTimedMessage(u"Auto-posted 474 recurring transaction(s)"_s, 5000);
            bar->setRecurringDue(6);
        } else {
            bar->setRecurringDue(6);
            bar->showTimedMessage(u"Auto-posted 474 recurring transaction(s)"_s, 5000);
            window.show();
        }
        QVERIFY(!child<QLabel>(bar, "accountCountLabel")->isVisible());
        QVERIFY(!child<QLabel>(bar, "recurringDueLabel")->isVisible());
        bar->clearMessage();
        QVERIFY(child<QLabel>(bar, "accountCountLabel")->isVisible());
        QVERIFY(child<QLabel>(bar, "recurringDueLabel")->isVisible());
        // The sync state stands on the right, clear of them.
        QVERIFY(child<QLabel>(bar, "syncLabel")->geometry().left() >
                child<QLabel>(bar, "recurringDueLabel")->geometry().right());
    }

    void welcomeButtonsAndCard()
    {
        WelcomeScreen screen;
        screen.resize(1000, 700);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QSignalSpy create(&screen, &WelcomeScreen::createAccountRequested);
        QSignalSpy learnMore(&screen, &WelcomeScreen::learnMoreRequested);
        QSignalSpy signIn(&screen, &WelcomeScreen::signInRequested);
        QList<int> counts;
        for (const char *button : {"createAccountButton", "learnMoreButton", "signInButton"}) {
            QTest::mouseClick(child<QPushButton>(&screen, button), Qt::LeftButton);
            counts << int(create.count()) << int(learnMore.count()) << int(signIn.count());
        }
        QCOMPARE(counts, QList<int>({1, 0, 0, 1, 1, 0, 1, 1, 1}));

        auto *card = child<QFrame>(&screen, "HowItWorksCard");
        QVERIFY(card->styleSheet().contains(u"#D8E0DB"_s));
        setDarkPalette(true);
        // The change of palette reaches widgets by posted events.
        QTRY_VERIFY(card->styleSheet().contains(u"#2A4038"_s));
    }

    void elidedLabelNeverWidensItsPanel()
    {
        QWidget panel;
        auto *layout = new QHBoxLayout(&panel);
        auto *label = new ElidedLabel(&panel);
        layout->addWidget(label);
        panel.setMaximumWidth(120);
        const QString name(200, QLatin1Char('W'));
        label->setFullText(name);
        panel.resize(1000, 40);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QCOMPARE(panel.width(), 120);
        QVERIFY(label->width() > 20);
        QVERIFY(label->sizeHint().width() > 120);
        QVERIFY(panel.minimumSizeHint().width() <= 120);
        QVERIFY(label->elidedText().endsWith(QChar(0x2026)));
        QVERIFY(label->elidedText().size() < 200);
        QCOMPARE(label->fullText(), name);
        QCOMPARE(label->text(), name);
        label->resize(0, label->height());
        QCOMPARE(label->elidedText(), u"…"_s);
        label->resize(5000, label->height());
        QCOMPARE(label->elidedText(), name);
    }
};

QTEST_MAIN(TstSmallWidgets)
#include "tst_smallwidgets.moc"
