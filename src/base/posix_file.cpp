// SPDX-License-Identifier: MIT
#include "base/posix_file.h"

#include "base/failure_kind.h"

#include <cstring>
#include <unistd.h>

namespace fennel {

namespace {

constexpr int newFileFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;

Failure notPlain(const std::string& path)
{
    return {FailureKind::Unsupported, path + " is no plain file."};
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

Descriptor openFile(const std::string& path, int flags, int at, mode_t mode)
{
    return Descriptor(::openat(at, path.c_str(), flags | O_CLOEXEC, mode));
}

Failure systemFailure(const std::string& verb, const std::string& path, int error)
{
    return {failureKindOf(error),
            "Cannot " + verb + " " + path + ": " + std::strerror(error) + "."};
}

Failure tooLarge(const std::string& path, std::uint64_t limit)
{
    constexpr std::uint64_t megabyte = 1024 * 1024;
    const bool whole = limit >= megabyte;
    return {FailureKind::TooLarge, path + " is larger than " +
                                       std::to_string(whole ? limit / megabyte : limit) +
                                       (whole ? " MB." : " bytes.")};
}

Result<PlainFile> openPlain(const std::string& path, std::uint64_t limit, int at)
{
    // Asked before the open, which some devices take for an order, and again behind it. Without
    // O_NONBLOCK the open of a pipe that came in between would wait for a writer for ever.
    struct stat before {};
    if (::fstatat(at, path.c_str(), &before, 0) == 0 && !S_ISREG(before.st_mode) &&
        !S_ISDIR(before.st_mode))
        return notPlain(path);
    PlainFile opened{openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY, at)};
    if (!opened.file.valid() || ::fstat(opened.file.get(), &opened.facts) != 0)
        return systemFailure("read", path, errno);
    if (S_ISDIR(opened.facts.st_mode))
        return systemFailure("read", path, EISDIR);
    // Devices and pipes have no size and perhaps no end.
    if (!S_ISREG(opened.facts.st_mode))
        return notPlain(path);
    if (static_cast<std::uint64_t>(opened.facts.st_size) > limit)
        return tooLarge(path, limit);
    return opened;
}

std::ptrdiff_t readInto(int file, std::span<std::uint8_t> bytes)
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
    return static_cast<std::ptrdiff_t>(total);
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

Result<void> writeFile(const std::string& path, int flags, std::span<const std::uint8_t> bytes,
                       bool sync)
{
    Descriptor file = openFile(path, flags);
    // Some file systems tell of a full disk only when the file is closed.
    if (file.valid() && writeAll(file.get(), bytes) && (!sync || ::fsync(file.get()) == 0) &&
        file.close())
        return {};
    return systemFailure("write", path, errno);
}

std::string unfinishedName(const std::string& path)
{
    return path + ".part";
}

Result<void> writeWhole(const std::string& path, std::span<const std::uint8_t> bytes)
{
    const std::string part = unfinishedName(path);
    removeFile(part); // a run before was killed
    Result<void> done = writeFile(part, newFileFlags, bytes);
    if (done && ::rename(part.c_str(), path.c_str()) != 0)
        done = systemFailure("write", path, errno);
    if (!done)
        removeFile(part);
    return done;
}

void removeFile(const std::string& path)
{
    (void)::unlink(path.c_str());
}

} // namespace fennel
