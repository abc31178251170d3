#pragma once

#include <QMessageBox>
#include <QString>

// Every question and message box the program puts to the user goes through here, so that a test can
// script the answer before the code asks and no test ever sits in a modal loop.
class Prompt {
public:
    static QMessageBox::StandardButton critical(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons = QMessageBox::Ok);
    static QMessageBox::StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons,
                                                QMessageBox::StandardButton defaultButton);

    // Tests only: the next box is not shown; it returns this answer and remembers what it would have said.
    static void setNextAnswer(QMessageBox::StandardButton answer);
    static QString lastTitle();
    static QString lastText();
};
