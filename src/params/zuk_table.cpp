// SPDX-License-Identifier: MIT
#include "params/zuk_table.h"

#include "base/shell_context.h"
#include "base/words.h"

namespace fennel {

namespace {

// Without a record of its own a parameter has the catalogue's default.
qint64 fileValue(const ZukCell& cell)
{
    return cell.LevelValue == -1 ? *cell.DefValue : cell.LevelValue;
}

// A value from the lists or a menu; -1 in there counts as none.
qint64 valueOrBelow(std::optional<qint64> value, const ZukCell& cell)
{
    const qint64 found = value ? *value : cell.LevelValue;
    return found == -1 ? *cell.DefValue : found;
}

} // namespace

QString levelFileName(int file)
{
    // Four digits, filled up with zeros.
    return QStringLiteral("ZUK%1.CFG").arg(QString::number(10000 + file).right(4));
}

std::optional<qint64> ZUKarr::GetLevelValue(int file, int param, Layer layer) const
{
    // Only the catalogue makes a parameter known: a record alone may come from a newer engine.
    const bool known = inRange(file, param) && at(file, param).DefValue;
    if (!known)
        // A menu may say nothing of a parameter, which is no fault; the other layers always have an
        // answer.
        return layer == LayerLst ? std::nullopt : std::optional<qint64>(-1);
    const ZukCell& cell = at(file, param);
    switch (layer) {
    case LayerDefault:
        return cell.DefValue;
    case LayerCfg:
        return fileValue(cell);
    case LayerEdit:
        return valueOrBelow(cell.EditValue, cell);
    case LayerLst:
        // Menu over lists over file over default: each layer shows through where the one above is
        // silent.
        return valueOrBelow(cell.LstValue ? cell.LstValue : cell.EditValue, cell);
    }
    return -1;
}

std::optional<qint64> GetLevelValue(const Shell& shell, const ZUKarr& table, int file, int param,
                                    Layer layer)
{
    const std::optional<qint64> value = table.GetLevelValue(file, param, layer);
    const bool known = ZUKarr::inRange(file, param) && table.at(file, param).DefValue;
    // Told with the numbers, as the usual reason is a program older than the gfxboot.
    if (known && value == -1) {
        shell.prompts.ShowMessage(
            Words::tr("File: %1\nParameter :%2: does not exist!\n"
                      "Perhaps you need to update the version of the FENNEL-GFX")
                .arg(levelFileName(file))
                .arg(param),
            MessageType::Ok, programTitle());
    }
    return value;
}

} // namespace fennel
