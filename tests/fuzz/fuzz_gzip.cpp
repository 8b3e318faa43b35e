// SPDX-License-Identifier: MIT
// Any bytes as a gzip file: the limit holds, names are plain, what comes out packs and unpacks
// again.
#include "container/gzip.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t limit = 1U << 20U;
    const auto contents = fennel::gzipDecompress({data, size}, limit);
    if (!contents)
        return 0;
    const std::string name = fennel::gzipInnerName(contents->name, "x.gz");
    if (contents->data.size() > limit || name.empty() || name.find('/') != std::string::npos)
        std::abort();
    const auto packed = fennel::gzipCompress(contents->data, name, contents->mtime, 1);
    const auto again = packed ? fennel::gzipDecompress(*packed) : contents.failure();
    if (!again || again->data != contents->data || again->name != name)
        std::abort();
    return 0;
}
