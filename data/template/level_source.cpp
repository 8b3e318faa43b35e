// SPDX-License-Identifier: MIT
#include "level_source.h"

#include <charconv>
#include <optional>
#include <sstream>

namespace fennel {

namespace {

constexpr unsigned lastNumber = 99;
constexpr unsigned lastValue = 0xffffff;

std::optional<unsigned> number(std::string_view text, unsigned least, unsigned most)
{
    const bool hex = text.starts_with("0x");
    if (hex)
        text.remove_prefix(2);
    unsigned value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, hex ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size() || value < least || value > most)
        return std::nullopt;
    return value;
}

void addRecord(LevelFile& file, unsigned parameter, unsigned value)
{
    for (const unsigned byte : {value, value >> 8U, value >> 16U, parameter})
        file.bytes.push_back(static_cast<std::uint8_t>(byte & 0xffU));
}

unsigned lastParameter(const LevelFile& file)
{
    return file.bytes.empty() ? 0 : file.bytes.back();
}

bool addLine(std::vector<LevelFile>& files, const std::string& first, const std::string& second)
{
    if (first.starts_with('[') && first.ends_with(']') && second.empty()) {
        files.push_back({first.substr(1, first.size() - 2), {}});
        return true;
    }
    if (files.empty())
        return false;
    LevelFile& file = files.back();
    if (first == "filler") {
        const auto count = number(second, 1, lastNumber);
        file.bytes.resize(file.bytes.size() + std::size_t{4} * count.value_or(0));
        return count.has_value();
    }
    const auto parameter = number(first, lastParameter(file) + 1, lastNumber);
    const auto value = number(second, 0, lastValue);
    if (parameter && value)
        addRecord(file, *parameter, *value);
    return parameter && value;
}

} // namespace

Result<std::vector<LevelFile>> compileLevels(std::string_view text)
{
    std::vector<LevelFile> files;
    std::istringstream lines{std::string(text)};
    int lineNumber = 0;
    for (std::string line; std::getline(lines, line);) {
        ++lineNumber;
        std::istringstream words(line.substr(0, line.find(';')));
        std::string first;
        std::string second;
        std::string rest;
        words >> first >> second >> rest;
        if (!first.empty() && (!rest.empty() || !addLine(files, first, second)))
            return Failure{FailureKind::Malformed, "line " + std::to_string(lineNumber) + ": \"" +
                                                       line + "\" is no record"};
    }
    return files;
}

} // namespace fennel
