// SPDX-License-Identifier: MIT
#include "editor/lists/tab_kinds.h"

#include "base/words.h"
#include "editor/lists/object_rows.h"
#include "params/object_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace fennel {

namespace {

// In the order of FixedTab.
constexpr TabKind fixedKinds[] = {
    {.caption = Words::mark("Menu"),
     .thumbnails = u"*.jpg",
     .guide = u"menu.md",
     .enter = ListKey::TakeMenu,
     .fitColumns = true,
     .files = true},
    {.caption = Words::mark("Gfxboot"),
     .rows = memberList,
     .follows = Follows::Members,
     .thumbnails = u"*.jpg",
     .guide = u"members.md",
     .edit = EditAction::TellSpecialTab},
    {.caption = Words::mark("Config"),
     .rows = configList,
     .follows = Follows::Config,
     .thumbnails = u"*.jpg",
     .guide = u"config.md",
     .enter = ListKey::EditValue},
    {.caption = Words::mark("Background(s)"),
     .rows = backgroundList,
     .follows = Follows::Members,
     .thumbnails = u"back.jpg|back_??.jpg",
     .numbered = u"back_??.jpg",
     .guide = u"pictures.md",
     .add = AddAction::AddBackground,
     .edit = EditAction::EditBackground,
     .reorder = true,
     .fitColumns = true,
     .files = true,
     .resize = popupResizeBackgrounds},
    {.caption = Words::mark("Font(s)"),
     .follows = Follows::Members,
     .thumbnails = u"*.fnt",
     .numbered = u"16x16_??.fnt",
     .guide = u"fonts.md",
     .enter = ListKey::Open,
     .add = AddAction::AddFont,
     .edit = EditAction::EditFont,
     .files = true},
};
static_assert(std::size(fixedKinds) + 1 == FirstObjectTab);

constexpr TabKind objectKind = {
    .rows = objectList, .enter = ListKey::EditValue, .fitColumns = true, .files = true};

constexpr TabKind withPictures(QStringView pictures)
{
    TabKind kind = objectKind;
    kind.thumbnails = pictures;
    kind.edit = EditAction::TellPlanned;
    return kind;
}

constexpr TabKind logoKind()
{
    TabKind kind = withPictures(u"Logo_??.jpg");
    kind.numbered = kind.thumbnails;
    kind.add = AddAction::AddLogo;
    kind.edit = EditAction::EditLogo;
    kind.fitColumns = false;
    kind.resize = popupResizeLogos;
    return kind;
}

struct ObjectKind {
    int object;
    TabKind kind;
};
constexpr ObjectKind objectKinds[] = {
    {GlassesRow, withPictures(u"glass_??.jpg")},
    {AnimationRow, withPictures(u"ani_??.jpg|ani_??_msk.jpg")},
    {LogoPanelRow, logoKind()},
};

} // namespace

const TabKind& tabKind(int tab, int object)
{
    if (tab >= TabMenu && tab < FirstObjectTab)
        return fixedKinds[static_cast<std::size_t>(tab - TabMenu)];
    const auto* own = std::ranges::find(objectKinds, object, &ObjectKind::object);
    return own == std::end(objectKinds) ? objectKind : own->kind;
}

} // namespace fennel
