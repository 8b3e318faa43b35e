// SPDX-License-Identifier: MIT
// Files as the archive bridges read and write them: whole, and never through a link that waits in
// the target folder. POSIX calls, no Qt, so that a bridge starts in a millisecond. Paths are bytes.
// Each failure is a sentence with the path and the system's reason.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

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

private:
    int m_number = -1;
};

struct WholeFile {
    std::vector<std::uint8_t> bytes;
    std::uint32_t mtime = 0; // seconds since 1970, held to what 32 bits take
    dev_t device = 0;        // with the inode number: which file it is
    ino_t inode = 0;
};

// A sentence from a path and the pending error number.
[[nodiscard]] Failure systemFailure(const std::string& path);
// The same failure, its sentence led by what it is about, such as a path.
[[nodiscard]] Failure about(const std::string& what, Failure failure);

// One file of at most `limit` bytes. `path` is relative to the folder `at` (AT_FDCWD: to the
// working folder). Links are followed; what is no plain file (folder, device, pipe) is a failure.
Result<WholeFile> readWholeFile(int at, const std::string& path, std::size_t limit);

// A folder that receives files by plain names; that they are plain is the caller's to check.
class OutputFolder {
public:
    static Result<OutputFolder> open(const std::string& path);
    [[nodiscard]] int descriptor() const { return m_folder.get(); }
    [[nodiscard]] std::string pathOf(std::string_view name) const;
    // Writes a new file; an older file or link of that name is removed, not written through. What a
    // failed write left is removed. `mtime` (if not null) becomes the file's time.
    [[nodiscard]] Result<void> replaceFile(const std::string& name,
                                           std::span<const std::uint8_t> bytes,
                                           const std::uint32_t* mtime) const;
    // A failure if the name is taken by a folder, so that the file could not be written.
    [[nodiscard]] Result<void> checkReplaceable(const std::string& name) const;
    void remove(const std::string& name) const;
    // Whether the path means an entry of this very folder, under whatever spelling of the folder.
    [[nodiscard]] bool holds(const std::string& path) const;

private:
    Descriptor m_folder;
    std::string m_path;
};

// The file at `path` is whole or absent: the bytes go into a new file beside it that is renamed.
Result<void> writeWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

// Removes a file or link; a folder stays.
void removeFile(const std::string& path);

// The part of the path behind the last "/".
[[nodiscard]] std::string baseName(const std::string& path);

// The arguments behind the program's name, without empty ones and without the suffix ",0" or ",1"
// that ends every call.
[[nodiscard]] std::vector<std::string> toolArguments(int argc, char** argv);

// Tells a failure on standard error, and the exit code: 0 or 1.
int exitCode(std::string_view bridge, const Result<void>& result);

} // namespace fennel
