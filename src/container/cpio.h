// SPDX-License-Identifier: MIT
// The old binary cpio format of message files, whole archives in memory. Byte by byte in
// docs/formats/cpio.md. Both byte orders are read; written is always the little-endian one. Texts
// of failures name the member, never the archive's path: that is the caller's to put in front.
#pragma once

#include "base/result.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace fennel {

// Far above every message file (boot loaders read them whole into low memory), far below what makes
// a desktop swap. In bytes of the whole archive, read or written.
inline constexpr std::size_t maxCpioArchive = 256U << 20U;
// One per inode number of 16 bits other than 0, which is the trailer's.
inline constexpr std::size_t maxCpioMembers = 65535;
// The device number in every written header; the value itself has no meaning to readers.
inline constexpr std::uint16_t cpioDevice = 7917;

// What else a header says, and no reader of boot screens looks at: device, inode, mode, user,
// group, links, special device. Kept so that an archive can be written as it was.
using CpioFacts = std::array<std::uint16_t, 7>;

struct CpioMember {
    std::string name;                    // bytes of an unknown code page, see whyNoMemberName
    std::uint32_t mtime = 0;             // seconds since 1970
    std::span<const std::uint8_t> data;  // into memory that the caller keeps
    std::optional<CpioFacts> facts = {}; // none: those of a new member
};

// The facts of a new member with this inode number.
[[nodiscard]] CpioFacts newCpioFacts(std::uint16_t inode);

// The members in archive order; their data point into `archive`. Device, inode, owner and link
// count may be anything, the mode anything that is no folder, link or device. Bytes behind the
// trailer are not looked at. Failures: Unsupported (another cpio format, a member that is no plain
// file), TooLarge (the limits above), Malformed (everything else: no cpio archive, cut short, a
// name that is not plain or occurs twice). Nothing is returned of an archive with any fault.
Result<std::vector<CpioMember>> readCpio(std::span<const std::uint8_t> archive);

// The archive of these members in this order, filled with zero bytes to a multiple of 512. Members
// without facts get inode numbers from 1 that no other has. Failures: Malformed (a name that is not
// plain or occurs twice), TooLarge.
Result<std::vector<std::uint8_t>> writeCpio(std::span<const CpioMember> members);

} // namespace fennel
