// SPDX-License-Identifier: MIT
// What the open gfxboot says of its boot screen: the parameters of its level files, the lines of
// its gfxboot.cfg, and the objects that they place and colour. A plain value; the document
// (document/document.h) owns the one that is open and alone changes it.
#pragma once

#include "params/cfg_lines.h"
#include "params/panel_rec.h"
#include "params/zuk_table.h"

#include <cstddef>

namespace fennel {

struct ParamState {
    fennel::PanelArr PanelArr; // RunState::ObjectCount rows
    fennel::ZUKarr ZUKarr;
    CfgLines cfg;
    int UpgradeChoice = 0; // upgrade of the engine: 0 not asked since the open, 1 yes, -1 no

    // Null for a row that is not there.
    [[nodiscard]] PanelRec* object(int row)
    {
        return row >= 0 && row < static_cast<int>(PanelArr.size())
                   ? &PanelArr[static_cast<std::size_t>(row)]
                   : nullptr;
    }
    [[nodiscard]] const PanelRec* object(int row) const
    {
        return const_cast<ParamState*>(this)->object(row);
    }
};

} // namespace fennel
