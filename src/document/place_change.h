// SPDX-License-Identifier: MIT
// A changed record as a change of the document: with every parameter that stores a part of it.
#pragma once

#include "document/change.h"

namespace fennel {

// Generation 3: the object shall be as `wanted` says. Each place, length, colour and the
// transparency that a parameter sets goes there, unless it says that number already; the record
// takes the rest. A spark is moved by its two points and has no size to change.
void addRecord(const ParamState& state, int row, const PanelRec& wanted, Change& change);

// Why no change of the object's place reaches a file: for the user; empty if one does.
QString whyPlaceStays(const ParamState& state, int generation, int row);

// Generation 2: the menu's place in the lines of gfxboot.cfg.
void addMenuPlace(const ParamState& state, const PanelRec& menu, Change& change);
// How many entries the menu shows: in a level file's parameter, or in gfxboot.cfg.
void addMenuEntries(const ParamState& state, bool levels, int entries, Change& change);

} // namespace fennel
