// SPDX-License-Identifier: MIT
// The blocks of the Basic Multilingual Plane by which a page of characters is found.
#pragma once

#include <QString>

#include <array>

namespace fennel {

struct UnicodeBlock {
    char16_t first;
    char16_t last;
    const char16_t* name;
};

inline constexpr int blockCount = 150;

// In ascending order, by the block table of Unicode 5.2.
extern const std::array<UnicodeBlock, blockCount> unicodeBlocks;

// "U+0400 - U+04FF: Cyrillic".
QString blockText(const UnicodeBlock& block);

// The page (of 256 characters) in which a block of that text begins; 0 if it has no number.
int pageOfBlock(const QString& text);

} // namespace fennel
