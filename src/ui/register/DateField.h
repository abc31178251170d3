#pragma once

#include <QDate>
#include <QLineEdit>

// The date field of the forms. It takes the same single-key commands and calendar as the register's
// date cell, and reports a new date at once: after a command, a calendar click or leaving the field.
class DateField : public QLineEdit {
    Q_OBJECT
public:
    explicit DateField(QWidget *parent = nullptr);

    // The text's date, or the last date set when the text names none.
    QDate date() const;
    // Does not emit dateChanged: the caller knows what it set.
    void setDate(const QDate &date);

public slots:
    void openCalendarPopup();

signals:
    void dateChanged(const QDate &date);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void changeTo(const QDate &date);
    void display();

    QDate m_date;
};
