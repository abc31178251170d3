#include "account/Prompter.h"

#include <QInputDialog>
#include <QList>
#include <QMessageBox>

namespace HalcAccount {

namespace {

struct Script {
    bool on = false;
    QList<std::optional<QString>> texts;
    QList<bool> answers;
    int asked = 0;
    QString lastTitle;
    QString lastText;
};

Script &script()
{
    static Script s;
    return s;
}

void remember(const QString &title, const QString &text)
{
    script().lastTitle = title;
    script().lastText = text;
}

} // namespace

std::optional<QString> Prompter::text(QWidget *parent, const QString &title, const QString &label,
                                      QLineEdit::EchoMode echo, const QString &initial)
{
    Script &s = script();
    if (s.on) {
        ++s.asked;
        remember(title, label);
        return s.texts.isEmpty() ? std::nullopt : s.texts.takeFirst();
    }
    bool ok = false;
    const QString value = QInputDialog::getText(parent, title, label, echo, initial, &ok);
    if (!ok)
        return std::nullopt;
    return value;
}

bool Prompter::question(QWidget *parent, const QString &title, const QString &text)
{
    Script &s = script();
    if (s.on) {
        ++s.asked;
        remember(title, text);
        return !s.answers.isEmpty() && s.answers.takeFirst();
    }
    return QMessageBox::question(parent, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

void Prompter::information(QWidget *parent, const QString &title, const QString &text)
{
    if (script().on) {
        remember(title, text);
        return;
    }
    QMessageBox::information(parent, title, text);
}

void Prompter::setScripted(bool scripted)
{
    script() = Script();
    script().on = scripted;
}

void Prompter::queueText(const std::optional<QString> &text)
{
    script().texts.append(text);
}

void Prompter::queueAnswer(bool yes)
{
    script().answers.append(yes);
}

int Prompter::asked()
{
    return script().asked;
}

QString Prompter::lastTitle()
{
    return script().lastTitle;
}

QString Prompter::lastText()
{
    return script().lastText;
}

} // namespace HalcAccount
