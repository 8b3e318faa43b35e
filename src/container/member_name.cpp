// SPDX-License-Identifier: MIT
#include "container/member_name.h"

#include <algorithm>
#include <array>

namespace fennel {

namespace {

using namespace std::string_view_literals;

// A member of such a name would be overwritten by the tools, or be taken for their output.
constexpr std::array workingFiles{"#.lst"sv, cpioFactsName, "#7zip.log"sv, "#message"sv,
                                  "#message.gz"sv};
constexpr std::array devices{"con"sv, "prn"sv, "aux"sv, "nul"sv};
// Names come from files of any origin and must not fill the message.
constexpr std::size_t longestShown = 80;

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

// Windows opens the device for "aux", "AUX.txt" and "com1.x" alike.
bool isDeviceName(std::string_view name)
{
    std::string stem(name.substr(0, name.find('.')));
    for (char& c : stem)
        c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    if (std::find(devices.begin(), devices.end(), stem) != devices.end())
        return true;
    return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
           stem[3] >= '1' && stem[3] <= '9';
}

} // namespace

bool isWorkingFile(std::string_view name)
{
    return std::find(workingFiles.begin(), workingFiles.end(), name) != workingFiles.end();
}

// The answer continues "the name ... ", for the message that refuses it.
std::string_view whyNoMemberName(std::string_view name)
{
    if (name.empty())
        return "is empty";
    if (name == "." || name == "..")
        return "is a folder";
    if (name.find_first_of("/\\") != std::string_view::npos)
        return "holds a separator, but only plain names without folders are taken";
    if (std::any_of(name.begin(), name.end(), isControl))
        return "holds a control character";
    if (name.size() > maxMemberName)
        return "is longer than 255 bytes";
    if (isDeviceName(name))
        return "is the name of a device";
    if (isWorkingFile(name))
        return "is kept for a working file";
    return {};
}

std::string printableName(std::string_view name)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : name.substr(0, longestShown)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7f) {
            text += c;
        } else {
            text += "\\x";
            text += digits[byte >> 4U];
            text += digits[byte & 15U];
        }
    }
    if (name.size() > longestShown)
        text += "...";
    return text + '"';
}

} // namespace fennel
