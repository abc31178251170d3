#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

class QDialog;

// Every question and message box the program puts to the user goes through here, so that a test can
// script the answer before the code asks and no test ever sits in a modal loop.
class Prompt {
public:
    static QMessageBox::StandardButton critical(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons = QMessageBox::Ok);
    static QMessageBox::StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons,
                                                QMessageBox::StandardButton defaultButton);

    static QMessageBox::StandardButton warning(QWidget *parent, const QString &title, const QString &text,
                                               QMessageBox::StandardButtons buttons,
                                               QMessageBox::StandardButton defaultButton);
    static void information(QWidget *parent, const QString &title, const QString &text);
    static void about(QWidget *parent, const QString &title, const QString &text);
    // Runs a form modally and gives its result code.
    static int exec(QDialog *dialog);
    // The save dialog, proposing name; an empty result means the user cancelled.
    static QString saveFileName(QWidget *parent, const QString &title, const QString &name,
                                const QString &filter);

    // Tests only: the next dialog given to exec() is handed to this instead of entering a modal loop;
    // it fills the form as a user would and returns the result code.
    static void setNextDialogHandler(std::function<int(QDialog *)> handler);
    // Tests only: the next box is not shown; it returns this answer and remembers what it would have said.
    static void setNextAnswer(QMessageBox::StandardButton answer);
    // Tests only: the next save dialog is not shown and gives this path; an empty one is a cancel.
    static void setNextFileName(const QString &path);
    static QString lastTitle();
    static QString lastText();
};
