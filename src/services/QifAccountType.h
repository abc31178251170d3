#pragma once

// The register kind named behind "!Type:"; an unheard-of name reads as Bank.
enum class QifAccountType {
    Bank = 0,
    CreditCard = 1,
    Investment = 2,
    Cash = 3,
    OtherAsset = 4,
    OtherLiability = 5
};
