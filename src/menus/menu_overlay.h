// SPDX-License-Identifier: MIT
// The layer of ZUKarr that a menu file imposes (LstValue): data titles carry values for the level
// files, which the boot screen shows instead of its own. They are never written anywhere.
#pragma once

#include "params/zuk_table.h"

#include <QString>

namespace fennel {

// Empties the layer.
void MenuOverlayClear(ZUKarr& table);

// Fills the layer from a menu file's text. Later titles of a level add to and override earlier
// ones. Levels that neither the catalogue nor a file
// knows and parameter numbers outside 1 to 99 are skipped. Does nothing unless
// `hasZuk`.
void MenuOverlay(const QString& text, bool hasZuk, ZUKarr& table);

} // namespace fennel
