// SPDX-License-Identifier: MIT
// The video BIOS of the boot test: three files in the folder of the QEMU bridge, one of which lies
// copied as the one that QEMU loads, or in the user's folder. Which one that is, is told by its
// length alone.
#pragma once

#include "base/shell_context.h"

#include <array>

namespace fennel {

enum class VideoBios { Standart, Cirrus, Memory16 };

struct BiosState {
    bool enabled = false; // its file is there
    bool checked = false; // it is as long as the one in force
};
using BiosStates = std::array<BiosState, 3>; // by VideoBios

// Name of the menu item.
const char* biosMenuItem(VideoBios bios);
// Full path of the file.
QString biosFile(const RunState& run, VideoBios bios);
// Of the one in force; may be missing. Installed, it is the user's own choice, or else the one that
// lies beside the bridge.
QString biosInForce(const RunState& run);

// As the files are now; asked at the start of the program.
BiosStates biosStates(const RunState& run);

// Puts the BIOS in force and checks it alone, then shows the note. Nothing happens if it is checked
// already; a file that cannot be copied is told and changes nothing.
void chooseBios(const Shell& shell, VideoBios bios, BiosStates& states);
void mnuT_Qemu_BIOS(const Shell& shell); // the note

// The mode that mnuT_Qemu_Start starts with: 1 for a checked Cirrus; 2 if the file of the standard
// BIOS is there, whatever is in force; otherwise 3.
int qemuMode(const BiosStates& states);

} // namespace fennel
