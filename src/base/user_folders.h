// SPDX-License-Identifier: MIT
// Where the program keeps what it writes for itself. Run from where it was built, that is its own
// folder; installed, where that folder is nobody's to write, the user's own (XDG).
#pragma once

#include "base/run_state.h"

namespace fennel {

// $XDG_CONFIG_HOME, or ~/.config, with the separator at the end. A relative path in the variable
// counts as none.
QString configHome();
// The same of $XDG_STATE_HOME and ~/.local/state.
QString stateHome();

// True if the installation has put its mark, the file "installed", into the program's folder.
bool isInstalled(const QString& programFolder);

// Sets SettingsPath and LogPath of the run, whose AppPath is known.
void setUserFolders(RunState& run);

} // namespace fennel
