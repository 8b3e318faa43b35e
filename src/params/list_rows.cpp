// SPDX-License-Identifier: MIT
#include "params/list_rows.h"

#include <algorithm>

namespace fennel {

namespace {

template <class Test>
int numberOf(const std::vector<ListRow>& rows, const Test& test)
{
    const auto found = std::ranges::find_if(rows, test);
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
}

} // namespace

int ListRows::find(const ListRow& wanted) const
{
    if (const int same = numberOf(rows, [&](const ListRow& row) { return row.sameAs(wanted); });
        same > 0 || wanted.kind != RowKind::CfgLine || wanted.name.isEmpty())
        return same;
    // Lines move when hidden ones have become lines of the file; their names stay.
    return numberOf(rows, [&](const ListRow& row) {
        return row.kind == RowKind::CfgLine && row.name == wanted.name;
    });
}

int ListRows::findMember(const QString& name) const
{
    return numberOf(rows, [&](const ListRow& row) { return row.member() == name; });
}

} // namespace fennel
