#include "core/AppIdentity.h"

HalcUpdate::Config updateClientConfig()
{
    return {
        QStringLiteral("ombrel"),
        QStringLiteral("stable"),
        QUrl(QStringLiteral("https://downloads.halcyra.com/ombrel/stable/")),
        QString::fromLatin1(AppIdentity::kApplicationVersion),
    };
}

HalcUpdate::FeedbackConfig feedbackConfig()
{
    return {QStringLiteral("ombrel"), QUrl(QStringLiteral("https://feedback.halcyra.com/"))};
}
