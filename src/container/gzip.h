// SPDX-License-Identifier: MIT
// gzip files (RFC 1952) around a message file, whole files in memory. Layout in
// docs/formats/gzip.md. Texts of failures do not name the file: that is the caller's to put in
// front.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fennel {

// In bytes of contents. deflate shrinks up to 1032 to 1, so that a file of 250 KB can be a bomb of
// this size; a message file is at most some MB.
inline constexpr std::size_t maxGzipContents = 256U << 20U;
// libdeflate's best. It finds a shorter parse than zlib at its best does.
inline constexpr int gzipLevel = 12;

struct GzipContents {
    // FNAME of the first member, bytes as they stand; empty without one. Hostile until it has been
    // through gzipInnerName.
    std::string name;
    std::uint32_t mtime = 0;        // seconds since 1970, 0 if not told
    std::vector<std::uint8_t> data; // of all members, one behind the other
};

// Whether the bytes begin as a gzip file does (magic and method 8), so that everything further
// wrong with them is a fault of a gzip file.
[[nodiscard]] bool isGzip(std::span<const std::uint8_t> file);

// A gzip file with one member and the flag FNAME. `name` holds no NUL. `level` is libdeflate's, 1
// to
// 12. Failures: TooLarge (data above maxGzipContents), NoSpace (no memory).
Result<std::vector<std::uint8_t>> gzipCompress(std::span<const std::uint8_t> data,
                                               std::string_view name, std::uint32_t mtime,
                                               int level = gzipLevel);

// Contents of all members. Zero bytes behind the last member are taken as padding. Failures:
// Malformed (no gzip file, cut short, checksum or size wrong, other bytes behind the end), TooLarge
// (more than `limit` bytes), Unsupported (reserved flags).
Result<GzipContents> gzipDecompress(std::span<const std::uint8_t> file,
                                    std::size_t limit = maxGzipContents);

// The plain file name for the contents of the gzip file `archiveName` (without folders): the stored
// name without its folders and outer blanks; if nothing usable in UTF-8 is left of it, the
// archive's name as 7-Zip derives it: "x.gz" > "x", "x.tgz" > "x.tar", "x.foo" > "x", "x" > "x~".
[[nodiscard]] std::string gzipInnerName(std::string_view storedName, std::string_view archiveName);

} // namespace fennel
