// SPDX-License-Identifier: MIT
#include "params/panel_values.h"

#include "base/shell_context.h"
#include "base/text.h"
#include "params/level_files.h"
#include "params/object_table.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>

namespace fennel {

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb black = 0xff000000;
constexpr QRgb grey = 0xff808080;
// What the engines of generations 1 and 2 have built in, in boot-screen pixels.
constexpr int menuLeft = 253;
constexpr int menuTop = 170;
constexpr int menuEntries = 8;
constexpr int buttonsHeight = 45;

// The value of a source field: a parameter's, or a constant.
using ParamSource = std::function<qint64(int)>;

qint64 fromSource(int source, const ParamSource& param)
{
    // 0 is neither: it gives the constant 0.
    return source > 0 ? param(source) : std::abs(source);
}

// Values are cut to 16 bits: any number may stand in a file, and sums of places must not overflow.
void recalcPanel(PanelRec& panel, const ParamSource& param)
{
    panel.Width = clampToI16(fromSource(panel.WidthParam, param));
    panel.Left = clampToI16(fromSource(panel.LeftParam, param));
    panel.Height = clampToI16(fromSource(panel.HeightParam, param));
    panel.Top = clampToI16(fromSource(panel.TopParam, param));
    panel.BackColor = opaque(fromSource(panel.BackParam, param));
    panel.TextColor = opaque(fromSource(panel.TextParam, param));
    panel.Transp = clampToI16(fromSource(panel.TranspParam, param));
    panel.FontIndex = clampToI16(fromSource(panel.FontParam, param));
}

// The four values of a spark are two points, A in left and top, B in width and height. The mix of
// axes is how every earlier version shows sparks, and people have placed theirs by it.
void pointsToRectangle(PanelRec& panel)
{
    const int t = panel.Top;
    const int l = panel.Left;
    const int w = panel.Width;
    const int h = panel.Height;
    panel.Top = clampToI16(std::min(w, t));
    panel.Left = clampToI16(std::min(w, l));
    panel.Width = clampToI16(std::abs(t - w));
    panel.Height = clampToI16(std::abs(l - h));
}

struct Look {
    int transp;
    QRgb text;
    QRgb back;
};

void place(PanelRec& panel, int left, int top, int width, int height, const Look& look)
{
    panel.Left = clampToI16(left);
    panel.Top = clampToI16(top);
    panel.Width = clampToI16(width);
    panel.Height = clampToI16(height);
    panel.Transp = clampToI16(look.transp);
    panel.TextColor = look.text;
    panel.BackColor = look.back;
}

// Height of a line of the menu in generations 1 and 2, in boot-screen pixels.
double lineHeight(const ParamState& state, const FontTable& fonts)
{
    const double size = fonts.empty() ? 0.0 : fonts.front().Size;
    return size + 3 + menuSlit(state);
}

constexpr int slitParam = 40;

// The heights of all menus but this one are constants or lengths of their own.
void fitToEntries(const FontTable& fonts, PanelRec& menu, const ParamSource& param)
{
    const qint64 entries = param(menuEntriesParam);
    if (entries <= 0 || fonts.empty())
        return;
    const auto font = static_cast<std::size_t>(std::max<int>(menu.FontIndex, 0));
    const bool there = font < fonts.size() && !fonts[font].FontName.isEmpty();
    const double size = fonts[there ? font : 0].Size;
    menu.Height = menuHeightOf(
        entries, size + 3 + static_cast<double>(std::max<qint64>(param(slitParam), 0)));
}

// Ties to even, like all places on the stage.
qint16 menuHeight(double line, qint64 entries)
{
    return clampToI16(roundToEven(static_cast<double>(entries) * line + 3));
}

// What generations 1 and 2 place alike, in boot-screen pixels; the heights that a font sets stay.
void placeFixed(const RunState& run, ParamState& state)
{
    place(*state.object(MenuPanelRow), menuLeft, menuTop, run.BackWidth - menuLeft, 0,
          {255, white, grey});
    place(*state.object(MenuBarRow), menuLeft, menuTop, run.BackWidth - menuLeft, 0,
          {70, black, white});
    place(*state.object(ButtonsPanelRow), 0, run.BackHeight - buttonsHeight, run.BackWidth,
          buttonsHeight, {255, white, grey});
    place(*state.object(OptionsPanelRow), 263, 480, run.BackWidth - 263, 0, {255, white, grey});
    state.object(ButtonsPanelRow)->Text =
        QStringLiteral("F1|Help|F2|Language|English (UK)|F9|Reboot|F10|Poweroff");
    state.object(OptionsPanelRow)->Text = QStringLiteral("OptionsPanel");
}

// Beside the number of entries, which the height depends on as on the font.
std::array<QStringView, 5> stageKeys(const CfgDialect& names)
{
    return {names.left, names.top, names.normal, names.selected, names.bar};
}

} // namespace

void applyGeneration(const Shell& shell, ParamState& state, const FontTable& fonts)
{
    const int generation = shell.run.gfxboot_var;
    if (generation == 3) {
        RecalcPanelsFromLevels(shell, state, fonts, LayerCfg);
        return;
    }
    shell.WriteLog(QStringLiteral("     gfxboot_var=%1").arg(generation));
    if (!state.object(OptionsPanelRow))
        return; // nothing is open
    placeFixed(shell.run, state);
    fitMenuToFont(shell.run, state, fonts);
    for (const QStringView key : stageKeys(cfgDialectOf(state.cfg)))
        CfgApply(shell.run, state, fonts, key);
}

qint16 menuHeightOf(qint64 entries, double pitch)
{
    return clampToI16(roundToEven(static_cast<double>(entries) * pitch));
}

void fitMenuToFont(const RunState& run, ParamState& state, const FontTable& fonts)
{
    if (!state.object(OptionsPanelRow))
        return;
    if (run.gfxboot_var > 2) {
        state.object(MenuPanelRow)->Height = panelFromValues(state, fonts, MenuPanelRow).Height;
        return;
    }
    const double line = lineHeight(state, fonts);
    state.object(MenuPanelRow)->Height = menuHeight(line, menuEntries);
    for (const int row : {MenuBarRow, OptionsPanelRow})
        state.object(row)->Height = menuHeight(line, 1);
    CfgApply(run, state, fonts, cfgDialectOf(state.cfg).entries);
}

void CfgApply(const RunState& run, ParamState& state, const FontTable& fonts, QStringView name)
{
    PanelRec* menu = state.object(MenuPanelRow);
    PanelRec* bar = state.object(MenuBarRow);
    if (run.gfxboot_var != 2 || !bar)
        return;
    const CfgDialect& names = cfgDialectOf(state.cfg);
    const qint64 value = numberFromText(CfgValue(state.cfg, name));
    if (name == names.bar)
        bar->BackColor = opaque(value);
    else if (name == names.normal)
        menu->TextColor = opaque(value);
    else if (name == names.selected)
        bar->TextColor = opaque(value);
    else if (name == names.entries)
        menu->Height = menuHeight(lineHeight(state, fonts), value);
    else if (name == names.top)
        menu->Top = bar->Top = clampToI16(value);
    else if (name == names.left) {
        menu->Left = bar->Left = clampToI16(value);
        // Up to the right edge of the background, as the engine draws it.
        menu->Width = bar->Width = clampToI16(run.BackWidth - value);
    }
}

void RecalcPanelsFromLevels(const Shell& shell, ParamState& state, const FontTable& fonts,
                            Layer layer)
{
    shell.WriteLog(QStringLiteral("     gfxboot_var=3"));
    for (int row = 0; row < static_cast<int>(state.PanelArr.size()); ++row) {
        PanelRec& panel = *state.object(row);
        const int file = levelFileOf(panel);
        const ParamSource param = [&](int source) {
            // A parameter that is missing is told by GetLevelValue() and counts as -1.
            return GetLevelValue(shell, state.ZUKarr, file, source, layer).value_or(-1);
        };
        recalcPanel(panel, param);
        if (row == MenuPanelRow)
            fitToEntries(fonts, panel, param);
        if (isSparkle(row))
            pointsToRectangle(panel);
    }
}

PanelRec panelFromValues(const ParamState& state, const FontTable& fonts, int object)
{
    PanelRec panel = *state.object(object);
    if (!panel.Enabled)
        return panel;
    const ParamSource param = [&](int source) { return GetPanelParam(state, object, source); };
    recalcPanel(panel, param);
    panel.On = clampToI16(fromSource(panel.OnParam, param));
    if (isSparkle(object))
        pointsToRectangle(panel);
    const int font = panel.FontIndex;
    const bool there = font >= 0 && font < static_cast<int>(fonts.size()) &&
                       !fonts[static_cast<std::size_t>(font)].FontName.isEmpty();
    if (!there)
        // An index without a font could not be drawn; 0 is the standard font.
        panel.FontIndex = 0;
    if (object == MenuPanelRow)
        fitToEntries(fonts, panel, param);
    return panel;
}

namespace {

// Every parameter that a tab lists and the table has, as call(cell, parameter).
template <class State, class Call>
void forListed(State& state, const Call& call)
{
    for (auto& panel : state.PanelArr) {
        const int file = levelFileOf(panel);
        for (const PanelParam& id : panel.Ids) {
            if (panel.Enabled && ZUKarr::inRange(file, id.number))
                call(state.ZUKarr.at(file, id.number), id);
        }
    }
}

} // namespace

void listValues(ParamState& state)
{
    forListed(state, [&](ZukCell& cell, const PanelParam& id) {
        // A parameter that the catalogue does not know has no default: saving it would put an
        // unknown record into the file.
        const qint64 value = cell.LevelValue != -1      ? cell.LevelValue
                             : state.UpgradeChoice == 1 ? cell.DefValue.value_or(-1)
                                                        : -1;
        if (value >= 0)
            cell.Value = ParamValue{value, id.hex, {}};
    });
}

bool lacksParameters(const ParamState& state)
{
    bool lacks = false;
    forListed(state, [&](const ZukCell& cell, const PanelParam&) {
        lacks = lacks || (cell.LevelValue == -1 && cell.DefValue);
    });
    return lacks;
}

qint64 GetPanelParam(const ParamState& state, int object, int id)
{
    const PanelRec* panel = state.object(object);
    if (panel == nullptr || !panel->Enabled)
        return -1;
    const auto listed = std::ranges::find(panel->Ids, id, &PanelParam::number);
    const int file = levelFileOf(*panel);
    if (listed == panel->Ids.end() || !ZUKarr::inRange(file, id))
        return -1;
    const auto& value = state.ZUKarr.at(file, id).Value;
    if (!value)
        return -1;
    // Colours have 24 bits; more digits may have been typed.
    return listed->hex ? value->number & 0xFFFFFF : value->number;
}

qint64 switchValue(const ParamState& state, const PanelRec& panel)
{
    // A constant instead of a parameter: such an object cannot be switched.
    if (panel.OnParam <= 0)
        return std::abs(panel.OnParam);
    const ZukCell& cell = state.ZUKarr.at(levelFileOf(panel), panel.OnParam);
    return cell.Value ? cell.Value->number : cell.LevelValue;
}

int menuSlit(const ParamState& state)
{
    constexpr int oldSlit = 3; // of the engines without level files
    // Only generation 3 has all objects.
    return state.PanelArr.size() == zukObjectCount
               ? clampToI16(GetPanelParam(state, MenuPanelRow, slitParam))
               : oldSlit;
}

bool feedsPanel(const PanelRec& panel, int id)
{
    const qint32 sources[] = {panel.OnParam,    panel.TopParam,    panel.LeftParam,
                              panel.WidthParam, panel.HeightParam, panel.BackParam,
                              panel.TextParam,  panel.TranspParam, panel.FontParam};
    return std::ranges::find(sources, id) != std::end(sources) ||
           std::ranges::find(panel.Ids2, id) != panel.Ids2.end();
}

} // namespace fennel
