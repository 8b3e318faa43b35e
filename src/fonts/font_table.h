// SPDX-License-Identifier: MIT
// The fonts of the open gfxboot as the preview shows them: one record per font number.
#pragma once

#include <QString>

#include <vector>

namespace fennel {

inline constexpr int fontCount = 100; // index k is the file of font number 100 + k

struct FontRecord {
    QString FontName; // family of the system font that stands in; empty: no such font member
    double Size = 0;  // points
    bool Bold = false;
    bool Italic = false;
    QString Symbols;       // characters in the file, decimal
    qint16 FontHeight = 0; // pixels
    qint16 LineHeight = 0; // pixels
    qint16 SpaceWidth = 0;
    qint16 LineSpace = 0;
    qint16 LetterSpace = 0;
};

// Always fontCount records.
using FontTable = std::vector<FontRecord>;

} // namespace fennel
