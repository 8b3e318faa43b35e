// SPDX-License-Identifier: MIT
#include "common/bridge_io.h"

#include "base/failure_kind.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <unistd.h>

namespace fennel {

namespace {

constexpr mode_t newFileMode = 0666; // less the user's umask, as every new file

// Archives keep times in 32 bits without sign; others are cut to the ends.
std::uint32_t seconds(const struct stat& info)
{
    constexpr std::int64_t most = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(info.st_mtim.tv_sec, 0, most));
}

bool writeAll(int file, std::span<const std::uint8_t> bytes)
{
    // A write may be short or interrupted without being wrong.
    while (!bytes.empty()) {
        const ssize_t done = ::write(file, bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(done));
    }
    return true;
}

// Reads until the end or until `bytes` is full; the number of bytes read, -1 on an error.
ssize_t readAll(int file, std::span<std::uint8_t> bytes)
{
    std::size_t total = 0;
    while (total < bytes.size()) {
        const ssize_t done = ::read(file, bytes.data() + total, bytes.size() - total);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return -1;
        if (done == 0)
            break;
        total += static_cast<std::size_t>(done);
    }
    return static_cast<ssize_t>(total);
}

Failure tooLarge(const std::string& path, std::size_t limit)
{
    return {FailureKind::TooLarge, path + ": larger than " + std::to_string(limit >> 20U) + " MB"};
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

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

bool Descriptor::close()
{
    const int number = std::exchange(m_number, -1);
    return number < 0 || ::close(number) == 0;
}

Failure systemFailure(const std::string& path)
{
    // Taken first, before anything can change it.
    const int error = errno;
    return {failureKindOf(error), path + ": " + std::strerror(error)};
}

Failure about(const std::string& what, Failure failure)
{
    failure.text = what + ": " + failure.text;
    return failure;
}

Result<WholeFile> readWholeFile(int at, const std::string& path, std::size_t limit)
{
    // Without O_NONBLOCK the open of a pipe would wait for a writer for ever.
    const Descriptor file(::openat(at, path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat info {};
    if (!file.valid() || ::fstat(file.get(), &info) != 0)
        return systemFailure(path);
    // Devices and pipes have no size and perhaps no end.
    if (!S_ISREG(info.st_mode))
        return Failure{FailureKind::Unsupported, path + ": no plain file"};
    if (static_cast<std::uint64_t>(info.st_size) > limit)
        return tooLarge(path, limit);
    WholeFile whole{{}, seconds(info), info.st_dev, info.st_ino};
    // One byte of room more than the size shows a file that grows meanwhile, or tells no size.
    whole.bytes.resize(static_cast<std::size_t>(info.st_size) + 1);
    const ssize_t size = readAll(file.get(), whole.bytes);
    if (size < 0)
        return systemFailure(path);
    if (static_cast<std::size_t>(size) == whole.bytes.size())
        return Failure{FailureKind::Io, path + ": changes while it is read"};
    whole.bytes.resize(static_cast<std::size_t>(size));
    return whole;
}

Result<OutputFolder> OutputFolder::open(const std::string& path)
{
    OutputFolder folder;
    folder.m_folder = Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    folder.m_path = path;
    if (!folder.m_folder.valid())
        return systemFailure(path);
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
        return systemFailure(pathOf(name));
    // O_EXCL also refuses a link that someone put there since.
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    Descriptor file(::openat(at, name.c_str(), flags, newFileMode));
    if (!file.valid())
        return systemFailure(pathOf(name));
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
    Failure failure = systemFailure(pathOf(name));
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

Result<void> writeWholeFile(const std::string& path, std::span<const std::uint8_t> bytes)
{
    // The output appears whole or not at all.
    const std::string part = path + "." + std::to_string(::getpid()) + ".part";
    Descriptor file(
        ::open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, newFileMode));
    if (!file.valid())
        return systemFailure(part);
    if (writeAll(file.get(), bytes) && file.close() && ::rename(part.c_str(), path.c_str()) == 0)
        return {};
    Failure failure = systemFailure(path);
    removeFile(part);
    return failure;
}

void removeFile(const std::string& path)
{
    (void)::unlink(path.c_str());
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

int exitCode(std::string_view bridge, const Result<void>& result)
{
    if (result)
        return 0;
    const std::string line = std::string(bridge) + ": " + result.failure().text + "\n";
    (void)std::fputs(line.c_str(), stderr);
    return 1;
}

} // namespace fennel
