// SPDX-License-Identifier: MIT
// gfxboot.cfg from any bytes: what is read can be written, and what was written has the same number
// of lines when it is read again; what nobody edited keeps its bytes. The input serves as engine
// too.
#include "params/cfg_keep.h"

#include "base/text.h"

#include <algorithm>
#include <cstdlib>

using namespace fennel;

static auto count(const CfgLines& lines)
{
    return lines.size() - std::ranges::count(lines, CfgKindOfLine::Separator, &CfgLine::kind);
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const TextFile file = decodeText(bytes);
    const Result<CfgLines> lines = cfgLinesFrom(file.text, bytes);
    if (!lines)
        return 0;
    if (keptCfg(bytes, *lines) != bytes)
        std::abort();
    const QByteArray written = encodeText(cfgTextFrom(*lines), file.TextIsUtf8);
    const Result<CfgLines> again = cfgLinesFrom(decodeText(written).text, {});
    if (!again || count(*again) != count(*lines))
        std::abort();
    return 0;
}
