#pragma once

#include <QProxyStyle>

// The platform's own style with one change for a dark palette: the outlines of check boxes, radio
// buttons, buttons and frames, which the style derives a shade darker than the window colour and
// which on a dark window are therefore no line at all, are drawn light enough to read, and the
// splitter handle between two dark panes is drawn as a visible divider. A light palette is drawn as
// the platform draws it.
class ContrastStyle : public QProxyStyle {
    Q_OBJECT
public:
    // Wraps a new instance of the style of that name.
    explicit ContrastStyle(const QString &baseStyle);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
};
