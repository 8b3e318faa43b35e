// SPDX-License-Identifier: MIT
#include "params/panel_values.h"

#include "base/shell_context.h"
#include "base/text.h"
#include "params/level_files.h"
#include "params/object_table.h"

#include <array>
#include <cstdlib>

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

// Colours of the files have no opacity; an object's own is a parameter of its own.
QRgb opaque(qint64 colour)
{
    return black | (static_cast<QRgb>(colour) & 0xFFFFFFU);
}

// The value of a source field: a parameter's, or a constant.
using ParamValue = std::function<qint64(int)>;

qint64 fromSource(int source, const ParamValue& param)
{
    // 0 is neither: it gives the constant 0.
    return source > 0 ? param(source) : std::abs(source);
}

// Values are cut to 16 bits: any number may stand in a file, and sums of places must not overflow.
void recalcPanel(PanelRec& panel, const ParamValue& param)
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
double lineHeight(const ParamLists& lists, const FontTable& fonts)
{
    const double size = fonts.empty() ? 0.0 : fonts.front().Size;
    return size + 3 + lists.MenuSlit;
}

// Ties to even, like all places on the stage.
qint16 menuHeight(double line, qint64 entries)
{
    return clampToI16(roundToEven(static_cast<double>(entries) * line + 3));
}

// What generations 1 and 2 place alike, in boot-screen pixels; the heights that a font sets stay.
void placeFixed(const RunState& run, ParamLists& lists)
{
    place(*lists.object(MenuPanelRow), menuLeft, menuTop, run.BackWidth - menuLeft, 0,
          {255, white, grey});
    place(*lists.object(MenuBarRow), menuLeft, menuTop, run.BackWidth - menuLeft, 0,
          {70, black, white});
    place(*lists.object(ButtonsPanelRow), 0, run.BackHeight - buttonsHeight, run.BackWidth,
          buttonsHeight, {255, white, grey});
    place(*lists.object(OptionsPanelRow), 263, 480, run.BackWidth - 263, 0, {255, white, grey});
    lists.object(ButtonsPanelRow)->Text =
        QStringLiteral("F1|Help|F2|Language|English (UK)|F9|Reboot|F10|Poweroff");
    lists.object(OptionsPanelRow)->Text = QStringLiteral("OptionsPanel");
}

// Beside menu_max_entries, which the height depends on as on the font.
constexpr std::array<QStringView, 5> stageKeys = {
    u"menu_start_x", u"menu_start_y", u"menu_text_normal", u"menu_text_select", u"menu_bar_color"};

} // namespace

void applyGeneration(const Shell& shell, ParamLists& lists, const FontTable& fonts,
                     const CfgLookup& CfgValue)
{
    const int generation = shell.run.gfxboot_var;
    if (generation == 3) {
        RecalcPanelsFromLevels(shell, lists, LayerCfg);
        return;
    }
    shell.WriteLog(QStringLiteral("     gfxboot_var=%1").arg(generation));
    if (!lists.object(OptionsPanelRow))
        return; // nothing is open
    placeFixed(shell.run, lists);
    fitMenuToFont(shell.run, lists, fonts, CfgValue);
    for (const QStringView key : stageKeys)
        CfgApply(shell.run, lists, fonts, key, CfgValue);
}

void fitMenuToFont(const RunState& run, ParamLists& lists, const FontTable& fonts,
                   const CfgLookup& CfgValue)
{
    if (run.gfxboot_var > 2 || !lists.object(OptionsPanelRow))
        return;
    const double line = lineHeight(lists, fonts);
    lists.object(MenuPanelRow)->Height = menuHeight(line, menuEntries);
    for (const int row : {MenuBarRow, OptionsPanelRow})
        lists.object(row)->Height = menuHeight(line, 1);
    CfgApply(run, lists, fonts, u"menu_max_entries", CfgValue);
}

void CfgApply(const RunState& run, ParamLists& lists, const FontTable& fonts, QStringView name,
              const CfgLookup& CfgValue)
{
    PanelRec* menu = lists.object(MenuPanelRow);
    PanelRec* bar = lists.object(MenuBarRow);
    if (run.gfxboot_var != 2 || !bar)
        return;
    const qint64 value = numberFromText(CfgValue(name));
    if (name == u"menu_bar_color")
        bar->BackColor = opaque(value);
    else if (name == u"menu_text_normal")
        menu->TextColor = opaque(value);
    else if (name == u"menu_text_select")
        bar->TextColor = opaque(value);
    else if (name == u"menu_max_entries")
        menu->Height = menuHeight(lineHeight(lists, fonts), value);
    else if (name == u"menu_start_y")
        menu->Top = bar->Top = clampToI16(value);
    else if (name == u"menu_start_x") {
        menu->Left = bar->Left = clampToI16(value);
        // Up to the right edge of the background, as the engine draws it.
        menu->Width = bar->Width = clampToI16(run.BackWidth - value);
    }
}

void RecalcPanelsFromLevels(const Shell& shell, ParamLists& lists, Layer layer)
{
    shell.WriteLog(QStringLiteral("     gfxboot_var=3"));
    for (int row = 0; row < static_cast<int>(lists.PanelArr.size()); ++row) {
        PanelRec& panel = *lists.object(row);
        const int file = levelFileOf(panel);
        recalcPanel(panel, [&](int source) {
            // A parameter that is missing is told by GetLevelValue() and counts as -1.
            return GetLevelValue(shell, lists.ZUKarr, file, source, layer).value_or(-1);
        });
        if (isSparkle(row))
            pointsToRectangle(panel);
    }
}

bool RecalcPanelFromList(ParamLists& lists, const FontTable& fonts, int tab, int object)
{
    PanelRec* panel = lists.object(object);
    // A disabled object has no tab whose list could be read.
    if (!panel || !panel->Enabled)
        return false;
    const ParamValue param = [&](int source) { return GetPanelParam(lists, tab, source); };
    recalcPanel(*panel, param);
    panel->On = clampToI16(fromSource(panel->OnParam, param));
    if (isSparkle(object))
        pointsToRectangle(*panel);
    const int font = panel->FontIndex;
    const bool there = font >= 0 && font < static_cast<int>(fonts.size()) &&
                       !fonts[static_cast<std::size_t>(font)].FontName.isEmpty();
    if (!there)
        // An index without a font could not be drawn; 0 is the standard font.
        panel->FontIndex = 0;
    // The space between menu lines belongs to the first object's tab, whichever object changed.
    lists.MenuSlit = clampToI16(GetPanelParam(lists, FirstObjectTab, 40));
    return true;
}

qint64 GetPanelParam(const ParamLists& lists, int tab, int id)
{
    const ListRows* list = lists.list(tab);
    if (!list || id < 1)
        return -1;
    for (const ListRow& row : list->rows) {
        if (numberFromText(row.tag) != id)
            continue;
        const qint64 value = numberFromText(row.text(LevelColumn));
        // Colours have 24 bits; more digits may have been typed.
        return row.tag.contains(QLatin1String("|x|")) ? value & 0xFFFFFF : value;
    }
    return -1;
}

} // namespace fennel
