// SPDX-License-Identifier: MIT
// The parameters of a message file in memory by their names, read and set in the bytes of the
// members: what is not named keeps every byte. Generation 2 has the names of gfxboot.cfg, of
// several equal ones the first, or "section::name"; generation 3 has those of the catalogue where
// they are one of a kind, and "file:number" for every parameter.
#pragma once

#include "container/message_file.h"
#include "params/zuk_table.h"

#include <QStringList>

#include <optional>

namespace fennel {

struct NamedValue {
    QString name;
    QString value; // as setValue() takes it
    bool operator==(const NamedValue&) const = default;
};

// What the file says, in its order; each name stands for one entry. Generation 1 says nothing.
std::vector<NamedValue> namedValues(const MessageFile& message, const ZUKarr& catalogue);

// The value, or the default of a known parameter that the file does not mention; nothing for an
// unknown name.
std::optional<QString> namedValue(const MessageFile& message, const ZUKarr& catalogue,
                                  const QString& name);

// Sets one value: in its line, in a line that was switched off, in its record, or in a new line or
// record at the end. NotFound for an unknown name, Unsupported for a value of another kind.
Result<void> setValue(MessageFile& message, const ZUKarr& catalogue, const QString& name,
                      const QString& value);

// The names that can be asked for here and are like this one, the nearest first, at most five.
QStringList nearNames(const MessageFile& message, const ZUKarr& catalogue, const QString& name);
// The same among any names.
QStringList nearNames(const QStringList& names, const QString& name);

} // namespace fennel
