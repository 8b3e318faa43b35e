// SPDX-License-Identifier: MIT
// Texts in their fonts, and the menu.
#include "base/words.h"
#include "checks/check_list.h"
#include "container/member_table.h"
#include "fonts/fnt_codec.h"
#include "fonts/scan_fonts.h"
#include "menus/menu_file.h"
#include "params/object_table.h"
#include "screen/own_layout.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// No screen holds more; what a menu of one endless line is measured by.
constexpr qsizetype longestTitle = 2000;
constexpr qsizetype shownTitle = 60; // in a sentence
const QString helpMember = u"ZUK_Read.txt"_s;

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

// The first part behind the bracket of a data title that sets nothing.
QString wrongItem(QStringView items)
{
    const QString list = items.toString().replace(u" :"_s, u"|"_s);
    for (const QStringView item : QStringView(list).trimmed().mid(1).split(u'|')) {
        bool good = false;
        const int number = item.left(item.indexOf(u'=')).trimmed().toInt(&good);
        if (!good || number < 1 || number > zukParamCount || !item.contains(u'='))
            return item.toString();
    }
    return {};
}

// What stands behind "\n" in a title is shown on a line of its own, which wraps nothing.
void checkNotes(const CheckInput& input, Findings& found)
{
    constexpr int noteRow = 7;
    const QString mark = u"\\n"_s;
    const PanelRec* line = input.state.object(noteRow);
    for (const QString& title : input.menu ? menuTitles(*input.menu) : QStringList()) {
        const qsizetype at = title.indexOf(mark);
        const QString note = at < 0 ? QString() : title.mid(at + mark.size()).left(longestTitle);
        const int width = input.drawn().members.font(line->FontIndex).width(note);
        if (width <= line->Width)
            continue;
        found.push_back(aboutObject(noteRow,
                                    Words::tr("The note \"%1\" is %2 pixels wide, its line %3.")
                                        .arg(note.left(shownTitle).trimmed())
                                        .arg(width)
                                        .arg(line->Width),
                                    Words::tr("Shorten the note, or widen the information line.")));
    }
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
    Problem problem =
        aboutObject(object,
                    Words::tr("The font lacks letters of %1: %2")
                        .arg(member.isEmpty() ? Words::tr("the menu") : member, missing),
                    Words::tr("Make the font with these characters too, or change the text."));
    problem.member = member;
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
        const bool help = fitsPattern(member.name, helpMember);
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
        found.push_back(
            aboutObject(MenuPanelRow,
                        Words::tr("The entry \"%1\" is %2 pixels wide, the menu %3.")
                            .arg(title.left(shownTitle).trimmed())
                            .arg(width)
                            .arg(menu->Width),
                        Words::tr("Shorten the title, or widen the menu by s.menu.bar.width.")));
    }
}

void checkNoEntries(const CheckInput& input, Findings& found)
{
    if (!input.menu || !titlesOf(input).isEmpty())
        return;
    found.push_back(aboutObject(MenuPanelRow, Words::tr("The menu shows no entry at all."),
                                Words::tr("Add titles, or lower s.menu.zuk.entries.")));
}

// A title that carries parameters for the engine, of a level file or with a number that cannot be.
void checkDataTitles(const CheckInput& input, Findings& found)
{
    if (!input.menu || !input.run.GfxHasZuk)
        return;
    for (const QString& line : menuTitles(*input.menu)) {
        const QStringView title = QStringView(line).trimmed();
        if (!isDataTitle(title))
            continue;
        bool good = false;
        const int file = title.mid(4, 4).toInt(&good);
        Problem problem;
        if (!good || file < 0 || file >= zukFileCount) {
            problem.sentence = Words::tr("The title \"%1\" names a level file that cannot be.")
                                   .arg(title.left(shownTitle));
            problem.advice = Words::tr("Level files go from zuk0000 to zuk0015.");
        } else if (const QString item = wrongItem(title.mid(9)); !item.isEmpty()) {
            problem.sentence = Words::tr("\"%1\" of the title \"%2\" sets no parameter.")
                                   .arg(item.left(shownTitle), title.left(shownTitle));
            problem.advice = Words::tr("Write \" :NUMBER=VALUE\" with a number from 1 to 99.");
        } else {
            continue;
        }
        found.push_back(problem);
    }
}

// What a menu hides at its end is told where it would be seen otherwise.
void checkTechnical(const CheckInput& input, Findings& found)
{
    if (!input.menu || !input.run.GfxHasZuk)
        return;
    QStringList titles = menuTitles(*input.menu);
    const qint64 technical = technicalEntries(input.state.ZUKarr);
    if (technical >= titles.size()) {
        // Too few titles for any to be technical: those that carry values show as empty entries.
        if (std::ranges::none_of(titles, [](const QString& title) {
                return isDataTitle(QStringView(title).trimmed());
            }))
            return;
        found.push_back(aboutObject(
            MenuPanelRow,
            Words::tr("The menu has %1 titles and lacks the %2 technical ones at its end: all its "
                      "titles are shown, those with values too.")
                .arg(titles.size())
                .arg(technical),
            Words::tr("Add the technical titles, or lower s.menu.zuk.entries.")));
        return;
    }
    titles = titles.mid(titles.size() - technical);
    const auto entry = std::ranges::find_if(titles, [](const QString& title) {
        return !title.trimmed().isEmpty() && !title.trimmed().startsWith(u'[');
    });
    if (entry == titles.end())
        return;
    found.push_back(
        aboutObject(MenuPanelRow,
                    Words::tr("The last %1 titles count as technical and are not shown: \"%2\" "
                              "is one of them.")
                        .arg(technical)
                        .arg(entry->trimmed().left(shownTitle)),
                    Words::tr("Add the technical titles, or lower s.menu.zuk.entries.")));
}

// Help that is longer or wider than its panel, notes that are longer than their line.
void checkTextRoom(const CheckInput& input, Findings& found)
{
    if (input.run.gfxboot_var != 3 || input.state.object(HelpPanelRow) == nullptr)
        return;
    checkNotes(input, found);
    constexpr int mostLines = 400; // the engine shows no more
    DrawnScreen& drawn = input.drawn();
    drawn.request.panel = BootPanel::Help;
    const BootList list = layOutOwn(drawn.request, drawn.members).list;
    drawn.request.panel = BootPanel::None;
    const auto help = std::ranges::find(list.objects, int{HelpPanelRow}, &BootObject::row);
    const QString text = drawn.members.text(helpMember);
    if (help == list.objects.end() || text.isEmpty())
        return;
    const BootFont& font = drawn.members.font(input.state.object(HelpPanelRow)->FontIndex);
    const QStringList lines = bootLines(text, font, help->rect.width(), mostLines);
    const int rows = std::max(1, ownLinesFit(font, help->rect.height(), 0));
    const auto wide = std::ranges::find_if(
        lines, [&](const QString& line) { return font.width(line) > help->rect.width(); });
    Problem problem;
    problem.object = HelpPanelRow;
    problem.member = helpMember;
    problem.advice = Words::tr("Shorten the text, or give it a smaller font.");
    if (lines.size() > rows)
        problem.sentence =
            Words::tr("The help has %1 lines and its panel holds %2.").arg(lines.size()).arg(rows);
    else if (wide != lines.end())
        problem.sentence = Words::tr("\"%1\" of the help is wider than its panel.")
                               .arg(wide->trimmed().left(shownTitle));
    else
        return;
    found.push_back(problem);
}

} // namespace fennel
