#pragma once

#include <QLineEdit>
#include <QString>

#include <optional>

class QWidget;

namespace HalcAccount {

// The questions and input boxes of this library's screens. The application's own prompt class is out
// of reach from here, so the library has this one: a test turns on scripting, queues the answers, and
// no box is ever shown.
class Prompter {
public:
    // An input box; nothing when the user cancelled.
    static std::optional<QString> text(QWidget *parent, const QString &title, const QString &label,
                                       QLineEdit::EchoMode echo = QLineEdit::Normal,
                                       const QString &initial = QString());
    // A Yes/No question, No proposed; true for Yes.
    static bool question(QWidget *parent, const QString &title, const QString &text);
    static void information(QWidget *parent, const QString &title, const QString &text);

    // Tests only: from now on nothing is shown. Input boxes take the queued texts (none left: a
    // cancel), questions the queued answers (none left: No).
    static void setScripted(bool scripted);
    static void queueText(const std::optional<QString> &text);
    static void queueAnswer(bool yes);
    // How many input boxes and questions have been put since scripting began.
    static int asked();
    static QString lastTitle();
    static QString lastText();
};

} // namespace HalcAccount
