#pragma once

#include <QColor>

class QPushButton;
class QWidget;

// What many screens share in how they look: font roles set so that a change of scale can find them,
// the primary and link button styles, and the choice between a light and a dark colour.

// Stores the role (and italic, when asked) in the dynamic properties the theme refonts by, and sets the
// role's font now.
void applyFontRole(QWidget *widget, int role, bool italic = false);

// The role's font in bold, kept bold when the theme refonts it.
void applyBoldFontRole(QWidget *widget, int role);

// Teal filled button for the one action a page leads to.
void applyPrimaryButtonStyle(QPushButton *button);

// A flat button that reads as a hyperlink; an invalid colour keeps the palette's button text colour.
void applyLinkButtonStyle(QPushButton *button, const QColor &color = QColor());

// The application palette is dark when its Window colour has a lightness below 128.
bool isDarkPalette();
