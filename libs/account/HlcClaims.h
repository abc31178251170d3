#pragma once

#include <QMetaType>
#include <QString>

namespace HalcAccount {

// The claims of the access token that the program looks at: the family group and the role in it.
struct HlcClaims {
    QString group_id;
    QString role;
};

} // namespace HalcAccount

Q_DECLARE_METATYPE(HalcAccount::HlcClaims)
