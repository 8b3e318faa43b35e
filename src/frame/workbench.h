// SPDX-License-Identifier: MIT
// Everything that one run of the program holds, owned together. main makes one; a test makes its
// own, two at once if it likes.
#pragma once

#include "fonts/font_table.h"
#include "frame/toolbar_table.h"
#include "params/param_lists.h"
#include "shell/last_used.h"
#include "shell/settings_store.h"
#include "shell/shell_context.h"
#include "shell/status_line.h"

namespace fennel {

struct Workbench {
    Shell shell;
    LastUsed lastUsed;
    ParamLists params;
    fennel::FontTable FontTable{fontCount};
    WindowFlags flags;
    StatusFields status;

    // The shell's parts and the store outlive the workbench.
    Workbench(const Shell& shellParts, SettingsStore& store) : shell(shellParts), lastUsed(store) {}
};

} // namespace fennel
