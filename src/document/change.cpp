// SPDX-License-Identifier: MIT
#include "document/change.h"

namespace fennel {

namespace {

template <class Map>
void absorbMap(Map& first, Map&& later)
{
    for (auto& [key, value] : later) {
        const auto found = first.find(key);
        if (found == first.end())
            first.emplace(key, std::move(value));
        else
            found->second.after = std::move(value.after);
    }
}

qint64 textBytes(const CfgLines& lines)
{
    qint64 sum = 0;
    for (const CfgLine& line : lines)
        sum += qint64{sizeof(CfgLine)} + 2 * (line.name.size() + line.comment.size());
    return sum;
}

} // namespace

void Step::absorb(Step&& later)
{
    absorbMap(params, std::move(later.params));
    absorbMap(objects, std::move(later.objects));
    absorbMap(members, std::move(later.members));
    memberBytes += later.memberBytes;
    if (cfg && later.cfg)
        cfg->after = std::move(later.cfg->after);
    else if (later.cfg)
        cfg = std::move(later.cfg);
    if (later.whole)
        whole = std::move(later.whole);
}

bool Step::dropUnchanged()
{
    const auto same = [](const auto& entry) { return entry.second.before == entry.second.after; };
    std::erase_if(params, same);
    std::erase_if(objects, same);
    if (cfg && cfg->before == cfg->after)
        cfg.reset();
    return params.empty() && objects.empty() && members.empty() && !cfg && !whole;
}

qint64 Step::bytes() const
{
    constexpr qint64 entry = 256;
    qint64 sum = entry * static_cast<qint64>(1 + params.size() + 4 * objects.size()) + memberBytes;
    if (cfg)
        sum += textBytes(cfg->before.lines) + textBytes(cfg->after.lines) +
               cfg->before.bytes.size() + cfg->after.bytes.size();
    return sum;
}

} // namespace fennel
