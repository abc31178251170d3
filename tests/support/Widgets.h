#pragma once

#include <QObject>
#include <QString>

// The named child a test drives, found as a user would find it: by what it is called on screen.
template <typename T>
T *child(const QObject *parent, const char *name)
{
    return parent->findChild<T *>(QLatin1String(name));
}
