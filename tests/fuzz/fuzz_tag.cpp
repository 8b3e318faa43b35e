// SPDX-License-Identifier: MIT
// The tag behind the glyphs of a font file: any bytes give rows and a record, none ends the
// program.
#include "fonts/font_dialog.h"
#include "fonts/font_tag.h"

#include <cmath>
#include <cstdlib>

using namespace fennel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const FoundTag found = findTag(bytes);
    if (found.found != bytes.contains("TAG"))
        std::abort();
    FontRecord record;
    applyTag(found.tag, record);
    if (!std::isfinite(record.Size) || record.FontName.contains(QChar(u'\0')))
        std::abort();
    FontChoice choice;
    choice.family = QString::fromUtf8(bytes);
    if (findTag(fontTagText(choice).toUtf8()).tag.items.size() != 5)
        std::abort();
    return 0;
}
