#include "ui/WelcomeScreen.h"

#include <QApplication>
#include <QFrame>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class TstWelcomeScreen : public QObject {
    Q_OBJECT
private slots:
    void buttonEmitsItsSignal_data();
    void buttonEmitsItsSignal();
    void cardFollowsPalette();
};

void TstWelcomeScreen::buttonEmitsItsSignal_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("expected");

    QTest::newRow("create") << "createAccountButton" << 0;
    QTest::newRow("learn more") << "learnMoreButton" << 1;
    QTest::newRow("sign in") << "signInButton" << 2;
}

void TstWelcomeScreen::buttonEmitsItsSignal()
{
    QFETCH(QString, button);
    QFETCH(int, expected);

    WelcomeScreen screen;
    screen.resize(1000, 700);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    QSignalSpy create(&screen, &WelcomeScreen::createAccountRequested);
    QSignalSpy learnMore(&screen, &WelcomeScreen::learnMoreRequested);
    QSignalSpy signIn(&screen, &WelcomeScreen::signInRequested);

    auto *target = screen.findChild<QPushButton *>(button);
    QVERIFY(target);
    QTest::mouseClick(target, Qt::LeftButton);

    const QSignalSpy *spies[] = {&create, &learnMore, &signIn};
    for (int i = 0; i < 3; ++i)
        QCOMPARE(spies[i]->count(), i == expected ? 1 : 0);
}

void TstWelcomeScreen::cardFollowsPalette()
{
    WelcomeScreen screen;
    auto *card = screen.findChild<QFrame *>(QStringLiteral("HowItWorksCard"));
    QVERIFY(card->styleSheet().contains(QLatin1String("#D8E0DB")));

    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x0F1E19));
    QApplication::setPalette(dark);
    // The change of palette reaches widgets by posted events.
    QTRY_VERIFY(card->styleSheet().contains(QLatin1String("#2A4038")));
    QApplication::setPalette(QPalette());
}

QTEST_MAIN(TstWelcomeScreen)
#include "tst_welcomescreen.moc"
