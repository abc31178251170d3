#include "ui/Prompt.h"

#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QList>
#include <QPushButton>
#include <QStandardPaths>

namespace {

struct Scripted {
    QList<QMessageBox::StandardButton> answers;
    QList<std::function<int(QDialog *)>> dialogHandlers;
    QStringList fileNames;
    QList<QStringList> openFileNames;
    QStringList items;
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

QMessageBox::StandardButton Prompt::warning(QWidget *parent, const QString &title, const QString &text,
                                            QMessageBox::StandardButtons buttons,
                                            QMessageBox::StandardButton defaultButton)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return answer;
    return QMessageBox::warning(parent, title, text, buttons, defaultButton);
}

void Prompt::information(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return;
    QMessageBox::information(parent, title, text);
}

bool Prompt::offer(QWidget *parent, const QString &title, const QString &text, const QString &acceptText)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return answer != QMessageBox::Cancel;
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Cancel, parent);
    QPushButton *accept = box.addButton(acceptText, QMessageBox::AcceptRole);
    box.setDefaultButton(accept);
    box.exec();
    return box.clickedButton() == accept;
}

void Prompt::about(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::StandardButton answer;
    if (takeScripted(title, text, &answer))
        return;
    QMessageBox::about(parent, title, text);
}

int Prompt::exec(QDialog *dialog)
{
    Scripted &s = scripted();
    if (!s.dialogHandlers.isEmpty())
        return s.dialogHandlers.takeFirst()(dialog);
    return dialog->exec();
}

QString Prompt::startDirectory()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return !documents.isEmpty() && QDir(documents).exists() ? documents : QDir::homePath();
}

QString Prompt::saveFileName(QWidget *parent, const QString &title, const QString &name,
                             const QString &filter)
{
    Scripted &s = scripted();
    s.lastTitle = title;
    s.lastText = QDir(startDirectory()).filePath(name);
    if (!s.fileNames.isEmpty())
        return s.fileNames.takeFirst();
    return QFileDialog::getSaveFileName(parent, title, s.lastText, filter);
}

QString Prompt::openFileName(QWidget *parent, const QString &title, const QString &filter)
{
    Scripted &s = scripted();
    s.lastTitle = title;
    s.lastText = startDirectory();
    if (!s.openFileNames.isEmpty())
        return s.openFileNames.takeFirst().value(0);
    return QFileDialog::getOpenFileName(parent, title, s.lastText, filter);
}

QStringList Prompt::openFileNames(QWidget *parent, const QString &title, const QString &filter)
{
    Scripted &s = scripted();
    s.lastTitle = title;
    s.lastText = startDirectory();
    if (!s.openFileNames.isEmpty())
        return s.openFileNames.takeFirst();
    return QFileDialog::getOpenFileNames(parent, title, s.lastText, filter);
}

std::optional<QString> Prompt::getItem(QWidget *parent, const QString &title, const QString &label,
                                       const QStringList &items)
{
    Scripted &s = scripted();
    s.lastTitle = title;
    s.lastText = label;
    if (!s.items.isEmpty()) {
        const QString item = s.items.takeFirst();
        return item.isEmpty() ? std::nullopt : std::optional<QString>(item);
    }
    bool ok = false;
    const QString item = QInputDialog::getItem(parent, title, label, items, 0, false, &ok);
    return ok ? std::optional<QString>(item) : std::nullopt;
}

void Prompt::setNextDialogHandler(std::function<int(QDialog *)> handler)
{
    scripted().dialogHandlers.append(std::move(handler));
}

void Prompt::setNextAnswer(QMessageBox::StandardButton answer)
{
    scripted().answers.append(answer);
}

void Prompt::setNextFileName(const QString &path)
{
    scripted().fileNames.append(path);
}

void Prompt::setNextOpenFileNames(const QStringList &paths)
{
    scripted().openFileNames.append(paths);
}

void Prompt::setNextItem(const QString &item)
{
    scripted().items.append(item);
}

QString Prompt::lastTitle()
{
    return scripted().lastTitle;
}

QString Prompt::lastText()
{
    return scripted().lastText;
}
