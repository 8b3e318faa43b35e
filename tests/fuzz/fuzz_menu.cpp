// SPDX-License-Identifier: MIT
// A menu file of any bytes. The counts fit together, what a plain boot screen shows has a "|" for
// each title, and the overlay stays within the table (which the sanitizer watches).
#include "base/text.h"
#include "menus/menu_file.h"
#include "menus/menu_overlay.h"

#include <QStringList>

#include <cstdlib>

using namespace fennel;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QString text =
        decodeText(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)))
            .text;
    const QStringList counts = MenuCounts(text).split(QLatin1Char('/'));
    const qsizetype titles = counts.value(0).toLongLong();
    if (counts.size() != 3 || counts[1].toLongLong() + counts[2].toLongLong() > titles)
        std::abort();
    if (MenuEntries(text, false, 0).count(QLatin1Char('|')) != titles)
        std::abort();
    for (const qint64 technical : {0, 1, 15})
        (void)MenuEntries(text, true, technical);
    (void)MenuPrimary(text);
    ZUKarr table;
    for (int level = 0; level < zukFileCount; ++level)
        table.at(level, 1).DefValue = 0;
    MenuOverlay(text, true, table);
    return 0;
}
