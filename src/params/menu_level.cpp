// SPDX-License-Identifier: MIT
#include "params/menu_level.h"

#include "base/shell_context.h"
#include "container/member_table.h"
#include "params/level_files.h"
#include "params/panel_values.h"

namespace fennel {

MenuLevelBox menuLevelBox(bool menuSelected, bool checked)
{
    if (!menuSelected)
        return {false, QStringLiteral("Choose current flash drive and lst-menu")};
    return {true, checked ? QStringLiteral("Uncheck to use ZUKxxxx.CFG data")
                          : QStringLiteral("Check it to use MenuLevel data over ZUKxxxx.CFG data")};
}

std::optional<QString> switchMenuLevel(const Shell& shell, ParamLists& lists, bool checked)
{
    // The lists were covered by the menu's values; now they count again, with whatever was edited
    // in them before.
    if (!checked)
        GatherListValues(shell, lists);
    RecalcPanelsFromLevels(shell, lists, checked ? LayerLst : LayerEdit);
    const auto number =
        lists.ZUKarr.GetLevelValue(0, backgroundParam, checked ? LayerLst : LayerEdit);
    if (!number)
        return std::nullopt;
    // Compared with what is shown, since the menu that chose it may be gone by now. A background is
    // read from disk, so it only changes if it has to.
    const QString wanted = backgroundFile(shell.run.Workspace, *number);
    return wanted == shell.run.BackFile ? std::nullopt : std::optional(wanted);
}

} // namespace fennel
