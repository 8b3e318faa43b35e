// SPDX-License-Identifier: MIT
// The problems of an open document as a save would write it: what its lists say, and what files lie
// in the Workspace.
#pragma once

#include "checks/problems.h"
#include "document/document.h"
#include "menus/menu_list.h"

namespace fennel {

// A document as it stood at a moment, to be checked beside the window's thread.
struct CheckedDocument {
    RunState run;
    ParamState state;
    FontTable fonts;
    CfgState config;
    MenuDrive drive;  // of the menu in force
    QString menuFile; // empty: the embedded menu, which is not checked
};
CheckedDocument checkedDocument(const Document& document, const FontTable& fonts);

// Reads the members; the document and its window are not touched.
std::vector<Problem> findProblems(const CheckedDocument& checked, const std::atomic<bool>& stopped);

// Where the problem is to be seen: the object whose list shows the value, a line of gfxboot.cfg, a
// member.
StepPlace placeOf(const ParamState& state, const Problem& problem);

} // namespace fennel
