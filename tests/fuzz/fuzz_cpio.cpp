// SPDX-License-Identifier: MIT
// Any bytes as an archive: what is accepted must be packable again into the same members.
#include "container/cpio.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto members = fennel::readCpio({data, size});
    if (!members)
        return 0;
    const auto packed = fennel::writeCpio(*members);
    if (!packed)
        std::abort();
    const auto again = fennel::readCpio(*packed);
    const auto same = [](const fennel::CpioMember& a, const fennel::CpioMember& b) {
        return a.name == b.name && a.mtime == b.mtime && std::ranges::equal(a.data, b.data);
    };
    if (!again || !std::ranges::equal(*members, *again, same))
        std::abort();
    return 0;
}
