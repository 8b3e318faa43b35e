// SPDX-License-Identifier: MIT
#include "screen/own_values.h"

#include "params/level_files.h"
#include "params/object_table.h"

#include <algorithm>
#include <cstdlib>

namespace fennel {

namespace {

constexpr int valueMask = 0xFFFFFF;

} // namespace

int OwnValues::at(int file, int number) const
{
    const ZukCell& cell = m_request.state.ZUKarr.at(file, number);
    qint64 value = cell.DefValue.value_or(0);
    if (cell.LevelValue != -1)
        value = cell.LevelValue;
    if (cell.Value && cell.Value->number != -1)
        value = cell.Value->number;
    if (m_request.menuValues && cell.LstValue)
        value = *cell.LstValue;
    return static_cast<int>(value & valueMask);
}

QRgb OwnValues::colour(int file, int number) const
{
    return 0xff000000U | static_cast<QRgb>(at(file, number));
}

int OwnValues::source(int file, int source) const
{
    return source > 0 && ZUKarr::inRange(file, source) ? at(file, source) : std::abs(source);
}

OwnObject OwnValues::object(int row) const
{
    OwnObject object;
    object.row = row;
    const PanelRec* rec = m_request.state.object(row);
    if (rec == nullptr)
        return object;
    const int file = levelFileOf(*rec);
    object.on = source(file, rec->OnParam) > 0;
    object.rect = {source(file, rec->LeftParam), source(file, rec->TopParam),
                   source(file, rec->WidthParam), source(file, rec->HeightParam)};
    object.back = 0xff000000U | static_cast<QRgb>(source(file, rec->BackParam));
    object.text = 0xff000000U | static_cast<QRgb>(source(file, rec->TextParam));
    object.transparency = source(file, rec->TranspParam);
    object.font = source(file, rec->FontParam);
    return object;
}

} // namespace fennel
