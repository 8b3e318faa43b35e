// SPDX-License-Identifier: MIT
// What the commands of the window do, one function per menu. Each adds its commands to the window.
#pragma once

#include "container/gfxboot_open.h"

namespace fennel {

class MainWindow;

void addFileCommands(MainWindow& window);
void addViewCommands(MainWindow& window);
void addHelpCommands(MainWindow& window);

// One step of filling the window from an opened gfxboot.
void fillStep(MainWindow& window, OpenHost::Step step);

// Brings the last used list to its menu.
void showLastUsed(MainWindow& window);

} // namespace fennel
