// SPDX-License-Identifier: MIT
// The library and the first face of a font file; both go with it. For the editor and the bridge
// that makes fonts, which has no Qt.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <string>

namespace fennel {

class FreetypeFace {
public:
    explicit FreetypeFace(const std::string& path)
    {
        if (FT_Init_FreeType(&m_library) == 0 &&
            FT_New_Face(m_library, path.c_str(), 0, &m_face) != 0)
            m_face = nullptr;
    }
    ~FreetypeFace()
    {
        if (m_library != nullptr)
            FT_Done_FreeType(m_library); // takes the face along
    }
    FreetypeFace(const FreetypeFace&) = delete;
    FreetypeFace& operator=(const FreetypeFace&) = delete;
    // Null if there is no such file, or none of a font.
    [[nodiscard]] FT_Face get() const { return m_face; }

private:
    FT_Library m_library = nullptr;
    FT_Face m_face = nullptr;
};

} // namespace fennel
