// SPDX-License-Identifier: MIT
#include "base/posix_file.h"

#include "base/failure_kind.h"

#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace fennel {

namespace {

constexpr mode_t newFileMode = 0666; // less the user's umask, as every new file
constexpr int newFileFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;

// Takes what the file before had. An ordinary user cannot give files away (EPERM): the file then
// belongs to whoever saves it.
Result<void> takeOver(const std::string& path, const struct stat& old)
{
    if (::chmod(path.c_str(), old.st_mode & 07777) != 0)
        return systemFailure("set the permissions of", path, errno);
    if (::chown(path.c_str(), old.st_uid, old.st_gid) != 0 && errno != EPERM)
        return systemFailure("set the owner of", path, errno);
    return {};
}

// A rename is safe against a power cut only once its folder is synced too. A failure is not told:
// the new file is in place already.
void syncFolder(const std::string& folder)
{
    if (const Descriptor file = openFile(folder, O_RDONLY | O_DIRECTORY); file.valid())
        ::fsync(file.get());
}

// What a chain of links ends in; the path itself if it is no link.
std::string linkTarget(const std::string& path)
{
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(path, error);
    return error ? path : real.string();
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

Descriptor openFile(const std::string& path, int flags, int at)
{
    return Descriptor(::openat(at, path.c_str(), flags | O_CLOEXEC, newFileMode));
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

Result<OpenedFile> openPlain(const std::string& path, std::uint64_t limit, int at)
{
    // Without O_NONBLOCK the open of a pipe would wait for a writer for ever.
    OpenedFile opened{openFile(path, O_RDONLY | O_NONBLOCK, at)};
    if (!opened.file.valid() || ::fstat(opened.file.get(), &opened.facts) != 0)
        return systemFailure("read", path, errno);
    if (S_ISDIR(opened.facts.st_mode))
        return systemFailure("read", path, EISDIR);
    // Devices and pipes have no size and perhaps no end.
    if (!S_ISREG(opened.facts.st_mode))
        return Failure{FailureKind::Unsupported, path + " is no plain file."};
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

Result<void> replaceWhole(const std::string& path, std::span<const std::uint8_t> bytes)
{
    const std::string real = linkTarget(path);
    struct stat old {};
    const bool existed = ::stat(real.c_str(), &old) == 0;
    if (existed && S_ISDIR(old.st_mode))
        return systemFailure("write", path, EISDIR);
    // A rename would replace a write-protected file without asking, as it needs rights on the
    // folder only.
    if (existed && ::access(real.c_str(), W_OK) != 0)
        return systemFailure("write", path, errno);
    // Beside the target, since only a rename within one file system is a single step, under a name
    // that is short enough everywhere. The process id keeps two copies of the program apart.
    const std::string folder = real.substr(0, real.rfind('/') + 1);
    const std::string beside = folder + ".fennel-gfx." + std::to_string(::getpid()) + ".new";
    Result<void> done = writeFile(beside, newFileFlags, bytes, true);
    if (done && existed)
        done = takeOver(beside, old);
    if (done && ::rename(beside.c_str(), real.c_str()) != 0)
        done = systemFailure("replace", path, errno);
    if (done)
        syncFolder(folder);
    else
        removeFile(beside);
    return done;
}

void removeFile(const std::string& path)
{
    (void)::unlink(path.c_str());
}

} // namespace fennel
