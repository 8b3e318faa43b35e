// SPDX-License-Identifier: MIT
// A boot test that is waited for, for those without a window.
#pragma once

#include "base/progress.h"
#include "tools/boot_test.h"

namespace fennel {

struct BootOrder {
    BootStick stick;
    QStringList keys = {}; // one after the other, by the names of bootKey()
    double atSeconds = 0;  // the picture is taken so long after the screen stood first
    bool mayUseKvm = true;
    BootLimits limits = {};
};

struct BootResult {
    BootState state = BootState::None; // Standing, Text, Hanging or Ended
    QImage picture;                    // of a text, too
    QStringList text;
    QString words; // what there is to say of the state
    qint64 bootMs = 0;
    bool kvm = false;
};

// QEMU's name of a key: its own, or what people write, such as "enter", "pgdn", "ctrl+alt+del" or a
// letter; nothing for what is no key.
std::optional<QString> bootKey(const QString& name);

// Runs an event loop until the picture is there. Malformed: a key that is none. Canceled: by the
// progress, which may be null.
Result<BootResult> bootOnce(const Shell& shell, const BootOrder& order, Progress* progress);

} // namespace fennel
