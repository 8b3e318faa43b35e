// SPDX-License-Identifier: MIT
// What a boot test puts on its stick: a message file as it is or as it would be saved now, and the
// titles of a menu.
#pragma once

#include "document/document.h"
#include "tools/boot_image.h"

namespace fennel {

// The menu that the titles come from, and whose loader boots.
struct BootMenu {
    QString text;        // of a menu.lst; empty: the menu that the editor shows without one
    bool hasZuk = false; // the gfxboot is of generation 3
    QString loader;      // path of a Grub4DOS loader of the user's; empty: syslinux
};

// The titles as the loader hands them to the engine. That of generation 3 reads the values and the
// notes in them, others would show them.
QStringList bootTitles(const BootMenu& menu);

// For a message file, plain or gzipped; with syslinux it is unwrapped.
Result<BootStick> bootStick(const QByteArray& messageFile, const BootMenu& menu);

// The message file of the open gfxboot as it would be saved now, gzipped if that is wanted. A
// failure that was told is marked.
Result<QByteArray> messageNow(const Shell& shell, Document& document, bool gzip);

// For the open gfxboot with every change that is not saved yet. A failure that was told is marked.
Result<BootStick> bootStick(const Shell& shell, Document& document, const BootMenu& menu);

} // namespace fennel
