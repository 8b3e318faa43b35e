// SPDX-License-Identifier: MIT
// gzip files (RFC 1952) around a message file, whole files in memory. Layout in
// docs/formats/gzip.md. Texts of failures do not name the file: that is the caller's to put in
// front.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fennel {

// In bytes of contents. deflate shrinks up to 1032 to 1, so that a file of 250 KB can be a bomb of
// this size; a message file is at most some MB.
inline constexpr std::size_t maxGzipContents = 256U << 20U;
// libdeflate's. From 9 on it finds a shorter parse than zlib at its best does; above, a hundredth
// of the size costs three times the time.
inline constexpr int gzipLevel = 9;

struct GzipContents {
    // FNAME of the first member, bytes as they stand; empty without one. Hostile until it has been
    // through gzipInnerName.
    std::string name;
    std::uint32_t mtime = 0;        // seconds since 1970, 0 if not told
    std::vector<std::uint8_t> data; // of all members, one behind the other
    std::size_t trailing = 0;       // bytes behind the end that belong to no member, zeros apart
};

// Whether the bytes begin as a gzip file does (magic and method 8), so that everything further
// wrong with them is a fault of a gzip file. It takes gzipMarkSize of them to tell.
inline constexpr std::size_t gzipMarkSize = 3;
[[nodiscard]] bool isGzip(std::span<const std::uint8_t> file);

// A gzip file with one member and the flag FNAME. `name` holds no NUL. `level` is libdeflate's, 1
// to
// 12. Failures: TooLarge (data above maxGzipContents), NoSpace (no memory).
Result<std::vector<std::uint8_t>> gzipCompress(std::span<const std::uint8_t> data,
                                               std::string_view name, std::uint32_t mtime,
                                               int level = gzipLevel);

// Contents of all members. What stands behind the last one is ignored, as gzip does. Failures:
// Malformed (no gzip file, cut short, checksum or size wrong), TooLarge (more than `limit` bytes),
// Unsupported (reserved flags).
Result<GzipContents> gzipDecompress(std::span<const std::uint8_t> file,
                                    std::size_t limit = maxGzipContents);

// FNAME of a gzip file of which at least the beginning is given; empty without one.
[[nodiscard]] std::string gzipStoredName(std::span<const std::uint8_t> start);

// The same for files of any size, in pieces. `in` is read from its beginning; `tell` gets the bytes
// read so far. The result of the second is the number of bytes behind the end that were ignored.
// Failures as above, and what the system says.
using TellBytes = std::function<void(std::uint64_t)>;
Result<void> gzipCompressFile(int in, int out, const std::string& name, std::uint32_t mtime,
                              const TellBytes& tell);
Result<std::uint64_t> gzipDecompressFile(int in, int out, const TellBytes& tell);

// The plain file name for the contents of the gzip file `archiveName` (without folders): the stored
// name without its folders and outer blanks; if nothing usable in UTF-8 is left of it, the
// archive's name as 7-Zip derives it: "x.gz" > "x", "x.tgz" > "x.tar", "x.foo" > "x", "x" > "x~".
[[nodiscard]] std::string gzipInnerName(std::string_view storedName, std::string_view archiveName);

} // namespace fennel
