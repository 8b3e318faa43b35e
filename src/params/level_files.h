// SPDX-License-Identifier: MIT
// The level files ZUK0000.CFG to ZUK0015.CFG of the Workspace: from the files into ZUKarr, from the
// lists into ZUKarr, and from ZUKarr back into the files.
//
// A level file is a run of records of 4 bytes without header or count: the value as 24 bits, lowest
// byte first, then the parameter number, 1 to 99. A colour is the number 0xRRGGBB. Records may
// stand in any order, the last one of a number wins; number 0 is a filler. What lies behind the
// last whole record is dropped, and so are records with a number above 99.
#pragma once

#include "base/result.h"
#include "params/panel_rec.h"
#include "params/save_form.h"
#include "params/zuk_table.h"

#include <QByteArray>
#include <QStringList>

namespace fennel {

struct Shell;

// Larger files are not level files: 99 records are 396 bytes, but fillers and repeats are allowed.
inline constexpr qint64 levelFileLimit = 64LL * 1024 * 1024;

// Number of the level file that an object reads, from its CfgFile; 0 for an object without one.
int levelFileOf(const PanelRec& object);

// Takes the records of one file into the LevelValue cells of `file`.
void readLevelRecords(const QByteArray& bytes, int file, ZUKarr& table);

// Empties LevelValue, Value and EditValue of every cell and reads the files that are
// there. Does nothing unless GfxHasZuk. A file that cannot be read is told, its cells stay at -1.
void ReadLevelFiles(const Shell& shell, ZUKarr& table);

// Copies every Value that a list shows into EditValue.
void GatherListValues(ZUKarr& table);

// What the level files of the Workspace would lose by SaveForm::Listed: records that no list shows,
// and a rest that is no record. A line each.
Result<QStringList> levelLosses(const Shell& shell, const ZUKarr& table);

// The records of a file with every EditValue in its place, as WriteLevelFiles() with SaveForm::Kept
// would write them.
QByteArray keptRecords(QByteArray bytes, const ZUKarr& table, int file);

// Writes EditValue, cut to 24 bits. Kept: into the records that are there, new ones where they
// stand in ascending numbers; all else keeps its bytes. Listed: in ascending numbers, and nothing
// else. A file without any EditValue stays as it is, and one that says all this already is not
// written. All new contents are written beside the files first and renamed over them when the last
// one is whole: on a failure before that no file has changed, and every file is whole at any time.
// The caller has the list of members rebuilt afterwards with the pattern "*.CFG".
Result<void> WriteLevelFiles(const Shell& shell, const ZUKarr& table, SaveForm form);

} // namespace fennel
