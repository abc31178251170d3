#pragma once

#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

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
    // An information box offering one way on (acceptText, the default) or Cancel; true when taken.
    // A scripted answer other than Cancel takes it.
    static bool offer(QWidget *parent, const QString &title, const QString &text, const QString &acceptText);
    // Runs a form modally and gives its result code.
    static int exec(QDialog *dialog);
    // File dialogs start in the user's documents folder (home when there is none), not in the working
    // directory, which for a program started from a menu is nowhere the user chose.
    static QString startDirectory();
    // The save dialog, proposing name there; an empty result means the user cancelled.
    static QString saveFileName(QWidget *parent, const QString &title, const QString &name,
                                const QString &filter);
    // The open dialog; empty when the user cancelled.
    static QString openFileName(QWidget *parent, const QString &title, const QString &filter);
    // The open dialog for several files at once; empty when the user cancelled.
    static QStringList openFileNames(QWidget *parent, const QString &title, const QString &filter);
    // A choice from a fixed list, the first item proposed; nothing when the user cancelled.
    static std::optional<QString> getItem(QWidget *parent, const QString &title, const QString &label,
                                          const QStringList &items);

    // Tests only: the next dialog given to exec() is handed to this instead of entering a modal loop;
    // it fills the form as a user would and returns the result code.
    static void setNextDialogHandler(std::function<int(QDialog *)> handler);
    // Tests only: the next box is not shown; it returns this answer and remembers what it would have said.
    static void setNextAnswer(QMessageBox::StandardButton answer);
    // Tests only: the next save dialog is not shown and gives this path; an empty one is a cancel.
    static void setNextFileName(const QString &path);
    // Tests only: the next open dialog is not shown and gives these paths (none: cancelled); the
    // single-file dialog gives the first.
    static void setNextOpenFileNames(const QStringList &paths);
    // Tests only: the next list choice is not shown and gives this item; an empty one is a cancel.
    static void setNextItem(const QString &item);
    static QString lastTitle();
    // For a file dialog: the proposed path of a save, the start directory of an open.
    static QString lastText();
};
