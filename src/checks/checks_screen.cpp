// SPDX-License-Identifier: MIT
// Where the objects stand and what of them can be seen.
#include "base/files.h"
#include "base/text.h"
#include "base/words.h"
#include "checks/check_list.h"
#include "container/engine_info.h"
#include "container/member_table.h"
#include "document/place_change.h"
#include "params/cfg_look.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <QImage>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr double leastContrast = 3.0; // for large text, by WCAG

// The fixed screens of older files have objects whose places the file does not say.
bool placesObjects(const CheckInput& input)
{
    return input.run.gfxboot_var == 3;
}

bool isOn(const CheckInput& input, const PanelRec& panel)
{
    return panel.Enabled && (panel.OnParam <= 0 || switchValue(input.state, panel) > 0);
}

QRect rectOf(const PanelRec& panel)
{
    return {panel.Left, panel.Top, std::max<int>(panel.Width, 1), std::max<int>(panel.Height, 1)};
}

template <class Visit>
void eachPlaced(const CheckInput& input, const Visit& visit)
{
    for (int row = 0; placesObjects(input) && row < static_cast<int>(input.state.PanelArr.size());
         ++row) {
        const PanelRec& panel = *input.state.object(row);
        if (isOn(input, panel) && panel.LeftParam > 0 && panel.TopParam > 0)
            visit(row, panel);
    }
}

Problem about(int row, const PanelRec& panel, const QString& sentence, const QString& advice,
              int param = 0)
{
    Problem problem = aboutObject(row, sentence.arg(objectCaption(panel.Name)), advice);
    if (param > 0)
        problem.param = {levelFileOf(panel), param};
    return problem;
}

QRect screenOf(const CheckInput& input)
{
    return {0, 0, input.run.BackWidth, input.run.BackHeight};
}

// What of the object has to lie on the screen.
QRect seenPart(int row, const PanelRec& panel)
{
    const QRect rect = rectOf(panel);
    // The menu's height is that of its entries.
    return row == MenuPanelRow ? QRect(rect.topLeft(), QSize(rect.width(), 1)) : rect;
}

// None for what is larger than the screen, or whose place no list shows.
std::optional<Mend> movedIn(const CheckInput& input, int row, const PanelRec& panel)
{
    const QRect screen = screenOf(input);
    const QRect part = seenPart(row, panel);
    if (part.width() > screen.width() || part.height() > screen.height())
        return std::nullopt;
    PanelRec wanted = panel;
    wanted.Left = static_cast<qint16>(std::clamp(part.x(), 0, screen.width() - part.width()));
    wanted.Top = static_cast<qint16>(std::clamp(part.y(), 0, screen.height() - part.height()));
    Mend mend{Words::tr("Move it onto the screen"), {}, {}, {}, {}};
    addRecord(input.state, row, wanted, mend.change);
    mend.change.objects.clear(); // they follow from the values
    return mend.change.params.empty() ? std::nullopt : std::optional(mend);
}

double linear(int part)
{
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(QRgb colour)
{
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb a, QRgb b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

// The mean of the picture below the object, mixed with its fill as the engine does it.
QRgb groundOf(const QImage& background, const PanelRec& panel)
{
    const QRect part = rectOf(panel) & background.rect();
    if (part.isEmpty())
        return panel.BackColor;
    const QRgb mean = background.copy(part)
                          .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                          .pixel(0, 0);
    const int t = std::clamp<int>(panel.Transp, 0, 255);
    const auto mix = [t](int below, int fill) { return (below * t + fill * (255 - t)) / 255; };
    return qRgb(mix(qRed(mean), qRed(panel.BackColor)), mix(qGreen(mean), qGreen(panel.BackColor)),
                mix(qBlue(mean), qBlue(panel.BackColor)));
}

qint64 number(const CheckInput& input, int file, int param)
{
    return input.state.ZUKarr.GetLevelValue(file, param, LayerEdit).value_or(-1);
}

// A member that a number chooses: "glass_02.jpg" for 2.
void needMember(const CheckInput& input, int row, const QString& pattern, Findings& found)
{
    const PanelRec& panel = *input.state.object(row);
    const qint64 chosen = number(input, levelFileOf(panel), 99);
    const QString name = pattern.arg(QString::number(100 + chosen).right(2));
    if (isOn(input, panel) && chosen >= 0 && input.find(name) == nullptr) {
        Problem problem = about(
            row, panel, Words::tr("%1 is on, but its member %2 is missing."),
            Words::tr("Add the member, choose another number, or switch the object off."), 99);
        problem.mend = switchedOff(input, panel);
        problem.sentence = problem.sentence.arg(name);
        problem.member = name;
        found.push_back(problem);
    }
}

// Lines of the menu: those that are asked for by the parameter `name`, and those that the screen
// holds.
struct EntryRoom {
    QString name;
    qint64 asked = 0;
    qint64 held = 0;
};

EntryRoom levelEntryRoom(const CheckInput& input, const PanelRec& menu)
{
    const auto font = static_cast<std::size_t>(
        std::clamp<int>(menu.FontIndex, 0, static_cast<int>(input.fonts.size()) - 1));
    const double line = 3 + menuSlit(input.state) + input.fonts[font].Size;
    const int below = std::max(0, input.run.BackHeight - menu.Top);
    return {u"s.menu.max.entries"_s, number(input, 0, menuEntriesParam),
            static_cast<qint64>(below / std::max(line, 1.0))};
}

// The last line has to hold a bar; no gap follows it.
std::optional<EntryRoom> cfgEntryRoom(const CheckInput& input)
{
    const BootLayout& layout = input.drawn().layout;
    const auto& objects = layout.list.objects;
    const auto bar = std::ranges::find(objects, MenuBarRow, &BootObject::row);
    if (bar == objects.end())
        return std::nullopt;
    const int below = layout.list.screen.height() - bar->rect.top() - bar->rect.height();
    return EntryRoom{cfgDialectOf(input.state.cfg).entries.toString(),
                     flatLook(input.state.cfg).entries,
                     below < 0 ? 0 : below / layout.menuPitch + 1};
}

// None where no list shows how many entries there are, or the engine's rules are not known.
std::optional<EntryRoom> entryRoom(const CheckInput& input, const PanelRec& menu)
{
    const QByteArray* engine = input.find(u"init"_s);
    std::optional<EntryRoom> room;
    if (placesObjects(input) && !input.fonts.empty())
        room = levelEntryRoom(input, menu);
    else if (engine != nullptr && engineOf(*engine).kind == BootEngine::FlatCfg)
        room = cfgEntryRoom(input);
    // Nobody misses the lines that a menu does not fill.
    if (room && input.menu)
        room->asked = std::min<qint64>(room->asked, input.drawn().layout.entries);
    return room;
}

} // namespace

std::optional<Mend> switchedOff(const CheckInput& input, const PanelRec& panel)
{
    const ParamKey key{levelFileOf(panel), panel.OnParam};
    if (panel.OnParam <= 0 || !input.state.ZUKarr.at(key.file, key.number).Value)
        return std::nullopt;
    Mend mend{Words::tr("Switch it off"), {}, {}, {}, {}};
    mend.change.params[key] = ParamValue{};
    return mend;
}

void checkOutside(const CheckInput& input, Findings& found)
{
    eachPlaced(input, [&](int row, const PanelRec& panel) {
        if (screenOf(input).intersects(rectOf(panel)))
            return;
        Problem problem =
            about(row, panel, Words::tr("%1 lies outside the screen."),
                  Words::tr("Move it onto the screen, or switch it off."), panel.LeftParam);
        problem.mend = movedIn(input, row, panel);
        found.push_back(problem);
    });
}

void checkCut(const CheckInput& input, Findings& found)
{
    eachPlaced(input, [&](int row, const PanelRec& panel) {
        const QRect screen = screenOf(input);
        if (!screen.intersects(rectOf(panel)) || screen.contains(seenPart(row, panel)))
            return;
        Problem problem = about(row, panel, Words::tr("%1 reaches over the edge of the screen."),
                                Words::tr("Move it, or make it smaller."), panel.LeftParam);
        problem.mend = movedIn(input, row, panel);
        found.push_back(problem);
    });
}

void checkSamePlace(const CheckInput& input, Findings& found)
{
    std::vector<int> rows;
    eachPlaced(input, [&](int row, const PanelRec& panel) {
        if (!panel.OnlySelected && row != MenuBarRow)
            rows.push_back(row);
    });
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = i + 1; j < rows.size(); ++j) {
            const PanelRec& a = *input.state.object(rows[i]);
            const PanelRec& b = *input.state.object(rows[j]);
            if (a.Left != b.Left || a.Top != b.Top)
                continue;
            Problem problem = about(rows[j], b, Words::tr("%1 stands at the place of %2."),
                                    Words::tr("Move one of them."), b.LeftParam);
            problem.sentence = problem.sentence.arg(objectCaption(a.Name));
            found.push_back(problem);
        }
    }
}

void checkEntriesFit(const CheckInput& input, Findings& found)
{
    const PanelRec* menu = input.state.object(MenuPanelRow);
    const std::optional<EntryRoom> room = menu == nullptr ? std::nullopt : entryRoom(input, *menu);
    if (!room || room->asked <= room->held)
        return;
    const bool levels = placesObjects(input);
    if (levels && room->held < 1) // it lies outside, and that is told
        return;
    Problem problem = about(MenuPanelRow, *menu,
                            Words::tr("%1 asks for %2 entries, and the screen holds %3 there."),
                            Words::tr("Lower %1, or move the menu up.").arg(room->name));
    problem.sentence = problem.sentence.arg(room->asked).arg(room->held);
    problem.parameter = room->name;
    if (levels)
        problem.param = {levelFileOf(*menu), menuEntriesParam};
    Mend mend{Words::tr("Show %1 entries").arg(room->held), {}, {}, {}, {}};
    if (room->held > 0)
        addMenuEntries(input.state, levels, static_cast<int>(room->held), mend.change);
    if (!mend.change.params.empty() || mend.change.cfg)
        problem.mend = std::move(mend);
    found.push_back(problem);
}

void checkContrast(const CheckInput& input, Findings& found)
{
    DrawnScreen& screen = input.drawn();
    const QImage background = screen.members.picture(screen.layout.list.background);
    eachPlaced(input, [&](int row, const PanelRec& panel) {
        const bool worded = panel.TextParam > 0 && panel.BackParam > 0;
        if (!worded || contrast(panel.TextColor, groundOf(background, panel)) >= leastContrast)
            return;
        found.push_back(
            about(row, panel, Words::tr("The text of %1 is hard to read on its ground."),
                  Words::tr("Make one of the two lighter or darker."), panel.TextParam));
    });
}

void checkComponents(const CheckInput& input, Findings& found)
{
    if (!placesObjects(input) || input.state.object(AnimationRow) == nullptr)
        return;
    needMember(input, GlassesRow, u"glass_%1.jpg"_s, found);
    needMember(input, AnimationRow, u"ani_%1.jpg"_s, found);
    needMember(input, AnimationRow, u"ani_%1_msk.jpg"_s, found);
    // The logo has no switch: without a picture there is none, and that is meant.
    const PanelRec& line = *input.state.object(RunLineRow);
    const bool there = std::ranges::any_of(input.members, [&](const CheckedMember& member) {
        return fitsPattern(member.name, line.Component);
    });
    if (!isOn(input, line) || there)
        return;
    Problem problem = about(RunLineRow, line, Words::tr("%1 is on, but no member is there for it."),
                            Words::tr("Add the member ") + line.Component + u'.', line.OnParam);
    problem.mend = switchedOff(input, line);
    found.push_back(problem);
}

} // namespace fennel
