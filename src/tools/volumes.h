// SPDX-License-Identifier: MIT
// What is mounted and counts as a drive. System mounts (proc, sysfs, overlays, snaps, bound
// folders) are none; a volume that is mounted twice is one.
#pragma once

#include "tools/drive_source.h"

#include <QString>

#include <vector>

namespace fennel {

enum class VolumeKind { Removable = 2, Local = 3, Network = 4, CdRom = 5, Ram = 6 };

// "Removable drive " and so on, each with a blank at its end.
QString kindLabel(VolumeKind kind);

struct Volume {
    QString key; // the same for the same volume as long as it stays; never shown
    VolumeKind kind = VolumeKind::Local;
    QString label;       // at most 255 characters, none of them a control character
    QString mountFolder; // as the system names it
    QString source;      // "/dev/sdb1", "server:/export", "tmpfs"
    QString fileSystem;
    QString block;     // kernel name of the device, empty if it lies on none
    qint64 size = 0;   // bytes, 0 unknown
    int floppy = -1;   // 0 or 1 for the floppy drives
    bool root = false; // of the whole system

    bool operator==(const Volume&) const = default;
};

// In the order of the mount table.
std::vector<Volume> volumesOf(const DriveSource& source);

// udev's spelling of a label: "\x20" for a blank and other odd bytes.
QString decodeUdevText(const QString& text);

// "7.4 GB": bytes in the largest unit below them, powers of 1024, one digit behind the point below
// 10; empty for 0.
QString sizeText(qint64 bytes);

} // namespace fennel
