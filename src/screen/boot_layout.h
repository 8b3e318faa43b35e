// SPDX-License-Identifier: MIT
// From the values of a gfxboot to the list of things on its boot screen, for each engine.
#pragma once

#include "screen/boot_screen.h"

namespace fennel {

struct BootLayout {
    BootList list;
    int entries = 0;   // that the menu has
    int menuPitch = 1; // distance of two of them
};

// Our engine; the rules are those of docs/engine.md, the parts those of engine/*.inc.
BootLayout layOutOwn(const BootRequest& request, BootMembers& members);
// Generations 1 and 2. `engine` says how gfxboot.cfg is read.
BootLayout layOutCfg(const BootRequest& request, BootMembers& members, BootEngine engine);

// Whether the machine has a mode in that size; what a usual graphics card offers.
bool isVideoMode(QSize size);

} // namespace fennel
