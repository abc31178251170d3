#include "core/ThemeManager.h"
#include "data/PreferencesRepository.h"
#include "support/TempDatabase.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>

class TstThemeManager : public QObject {
    Q_OBJECT
    std::optional<TempDatabase> m_db;
    std::optional<PreferencesRepository> m_prefs;
    std::optional<ThemeManager> m_theme;

private slots:
    void init()
    {
        ThemeManager::setBaseFont(QFont(QStringLiteral("Sans"), 9));
        ThemeManager::setCurrentFontScale(100);
        m_theme.reset();
        m_prefs.reset();
        m_db.reset();
        m_db.emplace();
        QVERIFY(m_db->open());
        m_prefs.emplace(m_db->database());
        m_theme.emplace(&*m_prefs);
    }

    void fontForRole_data()
    {
        QTest::addColumn<QFont>("base");
        QTest::addColumn<int>("scale");
        QTest::addColumn<int>("role");
        QTest::addColumn<int>("pointSize");
        QTest::addColumn<int>("weight");

        const QFont nine(QStringLiteral("Sans"), 9);
        QFont bold = nine;
        bold.setWeight(QFont::Bold);
        QFont pixels(QStringLiteral("Sans"));
        pixels.setPixelSize(30);
        QTest::newRow("small") << nine << 100 << 2 << 7 << int(QFont::Normal);
        QTest::newRow("display") << nine << 100 << 6 << 23 << 700;
        QTest::newRow("70 body") << nine << 70 << 0 << 6 << int(QFont::Normal);
        QTest::newRow("70 small floor") << nine << 70 << 2 << 7 << int(QFont::Normal);
        QTest::newRow("160 title") << nine << 160 << 5 << 22 << 600;
        QTest::newRow("pixel base is ten") << pixels << 70 << 3 << 8 << 500;
        QTest::newRow("tiny base") << QFont(QStringLiteral("Sans"), 1) << 70 << 0 << 1 << int(QFont::Normal);
        QTest::newRow("bold base kept") << bold << 100 << 2 << 7 << 700;
        QTest::newRow("amounts ignore bold base") << bold << 160 << 7 << 14 << int(QFont::Normal);
        QTest::newRow("unknown role is body") << nine << 160 << 8 << 14 << int(QFont::Normal);
    }

    void fontForRole()
    {
        QFETCH(QFont, base);
        QFETCH(int, scale);
        QFETCH(int, role);
        QFETCH(int, pointSize);
        QFETCH(int, weight);

        ThemeManager::setBaseFont(base);
        ThemeManager::setCurrentFontScale(scale);
        QCOMPARE(ThemeManager::fontForRole(role).pointSize(), pointSize);
        QCOMPARE(int(ThemeManager::fontForRole(role).weight()), weight);
    }

    void setFontScale_data()
    {
        QTest::addColumn<int>("requested");
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("appPointSize");
        QTest::newRow("above range") << 500 << 160 << 14;
        QTest::newRow("below range") << 10 << 70 << 6;
        QTest::newRow("in range") << 125 << 125 << 11;
    }

    void setFontScale()
    {
        QFETCH(int, requested);
        QFETCH(int, stored);
        QFETCH(int, appPointSize);
        QSignalSpy scaleSpy(&*m_theme, &ThemeManager::fontScaleChanged);

        m_theme->setFontScale(requested);
        QCOMPARE(ThemeManager::currentFontScale(), stored);
        QCOMPARE(m_prefs->getOr(QStringLiteral("fontScale"), QString()), QString::number(stored));
        QCOMPARE(QApplication::font().pointSize(), appPointSize);
        QCOMPARE(scaleSpy.count(), 1);
        QCOMPARE(scaleSpy.at(0).at(0).toInt(), stored);
    }

    void setFontScaleRefontsRoleWidgets()
    {
        QLabel display;
        display.setProperty("halcFontRole", 6);
        QLabel emphasised;
        emphasised.setProperty("halcFontRole", 2);
        emphasised.setProperty("halcFontItalic", true);
        emphasised.setProperty("halcFontWeight", 300);
        QLabel plain;
        plain.setFont(QFont(QStringLiteral("Sans"), 20));

        m_theme->setFontScale(160);
        QCOMPARE(display.font().pointSize(), 28);
        QVERIFY(!display.font().italic());
        QCOMPARE(emphasised.font().pointSize(), 12);
        QVERIFY(emphasised.font().italic());
        QCOMPARE(int(emphasised.font().weight()), 300);
        QCOMPARE(plain.font().pointSize(), 20);

        // Scaling back starts again from the base font rather than compounding on the scaled one.
        m_theme->setFontScale(100);
        QCOMPARE(display.font().pointSize(), 23);
        QCOMPARE(QApplication::font().pointSize(), 9);
    }

    void setThemeByName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ThemeManager::Theme>("theme");
        QTest::addColumn<QString>("word");
        QTest::addColumn<bool>("dark");
        // Each row starts dark; the offscreen platform is light, and our dark must not pass for the system's.
        QTest::newRow("light") << "light" << ThemeManager::Light << "light" << false;
        QTest::newRow("dark") << "dark" << ThemeManager::Dark << "dark" << true;
        QTest::newRow("unknown word") << "purple" << ThemeManager::System << "system" << false;
        QTest::newRow("words are exact") << "Dark" << ThemeManager::System << "system" << false;
    }

    void setThemeByName()
    {
        QFETCH(QString, name);
        QFETCH(ThemeManager::Theme, theme);
        QFETCH(QString, word);
        QFETCH(bool, dark);
        m_theme->setTheme(ThemeManager::Dark);
        QSignalSpy spy(&*m_theme, &ThemeManager::themeChanged);

        m_theme->setThemeByName(name);
        QCOMPARE(m_theme->theme(), theme);
        QCOMPARE(m_prefs->getOr(QStringLiteral("theme"), QString()), word);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<ThemeManager::Theme>(), theme);

        const QPalette palette = QApplication::palette();
        QCOMPARE(palette.color(QPalette::Inactive, QPalette::Window), QColor(dark ? 0x0F1E19 : 0xFAFBFA));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::Text), QColor(dark ? 0x3A5A4A : 0xA0B5A8));
        QCOMPARE(palette.color(QPalette::Active, QPalette::Text), QColor(dark ? 0xD8E8DF : 0x1B2D26));
        QCOMPARE(ThemeManager::positiveColor(), QColor(dark ? 0x66BB6A : 0x2E7D32));
        QCOMPARE(ThemeManager::negativeColor(), QColor(dark ? 0xFF8A80 : 0xC62828));
        QCOMPARE(ThemeManager::warningColor(), QColor(dark ? 0xFFA726 : 0xE65100));
    }

    void styledWidgetsTakeTheNewPalette_data()
    {
        QTest::addColumn<ThemeManager::Theme>("from");
        QTest::addColumn<ThemeManager::Theme>("to");
        QTest::addColumn<QColor>("base");
        QTest::newRow("light to dark") << ThemeManager::Light << ThemeManager::Dark << QColor(0x152420);
        QTest::newRow("dark to light") << ThemeManager::Dark << ThemeManager::Light << QColor(0xFFFFFF);
    }

    // A widget with a style sheet of its own keeps the palette it was polished with unless it is polished
    // anew; an open window would stay half in the old theme.
    void styledWidgetsTakeTheNewPalette()
    {
        QFETCH(ThemeManager::Theme, from);
        QFETCH(ThemeManager::Theme, to);
        QFETCH(QColor, base);
        m_theme->setTheme(from);
        QWidget window;
        auto *list = new QListWidget(&window);
        list->setStyleSheet(
            QStringLiteral("QListWidget { outline: none; } QListWidget::item { padding: 6px 8px; }"));
        auto *child = new QListWidget(&window);
        window.setStyleSheet(QStringLiteral("QPushButton { padding: 2px; }"));
        window.show();

        m_theme->setTheme(to);
        for (const QListWidget *widget : {list, child}) {
            QCOMPARE(widget->palette().color(QPalette::Base), base);
            QCOMPARE(widget->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
        }
    }

    void darkOutlinesRead_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("unchecked check box") << "check";
        QTest::newRow("unchecked radio button") << "radio";
        QTest::newRow("line edit frame") << "edit";
        QTest::newRow("disabled button") << "disabled";
    }

    // On the dark window an unchecked box, a field or a disabled button must show some line that
    // stands apart from the window colour, or the user cannot see it is there.
    void darkOutlinesRead()
    {
        QFETCH(QString, kind);
        m_theme->setTheme(ThemeManager::Dark);
        QWidget *widget = nullptr;
        if (kind == QLatin1String("check"))
            widget = new QCheckBox;
        else if (kind == QLatin1String("radio"))
            widget = new QRadioButton;
        else if (kind == QLatin1String("edit"))
            widget = new QLineEdit;
        else
            widget = new QPushButton(QStringLiteral("      "));
        widget->setEnabled(kind != QLatin1String("disabled"));
        std::unique_ptr<QWidget> owner(widget);
        widget->resize(widget->sizeHint());
        const QImage image = widget->grab().toImage();
        const int window = QApplication::palette().color(QPalette::Window).lightness();
        int contrast = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                contrast = std::max(contrast, std::abs(image.pixelColor(x, y).lightness() - window));
        }
        QVERIFY2(contrast >= 50, qPrintable(QStringLiteral("lightness difference %1").arg(contrast)));
    }
};

QTEST_MAIN(TstThemeManager)
#include "tst_thememanager.moc"
