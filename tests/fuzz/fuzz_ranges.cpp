// SPDX-License-Identifier: MIT
// Range texts: what is read is written in one form that reads back as the same set.
#include "fonts/char_sets.h"

#include <cstdlib>

using namespace fennel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const Result<CharSelected> set = ParseCharacterRanges(text);
    if (!set)
        return 0;
    const QString written = FormatCharacterRanges(*set);
    if (written.isEmpty())
        return 0;
    const Result<CharSelected> again = ParseCharacterRanges(written);
    if (!again || FormatCharacterRanges(*again) != written)
        std::abort();
    return 0;
}
