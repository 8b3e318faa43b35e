// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto picture = fennel::parseCursor(bytes, QStringLiteral("fuzz"));
    if (picture && !picture->image.rect().contains(picture->hotSpot))
        __builtin_trap();
    return 0;
}
