#include "core/ContrastStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

// The style draws an outline 140 % darker than the window colour it is given; handed this instead of
// the dark window, it gives a grey-green line of about "#5A7A6E", which reads on the dark window and
// base colours alike.
const QColor kOutlineSource(0x7E, 0xAB, 0x9A);

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

bool hasOutline(QStyle::PrimitiveElement element)
{
    switch (element) {
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorRadioButton:
    case QStyle::PE_IndicatorItemViewItemCheck:
    case QStyle::PE_PanelButtonCommand:
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_FrameGroupBox:
    case QStyle::PE_FrameTabWidget: return true;
    default: return false;
    }
}

} // namespace

ContrastStyle::ContrastStyle(const QString &baseStyle)
    : QProxyStyle(baseStyle)
{
}

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    if (!option || !hasOutline(element) || !isDark(option->palette)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // The option is of a subclass the base style casts to, so it is lent out changed rather than
    // copied into a plain one; the caller gets it back as it was.
    auto *lent = const_cast<QStyleOption *>(option);
    const QPalette palette = lent->palette;
    lent->palette.setColor(QPalette::Window, kOutlineSource);
    QProxyStyle::drawPrimitive(element, lent, painter, widget);
    lent->palette = palette;
}

void ContrastStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    if (element == CE_Splitter && option && isDark(option->palette)) {
        painter->fillRect(option->rect, option->palette.color(QPalette::Mid));
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}
