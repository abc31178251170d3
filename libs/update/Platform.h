#pragma once

#include <QString>

namespace HalcUpdate {

// The manifest key of the running system's downloads: "windows-x64" or "linux-x64" on 64-bit x86, and
// empty anywhere else, where nothing is shipped.
QString platformKey();

} // namespace HalcUpdate
