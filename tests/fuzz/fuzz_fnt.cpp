// SPDX-License-Identifier: MIT
// Font files: whatever decodes is encoded and decoded again to the same glyphs, and the view of a
// file byte by byte never reads outside of it.
#include "fonts/fnt_bytes.h"
#include "fonts/fnt_codec.h"
#include "fonts/font_inspection.h"

#include <cstdlib>

using namespace fennel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const std::uint8_t> file(data, size);
    if (const Result<FntFont> font = decodeFnt(file); font && !font->glyphs.empty()) {
        const auto again = encodeFnt(*font);
        if (again && decodeFnt(*again)->glyphs != font->glyphs)
            std::abort();
        const FntHeader header = *readFntHeader(file);
        if (font->glyphs.front().pixels.size() < 1024) // larger ones only cost time
            (void)glyphPicture(font->glyphs.front(), header, 2);
    }
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    FontInspection inspection;
    startInspection(inspection, QStringLiteral("16x16.fnt"), bytes);
    if (FontSymbolCount(bytes) < 100)
        listCharacters(inspection, bytes, bytes.size());
    return 0;
}
