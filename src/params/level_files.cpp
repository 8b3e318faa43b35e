// SPDX-License-Identifier: MIT
#include "params/level_files.h"

#include "base/shell_context.h"
#include "base/text.h"

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

QByteArray recordsOf(const ZUKarr& table, int file)
{
    QByteArray bytes;
    for (int param = 1; param <= zukParamCount; ++param) {
        const std::optional<qint64> value = table.at(file, param).EditValue;
        if (!value)
            continue;
        // Values have 24 bits; a record has no place for what is above.
        for (const int shift : {0, 8, 16})
            bytes.append(static_cast<char>((*value >> shift) & 0xFF));
        bytes.append(static_cast<char>(param));
    }
    return bytes;
}

// A new level file that stands beside the old one until all are written.
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
        const auto byte = [&](qsizetype k) { return static_cast<unsigned char>(bytes[i + k]); };
        if (ZUKarr::inRange(file, byte(3)))
            table.at(file, byte(3)).LevelValue = byte(2) * 65536 + byte(1) * 256 + byte(0);
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

Result<void> WriteLevelFiles(const Shell& shell, const ZUKarr& table)
{
    if (!shell.run.GfxHasZuk)
        return {};
    const QString folder = withSeparator(shell.run.Workspace);
    std::vector<NewFile> written;
    Result<void> result;
    for (int file = 0; file < zukFileCount && result; ++file) {
        const QByteArray bytes = recordsOf(table, file);
        // A file that no list shows anything of is left as it is.
        if (bytes.isEmpty())
            continue;
        const QString name = levelFileName(file);
        // All new files are complete before the first old one is replaced. "#" keeps them from
        // being members.
        written.push_back({folder + name, folder + QLatin1Char('#') + name});
        result = shell.files.write(written.back().temporary, bytes);
    }
    if (result)
        result = renameAll(shell.files, written);
    if (!result)
        removeTemporaries(shell.files, written);
    return result;
}

} // namespace fennel
