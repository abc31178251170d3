#pragma once

#include <QMetaType>

namespace HalcAccount {

// The sign-in state. 2 is reserved and never set.
enum class AuthState { Unknown = 0, SignedOut = 1, SignedIn = 3 };

} // namespace HalcAccount

Q_DECLARE_METATYPE(HalcAccount::AuthState)
