// SPDX-License-Identifier: MIT
// What a journal of unsaved work says beside the members themselves, and its text on the disk:
// where the gfxboot came from, and every value that a save would write.
#pragma once

#include "base/result.h"
#include "document/change.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <map>

namespace fennel {

// The message file as it was when it was opened or last saved.
struct JournalSource {
    QString path;        // empty: never saved
    qint64 size = -1;    // bytes; -1: there was no such file
    qint64 modified = 0; // ms since 1970
    QByteArray checksum; // checksumOf() its bytes; empty: not known
    bool operator==(const JournalSource&) const = default;
};

struct JournalValues {
    QDateTime when;
    QString name;    // as the title shows it
    bool gz = false; // a save packs it
    JournalSource source;
    int upgradeChoice = 0; // see ParamState
    std::map<ParamKey, ParamValue> params;
    CfgState cfg;
    // The file beside this one with the members, a plain archive; empty: none.
    QString base;
    qint64 baseSize = 0; // bytes
    QByteArray baseChecksum;
    bool operator==(const JournalValues&) const = default;
};

// SHA-256 in hexadecimal digits.
QByteArray checksumOf(const QByteArray& bytes);

// JSON in UTF-8.
QByteArray journalText(const JournalValues& values);
// The way back. Malformed: cut short, or not written by this program. Unsupported: written by
// another version. A single value that makes no sense is left out.
Result<JournalValues> journalValuesFrom(const QByteArray& text);

} // namespace fennel
