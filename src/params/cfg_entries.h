// SPDX-License-Identifier: MIT
// The entries of gfxboot.cfg as places in its bytes, so that one of them is changed and all else
// stays. Old files have "name=value" lines, some with a comment behind "#"; newer ones have
// sections, and the first entry of a name wins.
#pragma once

#include <QByteArray>

#include <vector>

namespace fennel {

struct CfgEntry {
    QByteArray section; // empty outside of any
    QByteArray name;
    qsizetype line = 0;  // where the line begins
    qsizetype value = 0; // where the value begins
    qsizetype end = 0;   // behind the value, before a comment
    bool on = true;      // false: behind "#" or ";"
};

// In the order of the file. Comments that look like an entry are entries that are switched off.
std::vector<CfgEntry> cfgEntries(const QByteArray& bytes);

} // namespace fennel
