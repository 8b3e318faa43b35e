// SPDX-License-Identifier: MIT
// gfxboot.cfg and the level files.
#include "base/words.h"
#include "checks/check_list.h"
#include "container/member_table.h"
#include "params/cfg_entries.h"
#include "params/cfg_table.h"
#include "params/level_files.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype recordSize = 4;

Problem about(const QString& member, const QString& parameter, const QString& sentence,
              const QString& advice)
{
    Problem problem = aboutMember(member, sentence, advice);
    problem.parameter = parameter;
    return problem;
}

// An entry that is in force.
struct EntryInForce {
    QByteArray section;
    QByteArray name;
    QString value;
    int nth = 0; // of the entries with its name, from 0
};

template <class Visit>
void eachEntry(const CheckInput& input, const Visit& visit)
{
    const QByteArray* bytes = input.find(cfgMemberName);
    if (bytes == nullptr || input.run.gfxboot_var != 2)
        return;
    QHash<QByteArray, int> counts;
    for (const CfgEntry& entry : cfgEntries(*bytes)) {
        if (entry.on)
            visit(EntryInForce{entry.section, entry.name,
                               QString::fromUtf8(bytes->mid(entry.value, entry.end - entry.value)),
                               counts[entry.name]++});
    }
}

// The lines of gfxboot.cfg as the list shows them, by the entries of the file.
class ShownLines {
public:
    explicit ShownLines(const CheckInput& input) : m_lines(input.state.cfg)
    {
        for (int line = 0; line < m_lines.size(); ++line) {
            if (isParameter(m_lines[line]) && m_lines[line].on)
                m_places[m_lines[line].name.toUtf8()].append(line);
        }
    }
    // None for an entry that no list shows.
    [[nodiscard]] std::optional<Mend> mend(const EntryInForce& entry, const QString& what,
                                           const std::function<void(CfgLine&)>& change) const
    {
        const QList<int> places = m_places.value(entry.name);
        if (entry.nth >= places.size())
            return std::nullopt;
        Mend mend{what, {}, {}, {}, {}};
        mend.change.cfg = m_lines;
        change((*mend.change.cfg)[places[entry.nth]]);
        mend.change.writeCfg = true;
        mend.change.cfgKey = QString::fromUtf8(entry.name);
        return *mend.change.cfg == m_lines ? std::nullopt : std::optional(mend);
    }

private:
    const CfgLines& m_lines;
    QHash<QByteArray, QList<int>> m_places;
};

bool fitsKind(CfgKind kind, const QString& value)
{
    const bool hex = value.startsWith(u"0x", Qt::CaseInsensitive);
    bool good = false;
    const qint64 number = hex ? value.mid(2).toLongLong(&good, 16) : value.toLongLong(&good, 10);
    if (kind == CfgKind::Flag)
        return good && (number == 0 || number == 1);
    return good && (kind == CfgKind::Number || (number >= 0 && number <= 0xFFFFFF));
}

// Visits the records of all level files: file, number of the parameter, value.
template <class Visit>
void eachRecord(const CheckInput& input, const Visit& visit)
{
    for (int file = 0; input.run.GfxHasZuk && file < zukFileCount; ++file) {
        const QByteArray* bytes = input.find(levelFileName(file));
        for (qsizetype at = 0; bytes != nullptr && at + recordSize <= bytes->size();
             at += recordSize) {
            const auto byte = [&](qsizetype i) { return static_cast<quint8>((*bytes)[at + i]); };
            visit(file, int{byte(3)}, qint64{byte(2) * 65536 + byte(1) * 256 + byte(0)});
        }
    }
}

bool isListed(const CheckInput& input, int file)
{
    for (int number = 1; number <= zukParamCount; ++number) {
        if (input.state.ZUKarr.at(file, number).DefValue)
            return true;
    }
    return false;
}

QString shownName(const CheckInput& input, int file, int number)
{
    const QString& name = input.state.ZUKarr.at(file, number).Name;
    return name.isEmpty() ? u"%1:%2"_s.arg(file).arg(number) : name;
}

} // namespace

void checkCfgNames(const CheckInput& input, Findings& found)
{
    constexpr int mostNames = 1000; // each is looked for in the whole engine
    int names = 0;
    const QByteArray* engine = input.find(u"init"_s);
    eachEntry(input, [&](const EntryInForce& entry) {
        if (engine == nullptr || entry.nth > 0 || ++names > mostNames ||
            engine->contains(entry.name))
            return;
        const QString name = QString::fromUtf8(entry.name);
        found.push_back(about(cfgMemberName, name,
                              Words::tr("The engine knows no parameter %1.").arg(name),
                              Words::tr("Look for a wrong letter; else nothing is lost by it.")));
    });
}

void checkCfgDoubled(const CheckInput& input, Findings& found)
{
    const ShownLines lines(input);
    std::set<QByteArray> seen;
    eachEntry(input, [&](const EntryInForce& entry) {
        if (seen.insert(entry.section + "::" + entry.name).second)
            return;
        const QString name = QString::fromUtf8(entry.name);
        Problem problem = about(cfgMemberName, name,
                                Words::tr("%1 stands twice; the first one counts.").arg(name),
                                Words::tr("Take one of the lines out."));
        problem.mend = lines.mend(entry, Words::tr("Switch the later one off"),
                                  [](CfgLine& line) { line.on = false; });
        found.push_back(problem);
    });
}

void checkCfgValues(const CheckInput& input, Findings& found)
{
    const ShownLines lines(input);
    eachEntry(input, [&](const EntryInForce& entry) {
        const QString name = QString::fromUtf8(entry.name);
        const auto* const param = std::ranges::find(cfgParams, QStringView(name), &CfgParam::name);
        if (param == cfgParams.end() || fitsKind(param->kind, entry.value))
            return;
        Problem problem =
            about(cfgMemberName, name, Words::tr("%1 cannot be \"%2\".").arg(name, entry.value),
                  param->kind == CfgKind::Flag     ? Words::tr("Say 0 or 1.")
                  : param->kind == CfgKind::Colour ? Words::tr("Say a colour 0xRRGGBB.")
                                                   : Words::tr("Say a number."));
        problem.mend =
            lines.mend(entry, Words::tr("Say %1, the default").arg(param->defaultValue),
                       [param](CfgLine& line) { line.value = typedValue(param->defaultValue); });
        found.push_back(problem);
    });
}

// What was edited where it does not count. A line that repeats the default, or another one that is
// in force, is left alone.
void checkCfgOff(const CheckInput& input, Findings& found)
{
    const CfgLines& lines = input.state.cfg;
    QSet<QString> inForce;
    for (const CfgLine& line : lines) {
        if (line.on)
            inForce.insert(line.name);
    }
    for (qsizetype at = 0; input.run.gfxboot_var == 2 && at < lines.size(); ++at) {
        const CfgLine& line = lines[at];
        const bool edited = line.kind == CfgKindOfLine::Known && !line.on && line.valued &&
                            line.value.number != typedValue(CfgDefault(line.name)).number;
        if (!edited || inForce.contains(line.name))
            continue;
        Problem problem = about(cfgMemberName, line.name,
                                Words::tr("%1 is switched off, so its value %2 does not count.")
                                    .arg(line.name, line.value.text()),
                                Words::tr("Switch it on if it is meant."));
        problem.mend = Mend{Words::tr("Switch it on"), {}, {}, {}, {}};
        problem.mend->change.cfg = lines;
        (*problem.mend->change.cfg)[at].on = true;
        problem.mend->change.writeCfg = true;
        problem.mend->change.cfgKey = line.name;
        found.push_back(problem);
    }
}

void checkLevelRecords(const CheckInput& input, Findings& found)
{
    // Each is told once, however often a file has it.
    std::map<std::pair<int, int>, int> seen;
    eachRecord(input, [&](int file, int number, qint64) {
        const int times = ++seen[{file, number}];
        if (times > 2)
            return;
        // 0 is a filler; a file that the catalogue knows nothing of is the engine's own affair.
        if (number == 0 || !isListed(input, file))
            return;
        const QString member = levelFileName(file);
        const QString key = u"%1:%2"_s.arg(file).arg(number);
        const bool known =
            ZUKarr::inRange(file, number) && input.state.ZUKarr.at(file, number).DefValue;
        if (!known && times == 1)
            found.push_back(
                about(member, key, Words::tr("No list shows the record %1.").arg(key),
                      Words::tr("Nothing is lost by it; what wrote it can change it.")));
        else if (known && times == 2)
            found.push_back(
                about(member, key,
                      Words::tr("%1 stands twice; the last one counts.")
                          .arg(shownName(input, file, number)),
                      Words::tr("Set the value, and look whether the screen follows.")));
    });
}

void checkLevelValues(const CheckInput& input, Findings& found)
{
    // Of several records of a parameter the last one counts.
    std::map<std::pair<int, int>, qint64> values;
    eachRecord(input, [&](int file, int number, qint64 value) {
        if (ZUKarr::inRange(file, number))
            values[{file, number}] = value;
    });
    for (const auto& [key, value] : values) {
        const auto [file, number] = key;
        const QString name = shownName(input, file, number);
        const bool isCount = name == u"s.flash.is.ON"; // how many sparks there are
        const bool isSwitch = name.endsWith(u".is.ON");
        const int most = isCount ? 8 : isSwitch ? 1 : 255;
        if ((!isSwitch && !name.contains(u"transp")) || value <= most)
            continue;
        Problem problem =
            about(levelFileName(file), name,
                  Words::tr("%1 is %2, and goes up to %3.").arg(name).arg(value).arg(most),
                  Words::tr("Set it within its range."));
        problem.param = {file, number};
        if (const auto& shown = input.state.ZUKarr.at(file, number).Value) {
            problem.mend = Mend{Words::tr("Set it to %1").arg(most), {}, {}, {}, {}};
            problem.mend->change.params[problem.param] = ParamValue{most, shown->hex, {}};
        }
        found.push_back(problem);
    }
}

} // namespace fennel
