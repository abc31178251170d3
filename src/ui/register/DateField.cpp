#include "ui/register/DateField.h"

#include "ui/register/DateCommands.h"

#include <QKeyEvent>

DateField::DateField(QWidget *parent)
    : QLineEdit(parent)
    , m_date(QDate::currentDate())
{
    addCalendarAction(this, tr("Open calendar (F4)"), [this] { openCalendarPopup(); });
    display();
}

QDate DateField::date() const
{
    return parseDateFieldText(text(), m_date);
}

void DateField::setDate(const QDate &date)
{
    m_date = date;
    display();
}

void DateField::openCalendarPopup()
{
    openDateCalendar(this, date(), [this](const QDate &picked) { changeTo(picked); });
}

void DateField::keyPressEvent(QKeyEvent *event)
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
        changeTo(*moved);
        selectAll();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void DateField::focusOutEvent(QFocusEvent *event)
{
    const QDate typed = date();
    if (typed != m_date) {
        m_date = typed;
        emit dateChanged(m_date);
    }
    display();
    QLineEdit::focusOutEvent(event);
}

void DateField::changeTo(const QDate &date)
{
    if (date == m_date)
        return;
    m_date = date;
    display();
    emit dateChanged(m_date);
}

void DateField::display()
{
    setText(dateFieldText(m_date));
}
