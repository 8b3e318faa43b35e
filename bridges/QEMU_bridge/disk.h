// SPDX-License-Identifier: MIT
// The disk that the guest boots from, opened here for reading only and handed to QEMU as a
// descriptor: QEMU itself never gets to see the name of a disk.
#pragma once

#include "base/result.h"
#include "tools/drive_source.h"

namespace fennel {

struct OpenDisk {
    int descriptor = -1;
    bool isDevice = false; // a block device; otherwise an image file that stands in for one
};

// The disk of that number, as BlockDevices counts them. Disk 0 is refused, and so is every disk
// that cannot be taken out of the machine. On the real system only a block device is taken.
Result<OpenDisk> openDisk(const FolderDriveSource& source, int number);

// An image file of the user's in the place of a disk; only a regular file is taken.
Result<OpenDisk> openImage(const QString& path);

} // namespace fennel
