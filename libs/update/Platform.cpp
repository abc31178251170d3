#include "update/Platform.h"

#include <QSysInfo>

namespace HalcUpdate {

QString platformKey()
{
    // The running CPU, not the build's: a 32-bit build on a 64-bit system is still offered the 64-bit one.
    const bool x64 = QSysInfo::currentCpuArchitecture() == QLatin1String("x86_64");
#if defined(Q_OS_WIN)
    if (x64)
        return QStringLiteral("windows-x64");
#elif defined(Q_OS_LINUX)
    if (x64)
        return QStringLiteral("linux-x64");
#else
    Q_UNUSED(x64);
#endif
    return {};
}

} // namespace HalcUpdate
