// SPDX-License-Identifier: MIT
// What the tool ListUsbDrives prints, as the editor reads it: blocks of lines with labels of 20
// characters, from a "MountPoint        = X:\" to the next empty line.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace fennel {

struct UsbBlock {
    QString text; // its lines, each with a line feed
    // Behind the last "\Harddisk" of its "Partition Name" lines; 0 without one or beyond 32,767.
    int disk = 0;
    std::vector<int> disks; // of every such line, in order
};

struct UsbReport {
    std::vector<UsbBlock> blocks;
    QStringList lines; // all that were looked at
};

// The blocks of one letter, or of all for a `driveChar` below 65.
UsbReport readUsbReport(const QString& text, int driveChar);

} // namespace fennel
