// SPDX-License-Identifier: MIT
#include "params/cfg_table.h"

#include "base/text.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const CfgParam* find(QStringView name)
{
    const auto* const found = std::find_if(cfgParams.begin(), cfgParams.end(),
                                           [&](const CfgParam& p) { return p.name == name; });
    return found == cfgParams.end() ? nullptr : found;
}

} // namespace

// An unknown name reads as black, since most parameters are colours.
QString CfgDefault(QStringView name)
{
    const CfgParam* const param = find(name);
    return param ? param->defaultValue.toString() : u"0x000000"_s;
}

QString CfgComment(QStringView name)
{
    const CfgParam* const param = find(name);
    return param ? QString::fromLatin1(param->comment)
                 : u"<== WRONG PARAMETER NAME! \""_s + name.toString() + u'"';
}

// Anywhere in the text, in the order of the table: "#menu_start_x" is known, and a name that holds
// a shorter known one as well.
QString CfgKnownName(QStringView text)
{
    for (const CfgParam& param : cfgParams) {
        if (text.contains(param.name))
            return param.name.toString();
    }
    return {};
}

QString CfgNormalise(QStringView text)
{
    while (!text.isEmpty() && (text[0] == u' ' || text[0] == u'\t'))
        text = text.mid(1);
    // Colours are shown with six digits, everything else as people write numbers.
    return text.startsWith(u"0x", Qt::CaseInsensitive) ? hexText(numberFromText(text))
                                                       : leadingNumberText(text);
}

} // namespace fennel
