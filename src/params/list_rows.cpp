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
    return numberOf(rows, [&](const ListRow& row) { return row.sameAs(wanted); });
}

int ListRows::findMember(const QString& name) const
{
    return numberOf(rows, [&](const ListRow& row) { return row.member() == name; });
}

} // namespace fennel
