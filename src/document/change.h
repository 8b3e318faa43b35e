// SPDX-License-Identifier: MIT
// What can be done to the open gfxboot, as data: a change asks for something, a step is what was
// done, with the way back.
#pragma once

#include "params/param_state.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace fennel {

struct ParamKey {
    int file = 0;   // level file, 0 to 15
    int number = 0; // parameter, 1 to 99
    bool operator==(const ParamKey& other) const
    {
        return file == other.file && number == other.number;
    }
    bool operator<(const ParamKey& other) const
    {
        return std::tie(file, number) < std::tie(other.file, other.number);
    }
};

// A change of values. The parts are done in this order; an empty change does nothing.
struct Change {
    // Objects that a parameter feeds are recomputed.
    std::map<ParamKey, ParamValue> params;
    // Records of objects, over what the parameters gave; the words on an object stay.
    std::map<int, PanelRec> objects;
    // All lines of gfxboot.cfg.
    std::optional<CfgLines> cfg;
    // Whether the lines go into the file of the Workspace at once, as typed ones do, and which
    // parameter of them is brought to the objects. Otherwise they follow with the next save.
    bool writeCfg = false;
    QString cfgKey;
};

// Where a step took place, for whoever shows it again. What does not apply is empty.
struct StepPlace {
    int object = -1; // row of PanelArr
    ParamKey param;  // number 0: none
    QString cfgName;
    QString member;
};

struct StepInfo {
    QString what; // for "Undo %1": "move of Time"
    StepPlace place;
    QString mergeKey; // a step with the key of the one before becomes one with it; empty: never
};

template <class T>
struct BeforeAfter {
    T before;
    T after;
};

// gfxboot.cfg as it is shown and as it lies in the Workspace; the two differ until it is written.
struct CfgState {
    CfgLines lines;
    QByteArray bytes;
    bool operator==(const CfgState&) const = default;
};

// A version of a file of the Workspace that is kept in the history; 0: there is no such file.
using VersionId = qint64;

// All that a change of the generation replaces.
struct WholeState {
    ParamState params;
    QByteArray cfgBytes; // of gfxboot.cfg in the Workspace
    bool hasCfg = false;
    bool hasZuk = false;
    int gfxboot_var = 1;
    int objects = 0;
};

struct Step {
    StepInfo info;
    std::map<ParamKey, BeforeAfter<std::optional<ParamValue>>> params;
    std::map<int, BeforeAfter<PanelRec>> objects;
    std::optional<BeforeAfter<CfgState>> cfg;
    std::map<QByteArray, BeforeAfter<VersionId>> members; // by the bytes of their names
    qint64 memberBytes = 0;                               // of the versions in `members`
    // Of a step that makes another generation; it says all that the parts above would.
    std::shared_ptr<const BeforeAfter<WholeState>> whole;

    // What a later step did, done in this one.
    void absorb(Step&& later);
    // Takes out what came back to where it was; true if nothing is left.
    bool dropUnchanged();
    // What the step keeps in memory and on the disk, about.
    [[nodiscard]] qint64 bytes() const;
};

} // namespace fennel
