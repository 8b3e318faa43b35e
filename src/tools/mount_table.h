// SPDX-License-Identifier: MIT
// /proc/self/mountinfo as records. The format is that of proc(5): fields between blanks, blanks and
// other odd bytes of a name as a backslash and three octal digits, optional fields up to a "-".
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace fennel {

struct MountEntry {
    unsigned major = 0; // device number of the file system; major 0 is no block device
    unsigned minor = 0;
    QString root;   // the folder of the file system that is seen here; "/" unless bound
    QString folder; // the mount point, absolute
    QString fileSystem;
    QString source;     // such as "/dev/sdb1" or "server:/export"
    QByteArray options; // of the file system, separated by commas
};

// In the order of the table. Lines that are no records are left out.
std::vector<MountEntry> mountEntries(const QByteArray& table);

} // namespace fennel
