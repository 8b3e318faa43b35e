// SPDX-License-Identifier: MIT
// The machine that the drive is tried in, as arguments of qemu-system-x86_64.
#pragma once

#include "disk.h"
#include "request.h"

namespace fennel {

struct MachineParts {
    OpenDisk disk;
    int control = -1; // our end of QEMU's control socket is the other one
    QString display;  // value of -display
    QString bios;     // the video BIOS in force; empty for QEMU's own
    bool kvm = false;
};

// One disk that cannot be written, no network, no configuration file of the user's.
QStringList machineArguments(const MachineRequest& request, const MachineParts& parts);

// The display that QEMU is to use: the variable FENNEL_QEMU_DISPLAY (such as "none" or "sdl"), or a
// window where there is a display; empty if there is none.
QString wantedDisplay();

} // namespace fennel
