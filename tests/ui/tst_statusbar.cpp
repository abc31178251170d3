#include "ui/StatusBar.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTest>

class TstStatusBar : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void setRecurringDue_data();
    void setRecurringDue();
    void refreshColorsFollowsPalette();
    void showTimedMessageEndsProgress();
    void messageKeepsLabelsAside_data();
    void messageKeepsLabelsAside();
};

namespace {

void setDarkPalette(bool dark)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(dark ? 0x0F1E19 : 0xFAFBFA));
    QApplication::setPalette(palette);
}

QLabel *label(StatusBar &bar, const char *name)
{
    return bar.findChild<QLabel *>(QLatin1String(name));
}

} // namespace

void TstStatusBar::cleanup()
{
    setDarkPalette(false);
}

void TstStatusBar::setRecurringDue_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("dark");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("colour");

    QTest::newRow("none") << 0 << false << false << QString() << QString();
    QTest::newRow("negative") << -2 << false << false << QString() << QString();
    QTest::newRow("one light") << 1 << false << true << "  •  1 recurring due"
                               << "#E65100";
    QTest::newRow("many dark") << 12 << true << true << "  •  12 recurring due"
                               << "#FFA726";
}

void TstStatusBar::setRecurringDue()
{
    QFETCH(int, count);
    QFETCH(bool, dark);
    QFETCH(bool, shown);
    QFETCH(QString, text);
    QFETCH(QString, colour);

    setDarkPalette(dark);
    StatusBar bar;
    QLabel *due = label(bar, "recurringDueLabel");
    // A count that drops to nothing must take away what an earlier count showed.
    bar.setRecurringDue(5);
    bar.setRecurringDue(count);
    QCOMPARE(!due->isHidden(), shown);
    if (shown) {
        QCOMPARE(due->text(), text);
        QCOMPARE(due->styleSheet(), QStringLiteral("color: %1; font-weight: bold;").arg(colour));
    }
}

void TstStatusBar::refreshColorsFollowsPalette()
{
    StatusBar bar;
    bar.setRecurringDue(2);
    QCOMPARE(label(bar, "syncLabel")->styleSheet(), QStringLiteral("color: #2A3D33;"));

    setDarkPalette(true);
    bar.refreshColors();
    QCOMPARE(label(bar, "syncLabel")->styleSheet(), QStringLiteral("color: #8FAF9F;"));
    QCOMPARE(label(bar, "accountCountLabel")->styleSheet(), QStringLiteral("color: #8FAF9F;"));
    QVERIFY(label(bar, "recurringDueLabel")->styleSheet().contains(QLatin1String("#FFA726")));
}

void TstStatusBar::showTimedMessageEndsProgress()
{
    StatusBar bar;
    auto *progressBar = bar.findChild<QProgressBar *>(QStringLiteral("progressBar"));
    bar.showProgress(QStringLiteral("Importing…"));
    QVERIFY(!progressBar->isHidden());
    QCOMPARE(label(bar, "progressLabel")->text(), QStringLiteral("Importing…"));

    bar.showTimedMessage(QStringLiteral("Imported 12 transactions."), 3000);
    QVERIFY(progressBar->isHidden());
    QVERIFY(label(bar, "progressLabel")->isHidden());
    QCOMPARE(bar.currentMessage(), QStringLiteral("Imported 12 transactions."));
}

void TstStatusBar::messageKeepsLabelsAside_data()
{
    QTest::addColumn<bool>("shownFirst");
    QTest::newRow("message before the window shows") << false;
    QTest::newRow("count arrives during a message") << true;
}

// A message and the left labels drawn in one place are both unreadable.
void TstStatusBar::messageKeepsLabelsAside()
{
    QFETCH(bool, shownFirst);
    QWidget window;
    auto *bar = new StatusBar(&window);
    bar->setAccountCount(12);
    if (shownFirst) {
        window.show();
        bar->showTimedMessage(QStringLiteral("Auto-posted 474 recurring transaction(s)"), 5000);
        bar->setRecurringDue(6);
    } else {
        bar->setRecurringDue(6);
        bar->showTimedMessage(QStringLiteral("Auto-posted 474 recurring transaction(s)"), 5000);
        window.show();
    }
    QVERIFY(!label(*bar, "accountCountLabel")->isVisible());
    QVERIFY(!label(*bar, "recurringDueLabel")->isVisible());

    bar->clearMessage();
    QVERIFY(label(*bar, "accountCountLabel")->isVisible());
    QVERIFY(label(*bar, "recurringDueLabel")->isVisible());
}

QTEST_MAIN(TstStatusBar)
#include "tst_statusbar.moc"
