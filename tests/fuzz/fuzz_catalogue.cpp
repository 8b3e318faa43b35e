// SPDX-License-Identifier: MIT
// The catalogue parser takes any bytes, and every cell it fills is one that a line could name.
#include "params/catalogue.h"

#include "base/text.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace fennel;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ZUKarr table;
    const int leftOut = parseCatalogue(decodeText(bytes).text, table);
    qsizetype filled = 0;
    for (int file = 0; file < zukFileCount; ++file) {
        for (int param = 1; param <= zukParamCount; ++param)
            filled += table.at(file, param).DefValue.has_value() ? 1 : 0;
    }
    if (filled + leftOut > bytes.count(':'))
        std::abort();
    return 0;
}
