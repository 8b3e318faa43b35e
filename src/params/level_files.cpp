// SPDX-License-Identifier: MIT
#include "params/level_files.h"

#include "base/shell_context.h"
#include "base/text.h"
#include "base/words.h"

#include <optional>
#include <set>

namespace fennel {

namespace {

// A level file is records of three value bytes, low byte first, and the parameter's number.
constexpr int recordSize = 4;

// The catalogue's fields stay, they do not belong to one gfxboot.
void forgetFile(ZUKarr& table, int file)
{
    for (int param = 1; param <= zukParamCount; ++param) {
        ZukCell& cell = table.at(file, param);
        cell.LevelValue = -1;
        cell.EditValue.reset();
        cell.Value.reset();
    }
}

// Values have 24 bits; a record has no place for what is above.
QByteArray recordOf(int param, qint64 value)
{
    QByteArray record;
    for (const int shift : {0, 8, 16})
        record.append(static_cast<char>((value >> shift) & 0xFF));
    return record.append(static_cast<char>(param));
}

int numberAt(const QByteArray& bytes, qsizetype record)
{
    return static_cast<unsigned char>(bytes[record * recordSize + recordSize - 1]);
}

qint64 valueAt(const QByteArray& bytes, qsizetype record)
{
    const auto byte = [&](int k) {
        return static_cast<unsigned char>(bytes[record * recordSize + k]);
    };
    return byte(2) * 65536 + byte(1) * 256 + byte(0);
}

QByteArray listedRecords(const ZUKarr& table, int file)
{
    QByteArray bytes;
    for (int param = 1; param <= zukParamCount; ++param) {
        if (const auto value = table.at(file, param).EditValue)
            bytes += recordOf(param, *value);
    }
    return bytes;
}

// The record of a parameter that counts, the last one; without one, where it belongs among numbers
// that ascend.
struct RecordPlace {
    qsizetype record = 0;
    bool there = false;
};

RecordPlace placeOf(const QByteArray& bytes, int param)
{
    const qsizetype count = bytes.size() / recordSize;
    RecordPlace place{count, false};
    for (qsizetype record = count - 1; record >= 0; --record) {
        const int number = numberAt(bytes, record);
        if (number == param)
            return {record, true};
        if (number > param)
            place.record = record;
    }
    return place;
}

// A file that is not there has no records.
Result<QByteArray> recordsIn(const QString& path)
{
    return FileExists(path) ? readBytes(path, levelFileLimit) : Result<QByteArray>(QByteArray());
}

// The new bytes of a file; none for one that stays as it is.
Result<std::optional<QByteArray>> newRecords(const QString& path, const ZUKarr& table, int file,
                                             SaveForm form)
{
    QByteArray bytes = listedRecords(table, file);
    // No list shows anything of it.
    if (bytes.isEmpty())
        return std::optional<QByteArray>();
    const Result<QByteArray> old = recordsIn(path);
    if (!old)
        return old.failure();
    if (form == SaveForm::Kept)
        bytes = keptRecords(*old, table, file);
    return bytes == *old ? std::nullopt : std::optional(bytes);
}

QStringList lossesOf(const QByteArray& bytes, const ZUKarr& table, int file)
{
    QStringList losses;
    // A file that no list shows anything of is not written.
    if (listedRecords(table, file).isEmpty())
        return losses;
    std::set<int> told;
    for (qsizetype record = 0; record < bytes.size() / recordSize; ++record) {
        const int number = numberAt(bytes, record);
        const bool known = ZUKarr::inRange(file, number);
        if (number == 0 || (known && table.at(file, number).EditValue) ||
            !told.insert(number).second)
            continue;
        const RecordPlace last = placeOf(bytes, number);
        losses.append(Words::tr("%1: parameter %2%3 = %4   \u2192   dropped")
                          .arg(levelFileName(file))
                          .arg(number)
                          .arg(known ? u' ' + table.at(file, number).Name : QString())
                          .arg(valueAt(bytes, last.record)));
    }
    if (const qsizetype rest = bytes.size() % recordSize; rest > 0)
        losses.append(Words::tr("%1: the last %2 bytes   \u2192   dropped")
                          .arg(levelFileName(file))
                          .arg(rest));
    return losses;
}

// A new level file that waits outside the Workspace until all are written.
struct NewFile {
    QString path;
    QString temporary;
};

Result<void> renameAll(Files& files, const std::vector<NewFile>& written)
{
    for (const NewFile& file : written) {
        if (Result<void> renamed = files.rename(file.temporary, file.path); !renamed)
            return renamed;
    }
    return {};
}

void removeTemporaries(Files& files, const std::vector<NewFile>& written)
{
    for (const NewFile& file : written)
        (void)files.remove(file.temporary);
}

} // namespace

int levelFileOf(const PanelRec& object)
{
    // "ZUK0003.CFG" is file 3; an object without a file gives 0.
    return static_cast<int>(numberFromText(QStringView(object.CfgFile).mid(3)));
}

void readLevelRecords(const QByteArray& bytes, int file, ZUKarr& table)
{
    // A rest that is no whole record is passed over. Of two records of one parameter the later
    // wins.
    for (qsizetype i = 0; i + recordSize <= bytes.size(); i += recordSize) {
        const int param = numberAt(bytes, i / recordSize);
        if (ZUKarr::inRange(file, param))
            table.at(file, param).LevelValue = static_cast<qint32>(valueAt(bytes, i / recordSize));
    }
}

void ReadLevelFiles(const Shell& shell, ZUKarr& table)
{
    if (!shell.run.GfxHasZuk)
        return;
    shell.WriteLog(QStringLiteral(" read ZUKxxxxCFG "));
    const QString folder = withSeparator(shell.run.Workspace);
    for (int file = 0; file < zukFileCount; ++file) {
        // Also of a file that is not there, or the values of the gfxboot before would stay.
        forgetFile(table, file);
        const QString path = folder + levelFileName(file);
        if (!FileExists(path))
            continue;
        const Result<QByteArray> bytes = readBytes(path, levelFileLimit);
        if (bytes)
            readLevelRecords(*bytes, file, table);
        else
            (void)shell.told(bytes.failure());
    }
}

void GatherListValues(ZUKarr& table)
{
    for (int file = 0; file < zukFileCount; ++file) {
        for (int param = 1; param <= zukParamCount; ++param) {
            ZukCell& cell = table.at(file, param);
            if (cell.Value)
                cell.EditValue = cell.Value->number;
        }
    }
}

QByteArray keptRecords(QByteArray bytes, const ZUKarr& table, int file)
{
    for (int param = 1; param <= zukParamCount; ++param) {
        const std::optional<qint64> value = table.at(file, param).EditValue;
        if (!value)
            continue;
        const RecordPlace place = placeOf(bytes, param);
        if (place.there && valueAt(bytes, place.record) == (*value & levelValueLimit))
            continue;
        bytes.replace(place.record * recordSize, place.there ? recordSize : 0,
                      recordOf(param, *value));
    }
    return bytes;
}

Result<QStringList> levelLosses(const Shell& shell, const ZUKarr& table)
{
    const QString folder = withSeparator(shell.run.Workspace);
    QStringList losses;
    for (int file = 0; file < zukFileCount; ++file) {
        const Result<QByteArray> bytes = recordsIn(folder + levelFileName(file));
        if (!bytes)
            return bytes.failure();
        losses += lossesOf(*bytes, table, file);
    }
    return losses;
}

Result<void> WriteLevelFiles(const Shell& shell, const ZUKarr& table, SaveForm form)
{
    if (!shell.run.GfxHasZuk)
        return {};
    const QString folder = withSeparator(shell.run.Workspace);
    std::vector<NewFile> written;
    Result<void> result;
    for (int file = 0; file < zukFileCount && result; ++file) {
        const QString name = levelFileName(file);
        const auto bytes = newRecords(folder + name, table, file, form);
        if (!bytes)
            result = bytes.failure();
        if (!bytes || !*bytes)
            continue;
        // All new files are complete before the first old one is replaced, and made where no
        // member can be.
        written.push_back({folder + name, shell.run.WorkspaceRoot + QLatin1Char('~') + name});
        result = shell.files.write(written.back().temporary, **bytes);
    }
    if (result)
        result = renameAll(shell.files, written);
    if (!result)
        removeTemporaries(shell.files, written);
    return result;
}

} // namespace fennel
