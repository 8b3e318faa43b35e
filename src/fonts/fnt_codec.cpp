// SPDX-License-Identifier: MIT
#include "fonts/fnt_codec.h"

#include <algorithm>
#include <array>
#include <bit>

namespace fennel {

namespace {

constexpr unsigned twoColours = 0;
constexpr unsigned greys = 1;
// Grey levels are 0 to fullInk; these two codes stand for runs of nothing and of full ink.
constexpr unsigned emptyRun = 14;
constexpr unsigned fullRun = 15;
constexpr std::size_t shortestRun = 3;
constexpr std::size_t longestRun = 10; // three bits above the shortest
constexpr unsigned widestField = 8;
constexpr unsigned codeBits = 21;

Failure malformed(const char* text)
{
    return {FailureKind::Malformed, text};
}

// Takes bits from the low end of each byte first. Behind the end it gives zeros and remembers it,
// so that a decoder needs to ask only once.
class BitReader {
public:
    BitReader(std::span<const std::uint8_t> bytes, std::size_t start)
        : m_bytes(bytes), m_place(start * 8)
    {
    }
    unsigned take(unsigned count)
    {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i, ++m_place) {
            if (m_place >= m_bytes.size() * 8) {
                m_past = true;
                return value;
            }
            value |= ((m_bytes[m_place / 8] >> (m_place % 8)) & 1U) << i;
        }
        return value;
    }
    // Two's complement in `count` bits.
    int takeSigned(unsigned count)
    {
        const unsigned value = take(count);
        const unsigned sign = (1U << count) >> 1U;
        return static_cast<int>(value ^ sign) - static_cast<int>(sign);
    }
    [[nodiscard]] bool past() const { return m_past; }

private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_place; // in bits
    bool m_past = false;
};

class BitWriter {
public:
    // Few bits are held from call to call, so 32 are enough for any field.
    void put(unsigned value, unsigned count)
    {
        m_pending |= (value & ((1U << count) - 1U)) << m_held;
        m_held += count;
        for (; m_held >= 8; m_held -= 8, m_pending >>= 8)
            m_bytes.push_back(static_cast<std::uint8_t>(m_pending));
    }
    std::vector<std::uint8_t> finish()
    {
        if (m_held > 0)
            put(0, 8 - m_held);
        return std::move(m_bytes);
    }

private:
    std::vector<std::uint8_t> m_bytes;
    unsigned m_pending = 0;
    unsigned m_held = 0;
};

unsigned unsignedBits(int value)
{
    return static_cast<unsigned>(std::bit_width(static_cast<unsigned>(value)));
}

// 0 needs none, -1 one, 1 two.
unsigned signedBits(int value)
{
    if (value == 0)
        return 0;
    return unsignedBits(value < 0 ? -value - 1 : value) + 1;
}

// All five numbers share one width, as the largest of them needs it.
unsigned fieldBits(const Glyph& glyph)
{
    return std::max({1U, unsignedBits(glyph.width), unsignedBits(glyph.height),
                     signedBits(glyph.xOffset), signedBits(glyph.yOffset),
                     signedBits(glyph.advance)});
}

// A glyph that does not fit is left out as a whole; a cut one would be drawn wrong at boot.
bool representable(const Glyph& glyph)
{
    if (glyph.code > fntLastCode || glyph.width < 0 || glyph.height < 0 || glyph.width > 255 ||
        glyph.height > 255 || fieldBits(glyph) > widestField)
        return false;
    const auto area =
        static_cast<std::size_t>(glyph.width) * static_cast<std::size_t>(glyph.height);
    return glyph.pixels.size() == area &&
           std::ranges::all_of(glyph.pixels, [](std::uint8_t level) { return level <= fullInk; });
}

void putGreys(BitWriter& bits, const std::vector<std::uint8_t>& pixels)
{
    for (std::size_t i = 0; i < pixels.size();) {
        const std::uint8_t level = pixels[i];
        std::size_t length = 1;
        if (level == 0 || level == fullInk) {
            while (length < longestRun && i + length < pixels.size() && pixels[i + length] == level)
                ++length;
        }
        // The format has no shorter runs: their three bits count from shortestRun on.
        if (length >= shortestRun) {
            bits.put(level == 0 ? emptyRun : fullRun, 4);
            bits.put(static_cast<unsigned>(length - shortestRun), 3);
        } else {
            length = 1;
            bits.put(level, 4);
        }
        i += length;
    }
}

// False if a run leaves the bitmap or the bits end.
bool takeGreys(BitReader& bits, std::size_t area, std::vector<std::uint8_t>& pixels)
{
    while (pixels.size() < area && !bits.past()) {
        const unsigned code = bits.take(4);
        if (code <= fullInk) {
            pixels.push_back(static_cast<std::uint8_t>(code));
            continue;
        }
        // Checked before the pixels are made, as the bits come from any file.
        const std::size_t length = bits.take(3) + shortestRun;
        if (length > area - pixels.size())
            return false;
        pixels.insert(pixels.end(), length, code == emptyRun ? std::uint8_t{0} : fullInk);
    }
    return true;
}

void takeTwoColours(BitReader& bits, std::size_t area, std::vector<std::uint8_t>& pixels)
{
    while (pixels.size() < area && !bits.past())
        pixels.push_back(bits.take(1) != 0 ? fullInk : std::uint8_t{0});
}

void putNumber(std::vector<std::uint8_t>& out, std::uint64_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint64_t numberAt(std::span<const std::uint8_t> file, std::size_t offset, int bytes)
{
    std::uint64_t value = 0;
    for (int i = bytes; i-- > 0;)
        value = value << 8 | file[offset + static_cast<std::size_t>(i)];
    return value;
}

} // namespace

Result<FntHeader> readFntHeader(std::span<const std::uint8_t> file)
{
    if (file.size() < fntHeaderSize)
        return malformed("The font file is shorter than its header.");
    FntHeader header;
    header.magic = static_cast<std::uint32_t>(numberAt(file, 0, 4));
    header.entries = static_cast<std::uint32_t>(numberAt(file, 4, 4));
    header.fontHeight = file[8];
    header.baseline = file[9];
    header.lineHeight = static_cast<std::int8_t>(file[10]);
    return header;
}

Result<std::vector<FntEntry>> readFntTable(std::span<const std::uint8_t> file)
{
    const Result<FntHeader> header = readFntHeader(file);
    if (!header)
        return header.failure();
    // Divided instead of multiplied, which could overflow.
    if (header->entries > (file.size() - fntHeaderSize) / fntEntrySize)
        return malformed("The font file is shorter than its character table.");
    std::vector<FntEntry> table(header->entries);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const std::uint64_t bits = numberAt(file, fntHeaderSize + i * fntEntrySize, 5);
        table[i].code = static_cast<std::uint32_t>(bits & fntLastCode);
        table[i].offset = static_cast<std::uint32_t>(bits >> codeBits);
    }
    return table;
}

Result<Glyph> decodeGlyph(std::span<const std::uint8_t> file, const FntEntry& entry)
{
    BitReader bits(file, entry.offset);
    const unsigned kind = bits.take(2);
    if (kind != twoColours && kind != greys)
        return malformed("A glyph of the font file is of an unknown kind.");
    const unsigned field = bits.take(3) + 1;
    Glyph glyph;
    glyph.code = entry.code;
    glyph.width = static_cast<int>(bits.take(field));
    glyph.height = static_cast<int>(bits.take(field));
    glyph.xOffset = bits.takeSigned(field);
    glyph.yOffset = bits.takeSigned(field);
    glyph.advance = bits.takeSigned(field);
    const auto area =
        static_cast<std::size_t>(glyph.width) * static_cast<std::size_t>(glyph.height);
    glyph.pixels.reserve(area);
    if (kind == twoColours)
        takeTwoColours(bits, area, glyph.pixels);
    else if (!takeGreys(bits, area, glyph.pixels))
        return malformed("A run of pixels leaves its glyph.");
    if (bits.past())
        return malformed("A glyph lies beyond the end of the font file.");
    return glyph;
}

Result<FntFont> decodeFnt(std::span<const std::uint8_t> file)
{
    const Result<std::vector<FntEntry>> table = readFntTable(file);
    if (!table)
        return table.failure();
    const FntHeader header = *readFntHeader(file);
    if (header.magic != fntMagic)
        return malformed("The file does not begin as a font file does.");
    FntFont font{header.fontHeight, header.baseline, header.lineHeight, {}};
    std::size_t pixels = 0;
    for (const FntEntry& entry : *table) {
        Result<Glyph> glyph = decodeGlyph(file, entry);
        if (!glyph)
            return glyph.failure();
        pixels += glyph->pixels.size();
        // Many entries may point at one large glyph, so the file's own size bounds nothing.
        if (pixels > fntPixelLimit)
            return Failure{FailureKind::TooLarge, "The glyphs of the font file are too large."};
        font.glyphs.push_back(std::move(*glyph));
    }
    return font;
}

std::optional<std::vector<std::uint8_t>> encodeGlyph(const Glyph& glyph)
{
    if (!representable(glyph))
        return std::nullopt;
    const auto between = [](std::uint8_t level) { return level > 0 && level < fullInk; };
    // A glyph without levels between needs one bit a pixel.
    const bool grey = std::ranges::any_of(glyph.pixels, between);
    const unsigned field = fieldBits(glyph);
    BitWriter bits;
    bits.put(grey ? greys : twoColours, 2);
    bits.put(field - 1, 3);
    const std::array numbers{glyph.width, glyph.height, glyph.xOffset, glyph.yOffset,
                             glyph.advance};
    for (const int number : numbers)
        bits.put(static_cast<unsigned>(number), field);
    if (grey) {
        putGreys(bits, glyph.pixels);
    } else {
        for (const std::uint8_t level : glyph.pixels)
            bits.put(level != 0 ? 1 : 0, 1);
    }
    return bits.finish();
}

Result<std::vector<std::uint8_t>> encodeFnt(const FntFont& font)
{
    std::vector<std::pair<std::uint32_t, std::vector<std::uint8_t>>> coded;
    coded.reserve(font.glyphs.size());
    std::size_t size = fntHeaderSize;
    for (const Glyph& glyph : font.glyphs) {
        std::optional<std::vector<std::uint8_t>> bits = encodeGlyph(glyph);
        if (!bits)
            continue;
        size += fntEntrySize + bits->size();
        // Offsets in the table have 19 bits.
        if (size > fntSizeLimit)
            return Failure{FailureKind::TooLarge,
                           "The characters need more than the 512 KiB that a "
                           "font file can hold."};
        coded.emplace_back(glyph.code, std::move(*bits));
    }
    if (coded.empty())
        return Failure{FailureKind::NotFound, "The font has none of the characters."};
    std::vector<std::uint8_t> file;
    file.reserve(size);
    putNumber(file, fntMagic, 4);
    putNumber(file, coded.size(), 4);
    file.push_back(font.fontHeight);
    file.push_back(font.baseline);
    file.push_back(static_cast<std::uint8_t>(font.lineHeight));
    std::uint64_t offset = fntHeaderSize + coded.size() * fntEntrySize;
    // The table first, as its offsets count from the file's beginning.
    for (const auto& [code, bits] : coded) {
        putNumber(file, code | offset << codeBits, fntEntrySize);
        offset += bits.size();
    }
    for (const auto& [code, bits] : coded)
        file.insert(file.end(), bits.begin(), bits.end());
    return file;
}

} // namespace fennel
