// SPDX-License-Identifier: MIT
#include "common/bridge_io.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <unistd.h>

namespace fennel {

namespace {

// Archives keep times in 32 bits without sign; others are cut to the ends.
std::uint32_t seconds(const struct stat& info)
{
    constexpr std::int64_t most = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(info.st_mtim.tv_sec, 0, most));
}

// The folder of "/name" is "/".
std::string parentOf(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    if (separator == std::string::npos)
        return ".";
    return path.substr(0, std::max<std::size_t>(separator, 1));
}

} // namespace

Failure about(const std::string& what, Failure failure)
{
    failure.text = what + ": " + failure.text;
    return failure;
}

Result<WholeFile> readWholeFile(int at, const std::string& path, std::size_t limit)
{
    WholeFile whole;
    const Result<struct stat> facts = readWhole(path, limit, whole.bytes, at);
    if (!facts)
        return facts.failure();
    whole.mtime = seconds(*facts);
    whole.device = facts->st_dev;
    whole.inode = facts->st_ino;
    return whole;
}

Result<OutputFolder> OutputFolder::open(const std::string& path)
{
    OutputFolder folder;
    folder.m_folder = openFile(path, O_RDONLY | O_DIRECTORY);
    folder.m_path = path;
    if (!folder.m_folder.valid())
        return systemFailure("open the folder", path, errno);
    return folder;
}

std::string OutputFolder::pathOf(std::string_view name) const
{
    return m_path + (m_path.ends_with('/') ? "" : "/") + std::string(name);
}

Result<void> OutputFolder::replaceFile(const std::string& name, std::span<const std::uint8_t> bytes,
                                       const std::uint32_t* mtime) const
{
    const int at = m_folder.get();
    // Removed and made anew: writing into the old file would write through a link.
    if (::unlinkat(at, name.c_str(), 0) != 0 && errno != ENOENT)
        return systemFailure("replace", pathOf(name), errno);
    // O_EXCL also refuses a link that someone put there since.
    Descriptor file = openFile(name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, at);
    if (!file.valid())
        return systemFailure("write", pathOf(name), errno);
    bool good = writeAll(file.get(), bytes);
    if (good && mtime != nullptr) {
        const timespec times[2] = {{0, UTIME_OMIT}, {static_cast<time_t>(*mtime), 0}};
        // A file system without such times still holds the file.
        (void)::futimens(file.get(), times);
    }
    // Some file systems tell of a full disk only here.
    good = good && file.close();
    if (good)
        return {};
    Failure failure = systemFailure("write", pathOf(name), errno);
    remove(name);
    return failure;
}

Result<void> OutputFolder::checkReplaceable(const std::string& name) const
{
    struct stat info {};
    if (::fstatat(m_folder.get(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
        S_ISDIR(info.st_mode))
        return Failure{FailureKind::Io, pathOf(name) + ": a folder has the name of a member"};
    return {};
}

void OutputFolder::remove(const std::string& name) const
{
    (void)::unlinkat(m_folder.get(), name.c_str(), 0);
}

// By device and number, as one folder may have many names.
bool OutputFolder::holds(const std::string& path) const
{
    struct stat mine {};
    struct stat other {};
    return ::fstat(m_folder.get(), &mine) == 0 && ::stat(parentOf(path).c_str(), &other) == 0 &&
           mine.st_dev == other.st_dev && mine.st_ino == other.st_ino;
}

std::string baseName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::vector<std::string> toolArguments(int argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        // The editor's last argument, for bridges only; blanks between arguments may leave empty
        // ones.
        const bool suffix = i + 1 == argc && (argument == ",0" || argument == ",1");
        if (!argument.empty() && !suffix)
            arguments.emplace_back(argument);
    }
    return arguments;
}

void Share::tell(std::uint64_t done)
{
    const std::uint64_t percent = m_whole == 0 ? 100 : std::min(done, m_whole) * 100 / m_whole;
    if (percent <= m_told)
        return;
    m_told = percent;
    const std::string line = "share " + std::to_string(percent) + "\n";
    (void)!::write(STDOUT_FILENO, line.data(), line.size());
}

int exitCode(std::string_view bridge, const Result<void>& result)
{
    if (result)
        return 0;
    const std::string line = std::string(bridge) + ": " + result.failure().text + "\n";
    (void)std::fputs(line.c_str(), stderr);
    return 1;
}

} // namespace fennel
