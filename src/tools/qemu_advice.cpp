// SPDX-License-Identifier: MIT
#include "tools/qemu_advice.h"

#include "base/words.h"

namespace fennel {

namespace {
using namespace Qt::StringLiterals;
} // namespace

// What QEMU says is for those who know it; these are the usual reasons in plain words.
QString qemuAdvice(const QString& log)
{
    const bool noWindow = log.contains(u"does not accept value 'gtk'") ||
                          log.contains(u"ui-gtk not found") || log.contains(u"'gtk' is not");
    if (noWindow)
        return Words::tr("QEMU cannot open a window: install the package qemu-system-gui.");
    if (log.contains(u"gtk initialization failed") || log.contains(u"cannot open display") ||
        log.contains(u"Could not initialize SDL"))
        return Words::tr("The display cannot be opened: start the editor from the desktop.");
    if (log.contains(u"failed to find romfile"))
        return Words::tr("The video BIOS is lost: choose one in the menu Tools, QEMU.");
    return {};
}

} // namespace fennel
