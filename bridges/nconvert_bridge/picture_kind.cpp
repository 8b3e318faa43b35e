// SPDX-License-Identifier: MIT
#include "picture_kind.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <string>

namespace fennel::nconvert {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view start;
    PictureKind kind;
};

// By content, since pictures are often renamed without being converted.
constexpr std::array signatures = {
    Signature{"\xFF\xD8\xFF"sv, PictureKind::Jpeg},
    Signature{"\x89PNG\r\n\x1A\n"sv, PictureKind::Png},
    Signature{"BM"sv, PictureKind::Bmp},
    Signature{"GIF87a"sv, PictureKind::Gif},
    Signature{"GIF89a"sv, PictureKind::Gif},
    Signature{"II*\0"sv, PictureKind::Tiff},
    Signature{"MM\0*"sv, PictureKind::Tiff},
    Signature{"II+\0"sv, PictureKind::Tiff},
    Signature{"MM\0+"sv, PictureKind::Tiff},
    Signature{"/* XPM"sv, PictureKind::Xpm},
};

struct Ending {
    std::string_view text;
    PictureKind kind;
};

// Formats without a signature that could be relied on.
constexpr std::array vagueEndings = {
    Ending{".tga", PictureKind::Tga},
    Ending{".pcx", PictureKind::Pcx},
    Ending{".xpm", PictureKind::Xpm},
};

unsigned at(std::string_view bytes, std::size_t place)
{
    return static_cast<unsigned char>(bytes[place]);
}

unsigned word(std::string_view bytes, std::size_t place)
{
    return at(bytes, place) | at(bytes, place + 1) << 8;
}

// Reserved 0, type 1 (icon) or 2 (cursor), at least one picture: the count tells a cursor from an
// uncompressed TGA, whose header begins alike.
bool isIcon(std::string_view bytes)
{
    return bytes.size() > 6 && word(bytes, 0) == 0 &&
           (word(bytes, 2) == 1 || word(bytes, 2) == 2) && word(bytes, 4) > 0;
}

// Maker, version, run lengths and the byte that must be 0.
bool isPcx(std::string_view bytes)
{
    constexpr std::size_t headerSize = 128;
    return bytes.size() > headerSize && at(bytes, 0) == 10 && at(bytes, 1) <= 5 &&
           at(bytes, 2) == 1 && at(bytes, 64) == 0;
}

bool hasTgaHeader(std::string_view bytes)
{
    constexpr std::size_t headerSize = 18;
    if (bytes.size() <= headerSize)
        return false;
    const unsigned type = at(bytes, 2) & ~8U; // without the bit for run lengths
    const unsigned depth = at(bytes, 16);
    return at(bytes, 1) <= 1 && type >= 1 && type <= 3 && at(bytes, 2) <= 11 &&
           (type != 1 || at(bytes, 1) == 1) && word(bytes, 12) > 0 && word(bytes, 14) > 0 &&
           (depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32);
}

bool isTga(std::string_view bytes)
{
    constexpr std::string_view footer = "TRUEVISION-XFILE.\0"sv;
    if (!hasTgaHeader(bytes))
        return false;
    if (bytes.ends_with(footer))
        return true;
    const bool runLengths = at(bytes, 2) > 3;
    const auto pixels = std::uint64_t{word(bytes, 12)} * word(bytes, 14);
    // Old files have no footer: then the size must have room for the pixels that the header
    // promises.
    return !runLengths && bytes.size() > pixels * ((at(bytes, 16) + 7) / 8);
}

std::string lowerEnding(std::string_view path)
{
    const std::size_t dot = path.rfind('.');
    std::string ending(dot == std::string_view::npos ? ""sv : path.substr(dot));
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

} // namespace

PictureKind pictureKind(std::string_view bytes, std::string_view path)
{
    for (const Signature& known : signatures) {
        if (bytes.starts_with(known.start))
            return known.kind;
    }
    if (bytes.starts_with("RIFF"sv) && bytes.size() > 12 && bytes.substr(8, 4) == "WEBP"sv)
        return PictureKind::Webp;
    // From the surest sign to the vaguest.
    if (isIcon(bytes))
        return PictureKind::Ico;
    if (isPcx(bytes))
        return PictureKind::Pcx;
    if (isTga(bytes))
        return PictureKind::Tga;
    const std::string ending = lowerEnding(path);
    for (const Ending& known : vagueEndings) {
        if (known.text == ending)
            return known.kind;
    }
    return PictureKind::Unknown;
}

} // namespace fennel::nconvert
