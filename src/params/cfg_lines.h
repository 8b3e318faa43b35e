// SPDX-License-Identifier: MIT
// gfxboot.cfg as lines with typed values: read from the text, changed, written back. What the file
// lacks is looked for in the engine itself, so that every build of the engine is offered the
// parameters that it knows. Lines, states and the rules of writing are described in
// docs/formats/gfxboot-cfg.md.
#pragma once

#include "base/result.h"
#include "container/member_table.h"
#include "params/cfg_table.h"
#include "params/param_value.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace fennel {

enum class CfgKindOfLine {
    Known,     // a parameter of the table, in force (`on`) or switched off
    Hidden,    // not in the file, but the engine knows it; becomes a line at the next save
    Wrong,     // a name outside the table: kept, switched off
    Text,      // a line without "="
    Separator, // between the file's lines and the hidden ones; no line of the file
};

struct CfgLine {
    CfgKindOfLine kind = CfgKindOfLine::Text;
    QString name; // as in the file; empty for Text
    ParamValue value;
    bool valued = false; // Known, Hidden, Wrong; false: nothing stands behind the name
    QString comment;
    QString tip;     // what else there is to know of the line
    bool on = false; // not behind "#"
    bool operator==(const CfgLine&) const = default;
};
using CfgLines = QList<CfgLine>; // shared until it is changed: a copy costs nothing

// A longer file, or one of more lines, is no gfxboot.cfg: it is refused with a message.
inline constexpr qint64 cfgSizeLimit = 4 * 1024 * 1024; // bytes
inline constexpr int cfgLineLimit = 100'000;

// One line of the file, without its end; none if it is empty.
std::optional<CfgLine> cfgLineFrom(const QString& line);
// The lines of a file's text, followed by those of the parameters that the text does not mention
// and the bytes of the engine do. Fails above cfgLineLimit.
Result<CfgLines> cfgLinesFrom(const QString& text, const QByteArray& engine);
// The file as the lists show it: lines ended by CR LF, the last one without. What is read from it
// and written again is the same. To keep what nobody edited: params/cfg_keep.h.
QString cfgTextFrom(const CfgLines& lines);

// Whether a value may be typed into the line, and its switch be used.
[[nodiscard]] inline bool isParameter(const CfgLine& line)
{
    return line.kind == CfgKindOfLine::Known || line.kind == CfgKindOfLine::Hidden;
}
// Index of the first line of a parameter, -1 without one.
int cfgLineOf(const CfgLines& lines, QStringView name);
// The value of that line, empty if nothing stands behind its name; or the default.
QString CfgValue(const CfgLines& lines, QStringView name);
// The names of the engine that the lines are for: the first dialect whose place of the menu they
// know, hidden lines included.
const CfgDialect& cfgDialectOf(const CfgLines& lines);
// The lines with that number in the parameter's first line, written in decimal and in force; the
// same lines if there is none, or if it says so already.
CfgLines withCfgNumber(const CfgLines& lines, QStringView name, qint64 number);

} // namespace fennel
