// SPDX-License-Identifier: MIT
// What the bridge is asked for on its command line:
//     QEMU_bridge DISK VGA1|VGA2|VGAxxx RAM256 FOLDER LOG [,1]
// DISK is the number of a physical disk, counted as the editor counts them; FOLDER is where the log
// and the guest's changes go.
#pragma once

#include "base/result.h"

#include <QString>
#include <QStringList>

namespace fennel {

struct MachineRequest {
    int disk = 0; // 1 to largestDisk: number 0 is the system's and is never booted
    QString card; // QEMU's name of the video card
    int videoMiB = 0;
    int ramMiB = 0;
    QString folder; // ends in "/"
    QString log;    // full path
    QString letter; // of the drive, for the window's name; empty if nobody told it
};

inline constexpr int largestDisk = 999;
inline constexpr int largestRamMiB = 4096;

// `arguments` without the program's name.
Result<MachineRequest> machineRequest(const QStringList& arguments, const QString& letter);

} // namespace fennel
