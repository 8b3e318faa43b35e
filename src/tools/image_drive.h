// SPDX-License-Identifier: MIT
// A disk image in a file, used like a stick: what the editor reads of it is copied out into a
// folder of the run, what it writes goes in by mtools. Nothing is mounted.
#pragma once

#include "base/shell_context.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace fennel {

struct ImageDrive {
    QString path;
    qint64 offset = 0; // of its FAT file system, bytes
    QString folder;    // with "/" at its end: menus, loaders' files, message files
};

// Where the FAT file system of an image begins, from its first 512 bytes: at 0, or with the first
// such partition. Nothing without one.
std::optional<qint64> fatOffset(const QByteArray& head);

// Copies out anew, by programs that the user can call off: Canceled. NotFound without mtools,
// Unsupported without a FAT file system.
Result<ImageDrive> openImageDrive(const Shell& shell, const QString& path);

// Puts files of the folder, named below it, into the image, in that order.
Result<void> writeToImage(const Shell& shell, const ImageDrive& image, const QStringList& names);

} // namespace fennel
