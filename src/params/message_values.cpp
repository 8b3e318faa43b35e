// SPDX-License-Identifier: MIT
#include "params/message_values.h"

#include "base/text.h"
#include "params/cfg_entries.h"
#include "params/cfg_table.h"
#include "params/level_files.h"

#include <QMap>

#include <algorithm>
#include <charconv>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr char cfgName[] = "gfxboot.cfg";
constexpr qsizetype recordBytes = 4;
constexpr qint64 largestRecord = 0xFFFFFF;

Failure unknown(const QString& name)
{
    return {FailureKind::NotFound, "there is no parameter " + name.toStdString()};
}

Failure wrongKind(const QString& name, const QString& value, const char* kind)
{
    return {FailureKind::Unsupported,
            name.toStdString() + " takes " + kind + ", not \"" + value.toStdString() + '"'};
}

// "0x12ab" or "-12"; nothing for everything else.
std::optional<qint64> plainNumber(const QString& text)
{
    const bool hex = text.startsWith(u"0x", Qt::CaseInsensitive);
    bool good = false;
    const qint64 number = hex ? text.mid(2).toLongLong(&good, 16) : text.toLongLong(&good, 10);
    return good && text.trimmed() == text && !text.startsWith(u'+') ? std::optional(number)
                                                                    : std::nullopt;
}

// --- gfxboot.cfg

class CfgMember {
public:
    explicit CfgMember(MessageFile& message)
        : m_message(message), m_bytes(message.bytesOf(cfgName)), m_entries(cfgEntries(m_bytes))
    {
    }
    [[nodiscard]] QString valueOf(const CfgEntry& entry) const
    {
        return decodeText(m_bytes.mid(entry.value, entry.end - entry.value)).text;
    }
    // The entry of a plain name or of "section::name".
    [[nodiscard]] const CfgEntry* find(const QString& name, bool on) const
    {
        const qsizetype colons = name.indexOf(u"::");
        const QByteArray section = name.left(std::max<qsizetype>(colons, 0)).toUtf8();
        const QByteArray plain = name.mid(colons < 0 ? 0 : colons + 2).toUtf8();
        const auto found = std::ranges::find_if(m_entries, [&](const CfgEntry& entry) {
            return entry.on == on && entry.name == plain &&
                   (colons < 0 || entry.section == section);
        });
        return found == m_entries.end() ? nullptr : &*found;
    }
    // A name of its own for each entry; a doubled entry that never counts has none.
    [[nodiscard]] QString nameOf(const CfgEntry& entry) const
    {
        for (const QByteArray& name : {entry.name, entry.section + "::" + entry.name}) {
            if (find(QString::fromUtf8(name), true) == &entry)
                return QString::fromUtf8(name);
        }
        return {};
    }
    [[nodiscard]] const std::vector<CfgEntry>& entries() const { return m_entries; }

    void set(const QString& name, const QString& value)
    {
        if (const CfgEntry* entry = find(name, true)) {
            if (valueOf(*entry) != value)
                m_bytes.replace(entry->value, entry->end - entry->value, encoded(value));
        } else if (const CfgEntry* off = find(name, false)) {
            m_bytes.replace(off->line, off->end - off->line, off->name + '=' + encoded(value));
        } else {
            append(name.toUtf8() + '=' + encoded(value));
        }
        m_message.put(cfgName, m_bytes);
    }

private:
    [[nodiscard]] QByteArray encoded(const QString& value) const
    {
        return encodeText(value, decodeText(m_bytes).TextIsUtf8).replace("\xef\xbb\xbf", "");
    }
    void append(const QByteArray& line)
    {
        const QByteArray end = m_bytes.contains('\n') && !m_bytes.contains('\r') ? "\n" : "\r\n";
        const bool ended = m_bytes.isEmpty() || m_bytes.endsWith('\n');
        m_bytes += (ended ? QByteArray() : end) + line + (ended ? end : QByteArray());
    }

    MessageFile& m_message;
    QByteArray m_bytes;
    std::vector<CfgEntry> m_entries;
};

const CfgParam* cfgParam(QStringView name)
{
    const auto* const found = std::ranges::find(cfgParams, name, &CfgParam::name);
    return found == cfgParams.end() ? nullptr : found;
}

Result<void> checkCfgValue(const CfgParam* param, const QString& name, const QString& value)
{
    if (param == nullptr)
        return value.contains(u'\n') || value.contains(u'\r')
                   ? Result<void>(wrongKind(name, value, "one line"))
                   : Result<void>();
    const std::optional<qint64> number = plainNumber(value);
    const bool hex = value.startsWith(u"0x", Qt::CaseInsensitive);
    if (param->kind == CfgKind::Flag && (!number || *number < 0 || *number > 1 || hex))
        return wrongKind(name, value, "0 or 1");
    if (param->kind == CfgKind::Colour && (!number || *number < 0 || *number > largestRecord))
        return wrongKind(name, value, "a colour 0xRRGGBB");
    if (!number)
        return wrongKind(name, value, "a number");
    return {};
}

// --- level files

struct LevelKey {
    int file = 0;
    int number = 0;
    bool operator<(const LevelKey& other) const
    {
        return std::tie(file, number) < std::tie(other.file, other.number);
    }
};

// The names of the catalogue that are one of a kind.
QMap<QString, LevelKey> uniqueNames(const ZUKarr& catalogue)
{
    QMap<QString, LevelKey> names;
    QStringList doubled;
    for (int file = 0; file < zukFileCount; ++file) {
        for (int number = 1; number <= zukParamCount; ++number) {
            const ZukCell& cell = catalogue.at(file, number);
            if (!cell.DefValue || cell.Name.isEmpty())
                continue;
            if (names.contains(cell.Name))
                doubled.append(cell.Name);
            names.insert(cell.Name, {file, number});
        }
    }
    for (const QString& name : doubled)
        names.remove(name);
    return names;
}

QString levelName(const QMap<QString, LevelKey>& names, const ZUKarr& catalogue, LevelKey key)
{
    const QString& name = catalogue.at(key.file, key.number).Name;
    return names.contains(name) ? name : u"%1:%2"_s.arg(key.file).arg(key.number);
}

QString levelText(const ZUKarr& catalogue, LevelKey key, qint64 number)
{
    return catalogue.at(key.file, key.number).IsHex ? hexText(number) : QString::number(number);
}

QByteArray levelMember(int file)
{
    return levelFileName(file).toLatin1();
}

// Where the record that counts begins, the last one of its number; -1 without one.
qsizetype recordAt(const QByteArray& bytes, int number)
{
    qsizetype found = -1;
    for (qsizetype at = 0; at + recordBytes <= bytes.size(); at += recordBytes) {
        if (static_cast<unsigned char>(bytes[at + 3]) == number)
            found = at;
    }
    return found;
}

qint64 recordValue(const QByteArray& bytes, qsizetype at)
{
    const auto byte = [&](qsizetype i) { return static_cast<unsigned char>(bytes[at + i]); };
    return byte(2) * 65536 + byte(1) * 256 + byte(0);
}

// A name of the catalogue, or "file:number" of a parameter that the catalogue or the file knows.
std::optional<LevelKey> levelKey(const MessageFile& message, const ZUKarr& catalogue,
                                 const QString& name)
{
    const auto names = uniqueNames(catalogue);
    if (const auto found = names.find(name); found != names.end())
        return *found;
    const qsizetype colon = name.indexOf(u':');
    bool good[2] = {};
    const LevelKey key{name.left(std::max<qsizetype>(colon, 0)).toInt(&good[0]),
                       name.mid(colon + 1).toInt(&good[1])};
    if (colon < 0 || !good[0] || !good[1] || !ZUKarr::inRange(key.file, key.number))
        return std::nullopt;
    const bool known = catalogue.at(key.file, key.number).DefValue.has_value() ||
                       recordAt(message.bytesOf(levelMember(key.file)), key.number) >= 0;
    return known ? std::optional(key) : std::nullopt;
}

std::vector<NamedValue> levelValues(const MessageFile& message, const ZUKarr& catalogue)
{
    std::vector<NamedValue> values;
    const auto names = uniqueNames(catalogue);
    for (int file = 0; file < zukFileCount; ++file) {
        const QByteArray bytes = message.bytesOf(levelMember(file));
        for (int number = 1; number <= zukParamCount; ++number) {
            const LevelKey key{file, number};
            if (const qsizetype at = recordAt(bytes, number); at >= 0)
                values.push_back({levelName(names, catalogue, key),
                                  levelText(catalogue, key, recordValue(bytes, at))});
        }
    }
    return values;
}

Result<void> setLevelValue(MessageFile& message, const ZUKarr& catalogue, const QString& name,
                           const QString& value)
{
    const std::optional<LevelKey> key = levelKey(message, catalogue, name);
    if (!key)
        return unknown(name);
    const std::optional<qint64> number = plainNumber(value);
    if (!number || *number < 0 || *number > largestRecord)
        return wrongKind(name, value, "a number from 0 to 16777215 or 0xRRGGBB");
    const QByteArray member = levelMember(key->file);
    if (message.find(member) == nullptr)
        return Failure{FailureKind::NotFound,
                       "there is no member " + member.toStdString() + " for " + name.toStdString()};
    QByteArray bytes = message.bytesOf(member);
    qsizetype at = recordAt(bytes, key->number);
    if (at < 0) {
        // What is no whole record at the end would shift the new one.
        at = bytes.size() - bytes.size() % recordBytes;
        bytes.resize(at + recordBytes);
        bytes[at + 3] = static_cast<char>(key->number);
    }
    for (const int i : {0, 1, 2})
        bytes[at + i] = static_cast<char>(*number >> (8 * i) & 0xFF);
    message.put(member, bytes);
    return {};
}

// People remember words, and not what stands between them.
QString lettersOf(const QString& name)
{
    QString letters = name.toLower();
    return letters.remove(u'.').remove(u'_').remove(u'-').remove(u' ');
}

// Edits between two words: the fewest letters that come, go or change.
int distance(const QString& a, const QString& b)
{
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<int>(i);
    for (qsizetype i = 0; i < a.size(); ++i) {
        int corner = std::exchange(row[0], static_cast<int>(i) + 1);
        for (qsizetype j = 0; j < b.size(); ++j) {
            const auto at = static_cast<std::size_t>(j);
            const int changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = std::exchange(row[at + 1], std::min({changed, row[at] + 1, row[at + 1] + 1}));
        }
    }
    return row.back();
}

} // namespace

std::vector<NamedValue> namedValues(const MessageFile& message, const ZUKarr& catalogue)
{
    if (message.generation() == 3)
        return levelValues(message, catalogue);
    std::vector<NamedValue> values;
    MessageFile copy = message;
    const CfgMember cfg(copy);
    for (const CfgEntry& entry : cfg.entries()) {
        if (const QString name = entry.on ? cfg.nameOf(entry) : QString(); !name.isEmpty())
            values.push_back({name, cfg.valueOf(entry)});
    }
    return values;
}

std::optional<QString> namedValue(const MessageFile& message, const ZUKarr& catalogue,
                                  const QString& name)
{
    if (message.generation() == 3) {
        const std::optional<LevelKey> key = levelKey(message, catalogue, name);
        if (!key)
            return std::nullopt;
        const QByteArray bytes = message.bytesOf(levelMember(key->file));
        const qsizetype at = recordAt(bytes, key->number);
        return levelText(catalogue, *key,
                         at >= 0 ? recordValue(bytes, at)
                                 : *catalogue.at(key->file, key->number).DefValue);
    }
    MessageFile copy = message;
    const CfgMember cfg(copy);
    if (const CfgEntry* entry = cfg.find(name, true))
        return cfg.valueOf(*entry);
    const bool known = message.generation() == 2 && cfgParam(name) != nullptr;
    return known ? std::optional(CfgDefault(name)) : std::nullopt;
}

Result<void> setValue(MessageFile& message, const ZUKarr& catalogue, const QString& name,
                      const QString& value)
{
    if (message.generation() == 3)
        return setLevelValue(message, catalogue, name, value);
    CfgMember cfg(message);
    const CfgParam* param = cfgParam(name);
    if (message.generation() == 1 || (param == nullptr && cfg.find(name, true) == nullptr))
        return unknown(name);
    if (Result<void> good = checkCfgValue(param, name, value); !good)
        return good;
    cfg.set(name, value);
    return {};
}

QStringList nearNames(const QStringList& names, const QString& name)
{
    constexpr qsizetype most = 5;
    const QString letters = lettersOf(name);
    const auto farthest = static_cast<int>(std::clamp<qsizetype>(letters.size() / 3, 1, 4));
    std::vector<std::pair<int, QString>> found;
    for (const QString& known : names) {
        // A part of a long name is nearer than its letters say.
        const bool part = letters.size() > 2 && lettersOf(known).contains(letters);
        if (const int edits = part ? 1 : distance(letters, lettersOf(known)); edits <= farthest)
            found.emplace_back(edits, known);
    }
    std::ranges::stable_sort(found, {}, [](const auto& entry) { return entry.first; });
    QStringList result;
    for (const auto& [edits, known] : found) {
        if (result.size() < most && !result.contains(known))
            result.append(known);
    }
    return result;
}

QStringList nearNames(const MessageFile& message, const ZUKarr& catalogue, const QString& name)
{
    QStringList names;
    for (const NamedValue& value : namedValues(message, catalogue))
        names.append(value.name);
    if (message.generation() == 3)
        names += uniqueNames(catalogue).keys();
    for (const CfgParam& param : cfgParams) {
        if (message.generation() == 2)
            names.append(param.name.toString());
    }
    return nearNames(names, name);
}

} // namespace fennel
