// SPDX-License-Identifier: MIT
// Texts in their fonts, and the menu.
#include "base/words.h"
#include "checks/check_list.h"
#include "container/member_table.h"
#include "fonts/fnt_codec.h"
#include "fonts/scan_fonts.h"
#include "menus/menu_file.h"
#include "params/object_table.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// No screen holds more; what a menu of one endless line is measured by.
constexpr qsizetype longestTitle = 2000;
constexpr qsizetype shownTitle = 60; // in a sentence

// What a font member says of its letters: codes and how far each takes the pen.
std::map<std::uint32_t, int> advancesOf(const CheckInput& input, int object)
{
    const PanelRec* panel = input.state.object(object);
    const int index = panel == nullptr ? 0 : std::clamp<int>(panel->FontIndex, 0, lastMemberNumber);
    const QByteArray* bytes = input.find(fontFileName(firstFontNumber + index));
    if (bytes == nullptr)
        bytes = input.find(mainFontName);
    std::map<std::uint32_t, int> advances;
    if (bytes == nullptr)
        return advances;
    const auto font = decodeFnt({reinterpret_cast<const std::uint8_t*>(bytes->constData()),
                                 static_cast<std::size_t>(bytes->size())});
    for (const Glyph& glyph : font ? font->glyphs : std::vector<Glyph>())
        advances[glyph.code] = glyph.advance;
    return advances;
}

QStringList titlesOf(const CheckInput& input)
{
    if (!input.menu)
        return {};
    const QString entries =
        MenuEntries(*input.menu, input.run.GfxHasZuk, technicalEntries(input.state.ZUKarr));
    return entries.split(u'|', Qt::SkipEmptyParts);
}

void checkText(const CheckInput& input, int object, const QString& member, const QString& text,
               Findings& found)
{
    const auto advances = advancesOf(input, object);
    constexpr qsizetype shown = 20;
    QString missing;
    std::unordered_set<char32_t> seen; // a text may have millions of few letters
    for (const char32_t code : text.toUcs4()) {
        if (code <= U' ' || !seen.insert(code).second || advances.contains(code))
            continue;
        missing += QString::fromUcs4(&code, 1);
        if (missing.size() >= shown)
            break;
    }
    if (missing.isEmpty() || advances.empty())
        return;
    Problem problem;
    problem.object = object;
    problem.member = member;
    problem.sentence = Words::tr("The font lacks letters of %1: %2")
                           .arg(member.isEmpty() ? Words::tr("the menu") : member, missing);
    problem.advice = Words::tr("Make the font with these characters too, or change the text.");
    found.push_back(problem);
}

} // namespace

void checkLetters(const CheckInput& input, Findings& found)
{
    checkText(input, MenuPanelRow, {}, titlesOf(input).join(QString()), found);
    if (!input.run.GfxHasZuk)
        return;
    for (const CheckedMember& member : input.members) {
        const bool line = fitsPattern(member.name, u"RLineDef.txt"_s);
        const bool help = fitsPattern(member.name, u"ZUK_Read.txt"_s);
        if (line || help)
            checkText(input, line ? RunLineRow : HelpPanelRow, member.name,
                      textForScreen(member.data), found);
    }
}

void checkTitleWidths(const CheckInput& input, Findings& found)
{
    const PanelRec* menu = input.state.object(MenuPanelRow);
    if (!input.run.GfxHasZuk || menu == nullptr)
        return;
    const auto advances = advancesOf(input, MenuPanelRow);
    for (const QString& title : titlesOf(input)) {
        int width = 0;
        for (const char32_t code : title.left(longestTitle).toUcs4()) {
            const auto advance = advances.find(code);
            width += advance == advances.end() ? 0 : advance->second;
        }
        if (width <= menu->Width)
            continue;
        Problem problem;
        problem.object = MenuPanelRow;
        problem.sentence = Words::tr("The entry \"%1\" is %2 pixels wide, the menu %3.")
                               .arg(title.left(shownTitle).trimmed())
                               .arg(width)
                               .arg(menu->Width);
        problem.advice = Words::tr("Shorten the title, or widen the menu by s.menu.bar.width.");
        found.push_back(problem);
    }
}

void checkNoEntries(const CheckInput& input, Findings& found)
{
    if (!input.menu || !titlesOf(input).isEmpty())
        return;
    Problem problem;
    problem.object = MenuPanelRow;
    problem.sentence = Words::tr("The menu shows no entry at all.");
    problem.advice = Words::tr("Add titles, or lower s.menu.zuk.entries.");
    found.push_back(problem);
}

// A title that carries parameters for the engine, of a level file that is not there or with a
// number that no parameter has.
void checkDataTitles(const CheckInput& input, Findings& found)
{
    if (!input.menu || !input.run.GfxHasZuk)
        return;
    const MenuLines menu(*input.menu);
    for (const QStringView line : menu.lines()) {
        const std::optional<QStringView> title = titleText(line);
        if (!title || !isDataTitle(*title))
            continue;
        bool good = false;
        const int file = title->mid(4, 4).toInt(&good);
        if (good && file >= 0 && file < zukFileCount)
            continue;
        Problem problem;
        problem.sentence =
            Words::tr("The title \"%1\" names a level file that cannot be.").arg(title->left(40));
        problem.advice = Words::tr("Level files go from zuk0000 to zuk0015.");
        found.push_back(problem);
    }
}

} // namespace fennel
