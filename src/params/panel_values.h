// SPDX-License-Identifier: MIT
// Places, colours, transparency and font of the boot-screen objects: computed from the level files,
// from the values that the tabs list, or, in the older generations, from fixed numbers and
// gfxboot.cfg.
#pragma once

#include "fonts/font_table.h"
#include "params/param_state.h"

#include <QStringView>

#include <algorithm>
#include <limits>

namespace fennel {

struct RunState;
struct Shell;

// Lengths that fit no boot screen stop at the ends of 16 bits.
[[nodiscard]] constexpr qint16 clampToI16(qint64 value)
{
    return static_cast<qint16>(std::clamp<qint64>(value, std::numeric_limits<qint16>::min(),
                                                  std::numeric_limits<qint16>::max()));
}

// Gives the objects built by BuildPanels the values of the open generation: 1 fixed numbers, 2 with
// six keys of gfxboot.cfg in their places, 3 RecalcPanelsFromLevels(LayerCfg).
void applyGeneration(const Shell& shell, ParamState& state, const FontTable& fonts);

// The heights that the font sets: of the menu, and in generations 1 and 2 of its bar and the
// options line. For a font that has changed since applyGeneration(); places that were dragged stay.
void fitMenuToFont(const RunState& run, ParamState& state, const FontTable& fonts);

// Brings one parameter of gfxboot.cfg to the objects of generation 2: colours, height or place of
// the menu and its bar. Most names have no effect there.
void CfgApply(const RunState& run, ParamState& state, const FontTable& fonts, QStringView name);

// Recomputes all objects of generation 3 from ZUKarr as seen from `layer`. PanelRec::On stays.
void RecalcPanelsFromLevels(const Shell& shell, ParamState& state, const FontTable& fonts,
                            Layer layer);

// Of the menu in generation 3: how many entries it is high. Their lines are as high as its font and
// the slit between them say; a menu without this number keeps the height of its table.
inline constexpr int menuEntriesParam = 41;
[[nodiscard]] qint16 menuHeightOf(qint64 entries, double pitch);

// One object of generation 3 as the values that its tab lists say. A disabled object has none: it
// comes back as it is.
PanelRec panelFromValues(const ParamState& state, const FontTable& fonts, int object);

// Every parameter that a tab lists gets its value: the file's, and where that has none, after an
// upgrade, the catalogue's default; otherwise it is in no list. Generation 3.
void listValues(ParamState& state);
// Whether a tab lists a parameter that its file lacks: then the engine is older than this program.
[[nodiscard]] bool lacksParameters(const ParamState& state);

// The value that the object's tab lists for a parameter, -1 if it lists none. Parameters shown in
// hexadecimal give 24 bits, a colour 0xRRGGBB.
qint64 GetPanelParam(const ParamState& state, int object, int id);
// Whether the object is switched on, as stored now: above 0 it is. -1: its file has no switch.
qint64 switchValue(const ParamState& state, const PanelRec& panel);

// Extra pixels between the lines of the menu, boot-screen pixels.
int menuSlit(const ParamState& state);

// What sets place, colour or font of the object on the stage, so that a change shows at once.
[[nodiscard]] bool feedsPanel(const PanelRec& panel, int id);

} // namespace fennel
