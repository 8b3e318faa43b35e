// SPDX-License-Identifier: MIT
#include "fonts/char_ranges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace fennel {

namespace {

constexpr double hugeNumber = 4294967295.0; // above every limit; keeps long texts of digits finite
// Of a text that may be a megabyte.
constexpr std::size_t shownToken = 40;

bool isSeparator(char c)
{
    return c == '_' || c == ',' || c == ' ';
}

// The value of each hexadecimal digit, `noDigit` for other bytes. A table, since digits and letters
// come in no order that a branch could foresee, and the dialog reads up to 65,535 numbers at once.
constexpr std::uint8_t noDigit = 255;
constexpr std::array<std::uint8_t, 256> hexDigits = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::uint8_t i = 0; i < 10; ++i)
        values[std::size_t{'0'} + i] = i;
    for (std::uint8_t i = 0; i < 6; ++i) {
        values[std::size_t{'a'} + i] = static_cast<std::uint8_t>(10 + i);
        values[std::size_t{'A'} + i] = static_cast<std::uint8_t>(10 + i);
    }
    return values;
}();

// Both "0x" and "&H", as the set of a font is written in either way.
bool isHex(std::string_view text)
{
    return text.size() >= 2 && ((text[0] == '0' && (text[1] | 0x20) == 'x') ||
                                (text[0] == '&' && (text[1] | 0x20) == 'h'));
}

double hexNumber(std::string_view digits)
{
    constexpr std::uint64_t enough = 0xFFFFFFFF; // above every limit
    std::uint64_t value = 0;
    for (const char c : digits) {
        const std::uint8_t digit = hexDigits[static_cast<unsigned char>(c)];
        if (digit == noDigit)
            break;
        value = std::min(value * 16 + digit, enough);
    }
    return static_cast<double>(value);
}

double decimalNumber(std::string_view text)
{
    double sign = 1;
    double value = 0;
    double unit = 0; // of the digit behind the point; 0 before it
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (i == 0 && (c == '-' || c == '+')) {
            sign = c == '-' ? -1 : 1;
        } else if (c == '.' && unit == 0) {
            unit = 1;
        } else if (c >= '0' && c <= '9') {
            unit /= 10;
            value = unit == 0 ? value * 10 + (c - '0') : value + unit * (c - '0');
            value = std::min(value, hugeNumber);
        } else {
            break;
        }
    }
    // Ties to even, like all numbers in lists.
    return sign * std::nearbyint(value);
}

double number(std::string_view text)
{
    return isHex(text) ? hexNumber(text.substr(2)) : decimalNumber(text);
}

Failure outside(std::string_view token)
{
    return {FailureKind::Malformed, "There is no character with the number in \"" +
                                        std::string(token.substr(0, shownToken)) + "\"."};
}

} // namespace

Result<std::vector<CodeRange>> readCodeRanges(std::string_view text, std::uint32_t limit)
{
    constexpr std::size_t usualToken = 7; // "0x1234 "
    std::vector<CodeRange> ranges;
    ranges.reserve(text.size() / usualToken + 1);
    for (std::size_t start = 0; start <= text.size();) {
        const auto from = text.begin() + static_cast<std::ptrdiff_t>(start);
        const auto end = std::find_if(from, text.end(), isSeparator);
        const auto length = static_cast<std::size_t>(end - from);
        const std::string_view token = text.substr(start, length);
        start += length + 1;
        const std::size_t dash = token.find('-');
        const double first = number(token);
        const double last = dash == token.npos ? first : number(token.substr(dash + 1));
        // Passed over and not turned round; a text that is no number is 0, which is a character of
        // its own.
        if (last < first)
            continue;
        if (first < 0 || last > limit)
            return outside(token);
        ranges.push_back({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last)});
    }
    return ranges;
}

} // namespace fennel
