// SPDX-License-Identifier: MIT
// Files as the editor and its bridges both read and write them: whole, by the system's own calls.
// The standard library only, so that a bridge without Qt starts in a millisecond. Paths are bytes.
// Each failure is a sentence that names the file and the system's reason.
#pragma once

#include "base/result.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <functional>
#include <span>
#include <string>
#include <sys/stat.h>
#include <utility>

namespace fennel {

// An open file or folder, closed at the end.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }
    [[nodiscard]] int get() const { return m_number; }
    [[nodiscard]] bool valid() const { return m_number >= 0; }
    // False if the system tells only now that a write did not reach the disk.
    bool close();
    // Whoever takes the number closes it.
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

// Closed in programs that are started; a new file has the rights that the user's umask leaves.
[[nodiscard]] Descriptor openFile(const std::string& path, int flags, int at = AT_FDCWD,
                                  mode_t mode = 0666);

// "Cannot VERB PATH: REASON."
[[nodiscard]] Failure systemFailure(const std::string& verb, const std::string& path, int error);
[[nodiscard]] Failure tooLarge(const std::string& path, std::uint64_t limit);

// A plain file, opened for reading, of at most `limit` bytes by its size. `path` is relative to the
// folder `at`. Links are followed; what is no plain file (folder, device, pipe) is a failure.
struct PlainFile {
    Descriptor file;
    struct stat facts {};
};
Result<PlainFile> openPlain(const std::string& path, std::uint64_t limit, int at = AT_FDCWD);
// Reads on until the end or until `bytes` is full; the number of bytes read, -1 on an error.
std::ptrdiff_t readInto(int file, std::span<std::uint8_t> bytes);

// The whole file into a container of bytes. The size that the system tells is only where reading
// begins: files of the kernel tell none, others grow meanwhile; the limit holds in any case.
template <class Bytes>
Result<struct stat> readWhole(const std::string& path, std::uint64_t limit, Bytes& bytes,
                              int at = AT_FDCWD)
{
    constexpr std::uint64_t leastStep = 64 * 1024;
    Result<PlainFile> opened = openPlain(path, limit, at);
    if (!opened)
        return opened.failure();
    const auto size = static_cast<std::uint64_t>(opened->facts.st_size);
    // One byte more shows the end of a file that tells its size; one above the limit, that it is
    // too large.
    const std::uint64_t step = size > 0 ? size + 1 : leastStep;
    std::uint64_t had = 0;
    for (bool more = true; more && had <= limit;) {
        const std::uint64_t room =
            std::min(had == 0 ? step : std::max(step, leastStep), limit + 1 - had);
        const std::uint64_t space = had + room;
        bytes.resize(static_cast<decltype(bytes.size())>(space));
        auto* to = reinterpret_cast<std::uint8_t*>(bytes.data()) + had;
        const std::ptrdiff_t got = readInto(opened->file.get(), {to, room});
        if (got < 0)
            return systemFailure("read", path, errno);
        had += static_cast<std::uint64_t>(got);
        more = static_cast<std::uint64_t>(got) == room;
    }
    if (had > limit)
        return tooLarge(path, limit);
    bytes.resize(static_cast<decltype(bytes.size())>(had));
    return opened->facts;
}

// All the bytes, or false with errno set.
[[nodiscard]] bool writeAll(int file, std::span<const std::uint8_t> bytes);
// The same for a path that is opened with `flags`. Synced means on the disk, whatever happens next.
Result<void> writeFile(const std::string& path, int flags, std::span<const std::uint8_t> bytes,
                       bool sync = false);

// A file that a tool makes is whole or absent: it is written under this name beside it, and
// renamed. A tool that was killed leaves this one.
[[nodiscard]] std::string unfinishedName(const std::string& path);
Result<void> writeWhole(const std::string& path, std::span<const std::uint8_t> bytes);

// Replaces the user's file, which is at every moment the whole old or the whole new one, even after
// a power cut. The new file has the rights and, where that is allowed, the owner of the old one. A
// path that is a link keeps being one: what it points to is replaced. A file that the user may not
// write to is not replaced, nor one that changed its identity meanwhile, nor what another user's
// link leads to unless it is that user's. What a killed replacement left in the folder goes.
Result<void> replaceWhole(const std::string& path, std::span<const std::uint8_t> bytes);
// The same with what `write` writes into an open file; its failure is the result.
using WriteInto = std::function<Result<void>(int file)>;
Result<void> replaceWhole(const std::string& path, const WriteInto& write);
// Removes what killed replacements of files of this folder left.
void removeUnfinished(const std::string& path);

// Removes a file or link; a folder stays.
void removeFile(const std::string& path);

} // namespace fennel
