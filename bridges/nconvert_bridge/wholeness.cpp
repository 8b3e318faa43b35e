// SPDX-License-Identifier: MIT
#include "wholeness.h"

namespace fennel::nconvert {

namespace {

// Little-endian numbers; what lies behind the end reads as 0.
class Numbers {
public:
    explicit Numbers(std::string_view bytes) : m_bytes(bytes) {}
    [[nodiscard]] unsigned byte(std::size_t at) const
    {
        return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) : 0;
    }
    [[nodiscard]] unsigned word(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    [[nodiscard]] unsigned dword(std::size_t at) const { return word(at) | word(at + 2) << 16; }
    [[nodiscard]] bool holds(std::size_t end) const { return end <= m_bytes.size(); }

private:
    std::string_view m_bytes;
};

// Three bytes a colour, two to the power of the field plus one colours.
std::size_t gifTableSize(unsigned flags)
{
    return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

// The place behind the data sub-blocks that begin at `at`, their empty last one included.
std::size_t behindSubBlocks(const Numbers& gif, std::size_t at)
{
    while (gif.holds(at + 1) && gif.byte(at) != 0)
        at += gif.byte(at) + 1;
    return at + 1;
}

} // namespace

bool bmpIsWhole(std::string_view bytes, std::int64_t width, std::int64_t height)
{
    constexpr unsigned infoHeader = 40;
    const Numbers bmp(bytes);
    // The header of OS/2 is shorter and has no compression.
    const bool modern = bmp.dword(14) >= infoHeader;
    const unsigned bits = modern ? bmp.word(28) : bmp.word(24);
    const unsigned compression = modern ? bmp.dword(30) : 0;
    // Run lengths have no fixed size; their decoder notices an end that comes early.
    if (compression == 1 || compression == 2)
        return true;
    const std::int64_t lineBytes = (width * bits + 31) / 32 * 4;
    return bmp.dword(10) + lineBytes * height <= static_cast<std::int64_t>(bytes.size());
}

bool gifIsWhole(std::string_view bytes)
{
    constexpr unsigned extension = 0x21;
    constexpr unsigned picture = 0x2C;
    constexpr std::size_t screenEnd = 13;
    constexpr std::size_t descriptorSize = 10;
    const Numbers gif(bytes);
    std::size_t at = screenEnd + gifTableSize(gif.byte(10));
    // Extensions may stand before the first picture, which is the one that counts.
    while (gif.holds(at + 1) && gif.byte(at) == extension)
        at = behindSubBlocks(gif, at + 2);
    if (gif.byte(at) != picture)
        return false;
    at += descriptorSize + gifTableSize(gif.byte(at + 9));
    return gif.holds(behindSubBlocks(gif, at + 1)); // + 1: the code size
}

QSize gifScreenSize(std::string_view bytes)
{
    const Numbers gif(bytes);
    return {static_cast<int>(gif.word(6)), static_cast<int>(gif.word(8))};
}

} // namespace fennel::nconvert
