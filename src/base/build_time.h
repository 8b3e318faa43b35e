// SPDX-License-Identifier: MIT
// When this program was built. A library of its own (fennel_build_time), linked by the editor only,
// so that a new time relinks nothing else.
#pragma once

#include <cstdint>

namespace fennel {

// Seconds since 1970-01-01 00:00:00 GMT. SOURCE_DATE_EPOCH in the environment of the build takes
// its place.
std::int64_t buildTime();

} // namespace fennel
