#pragma once

#include <QString>
#include <QUrl>

namespace HalcUpdate {

// Where the user's feedback goes, and the tag that tells the service which program sent them.
struct FeedbackConfig {
    QString tag;
    QUrl baseUrl;
};

// The feedback page for the tag, in the browser. Whether the browser opened is not looked at: there is
// nothing the program could do about it.
void openFeedback(const FeedbackConfig &config);

// The page openFeedback opens: the base URL with a trailing "/" and the query tags=<tag>.
QUrl feedbackUrl(const FeedbackConfig &config);

} // namespace HalcUpdate
