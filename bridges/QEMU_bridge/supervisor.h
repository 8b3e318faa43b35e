// SPDX-License-Identifier: MIT
// Runs QEMU and stays with it: says in the log when the machine runs, passes on the request to end,
// and takes it along if this process is killed.
#pragma once

#include <QString>
#include <QStringList>

namespace fennel {

struct QemuEnd {
    int code = 0;         // exit code
    int signal = 0;       // the signal that ended it, 0 for none
    bool kvmDied = false; // the processor failed, or QEMU ended before the machine ran
};

struct QemuStart {
    QString program;
    QStringList arguments;
    QString folder;   // for QEMU's temporary file with what the guest writes
    int log = -1;     // takes what QEMU says
    int disk = -1;    // these two stay open in QEMU
    int control = -1; // QEMU's end of the control socket; closed here
    int ours = -1;    // our end
    bool kvm = false; // the processor is the computer's own, which may fail
};

// Returns when QEMU is gone. Code 127: it could not be started.
QemuEnd superviseQemu(const QemuStart& start);

} // namespace fennel
