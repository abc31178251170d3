#include "ui/ElidedLabel.h"

#include <QHBoxLayout>
#include <QTest>

class TstElidedLabel : public QObject {
    Q_OBJECT
private slots:
    void elidesToWidth_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("shown");

        const QString name = QStringLiteral("Joint household checking account");
        QTest::newRow("nothing") << 0 << QStringLiteral("…");
        QTest::newRow("wide") << 2000 << name;
    }

    void elidesToWidth()
    {
        QFETCH(int, width);
        QFETCH(QString, shown);

        const QString name = QStringLiteral("Joint household checking account");
        ElidedLabel label;
        label.setFullText(name);
        label.resize(width, label.sizeHint().height());
        QCOMPARE(label.elidedText(), shown);
        QCOMPARE(label.fullText(), name);
        QCOMPARE(label.text(), name);
    }

    void longTextNeverWidensPanel()
    {
        QWidget panel;
        auto *layout = new QHBoxLayout(&panel);
        auto *label = new ElidedLabel(&panel);
        layout->addWidget(label);
        panel.setMaximumWidth(120);
        label->setFullText(QString(200, QLatin1Char('W')));
        panel.resize(1000, 40);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));

        QCOMPARE(panel.width(), 120);
        QVERIFY(label->width() > 20);
        QVERIFY(label->sizeHint().width() > 120);
        QVERIFY(panel.minimumSizeHint().width() <= 120);
        QVERIFY(label->elidedText().endsWith(QChar(0x2026)));
        QVERIFY(label->elidedText().size() < 200);
    }
};

QTEST_MAIN(TstElidedLabel)
#include "tst_elidedlabel.moc"
