// SPDX-License-Identifier: MIT
// Places, colours, transparency and font of the boot-screen objects: computed from the level files,
// from the rows of the lists, or, in the older generations, from fixed numbers and gfxboot.cfg.
#pragma once

#include "fonts/font_table.h"
#include "params/param_lists.h"

#include <QStringView>

#include <algorithm>
#include <functional>
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

// A parameter of gfxboot.cfg by name: the value from its row, or its default.
using CfgLookup = std::function<QString(QStringView)>;

// Gives the objects built by BuildPanels the values of the open generation: 1 fixed numbers, 2 with
// six keys of gfxboot.cfg in their places, 3 RecalcPanelsFromLevels(LayerCfg).
void applyGeneration(const Shell& shell, ParamLists& lists, const FontTable& fonts,
                     const CfgLookup& CfgValue);

// The heights that the font sets in generations 1 and 2: of the menu, its bar and the options line.
// For a font that has changed since applyGeneration(); places that were dragged stay.
void fitMenuToFont(const RunState& run, ParamLists& lists, const FontTable& fonts,
                   const CfgLookup& CfgValue);

// Brings one parameter of gfxboot.cfg to the objects of generation 2: colours, height or place of
// the menu and its bar. Most names have no effect there.
void CfgApply(const RunState& run, ParamLists& lists, const FontTable& fonts, QStringView name,
              const CfgLookup& CfgValue);

// Recomputes all objects of generation 3 from ZUKarr as seen from `layer`. PanelRec::On stays.
void RecalcPanelsFromLevels(const Shell& shell, ParamLists& lists, Layer layer);

// Recomputes one object from the rows of the list `tab`, and MenuSlit from the first object list.
// False if the object is not Enabled: then nothing changed and nothing needs to be drawn.
bool RecalcPanelFromList(ParamLists& lists, const FontTable& fonts, int tab, int object);

// The value that a list shows for a parameter, -1 if it has no row for it. Rows marked as
// hexadecimal give 24 bits, a colour 0xRRGGBB.
qint64 GetPanelParam(const ParamLists& lists, int tab, int id);

} // namespace fennel
