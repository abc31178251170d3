#pragma once

#include <QDate>
#include <QIcon>
#include <QString>

#include <functional>
#include <optional>

class QCalendarWidget;
class QLineEdit;
class QPalette;

// What the two date fields share: the single-key date commands, the text form of a date, the calendar
// button and the calendar popup.

// The date a command key leads to from base, or nothing when the key text is not a command.
std::optional<QDate> applyDateCommand(const QString &keyText, const QDate &base);

// "M/d/yyyy".
QString dateFieldText(const QDate &date);

// The date the text names, or fallback when it names none.
QDate parseDateFieldText(const QString &text, const QDate &fallback);

// The calendar glyph in the palette's placeholder colour, 16 pixels square.
QIcon calendarIcon(const QPalette &palette);

// Adds the trailing calendar button to field; triggering it runs open.
void addCalendarAction(QLineEdit *field, const QString &toolTip, const std::function<void()> &open);

// Shows a calendar under field on selected (today when invalid); a click on a day runs picked and closes
// it. Never waits: the popup lives on by itself and deletes itself when closed.
QCalendarWidget *openDateCalendar(QLineEdit *field, const QDate &selected,
                                  const std::function<void(const QDate &)> &picked);
