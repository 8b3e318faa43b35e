// SPDX-License-Identifier: MIT
// The readable source of the template's level files: sections "[ZUK0000.CFG]" of lines
//     NUMBER VALUE     the record of a parameter, numbers ascending, VALUE decimal or 0x...
//     filler COUNT     that many records of number 0 and value 0
// Everything behind ";" is a remark.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fennel {

struct LevelFile {
    std::string name;
    std::vector<std::uint8_t> bytes; // records of four bytes: value, low byte first, and number
};

// Malformed names the line.
Result<std::vector<LevelFile>> compileLevels(std::string_view text);

} // namespace fennel
