// SPDX-License-Identifier: MIT
// What of a gfxboot will not boot as meant. A pure function of what is open: the command prints the
// problems, the editor goes to the object or member of each and mends what can be mended.
#pragma once

#include "base/run_state.h"
#include "document/change.h"
#include "fonts/font_table.h"
#include "params/param_state.h"

#include <QHash>
#include <QSize>

#include <atomic>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace fennel {

enum class Severity {
    Note,    // worth knowing; the screen is as meant
    Warning, // something is not seen as it was meant
    Error,   // something is not seen at all, or does not boot
};

// What makes a problem go without a choice that only people can make.
struct Mend {
    QString what;    // as a button says it: "Move it onto the screen"
    Change change;   // of values, or
    QString picture; // this member is made anew, so that it boots,
    QSize size;      // in this size; empty: in its own; or
    QString first;   // this member goes to the front of the archive
};

struct Problem {
    QString name; // of the check, such as "picture-black"
    Severity severity = Severity::Warning;
    QString sentence;
    QString advice;
    int object = -1;   // row of PanelArr
    QString member;    // empty: none
    QString parameter; // as people name it; empty: none
    ParamKey param;    // of a level file; number 0: none
    std::optional<Mend> mend;
};

struct CheckedMember {
    QString name;
    QByteArray data; // of what no check reads only the beginning
    qint64 size = 0;
};
struct DrawnScreen;

// What is looked at; it outlives the call.
struct CheckInput {
    const RunState& run;
    const ParamState& state;
    const FontTable& fonts;
    std::optional<QString> menu;             // the text of a menu.lst
    std::vector<CheckedMember> members = {}; // in archive order
    QHash<QString, std::size_t> places = {}; // of the first member of each name

    // `size`: of the whole member, if `data` is a part of it.
    void add(const QString& name, const QByteArray& data, qint64 size = -1);
    // Null without it.
    [[nodiscard]] const QByteArray* find(const QString& name) const;
    // The screen as it boots, with everything that stays on it; laid out when first asked for.
    [[nodiscard]] DrawnScreen& drawn() const;

    mutable std::shared_ptr<DrawnScreen> laidOut = {}; // for drawn()
};

// Of all checks, the worst first; those of one check stand in the order of what they speak of.
// Nobody waits for what is found once `stopped` is true.
std::vector<Problem> findProblems(const CheckInput& input,
                                  const std::atomic<bool>* stopped = nullptr);

// Text as the boot screen reads it: UTF-8 with or without a mark, else code page 1251.
QString textForScreen(const QByteArray& bytes);

QString severityName(Severity severity);

} // namespace fennel
