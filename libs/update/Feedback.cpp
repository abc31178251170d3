#include "update/Feedback.h"

#include "update/NetworkRequest.h"

#include <QDesktopServices>
#include <QUrlQuery>

namespace HalcUpdate {

QUrl feedbackUrl(const FeedbackConfig &config)
{
    QUrl url = directoryUrl(config.baseUrl);
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("tags"), config.tag);
    url.setQuery(query);
    return url;
}

void openFeedback(const FeedbackConfig &config)
{
    QDesktopServices::openUrl(feedbackUrl(config));
}

} // namespace HalcUpdate
