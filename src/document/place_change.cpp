// SPDX-License-Identifier: MIT
#include "document/place_change.h"

#include "base/words.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <QPoint>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

void addParam(const ParamState& state, const PanelRec& panel, int source, qint64 number,
              Change& change)
{
    const auto id = std::ranges::find(panel.Ids, source, &PanelParam::number);
    const ParamKey key{levelFileOf(panel), source};
    // A constant has no parameter, and what no list shows reaches no file.
    if (source <= 0 || id == panel.Ids.end() || !ZUKarr::inRange(key.file, source))
        return;
    const auto& value = state.ZUKarr.at(key.file, source).Value;
    // An object larger than the picture may stand left of it, where nothing can be stored.
    number = std::clamp<qint64>(number, 0, levelValueLimit);
    if (value && value->number != number)
        change.params[key] = ParamValue{number, id->hex, {}};
}

// Left and top are point A, width and height point B.
void moveSpark(const ParamState& state, const PanelRec& panel, QPoint by, Change& change)
{
    const auto shift = [&](int source, int delta) {
        if (source <= 0)
            return;
        const auto& value = state.ZUKarr.at(levelFileOf(panel), source).Value;
        if (value)
            addParam(state, panel, source, value->number + delta, change);
    };
    shift(panel.LeftParam, by.x());
    shift(panel.TopParam, by.y());
    shift(panel.WidthParam, by.x());
    shift(panel.HeightParam, by.y());
}

void addNumber(const ParamState& state, QStringView name, qint64 number, Change& change)
{
    const CfgLines& lines = change.cfg ? *change.cfg : state.cfg;
    const CfgLines changed = withCfgNumber(lines, name, number);
    if (change.cfg || changed != state.cfg)
        change.cfg = changed;
}

} // namespace

void addRecord(const ParamState& state, int row, const PanelRec& wanted, Change& change)
{
    const PanelRec* now = state.object(row);
    if (now == nullptr)
        return;
    if (isSparkle(row)) {
        moveSpark(state, *now, {wanted.Left - now->Left, wanted.Top - now->Top}, change);
        return;
    }
    addParam(state, wanted, wanted.TopParam, wanted.Top, change);
    addParam(state, wanted, wanted.LeftParam, wanted.Left, change);
    addParam(state, wanted, wanted.WidthParam, wanted.Width, change);
    addParam(state, wanted, wanted.HeightParam, wanted.Height, change);
    addParam(state, wanted, wanted.BackParam, wanted.BackColor & 0xFFFFFFU, change);
    addParam(state, wanted, wanted.TextParam, wanted.TextColor & 0xFFFFFFU, change);
    addParam(state, wanted, wanted.TranspParam, wanted.Transp, change);
    change.objects[row] = wanted;
}

QString whyPlaceStays(const ParamState& state, int generation, int row)
{
    const PanelRec* panel = state.object(row);
    if (panel == nullptr)
        return {};
    if (generation == 3) {
        const auto listed = [&](int source) {
            return source <= 0 || !ZUKarr::inRange(levelFileOf(*panel), source) ||
                   state.ZUKarr.at(levelFileOf(*panel), source).Value;
        };
        return listed(panel->LeftParam) && listed(panel->TopParam)
                   ? QString()
                   : Words::tr("%1 has no record of this place: it cannot be stored")
                         .arg(panel->CfgFile);
    }
    const CfgDialect& names = cfgDialectOf(state.cfg);
    const bool known =
        cfgLineOf(state.cfg, names.left) >= 0 && cfgLineOf(state.cfg, names.top) >= 0;
    if (generation == 2 && known)
        return {};
    return Words::tr("This gfxboot's engine does not know %1 and %2: the place cannot be stored")
        .arg(names.left, names.top);
}

void addMenuPlace(const ParamState& state, const PanelRec& menu, Change& change)
{
    addNumber(state, cfgDialectOf(state.cfg).left, menu.Left, change);
    addNumber(state, cfgDialectOf(state.cfg).top, menu.Top, change);
}

void addMenuEntries(const ParamState& state, bool levels, int entries, Change& change)
{
    if (levels)
        addParam(state, *state.object(MenuPanelRow), menuEntriesParam, entries, change);
    else
        addNumber(state, cfgDialectOf(state.cfg).entries, entries, change);
}

} // namespace fennel
