#pragma once

#include <QString>

namespace HalcAccount {

// What this device tells the account service about itself when it registers.
namespace DeviceIdentity {

// The machine's own identifier (MachineGuid on Windows, /etc/machine-id on Linux), else the first 32
// hex digits of the SHA-256 of the host name.
QString fingerprint();
QString fingerprintOfHostName(const QString &hostName);
QString deviceName();
// The system's word as the account service lists it: "Windows", "Linux".
QString platform();

} // namespace DeviceIdentity

} // namespace HalcAccount
