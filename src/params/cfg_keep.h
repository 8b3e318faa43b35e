// SPDX-License-Identifier: MIT
// gfxboot.cfg changed in place: what nobody edited keeps its bytes, whatever it means to whoever
// else reads the file.
#pragma once

#include "params/cfg_lines.h"

#include <QByteArray>
#include <QStringList>

namespace fennel {

// The bytes with the values and switches of the lines, which were read from these bytes and edited
// since. A line that says what it said keeps every byte; in an edited one the value changes, or
// what stands before its name. Hidden parameters that were edited become lines at the end. Lines
// that are not those of the bytes are written as cfgTextFrom() does.
QByteArray keptCfg(const QByteArray& bytes, const CfgLines& lines);

// What the same bytes would lose as cfgTextFrom() writes them, edited lines left out: a sentence
// each, the line and what would become of it.
QStringList cfgLosses(const QByteArray& bytes, const CfgLines& lines);

} // namespace fennel
