#pragma once

#include <QObject>
#include <QString>

// The named child a test drives, found as a user would find it: by what it is called on screen.
template <typename T>
T *child(const QObject *parent, const char *name)
{
    return parent->findChild<T *>(QLatin1String(name));
}

#include <QAbstractButton>
#include <QLabel>
#include <QStringList>

// Buttons with this text under parent, in the order they were made.
inline QList<QAbstractButton *> buttonsLabelled(const QObject *parent, const QString &text)
{
    QList<QAbstractButton *> found;
    for (QAbstractButton *button : parent->findChildren<QAbstractButton *>()) {
        if (button->text() == text)
            found.append(button);
    }
    return found;
}

// Every label's text under parent, joined by new lines: what a user reads, for QTRY_ on contains().
inline QString labelText(const QObject *parent)
{
    QStringList texts;
    for (const QLabel *label : parent->findChildren<QLabel *>())
        texts.append(label->text());
    return texts.join(QLatin1Char('\n'));
}

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

// A GUI test's main: what the program stores in its settings goes to a directory of the test's own, never
// to the user's.
#define OMBREL_GUI_TEST_MAIN(TestClass)                                                                      \
    int main(int argc, char *argv[])                                                                         \
    {                                                                                                        \
        QTemporaryDir home;                                                                                  \
        qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());                        \
        QApplication app(argc, argv);                                                                        \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }

#include <QMenu>
#include <QTimer>

#include <functional>

// Runs open, which shows a popup menu with a loop of its own, and answers the menu once it is up, as a user
// would: closes it and triggers the entry with the text pick, if there is one. Gives the enabled entries.
inline QStringList answerPopupMenu(const std::function<void()> &open, const QString &pick = {})
{
    QStringList enabled;
    QTimer::singleShot(0, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        QAction *chosen = nullptr;
        for (QAction *action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled())
                enabled << action->text();
            if (action->text() == pick)
                chosen = action;
        }
        menu->close();
        if (chosen)
            chosen->trigger();
    });
    open();
    return enabled;
}
