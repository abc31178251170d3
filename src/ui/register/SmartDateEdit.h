#pragma once

#include "ui/register/RegisterLineEdit.h"

#include <QDate>

// The register's date cell. Single keys move the date (t today, + or = next day, - previous day, m and
// h the month's ends, y and r the year's ends, w and k the Sunday and Saturday of the week); F4 or
// Alt+Down opens a calendar. The text is read only when the row commits it.
class SmartDateEdit : public RegisterLineEdit {
    Q_OBJECT
public:
    explicit SmartDateEdit(QWidget *parent = nullptr);

    // The text's date, or the last date set when the text names none.
    QDate date() const;
    void setDate(const QDate &date);

public slots:
    void openCalendarPopup();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void display();

    QDate m_date;
};
