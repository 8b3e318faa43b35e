// SPDX-License-Identifier: MIT
#include "screen/boot_font.h"

#include "fonts/fnt_bytes.h"

#include <QList>
#include <QString>

namespace fennel {

namespace {

constexpr qsizetype tagReach = 384; // from the end of the file, where the engine looks for the tag
constexpr int noTagCut = 2;         // pixels that a font's height has more than its size

// The engine's own reading of the tag, not the editor's: whole points, nothing behind them.
int taggedSize(const QByteArray& file)
{
    const QByteArray key = QByteArrayLiteral("|size\t");
    const qsizetype at = file.indexOf(key, std::max<qsizetype>(0, file.size() - tagReach));
    int size = 0;
    for (qsizetype i = at + key.size(); at >= 0 && i < file.size() && size < 1000; ++i) {
        const char digit = file[i];
        if (digit == ' ' && size == 0)
            continue;
        if (digit < '0' || digit > '9')
            break;
        size = size * 10 + (digit - '0');
    }
    return size;
}

} // namespace

BootFont::BootFont(const QByteArray& file) : m_file(file)
{
    const auto header = readFntHeader(asSpan(file));
    const auto table = readFntTable(asSpan(file));
    if (!header || header->magic != fntMagic || !table)
        return;
    m_there = true;
    m_height = header->fontHeight;
    m_baseline = header->baseline;
    m_lineHeight = int{header->lineHeight};
    const int tagged = taggedSize(file);
    m_size4 = tagged > 0 ? 4 * tagged : 3 * (m_height - noTagCut);
    for (const FntEntry& entry : *table)
        m_offsets.try_emplace(entry.code, entry.offset);
}

BootFont::BootFont(int height, int baseline, GlyphMaker maker)
    : m_there(true), m_height(height), m_baseline(baseline), m_lineHeight(height + noTagCut),
      m_size4(3 * (height - noTagCut)), m_maker(std::move(maker))
{
}

const Glyph* BootFont::glyph(char32_t code) const
{
    if (const auto known = m_glyphs.find(code); known != m_glyphs.end())
        return &known->second;
    if (m_maker)
        return &m_glyphs.emplace(code, m_maker(code)).first->second;
    const auto entry = m_offsets.find(code);
    if (entry == m_offsets.end())
        return nullptr;
    const auto decoded = decodeGlyph(asSpan(m_file), {code, entry->second});
    return &m_glyphs.emplace(code, decoded ? *decoded : Glyph()).first->second;
}

int BootFont::width(QStringView text) const
{
    int sum = 0;
    for (const char32_t code : text.toUcs4()) {
        if (const Glyph* found = glyph(code))
            sum += found->advance;
    }
    return sum;
}

} // namespace fennel
