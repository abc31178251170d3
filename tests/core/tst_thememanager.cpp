#include "core/ThemeManager.h"
#include "data/PreferencesRepository.h"
#include "support/Line.h"
#include "support/SpyText.h"
#include "support/TempDatabase.h"
#include "ui/UiStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
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
        const int normal = QFont::Normal;
        // clang-format off
        QTest::newRow("small")                    << nine   << 100 << 2 << 7  << normal;
        QTest::newRow("display")                  << nine   << 100 << 6 << 23 << 700;
        QTest::newRow("70 body")                  << nine   << 70  << 0 << 6  << normal;
        QTest::newRow("70 small floor")           << nine   << 70  << 2 << 7  << normal;
        QTest::newRow("160 title")                << nine   << 160 << 5 << 22 << 600;
        QTest::newRow("pixel base is ten")        << pixels << 70  << 3 << 8  << 500;
        QTest::newRow("tiny base")                << QFont(QStringLiteral("Sans"), 1) << 70 << 0 << 1 << normal;
        QTest::newRow("bold base kept")           << bold   << 100 << 2 << 7  << 700;
        QTest::newRow("amounts ignore bold base") << bold   << 160 << 7 << 14 << normal;
        QTest::newRow("unknown role is body")     << nine   << 160 << 8 << 14 << normal;
        // clang-format on
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
        const QFont font = ThemeManager::fontForRole(role);
        QCOMPARE(line(font.pointSize(), int(font.weight())), line(pointSize, weight));
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
        QCOMPARE(line(ThemeManager::currentFontScale(),
                      m_prefs->getOr(QStringLiteral("fontScale"), QString()),
                      QApplication::font().pointSize(), spyText(scaleSpy)),
                 line(stored, stored, appPointSize, stored));
    }

    void setFontScaleRefontsRoleWidgets()
    {
        QLabel display, emphasised, plain;
        applyFontRole(&display, 6);
        applyFontRole(&emphasised, 2, true);
        emphasised.setProperty("halcFontWeight", 300);
        plain.setFont(QFont(QStringLiteral("Sans"), 20));
        m_theme->setFontScale(160);
        QCOMPARE(line(display.font().pointSize(), display.font().italic(), emphasised.font().pointSize(),
                      emphasised.font().italic(), int(emphasised.font().weight()), plain.font().pointSize()),
                 "28 0 12 1 300 20");
        // Scaling back starts again from the base font rather than compounding on the scaled one.
        m_theme->setFontScale(100);
        QCOMPARE(line(display.font().pointSize(), QApplication::font().pointSize()), "23 9");
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
        // The signal names the theme by its key.
        QCOMPARE(
            line(int(m_theme->theme()), m_prefs->getOr(QStringLiteral("theme"), QString()), spyText(spy)),
            line(int(theme), word, QMetaEnum::fromType<ThemeManager::Theme>().valueToKey(theme)));
        const QPalette palette = QApplication::palette();
        QStringList colors;
        for (const QColor &color :
             {palette.color(QPalette::Inactive, QPalette::Window),
              palette.color(QPalette::Disabled, QPalette::Text),
              palette.color(QPalette::Active, QPalette::Text), ThemeManager::positiveColor(),
              ThemeManager::negativeColor(), ThemeManager::warningColor()})
            colors << color.name();
        QCOMPARE(colors.join(' '), dark ? QStringLiteral("#0f1e19 #3a5a4a #d8e8df #66bb6a #ff8a80 #ffa726")
                                        : QStringLiteral("#fafbfa #a0b5a8 #1b2d26 #2e7d32 #c62828 #e65100"));
    }

    // A widget with a style sheet of its own keeps the palette it was polished with unless it is polished
    // anew; an open window would stay half in the old theme. Both directions.
    void styledWidgetsTakeTheNewPalette()
    {
        for (const auto &[from, to, base] : {
                 std::tuple{ThemeManager::Light, ThemeManager::Dark,  0x152420},
                 std::tuple{ThemeManager::Dark,  ThemeManager::Light, 0xFFFFFF}
        }) {
            m_theme->setTheme(from);
            QWidget window;
            auto *list = new QListWidget(&window);
            list->setStyleSheet(
                QStringLiteral("QListWidget { outline: none; } QListWidget::item { padding: 6px; }"));
            auto *child = new QListWidget(&window);
            window.setStyleSheet(QStringLiteral("QPushButton { padding: 2px; }"));
            window.show();
            m_theme->setTheme(to);
            for (const QListWidget *widget : {list, child}) {
                QCOMPARE(widget->palette().color(QPalette::Base), QColor(base));
                QCOMPARE(widget->palette().color(QPalette::Text),
                         QApplication::palette().color(QPalette::Text));
            }
        }
    }

    // On the dark window an unchecked box, a field or a disabled button must show some line that stands
    // apart from the window colour, or the user cannot see it is there.
    void darkOutlinesRead()
    {
        m_theme->setTheme(ThemeManager::Dark);
        const int window = QApplication::palette().color(QPalette::Window).lightness();
        std::unique_ptr<QWidget> disabled = std::make_unique<QPushButton>(QStringLiteral("      "));
        disabled->setEnabled(false);
        std::unique_ptr<QWidget> widgets[] = {std::make_unique<QCheckBox>(), std::make_unique<QRadioButton>(),
                                              std::make_unique<QLineEdit>(), std::move(disabled)};
        for (const std::unique_ptr<QWidget> &widget : widgets) {
            widget->resize(widget->sizeHint());
            const QImage image = widget->grab().toImage();
            int contrast = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    contrast = std::max(contrast, std::abs(image.pixelColor(x, y).lightness() - window));
            }
            QVERIFY2(contrast >= 50, widget->metaObject()->className());
        }
    }
};

QTEST_MAIN(TstThemeManager)
#include "tst_thememanager.moc"
