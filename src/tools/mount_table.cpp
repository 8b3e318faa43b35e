// SPDX-License-Identifier: MIT
#include "tools/mount_table.h"

#include <QFile>
#include <QList>

#include <optional>

namespace fennel {

namespace {

// Fields by their places in a line; behind the "-" they are counted anew.
// The format of /proc/self/mountinfo, see proc(5).
enum Field { Device = 2, Root = 3, Folder = 4, FirstOptional = 6 };

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

// Blanks, tabs, line ends and backslashes stand as three octal digits behind a backslash.
QString unescaped(const QByteArray& field)
{
    QByteArray bytes;
    bytes.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const bool escape = field[i] == '\\' && i + 3 < field.size() && isOctal(field[i + 1]) &&
                            isOctal(field[i + 2]) && isOctal(field[i + 3]);
        if (!escape) {
            bytes.append(field[i]);
            continue;
        }
        const int code =
            (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
        bytes.append(static_cast<char>(code));
        i += 3;
    }
    return QFile::decodeName(bytes);
}

std::optional<MountEntry> entryFrom(const QByteArray& line)
{
    const QList<QByteArray> fields = line.split(' ');
    // The number of optional fields varies; "-" ends them.
    const qsizetype dash = fields.indexOf("-", FirstOptional);
    if (dash < 0 || dash + 2 >= fields.size())
        return std::nullopt;
    const QList<QByteArray> numbers = fields[Device].split(':');
    if (numbers.size() != 2)
        return std::nullopt;
    MountEntry entry;
    bool majorRead = false;
    bool minorRead = false;
    entry.major = numbers[0].toUInt(&majorRead);
    entry.minor = numbers[1].toUInt(&minorRead);
    entry.root = unescaped(fields[Root]);
    entry.folder = unescaped(fields[Folder]);
    entry.fileSystem = unescaped(fields[dash + 1]);
    entry.source = unescaped(fields[dash + 2]);
    entry.options = fields.value(dash + 3);
    // Anything else is no line of this table and is passed over.
    const bool sound = majorRead && minorRead && entry.folder.startsWith(QLatin1Char('/'));
    return sound ? std::optional(entry) : std::nullopt;
}

} // namespace

std::vector<MountEntry> mountEntries(const QByteArray& table)
{
    std::vector<MountEntry> entries;
    for (const QByteArray& line : table.split('\n')) {
        if (std::optional<MountEntry> entry = entryFrom(line))
            entries.push_back(std::move(*entry));
    }
    return entries;
}

} // namespace fennel
