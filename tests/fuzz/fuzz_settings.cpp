// SPDX-License-Identifier: MIT
// Any bytes as a settings file, as a list of installed fonts and as a path on the list of files
// last used. The first line of the input is the key that is asked for.
#include "base/last_used.h"
#include "base/log_header.h"
#include "base/settings_file.h"
#include "base/text.h"
#include "fonts/installed_fonts.h"

#include <cstdlib>

using namespace fennel;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype split = bytes.indexOf('\n');
    const QString key = decodeText(bytes.left(split)).text;
    const QString text = decodeText(bytes.mid(split + 1)).text;

    const QString value = iniValue(text, key);
    for (const char16_t end : {u'\r', u'\n', u'|'})
        require(!value.contains(QChar(end)));
    require(value.isEmpty() || text.contains(value));

    const QString name = firstTrueTypeName(text);
    require(text.contains(name) && !name.contains(QLatin1Char('\n')));
    (void)firstRunFontName(text);
    (void)assignedValue(text, key);

    const QString caption = lastUsedCaption(text);
    require(namePart(caption) == namePart(text));
    return 0;
}
