// SPDX-License-Identifier: MIT
// The settings catalogue: a text beside the program that tells, for every parameter of the binary
// level files, its name, its default and a comment. A parameter without a line in it does not exist
// for this version of the program. The format is described in docs/formats/catalogue.md.
#pragma once

#include "base/shell_context.h"
#include "params/zuk_table.h"

#include <QString>

namespace fennel {

// Fills Name, DefValue, IsHex and Comment of the cells that the text has a line for; a later line
// for the same cell wins, cells without a line stay as they are. Nothing in the text is an error,
// except a line whose section is not 0 to 15 or whose id is not 1 to 99: it is left out, and the
// result says how many such lines there were.
int parseCatalogue(const QString& text, ZUKarr& table);

// Reads the catalogue of the run's language, AppPath + "/data/" + language + "_SETTINGS". To be
// called once, when the language is known and before anything is opened. A file that cannot be read
// and lines that had to be left out are told to the user; false if the table got nothing.
bool LoadCatalogue(const Shell& shell, ZUKarr& table);

} // namespace fennel
