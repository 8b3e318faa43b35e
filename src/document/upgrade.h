// SPDX-License-Identifier: MIT
// What a gfxboot of generation 1 or 2 becomes when it goes over to @ZUK-MOSA@: level files that
// draw the menu where, and as, the engine before drew it, and nothing that was not there.
#pragma once

#include "base/shell_context.h"
#include "params/cfg_look.h"

#include <QByteArray>

#include <map>

namespace fennel {

// Records of the level files by file and number.
using LevelRecords = std::map<int, std::map<int, qint64>>;

// How a font sets the lines of the menu.
struct MenuFont {
    int height = 0;   // pixels
    int quarters = 0; // its size in quarters of a point, as the engine reckons it
};
// Of the bytes of a font member; of bytes that are none, the standard font's.
MenuFont menuFont(const QByteArray& file);

// The records that say what the look says, over those of `base`.
LevelRecords levelsOfLook(const CfgLook& look, const MenuFont& font, LevelRecords base);

// The files that the gfxboot in the Workspace lacks to be one of generation 3, or that change:
// our engine, the level files, and what the template has for the objects. Pictures and fonts that
// are there stay. Fails if the template cannot be read.
Result<std::map<QString, QByteArray>> upgradedFiles(const Shell& shell, const CfgLook& look);

} // namespace fennel
