#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>

class PreferencesRepository;

// The look of the program: the application palette of a light or dark theme, one scale for all text,
// and numbered font roles for screens. There is no application-wide style sheet.
//
// A widget with a font role carries it in the dynamic property "halcFontRole" (int), optionally with
// "halcFontItalic" (bool) and "halcFontWeight" (int), so that a change of scale can find and refont it.
//
// The base font, the scale and the first day of the week are process-wide: start-up sets them before a
// ThemeManager exists, and the font helpers are static so that any widget can use them.
class ThemeManager : public QObject {
    Q_OBJECT
public:
    enum Theme { System = 0, Light = 1, Dark = 2 };
    Q_ENUM(Theme)

    explicit ThemeManager(PreferencesRepository *preferences, QObject *parent = nullptr);

    Theme theme() const { return m_theme; }
    // "light" and "dark" name their theme; any other word follows the system.
    void setThemeByName(const QString &name);
    // System reads the system's colour scheme here only: a later change of it waits for the next call.
    void setTheme(Theme theme);
    // Also refonts every widget that carries a font role.
    void setFontScale(int percent);

    // 0 body, 1 body medium, 2 small, 3 subheading, 4 heading, 5 title, 6 display, 7 amounts;
    // any other number is 0.
    static QFont fontForRole(int role);
    static QFont baseFont();
    static QFont amountFont();

    // Without a call, the application font at the first use is the base font.
    static void setBaseFont(const QFont &font);
    static void setCurrentFontScale(int percent);
    static int currentFontScale();
    // The base point size, or 10 without one, times the scale; at least 1.
    static int scaledPointSize();

    static void setFirstDayOfWeek(Qt::DayOfWeek day);
    // The system locale's until set.
    static Qt::DayOfWeek firstDayOfWeek();

    // Follow the application palette: the dark variants when its Window colour is dark.
    static QColor positiveColor();
    static QColor negativeColor();
    static QColor warningColor();

signals:
    void themeChanged(ThemeManager::Theme theme);
    void fontScaleChanged(int percent);

private:
    PreferencesRepository *m_preferences = nullptr;
    Theme m_theme = System;
};
