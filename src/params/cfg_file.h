// SPDX-License-Identifier: MIT
// gfxboot.cfg on the third tab: read into rows, edited there, written back. What the file lacks is
// looked for in the engine itself, so that every build of the engine is offered the parameters that
// it knows. Lines, states and the rules of writing are described in docs/formats/gfxboot-cfg.md.
#pragma once

#include "base/shell_context.h"
#include "container/member_table.h"
#include "params/cfg_table.h"
#include "params/list_rows.h"

#include <QByteArray>
#include <QString>

namespace fennel {

// Cells of a row. The check of a row says whether the parameter is active in the file; the tag of a
// row is the parameter's name, empty for rows that are none.
enum CfgColumn { CfgNameColumn, CfgValueColumn, CfgCommentColumn };

inline constexpr QRgb cfgActiveRow = 0xff008000; // green: in the file
inline constexpr QRgb cfgOffRow = blueRow;       // in the file, switched off
inline constexpr QRgb cfgHiddenRow = 0xffff0080; // not in the file, but the engine knows it
inline constexpr QRgb cfgWrongCell = 0xffff0000; // comment cell of a name that is not known

// A longer file, or one of more lines, is no gfxboot.cfg: it is refused with a message.
inline constexpr qint64 cfgSizeLimit = 4 * 1024 * 1024; // bytes
inline constexpr int cfgLineLimit = 100'000;

// The rows of a file's text, followed by those of the parameters that the text does not mention and
// the bytes of the engine do. Replaces the rows of the list, not its columns and selection. Fails,
// with no rows, above cfgLineLimit.
Result<void> cfgRowsFrom(const QString& text, const QByteArray& engine, ListRows& list);
// The way back: lines ended by CR LF, the last one without. Applying the two in turn is not
// neutral: comments of active lines gain a blank each time.
QString cfgTextFrom(const ListRows& list);

// Fills the third tab from the Workspace, with its line in the log.
void ConfigInListView(const Shell& shell, ListRows& list);

// Reads the file into the rows; the engine is "init" in the Workspace, and without one nothing is
// offered. If the file is not there, one row says so and GfxHasCfg becomes false. If it cannot be
// read, the user is told and there are no rows.
void CfgFill(const Shell& shell, const QString& path, ListRows& list);

// Writes the rows over the start of the Workspace's gfxboot.cfg, in the encoding it has, and reads
// it again; the selected row stays selected. A longer old file is not cut: its tail stays, and
// comes back as rows. Does nothing without GfxHasCfg. On a failure the user is told, the file is as
// it was, the rows stay, and the result is false.
bool CfgWrite(const Shell& shell, ListRows& list);

// The row of a parameter, from 1; the first if it has several, 0 if it has none.
int CfgRow(const ListRows& list, QStringView name);
// The value in that row, or the default.
QString CfgValue(const ListRows& list, QStringView name);
// Changes the value in that row, if there is one. The file follows with the next CfgWrite.
void SetCfgValue(ListRows& list, QStringView name, const QString& value);

} // namespace fennel
