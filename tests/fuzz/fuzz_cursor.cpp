// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto frames = fennel::parseCursor(bytes, QStringLiteral("fuzz"));
    if (frames && (frames->empty() || frames->front().image.isNull()))
        __builtin_trap();
    return 0;
}
