#include "core/ThemeManager.h"

#include "core/ContrastStyle.h"
#include "core/WordTable.h"
#include "data/PreferencesRepository.h"

#include <QApplication>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QStyleHints>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

constexpr WordEntry<ThemeManager::Theme> kThemeWords[] = {
    {ThemeManager::System, "system"},
    {ThemeManager::Light,  "light" },
    {ThemeManager::Dark,   "dark"  },
};

struct PaletteEntry {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr PaletteEntry kPalette[] = {
    {QPalette::All,      QPalette::Window,          0xFAFBFA, 0x0F1E19},
    {QPalette::All,      QPalette::WindowText,      0x1B2D26, 0xD8E8DF},
    {QPalette::All,      QPalette::Base,            0xFFFFFF, 0x152420},
    {QPalette::All,      QPalette::AlternateBase,   0xF2F7F4, 0x1A2E28},
    {QPalette::All,      QPalette::Text,            0x1B2D26, 0xD8E8DF},
    {QPalette::All,      QPalette::Button,          0xE0EBE5, 0x1E3530},
    {QPalette::All,      QPalette::ButtonText,      0x1B2D26, 0xD8E8DF},
    {QPalette::All,      QPalette::Highlight,       0x00897B, 0x4DB6AC},
    {QPalette::All,      QPalette::HighlightedText, 0xFFFFFF, 0x0F1E19},
    {QPalette::All,      QPalette::ToolTipBase,     0xFFFFFF, 0x1E3530},
    {QPalette::All,      QPalette::ToolTipText,     0x1B2D26, 0xD8E8DF},
    {QPalette::All,      QPalette::PlaceholderText, 0x6E8A7E, 0x8FAF9F},
    {QPalette::All,      QPalette::Mid,             0xD8E0DB, 0x2A4038},
    {QPalette::All,      QPalette::Light,           0xFFFFFF, 0x2A4038},
    {QPalette::All,      QPalette::Dark,            0x9BB0A3, 0x0A1510},
    {QPalette::Disabled, QPalette::WindowText,      0xA0B5A8, 0x3A5A4A},
    {QPalette::Disabled, QPalette::Text,            0xA0B5A8, 0x3A5A4A},
    {QPalette::Disabled, QPalette::ButtonText,      0xA0B5A8, 0x3A5A4A},
 // A disabled button keeps no fill of its own: it stands out from the filled ones it sits beside.
    {QPalette::Disabled, QPalette::Button,          0xFAFBFA, 0x0F1E19},
};

struct SemanticColour {
    QRgb light;
    QRgb dark;
};

constexpr SemanticColour kPositive = {0x2E7D32, 0x66BB6A};
constexpr SemanticColour kNegative = {0xC62828, 0xFF8A80};
constexpr SemanticColour kWarning = {0xE65100, 0xFFA726};

struct FontRole {
    int sizeDelta;
    int minimumSize;
    int weight; // 0 keeps the base font's weight
};

// Role 7, the amount font, is not a variant of the base font and is built on its own.
constexpr int kAmountRole = 7;
constexpr FontRole kFontRoles[] = {
    {0,  1, 0  },
    {0,  1, 500},
    {-2, 7, 0  },
    {1,  1, 500},
    {4,  1, 600},
    {8,  1, 600},
    {14, 1, 700},
};

constexpr int kMinimumScale = 70;
constexpr int kMaximumScale = 160;

int g_fontScale = 100;
std::optional<Qt::DayOfWeek> g_firstDayOfWeek;

// Never destroyed: a font that outlived the application would free its font engines after the font
// database they belong to is gone.
QFont *g_baseFont = nullptr;

const QFont &storedBaseFont()
{
    if (!g_baseFont)
        g_baseFont = new QFont(QApplication::font());
    return *g_baseFont;
}

bool systemIsDark()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    return QGuiApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark;
#else
    // Qt 6.4 does not tell the colour scheme; the platform's own palette is the sign of it. A palette
    // with no roles of its own, once set, lets the platform's colours through again, so our earlier
    // theme cannot pass for the system's.
    QApplication::setPalette(QPalette());
    const QPalette platform = QApplication::palette();
    return platform.color(QPalette::Window).lightness() < platform.color(QPalette::WindowText).lightness();
#endif
}

QColor semantic(const SemanticColour &colour)
{
    const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return QColor(dark ? colour.dark : colour.light);
}

} // namespace

ThemeManager::ThemeManager(PreferencesRepository *preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
{
}

void ThemeManager::setThemeByName(const QString &name)
{
    setTheme(valueOf(kThemeWords, name, System));
}

void ThemeManager::setTheme(Theme theme)
{
    m_theme = theme;
    const bool dark = theme == Dark || (theme != Light && systemIsDark());

    if (!qobject_cast<ContrastStyle *>(QApplication::style()))
        QApplication::setStyle(new ContrastStyle(QApplication::style()->name()));

    QPalette palette;
    for (const PaletteEntry &entry : kPalette)
        palette.setColor(entry.group, entry.role, QColor(dark ? entry.dark : entry.light));
    QApplication::setPalette(palette);
    QApplication::setFont(baseFont());
    // A widget with a style sheet of its own keeps the palette it was polished with; polished anew, it
    // takes the new one, so that an open window does not stay half in the old theme.
    const QList<QWidget *> widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (!widget->styleSheet().isEmpty())
            widget->setStyleSheet(widget->styleSheet());
    }

    // The requested theme, not the resolved one, so that System keeps following the system.
    m_preferences->set(QStringLiteral("theme"), wordOf(kThemeWords, theme, System));
    emit themeChanged(theme);
}

void ThemeManager::setFontScale(int percent)
{
    setCurrentFontScale(percent);
    const int scale = currentFontScale();
    m_preferences->setInt(QStringLiteral("fontScale"), scale);
    setTheme(m_theme);

    const QList<QWidget *> widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        const QVariant role = widget->property("halcFontRole");
        if (!role.isValid())
            continue;
        QFont font = fontForRole(role.toInt());
        if (widget->property("halcFontItalic").toBool())
            font.setItalic(true);
        if (const QVariant weight = widget->property("halcFontWeight"); weight.isValid())
            font.setWeight(QFont::Weight(weight.toInt()));
        widget->setFont(font);
    }
    emit fontScaleChanged(scale);
}

QFont ThemeManager::fontForRole(int role)
{
    const int scaled = scaledPointSize();
    if (role == kAmountRole) {
        QFont font(QStringLiteral("monospace"));
        font.setStyleHint(QFont::Monospace);
        font.setPointSize(scaled);
        font.setWeight(QFont::Normal);
        return font;
    }
    if (role < 0 || role >= int(std::size(kFontRoles)))
        role = 0;
    const FontRole &entry = kFontRoles[role];
    QFont font = storedBaseFont();
    font.setPointSize(std::max(scaled + entry.sizeDelta, entry.minimumSize));
    if (entry.weight != 0)
        font.setWeight(QFont::Weight(entry.weight));
    return font;
}

QFont ThemeManager::baseFont()
{
    return fontForRole(0);
}

QFont ThemeManager::amountFont()
{
    return fontForRole(kAmountRole);
}

void ThemeManager::setBaseFont(const QFont &font)
{
    if (g_baseFont)
        *g_baseFont = font;
    else
        g_baseFont = new QFont(font);
}

void ThemeManager::setCurrentFontScale(int percent)
{
    g_fontScale = std::clamp(percent, kMinimumScale, kMaximumScale);
}

int ThemeManager::currentFontScale()
{
    return g_fontScale;
}

int ThemeManager::scaledPointSize()
{
    int base = storedBaseFont().pointSize();
    if (base < 1)
        base = 10;
    return std::max(1, base * g_fontScale / 100);
}

void ThemeManager::setFirstDayOfWeek(Qt::DayOfWeek day)
{
    g_firstDayOfWeek = day;
}

Qt::DayOfWeek ThemeManager::firstDayOfWeek()
{
    return g_firstDayOfWeek.value_or(QLocale::system().firstDayOfWeek());
}

QColor ThemeManager::positiveColor()
{
    return semantic(kPositive);
}

QColor ThemeManager::negativeColor()
{
    return semantic(kNegative);
}

QColor ThemeManager::warningColor()
{
    return semantic(kWarning);
}
