// SPDX-License-Identifier: MIT
// A font of the message as the boot engine prints it: glyphs, advances and measures out of the .fnt
// itself. Lengths are boot-screen pixels.
#pragma once

#include "fonts/fnt_codec.h"

#include <QByteArray>
#include <QStringView>

#include <functional>
#include <unordered_map>

namespace fennel {

class BootFont {
public:
    // Makes a glyph for a font that has no file, for a code point.
    using GlyphMaker = std::function<Glyph(char32_t code)>;

    // Without magic or whole table the font is not there. A broken glyph is an empty one.
    explicit BootFont(const QByteArray& file);
    // Stands in for a font that is not there; measures in pixels.
    BootFont(int height, int baseline, GlyphMaker maker);

    [[nodiscard]] bool there() const { return m_there; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] int baseline() const { return m_baseline; }
    [[nodiscard]] int lineHeight() const { return m_lineHeight; }
    // In quarters of a point: what the tag behind the glyphs says, else three quarters of the
    // height less two pixels.
    [[nodiscard]] int size4() const { return m_size4; }
    // Null for a character that the font lacks.
    [[nodiscard]] const Glyph* glyph(char32_t code) const;
    // Sum of the advances.
    [[nodiscard]] int width(QStringView text) const;

private:
    bool m_there = false;
    int m_height = 0;
    int m_baseline = 0;
    int m_lineHeight = 0;
    int m_size4 = 0;
    QByteArray m_file;
    GlyphMaker m_maker;
    std::unordered_map<char32_t, std::uint32_t> m_offsets;
    mutable std::unordered_map<char32_t, Glyph> m_glyphs; // decoded when first asked for
};

} // namespace fennel
