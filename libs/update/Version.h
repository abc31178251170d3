#pragma once

#include <QString>

namespace HalcUpdate {

// A release number major.minor.patch. Text that is not one to three dot-separated integers reads as
// 0.0.0, so a pre-release such as "2.0.0-rc1" is never offered as newer than anything.
struct Version {
    int major = 0;
    int minor = 0;
    int patch = 0;

    static Version fromString(const QString &text);

    friend bool operator==(const Version &, const Version &) = default;
    friend bool operator<(const Version &a, const Version &b);
};

} // namespace HalcUpdate
