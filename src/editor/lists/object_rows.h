// SPDX-License-Identifier: MIT
// The rows of the lists that the document fills: one list per boot-screen object with its
// parameters and then the member files that belong to it, and those of members, backgrounds and
// gfxboot.cfg.
#pragma once

#include "editor/lists/param_lists.h"

namespace fennel {

// The list of an object (row of PanelArr); without rows if it lists nothing. Parameters that no
// value was listed for are left out.
ListRows objectList(const Shell& shell, const Document& document, int object);

// The list "Gfxboot": one row per line of "#.lst" with its length in bytes; none without it.
ListRows memberList(const Shell& shell);
// "Background(s)": the backgrounds of the Workspace in the order of their numbers.
ListRows backgroundList(const Shell& shell);
// gfxboot.cfg on the tab Config, or one row that says that it is not there.
ListRows configList(const Shell& shell, const Document& document);

} // namespace fennel
