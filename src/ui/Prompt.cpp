#include "ui/Prompt.h"

#include <QList>

namespace {

struct Scripted {
    QList<QMessageBox::StandardButton> answers;
    QString lastTitle;
    QString lastText;
};

Scripted &scripted()
{
    static Scripted s;
    return s;
}

// Returns true, with the answer, when a test scripted one.
bool takeScripted(const QString &title, const QString &text, QMessageBox::StandardButton *answer)
{
    Scripted &s = scripted();
    s.lastTitle = title;
    s.lastText = text;
    if (s.answers.isEmpty())
        return false;
    *answer = s.answers.takeFirst();
    return true;
}

} // namespace

QMessageBox::StandardButton Prompt::critical(QWidget *parent, const QString &title, const QString &text,
                                             QMessageBox::StandardButtons buttons)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return answer;
    return QMessageBox::critical(parent, title, text, buttons);
}

QMessageBox::StandardButton Prompt::question(QWidget *parent, const QString &title, const QString &text,
                                             QMessageBox::StandardButtons buttons,
                                             QMessageBox::StandardButton defaultButton)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return answer;
    return QMessageBox::question(parent, title, text, buttons, defaultButton);
}

void Prompt::setNextAnswer(QMessageBox::StandardButton answer)
{
    scripted().answers.append(answer);
}

QString Prompt::lastTitle()
{
    return scripted().lastTitle;
}

QString Prompt::lastText()
{
    return scripted().lastText;
}
