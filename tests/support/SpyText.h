#pragma once

#include <QSignalSpy>
#include <QStringList>

// Every emission a spy caught as one line, "a,b c,d", so that a whole sequence compares at once.
inline QString spyText(const QSignalSpy &spy)
{
    QStringList emissions;
    for (const QList<QVariant> &arguments : spy) {
        QStringList values;
        for (const QVariant &value : arguments)
            values << value.toString();
        emissions << values.join(QLatin1Char(','));
    }
    return emissions.join(QLatin1Char(' '));
}
