#include "ui/register/DateCommands.h"

#include "core/ThemeManager.h"

#include <QAction>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>

std::optional<QDate> applyDateCommand(const QString &keyText, const QDate &base)
{
    const QString key = keyText.toLower();
    if (key == QLatin1String("t"))
        return QDate::currentDate();
    if (key == QLatin1String("+") || key == QLatin1String("="))
        return base.addDays(1);
    if (key == QLatin1String("-"))
        return base.addDays(-1);
    if (key == QLatin1String("m"))
        return QDate(base.year(), base.month(), 1);
    if (key == QLatin1String("h"))
        return QDate(base.year(), base.month(), base.daysInMonth());
    if (key == QLatin1String("y"))
        return QDate(base.year(), 1, 1);
    if (key == QLatin1String("r"))
        return QDate(base.year(), 12, 31);
    // These two keys always mean a Sunday-to-Saturday week, whatever day the calendar starts on.
    if (key == QLatin1String("w"))
        return base.dayOfWeek() == 7 ? base : base.addDays(-base.dayOfWeek());
    if (key == QLatin1String("k"))
        return base.addDays(base.dayOfWeek() == 7 ? 6 : 6 - base.dayOfWeek());
    return std::nullopt;
}

QString dateFieldText(const QDate &date)
{
    return date.toString(QStringLiteral("M/d/yyyy"));
}

QDate parseDateFieldText(const QString &text, const QDate &fallback)
{
    // Two-digit years read as 19yy on purpose: no pivot year is applied.
    static const QString formats[] = {QStringLiteral("M/d/yyyy"), QStringLiteral("MM/dd/yyyy"),
                                      QStringLiteral("M/d/yy"), QStringLiteral("MM/dd/yy")};
    for (const QString &format : formats) {
        const QDate date = QDate::fromString(text, format);
        if (date.isValid())
            return date;
    }
    return fallback;
}

QIcon calendarIcon(const QPalette &palette)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font(QStringLiteral("Material Icons"));
    font.setPixelSize(16);
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::PlaceholderText));
    painter.drawText(pixmap.rect(), Qt::AlignCenter, QString(QChar(0xE935)));
    painter.end();
    return QIcon(pixmap);
}

void addCalendarAction(QLineEdit *field, const QString &toolTip, const std::function<void()> &open)
{
    QAction *action = field->addAction(calendarIcon(field->palette()), QLineEdit::TrailingPosition);
    action->setToolTip(toolTip);
    QObject::connect(action, &QAction::triggered, field, [open] { open(); });
}

QCalendarWidget *openDateCalendar(QLineEdit *field, const QDate &selected,
                                  const std::function<void(const QDate &)> &picked)
{
    auto *calendar = new QCalendarWidget(field);
    calendar->setWindowFlags(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setGridVisible(true);
    calendar->setLocale(QLocale());
    // Read at every opening: the preference can change while the program runs.
    calendar->setFirstDayOfWeek(ThemeManager::firstDayOfWeek());
    calendar->setSelectedDate(selected.isValid() ? selected : QDate::currentDate());
    QObject::connect(calendar, &QCalendarWidget::clicked, field, [calendar, picked](QDate date) {
        picked(date);
        calendar->close();
    });
    calendar->move(field->mapToGlobal(field->rect().bottomLeft()));
    calendar->show();
    calendar->setFocus();
    return calendar;
}
