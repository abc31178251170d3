#pragma once

#include <QString>

namespace HalcAccount {

// How the application words the share dialog; an empty text keeps the dialog's own.
struct ShareDialogTexts {
    QString windowTitle;
    QString heading; // already holds the account's name
    QString description;
    QString listLabel; // heading of the people with access
    QString empty;     // nobody has access
    QString add;       // the button that shares
    QString remove;    // the button that withdraws
    QString close;
    QString defaultRole;
    QString shareFailedTitle;
    QString removeFailedTitle;
    QString confirmTitle;
    QString confirmText; // %1: the person's name
    QString noGroup;     // the user has no family group
};

} // namespace HalcAccount
