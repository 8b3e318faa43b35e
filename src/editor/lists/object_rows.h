// SPDX-License-Identifier: MIT
// The rows of the lists that the document fills: one list per boot-screen object with its
// parameters and then the member files that belong to it, and those of members, backgrounds and
// gfxboot.cfg. Each takes what a line of the table of tabs asks for (tab_kinds.h).
#pragma once

#include "document/document.h"
#include "params/list_rows.h"

namespace fennel {

// The list of an object (row of PanelArr); without rows if it lists nothing. Parameters that no
// value was listed for are left out.
ListRows objectList(const Shell& shell, const Document& document, int object);

// The list "Gfxboot": one row per line of "#.lst" with its length in bytes; none without it.
ListRows memberList(const Shell& shell, const Document&, int);
// "Background(s)": the backgrounds of the Workspace in the order of their numbers.
ListRows backgroundList(const Shell& shell, const Document&, int);
// gfxboot.cfg on the tab Config, or one row that says that it is not there.
ListRows configList(const Shell& shell, const Document& document, int);

} // namespace fennel
