// SPDX-License-Identifier: MIT
// An installed face measured, to be compared with a font that is said to be made of it.
#pragma once

#include "fonts/font_table.h"

#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace fennel {

class FreetypeFace;

// Of one character; pixels.
struct LetterSize {
    int advance = 0; // of the pen
    int height = 0;  // of the ink
};

// By what a font's tag says of its face: family, also with words of style behind it, bold and
// italic.
class FaceMeasure {
public:
    explicit FaceMeasure(const FontRecord& record);
    ~FaceMeasure();
    FaceMeasure(const FaceMeasure&) = delete;
    FaceMeasure& operator=(const FaceMeasure&) = delete;

    // The characters in a font made of the face, `size` the em square in pixels. Nothing if just
    // that face is not installed, or lacks one of them.
    [[nodiscard]] std::optional<std::vector<LetterSize>>
    letters(int size, std::span<const char32_t> characters) const;

private:
    std::unique_ptr<FreetypeFace> m_face;
};

} // namespace fennel
