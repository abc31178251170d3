#include "core/Frequency.h"

#include "core/WordTable.h"

namespace {
constexpr WordEntry<Frequency> kWords[] = {
    {Frequency::Daily,      "daily"      },
    {Frequency::Weekly,     "weekly"     },
    {Frequency::Biweekly,   "biweekly"   },
    {Frequency::Monthly,    "monthly"    },
    {Frequency::Quarterly,  "quarterly"  },
    {Frequency::SemiAnnual, "semi_annual"},
    {Frequency::Annual,     "annual"     },
};
} // namespace

QString frequencyToString(Frequency value)
{
    return wordOf(kWords, value, Frequency::Monthly);
}

Frequency frequencyFromString(const QString &text)
{
    return valueOf(kWords, text, Frequency::Monthly);
}
