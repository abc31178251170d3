#include "ui/register/SmartDateEdit.h"

#include "ui/register/DateCommands.h"

#include <QKeyEvent>

SmartDateEdit::SmartDateEdit(QWidget *parent)
    : RegisterLineEdit(parent)
    , m_date(QDate::currentDate())
{
    addCalendarAction(this, tr("Open calendar (F4)"), [this] { openCalendarPopup(); });
    display();
}

QDate SmartDateEdit::date() const
{
    return parseDateFieldText(text(), m_date);
}

void SmartDateEdit::setDate(const QDate &date)
{
    m_date = date;
    display();
}

void SmartDateEdit::openCalendarPopup()
{
    openDateCalendar(this, date(), [this](const QDate &picked) { setDate(picked); });
}

void SmartDateEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F4 ||
        (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier))) {
        openCalendarPopup();
        event->accept();
        return;
    }
    // Commands start from the stored date, not from half-typed text.
    const QDate base = m_date.isValid() ? m_date : QDate::currentDate();
    if (const auto moved = applyDateCommand(event->text(), base)) {
        setDate(*moved);
        event->accept();
        return;
    }
    RegisterLineEdit::keyPressEvent(event);
}

void SmartDateEdit::display()
{
    setText(dateFieldText(m_date));
    selectAll();
}
