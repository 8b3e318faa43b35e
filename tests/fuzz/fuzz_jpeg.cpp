// SPDX-License-Identifier: MIT
// Any bytes as the head of a JPEG.
#include "container/jpeg_check.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto head = fennel::readJpegHead({reinterpret_cast<const char*>(data), size});
    if (head)
        (void)fennel::checkBootable(*head).ok();
    return 0;
}
