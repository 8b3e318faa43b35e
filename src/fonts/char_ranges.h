// SPDX-License-Identifier: MIT
// The text that names a set of characters, such as "0x20-0x7E_0x410-0x451". The editor's dialog and
// the font bridge read it with the same rules. The standard library only.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace fennel {

struct CodeRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0; // never below first
};

// Tokens stand between "_", "," or blanks; a token is a number or two numbers joined by "-". A
// number is hexadecimal behind "0x" or "&H" (any case), otherwise decimal, rounded to even; only
// its leading digits count and a token without any is 0, so an empty one names the character 0. A
// token whose last is below its first names nothing. Ranges come in the order of the text and may
// overlap. Malformed: a number below 0 or above `limit`; the failure names the token.
Result<std::vector<CodeRange>> readCodeRanges(std::string_view text, std::uint32_t limit);

} // namespace fennel
