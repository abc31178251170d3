#include "update/Version.h"

#include <QStringList>

namespace HalcUpdate {

Version Version::fromString(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() > 3)
        return {};
    int numbers[3] = {0, 0, 0};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool ok = false;
        numbers[i] = parts.at(i).toInt(&ok, 10);
        if (!ok)
            return {};
    }
    return {numbers[0], numbers[1], numbers[2]};
}

bool operator<(const Version &a, const Version &b)
{
    if (a.major != b.major)
        return a.major < b.major;
    if (a.minor != b.minor)
        return a.minor < b.minor;
    return a.patch < b.patch;
}

} // namespace HalcUpdate
