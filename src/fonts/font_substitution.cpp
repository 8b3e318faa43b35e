// SPDX-License-Identifier: MIT
#include "fonts/font_substitution.h"

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

struct StandIns {
    const char16_t* family;
    const char16_t* nearest; // best first, "|" between them
};

// Liberation, Carlito and Caladea were drawn to the widths of the families before them; DejaVu
// shares its proportions with Verdana, and its condensed cut with Tahoma; URW's families are those
// of the PostScript printers.
constexpr std::array standIns{
    StandIns{u"Arial", u"Liberation Sans|Arimo|Nimbus Sans|FreeSans"},
    StandIns{u"Arial Unicode MS", u"Arial|Liberation Sans|DejaVu Sans"},
    StandIns{u"Helvetica", u"Nimbus Sans|Liberation Sans|Arimo"},
    StandIns{u"Arial Narrow", u"Liberation Sans Narrow|Nimbus Sans Narrow"},
    StandIns{u"Microsoft Sans Serif", u"Liberation Sans|Arimo|Nimbus Sans"},
    StandIns{u"MS Sans Serif", u"Liberation Sans|Arimo|Nimbus Sans"},
    StandIns{u"Tahoma", u"Wine Tahoma|DejaVu Sans Condensed|Verdana|DejaVu Sans"},
    StandIns{u"Verdana", u"DejaVu Sans|Bitstream Vera Sans"},
    StandIns{u"Segoe UI", u"Selawik|Noto Sans|Open Sans|DejaVu Sans"},
    StandIns{u"Trebuchet MS", u"Fira Sans|DejaVu Sans Condensed|DejaVu Sans"},
    StandIns{u"Calibri", u"Carlito|Liberation Sans"},
    StandIns{u"Times New Roman", u"Liberation Serif|Tinos|Nimbus Roman|FreeSerif"},
    StandIns{u"Times", u"Nimbus Roman|Liberation Serif|Tinos"},
    StandIns{u"Cambria", u"Caladea|Liberation Serif"},
    StandIns{u"Georgia", u"Gelasio|DejaVu Serif"},
    StandIns{u"Palatino Linotype", u"P052|TeX Gyre Pagella"},
    StandIns{u"Book Antiqua", u"P052|TeX Gyre Pagella"},
    StandIns{u"Century Schoolbook", u"C059|TeX Gyre Schola"},
    StandIns{u"Bookman Old Style", u"URW Bookman|TeX Gyre Bonum"},
    StandIns{u"Century Gothic", u"URW Gothic|TeX Gyre Adventor"},
    StandIns{u"Courier New", u"Liberation Mono|Cousine|Nimbus Mono PS|FreeMono"},
    StandIns{u"Courier", u"Nimbus Mono PS|Liberation Mono|Cousine"},
    StandIns{u"Lucida Console", u"DejaVu Sans Mono|Liberation Mono"},
    StandIns{u"Consolas", u"Inconsolata|DejaVu Sans Mono|Liberation Mono"},
};

// Family names are written in various ways by the systems they come from.
bool same(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// The family as the system writes it; empty if it is not installed.
QString installed(QStringView family, const QStringList& families)
{
    const auto found =
        std::ranges::find_if(families, [&](const QString& one) { return same(one, family); });
    return found == families.end() ? QString() : *found;
}

// What faces are called beside bold and italic.
bool isStyle(const QString& words)
{
    static const QStringList known = u"oblique|roman|thin|extralight|ultralight|light|semilight|"
                                     "demilight|book|medium|demi|semi|extra|demibold|semibold|"
                                     "extrabold|black|heavy|condensed|semicondensed|narrow|"
                                     "extended|expanded"_s.split(u'|');
    return std::ranges::all_of(words.toLower().split(u' ', Qt::SkipEmptyParts),
                               [&](const QString& word) { return known.contains(word); });
}

// The longest installed family that begins the name, the rest being words of style.
ShownFamily styledFamily(const QString& wanted, const QStringList& families)
{
    ShownFamily shown;
    for (const QString& family : families) {
        const QString rest = wanted.mid(family.size());
        if (family.size() > shown.family.size() && rest.startsWith(u' ') &&
            same(QStringView(wanted).left(family.size()), family) && isStyle(rest))
            shown = {family, {}, rest.trimmed()};
    }
    return shown;
}

} // namespace

void setFace(QFont& font, const ShownFamily& face, bool bold, bool italic)
{
    if (!face.family.isEmpty())
        font.setFamily(face.family);
    font.setBold(bold);
    font.setItalic(italic);
    // A name of a style goes over both, so it says all of them.
    font.setStyleName(face.style.isEmpty() ? QString()
                                           : (bold ? u"Bold "_s : QString()) + face.style +
                                                 (italic ? u" Italic"_s : QString()));
    if (face.style.contains(u"oblique", Qt::CaseInsensitive))
        font.setStyle(QFont::StyleOblique);
}

ShownFamily shownFamily(const QString& wanted, const QStringList& families)
{
    const QString own = installed(wanted, families);
    // No name asks for the system's font, which needs no note.
    if (wanted.isEmpty() || !own.isEmpty())
        return {own, {}, {}};
    const auto row = std::ranges::find_if(
        standIns, [&](const StandIns& one) { return same(one.family, wanted); });
    const QStringList nearest =
        row == standIns.end() ? QStringList() : QString::fromUtf16(row->nearest).split(u'|');
    for (const QString& family : nearest) {
        const QString shown = installed(family, families);
        if (!shown.isEmpty())
            return {shown, wanted + u" is not installed; shown with "_s + shown + u'.', {}};
    }
    if (ShownFamily styled = styledFamily(wanted, families); !styled.family.isEmpty())
        return styled;
    // The name stays, so that the system's own substitution gets its chance.
    return {wanted, wanted + u" is not installed; shown with the system's font."_s, {}};
}

} // namespace fennel
