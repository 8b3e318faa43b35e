// SPDX-License-Identifier: MIT
// gfxboot.cfg and the level files.
#include "checks/check_list.h"
#include "container/member_table.h"
#include "params/cfg_entries.h"
#include "params/cfg_table.h"
#include "params/level_files.h"

#include <algorithm>
#include <set>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype recordSize = 4;

Problem about(const QString& member, const QString& parameter, const QString& sentence,
              const QString& advice)
{
    Problem problem;
    problem.member = member;
    problem.parameter = parameter;
    problem.sentence = sentence;
    problem.advice = advice;
    return problem;
}

// Visits the entries of gfxboot.cfg that are in force, with their values.
template <class Visit>
void eachEntry(const CheckInput& input, const Visit& visit)
{
    const QByteArray* bytes = input.find(cfgMemberName);
    if (bytes == nullptr || input.run.gfxboot_var != 2)
        return;
    for (const CfgEntry& entry : cfgEntries(*bytes)) {
        if (entry.on)
            visit(entry, QString::fromUtf8(bytes->mid(entry.value, entry.end - entry.value)));
    }
}

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
    const QByteArray* engine = input.find(u"init"_s);
    std::set<QByteArray> told;
    eachEntry(input, [&](const CfgEntry& entry, const QString&) {
        if (engine == nullptr || engine->contains(entry.name) || !told.insert(entry.name).second)
            return;
        const QString name = QString::fromUtf8(entry.name);
        found.push_back(about(cfgMemberName, name, u"The engine knows no parameter %1."_s.arg(name),
                              u"Look for a wrong letter; else nothing is lost by it."_s));
    });
}

void checkCfgDoubled(const CheckInput& input, Findings& found)
{
    std::set<QByteArray> seen;
    eachEntry(input, [&](const CfgEntry& entry, const QString&) {
        if (seen.insert(entry.section + "::" + entry.name).second)
            return;
        const QString name = QString::fromUtf8(entry.name);
        found.push_back(about(cfgMemberName, name,
                              u"%1 stands twice; the first one counts."_s.arg(name),
                              u"Take one of the lines out."_s));
    });
}

void checkCfgValues(const CheckInput& input, Findings& found)
{
    eachEntry(input, [&](const CfgEntry& entry, const QString& value) {
        const QString name = QString::fromUtf8(entry.name);
        const auto* const param = std::ranges::find(cfgParams, QStringView(name), &CfgParam::name);
        if (param == cfgParams.end() || fitsKind(param->kind, value))
            return;
        found.push_back(about(cfgMemberName, name, u"%1 cannot be \"%2\"."_s.arg(name, value),
                              param->kind == CfgKind::Flag     ? u"Say 0 or 1."_s
                              : param->kind == CfgKind::Colour ? u"Say a colour 0xRRGGBB."_s
                                                               : u"Say a number."_s));
    });
}

void checkLevelRecords(const CheckInput& input, Findings& found)
{
    std::set<std::pair<int, int>> seen;
    eachRecord(input, [&](int file, int number, qint64) {
        // 0 is a filler; a file that the catalogue knows nothing of is the engine's own affair.
        if (number == 0 || !isListed(input, file))
            return;
        const QString member = levelFileName(file);
        const QString key = u"%1:%2"_s.arg(file).arg(number);
        const bool known =
            ZUKarr::inRange(file, number) && input.state.ZUKarr.at(file, number).DefValue;
        if (!known)
            found.push_back(about(member, key, u"No list shows the record %1."_s.arg(key),
                                  u"Nothing is lost by it; what wrote it can change it."_s));
        else if (!seen.emplace(file, number).second)
            found.push_back(about(
                member, key,
                u"%1 stands twice; the last one counts."_s.arg(shownName(input, file, number)),
                u"Set the value, and look whether the screen follows."_s));
    });
}

void checkLevelValues(const CheckInput& input, Findings& found)
{
    eachRecord(input, [&](int file, int number, qint64 value) {
        if (!ZUKarr::inRange(file, number))
            return;
        const QString name = shownName(input, file, number);
        const bool isSwitch = name.endsWith(u".is.ON") && value > 1;
        const bool isShare = name.contains(u"transp") && value > 255;
        if (isSwitch || isShare)
            found.push_back(about(
                levelFileName(file), name,
                u"%1 is %2, and goes up to %3."_s.arg(name).arg(value).arg(isSwitch ? 1 : 255),
                u"Set it within its range."_s));
    });
}

} // namespace fennel
