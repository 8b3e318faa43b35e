// SPDX-License-Identifier: MIT
// Where the loader of a boot stick looks for the message file, as its own configuration says, and
// the way of a new one there.
#pragma once

#include "base/shell_context.h"

#include <QStringList>

#include <vector>

namespace fennel {

struct LoaderPlace {
    QString config;        // the loader's file, below the stick's folder
    QString message;       // the message file, below the stick's folder; it need not be there yet
    bool unpacked = false; // syslinux reads plain archives only
};

// What the configuration names: syslinux by a word "gfxboot" with the file behind it, Grub4DOS by
// "gfxmenu". `config` is its path below the stick's folder, with "/". A path in it begins at the
// configuration's own folder or, with "/" or a drive such as "(hd0,0)", at the stick's.
std::vector<LoaderPlace> loaderPlaces(const QString& config, const QString& text);

// Where loaders look for a configuration, below the stick's folder.
QStringList loaderConfigs();

// Of every configuration that stands where loaders look for it, each message once. `folder` ends
// in "/".
std::vector<LoaderPlace> loaderPlacesOf(const QString& folder);

// Puts the message file at its place; one that was there stays beside it under its name and ".old",
// with a number behind it from the second on. The name of that copy, empty if there was none.
Result<QString> saveToStick(const Shell& shell, const QString& folder, const LoaderPlace& place,
                            const QByteArray& message);

} // namespace fennel
