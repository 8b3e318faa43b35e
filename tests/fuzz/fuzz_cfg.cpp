// SPDX-License-Identifier: MIT
// gfxboot.cfg from any bytes: what is read can be written, and what was written has the same number
// of lines when it is read again. The input serves as engine too.
#include "params/cfg_file.h"

#include "base/text.h"

#include <cstdlib>

using namespace fennel;

static qsizetype linesOf(const ListRows& list)
{
    qsizetype lines = 0;
    for (const ListRow& row : list.rows)
        lines += row.text() == QStringLiteral("# Additional list ->") ? 0 : 1;
    return lines;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const TextFile file = decodeText(bytes);
    ListRows list;
    if (!cfgRowsFrom(file.text, bytes, list))
        return 0;
    const QByteArray written = encodeText(cfgTextFrom(list), file.TextIsUtf8);
    ListRows again;
    if (!cfgRowsFrom(decodeText(written).text, {}, again) || linesOf(again) != linesOf(list))
        std::abort();
    return 0;
}
