// SPDX-License-Identifier: MIT
// What of a gfxboot will not boot as meant. A pure function of what is open: the command prints the
// problems, the editor can go to the object or member of each.
#pragma once

#include "base/run_state.h"
#include "fonts/font_table.h"
#include "params/param_state.h"

#include <optional>
#include <span>
#include <vector>

namespace fennel {

enum class Severity {
    Note,    // worth knowing; the screen is as meant
    Warning, // something is not seen as it was meant
    Error,   // something is not seen at all, or does not boot
};

struct Problem {
    QString name; // of the check, such as "picture-black"
    Severity severity = Severity::Warning;
    QString sentence;
    QString advice;
    int object = -1;   // row of PanelArr
    QString member;    // empty: none
    QString parameter; // as people name it; empty: none
};

struct CheckedMember {
    QString name;
    QByteArray data;
};

// What is looked at; it outlives the call.
struct CheckInput {
    const RunState& run;
    const ParamState& state;
    const FontTable& fonts;
    std::vector<CheckedMember> members; // in archive order
    std::optional<QString> menu;        // the text of a menu.lst

    // Null without it.
    [[nodiscard]] const QByteArray* find(const QString& name) const;
};

// Of all checks, the worst first; those of one check stand in the order of what they speak of.
std::vector<Problem> findProblems(const CheckInput& input);

// Text as the boot screen reads it: UTF-8 with or without a mark, else code page 1251.
QString textForScreen(const QByteArray& bytes);

QString severityName(Severity severity);

} // namespace fennel
