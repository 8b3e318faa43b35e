// SPDX-License-Identifier: MIT
// Any bytes as a level file: only cells of that file change, and every value fits 24 bits. The
// first byte chooses the number of the file, valid or not.
#include "params/level_files.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace fennel;
    if (size == 0)
        return 0;
    const int file = data[0] % 20 - 2;
    ZUKarr table;
    readLevelRecords(
        QByteArray(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1)), file,
        table);
    for (int other = 0; other < zukFileCount; ++other) {
        for (int param = 1; param <= zukParamCount; ++param) {
            const int value = table.at(other, param).LevelValue;
            const bool good = other == file ? value >= -1 && value <= 0xFFFFFF : value == -1;
            if (!good)
                std::abort();
        }
    }
    return 0;
}
