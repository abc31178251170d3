#include "account/SharingBackend.h"

namespace HalcAccount {

SharingBackend::SharingBackend(QObject *parent)
    : QObject(parent)
{
}

SharingBackend::~SharingBackend() = default;

} // namespace HalcAccount
