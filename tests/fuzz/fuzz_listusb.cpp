// SPDX-License-Identifier: MIT
// A report on drives of any bytes: no block counts twice, and a disk number is one.
#include "tools/list_usb_report.h"

#include <cstdlib>

using namespace fennel;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const UsbReport all = readUsbReport(text, ' ');
    qsizetype characters = 0;
    for (const UsbBlock& block : all.blocks) {
        characters += block.text.size();
        if (block.disk < 0 || block.disk > 32767)
            std::abort();
    }
    // Each line of the report stands in one block at most, a line feed behind the last of them.
    if (characters > text.size() + 1 || readUsbReport(text, 'E').blocks.size() > all.blocks.size())
        std::abort();
    return 0;
}
