#pragma once

#include "update/Config.h"
#include "update/Feedback.h"

// Who the program is: to QSettings, to dialogs, to the account service and to the update channel.
namespace AppIdentity {
inline constexpr char kOrganizationName[] = "Halcyra";
inline constexpr char kOrganizationDomain[] = "halcyra.com";
inline constexpr char kApplicationName[] = "Ombrel";
inline constexpr char kApplicationVersion[] = OMBREL_VERSION;
inline constexpr char kDisplayName[] = "Halcyra Ombrel";
inline constexpr char kApplicationIdentifier[] = "com.halcyra.ombrel";
inline constexpr char kWindowIcon[] = ":/icons/icons/app_icon.png";
inline constexpr char kIconFont[] = ":/fonts/fonts/MaterialIcons-Regular.otf";
} // namespace AppIdentity

// What the update client checks against: this program's channel and compiled-in version.
HalcUpdate::Config updateClientConfig();

// Where "Send Feedback..." takes the user, and the tag that names this program there.
HalcUpdate::FeedbackConfig feedbackConfig();
