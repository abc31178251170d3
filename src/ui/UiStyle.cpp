#include "ui/UiStyle.h"

#include "core/ThemeManager.h"

#include <QApplication>
#include <QPalette>
#include <QPushButton>
#include <QWidget>

void applyFontRole(QWidget *widget, int role, bool italic)
{
    widget->setProperty("halcFontRole", role);
    QFont font = ThemeManager::fontForRole(role);
    if (italic) {
        widget->setProperty("halcFontItalic", true);
        font.setItalic(true);
    }
    widget->setFont(font);
}

void applyBoldFontRole(QWidget *widget, int role)
{
    widget->setProperty("halcFontWeight", int(QFont::Bold));
    applyFontRole(widget, role);
    QFont font = widget->font();
    font.setWeight(QFont::Bold);
    widget->setFont(font);
}

void applyPrimaryButtonStyle(QPushButton *button)
{
    button->setStyleSheet(
        QStringLiteral("QPushButton { background-color: #00897B; color: white; border: none;"
                       " border-radius: 4px; padding: 6px 16px; font-weight: 600;"
                       " min-width: 80px; }"
                       "QPushButton:hover { background-color: #00796B; }"
                       "QPushButton:pressed { background-color: #004D40; }"
                       // Teal that does nothing reads as broken: a disabled one looks like any
                       // disabled button.
                       "QPushButton:disabled { background-color: palette(button); color: #6E8A7E;"
                       " border: 1px solid palette(mid); }"));
    button->setCursor(Qt::PointingHandCursor);
}

void applyLinkButtonStyle(QPushButton *button, const QColor &color)
{
    const QString text = color.isValid() ? QStringLiteral(" color: %1;").arg(color.name()) : QString();
    button->setFlat(true);
    button->setStyleSheet(
        QStringLiteral("QPushButton { border: none; background: transparent; padding: 2px;%1 }"
                       "QPushButton:hover { text-decoration: underline; }")
            .arg(text));
    button->setCursor(Qt::PointingHandCursor);
}

bool isDarkPalette()
{
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}
