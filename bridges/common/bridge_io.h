// SPDX-License-Identifier: MIT
// What the archive bridges add to the common files: a folder that receives members, and never
// through a link that waits in it; the command line and the exit code.
#pragma once

#include "base/posix_file.h"
#include "common/file_memory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fennel {

struct WholeFile {
    FileBytes bytes;
    std::uint32_t mtime = 0; // seconds since 1970, held to what 32 bits take
    dev_t device = 0;        // with the inode number: which file it is
    ino_t inode = 0;
};

// A failure, its sentence led by what it is about, such as a path.
[[nodiscard]] Failure about(const std::string& what, Failure failure);

// readWhole(), with what an archive keeps of a file.
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

// The part of the path behind the last "/".
[[nodiscard]] std::string baseName(const std::string& path);

// The arguments behind the program's name, without empty ones and without the suffix ",0" or ",1"
// that ends every call.
[[nodiscard]] std::vector<std::string> toolArguments(int argc, char** argv);

// Work that may take long tells how far it is, at most a hundred times; the editor shows it.
class Share {
public:
    explicit Share(std::uint64_t whole) : m_whole(whole) {}
    void tell(std::uint64_t done);

private:
    std::uint64_t m_whole;
    std::uint64_t m_told = 0; // percent
};

// Tells a failure on standard error, and the exit code: 0 or 1.
int exitCode(std::string_view bridge, const Result<void>& result);

} // namespace fennel
