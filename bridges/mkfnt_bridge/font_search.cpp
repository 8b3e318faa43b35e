// SPDX-License-Identifier: MIT
#include "font_search.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

namespace fennel {

namespace {

namespace fs = std::filesystem;

// The empty one for names that come with their ending.
constexpr std::array endings{"", ".ttf", ".TTF", ".otf", ".OTF", ".ttc", ".TTC"};

std::string lower(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
    });
    return text;
}

bool fits(const std::string& fileName, const std::string& wanted)
{
    // A cheap test first, as folders hold thousands of files.
    if (fileName.size() < wanted.size() || fileName.size() > wanted.size() + 4)
        return false;
    const std::string file = lower(fileName);
    return std::ranges::any_of(endings, [&](const char* end) { return file == wanted + end; });
}

void searchFolder(const fs::path& folder, const std::string& wanted,
                  std::vector<std::string>& found)
{
    std::error_code error;
    fs::recursive_directory_iterator walk(folder, fs::directory_options::skip_permission_denied,
                                          error);
    for (; !error && walk != fs::recursive_directory_iterator(); walk.increment(error)) {
        std::error_code unreadable;
        if (fits(walk->path().filename().string(), wanted) && walk->is_regular_file(unreadable))
            found.push_back(walk->path().string());
    }
}

// The order of a folder is the file system's; the first path by text is the same every time.
std::string firstOf(const std::vector<std::string>& found)
{
    const auto first = std::ranges::min_element(found);
    return first == found.end() ? std::string() : *first;
}

// Where fonts lie if nobody has said otherwise.
std::vector<fs::path> usualFolders()
{
    std::vector<fs::path> folders{"/usr/share/fonts", "/usr/local/share/fonts"};
    const char* home = std::getenv("HOME");
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data != '\0')
        folders.push_back(fs::path(data) / "fonts");
    else if (home != nullptr)
        folders.push_back(fs::path(home) / ".local/share/fonts");
    if (home != nullptr)
        folders.push_back(fs::path(home) / ".fonts");
    return folders;
}

// Only the configuration is loaded, no font: a hundred files, which take twice as long as making
// the font of a boot screen.
std::vector<fs::path> configuredFolders()
{
    std::vector<fs::path> folders;
    const std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)> config(FcInitLoadConfig(),
                                                                       FcConfigDestroy);
    if (!config)
        return folders;
    const std::unique_ptr<FcStrList, decltype(&FcStrListDone)> list(
        FcConfigGetFontDirs(config.get()), FcStrListDone);
    while (const FcChar8* folder = list ? FcStrListNext(list.get()) : nullptr)
        folders.emplace_back(reinterpret_cast<const char*>(folder));
    return folders;
}

std::string searchFolders(const std::string& name)
{
    std::vector<std::string> found;
    for (const auto folders : {usualFolders, configuredFolders}) {
        for (const fs::path& folder : folders())
            searchFolder(folder, lower(name), found);
        if (!found.empty())
            break;
    }
    return firstOf(found);
}

} // namespace

std::string findFontFile(const std::string& name)
{
    if (name.find('/') == std::string::npos)
        return name.empty() ? std::string() : searchFolders(name);
    for (const char* end : endings) {
        std::error_code error;
        if (fs::is_regular_file(name + end, error))
            return name + end;
    }
    return {};
}

} // namespace fennel
