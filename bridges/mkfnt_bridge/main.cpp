// SPDX-License-Identifier: MIT
// Makes a boot-screen font from a TrueType or OpenType file.
//
//   mkfnt_bridge RANGES FONT SIZE SPACE LINE LETTER OUTPUT [,0]
//
// RANGES as "0x20-0x7E_0x410-0x451"; FONT a file name without ".ttf", found in fontconfig's
// folders, or a path; SIZE in pixels; SPACE the width of the blank, LINE and LETTER what is added
// to the line height and to every advance. On failure there is no output, one sentence on standard
// error, and the exit code is 1.
#include "base/posix_file.h"
#include "font_search.h"
#include "fonts/char_ranges.h"
#include "fonts/fnt_codec.h"
#include "rasterise.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <span>
#include <string>

namespace fennel {

namespace {

constexpr std::uint32_t lastUnicode = 0x10FFFF;
enum Argument { Ranges = 1, Font, Size, Space, Line, Letter, Output, Suffix };

// `what` begins the sentence of a failure.
Result<int> wholeNumber(const std::string& text, const char* what, int least, int most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const std::string given = std::string(what) + " \"" + text + "\" is ";
    const std::string limits = std::to_string(least) + " to " + std::to_string(most) + ".";
    // The whole word must be a number: half of one would make a font nobody asked for.
    if (error == std::errc::invalid_argument || end != text.data() + text.size())
        return Failure{FailureKind::Malformed, given + "no whole number from " + limits};
    if (error != std::errc() || value < least || value > most)
        return Failure{FailureKind::TooLarge, given + "out of range, which is " + limits};
    return value;
}

// Ascending, each code once. U+0000 is what an unreadable token stands for, never a character.
Result<std::vector<std::uint32_t>> wantedCodes(const std::string& text)
{
    Result<std::vector<CodeRange>> ranges = readCodeRanges(text, lastUnicode);
    if (!ranges)
        return ranges.failure();
    std::ranges::sort(*ranges, {}, &CodeRange::first);
    std::vector<std::uint32_t> codes;
    std::uint32_t next = 1;
    for (const CodeRange& range : *ranges) {
        // Ranges may overlap; `next` never goes back.
        for (next = std::max(next, range.first); next <= range.last; ++next)
            codes.push_back(next);
    }
    if (codes.empty())
        return Failure{FailureKind::Malformed, "The list of characters is empty."};
    return codes;
}

Result<FontOrder> readOrder(std::span<char*> arguments)
{
    FontOrder order;
    struct Field {
        Argument place;
        const char* what;
        int* value;
        int least;
        int most;
    };
    const Field fields[] = {
        {Size, "The size", &order.size, smallestFont, fntLargestSize},
        {Space, "The space width", &order.spaceWidth, -largestSpacing, largestSpacing},
        {Line, "The line space", &order.lineSpace, -largestSpacing, largestSpacing},
        {Letter, "The letter space", &order.letterSpace, -largestSpacing, largestSpacing},
    };
    for (const Field& field : fields) {
        const Result<int> value =
            wholeNumber(arguments[field.place], field.what, field.least, field.most);
        if (!value)
            return value.failure();
        *field.value = *value;
    }
    Result<std::vector<std::uint32_t>> codes = wantedCodes(arguments[Ranges]);
    if (!codes)
        return codes.failure();
    order.codes = std::move(*codes);
    return order;
}

Result<void> makeFont(std::span<char*> arguments)
{
    // All arguments are checked before the font is looked for, which takes longer.
    const Result<FontOrder> order = readOrder(arguments);
    if (!order)
        return order.failure();
    const std::string path = findFontFile(arguments[Font]);
    if (path.empty())
        return Failure{FailureKind::NotFound,
                       std::string("There is no font file ") + arguments[Font] + "."};
    const Result<FntFont> font = rasterise(path, *order);
    if (!font)
        return font.failure();
    const Result<std::vector<std::uint8_t>> bytes = encodeFnt(*font);
    return bytes ? writeWhole(arguments[Output], *bytes) : bytes.failure();
}

} // namespace

} // namespace fennel

int main(int argc, char** argv)
{
    using namespace fennel;
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != Suffix && arguments.size() != Suffix + 1) {
        std::fputs("Arguments: RANGES FONT SIZE SPACE LINE LETTER OUTPUT [,0]\n", stderr);
        return 1;
    }
    std::string reason = "The font needs more memory than there is.";
    try {
        const Result<void> made = makeFont(arguments);
        if (made)
            return 0;
        reason = made.failure().text;
    } catch (const std::exception&) { // only the library's own, on want of memory
    }
    // An output of an earlier run must not pass for this one's.
    // The font itself is never removed, even by a call that names it twice.
    if (std::strcmp(arguments[Output], arguments[Font]) != 0)
        std::remove(arguments[Output]);
    std::fprintf(stderr, "%s\n", reason.c_str());
    return 1;
}
