// SPDX-License-Identifier: MIT
// What a file inside an archive may be called. A member name becomes a file name in the workspace
// and a line of "#.lst", so that only names which can be both, and nothing else, pass.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fennel {

// In bytes, without a terminating NUL: what Linux and Windows file systems take.
inline constexpr std::size_t maxMemberName = 255;

// The reason why `name` cannot be the name of a member, as the end of a sentence ("holds a
// separator"), or an empty view if it can. Names are bytes of an unknown code page: everything
// above 0x7f passes. Refused are the empty name, "." and "..", separators of both kinds, control
// characters (a line end would forge a line of "#.lst"), names longer than maxMemberName, the names
// of devices on Windows with or without an ending, and the working files that the bridges keep
// beside the members.
[[nodiscard]] std::string_view whyNoMemberName(std::string_view name);

// The file beside extracted members that keeps what else their headers say.
inline constexpr std::string_view cpioFactsName = "#.hdr";

// Whether the bridges keep a file of this name beside the members.
[[nodiscard]] bool isWorkingFile(std::string_view name);

// The name in quotation marks, fit for a message: bytes that are not printable ASCII as \xNN, the
// rest of a very long name as "...".
[[nodiscard]] std::string printableName(std::string_view name);

} // namespace fennel
