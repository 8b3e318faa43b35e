// SPDX-License-Identifier: MIT
// What lies wholly under what is drawn later.
#include "base/words.h"
#include "checks/check_list.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

#include <QImage>
#include <QRect>

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace fennel {

namespace {

constexpr int clockRow = 5;
constexpr int dateRow = 6;
constexpr int infoLineRow = 7;

// As long as the menu: what moves, runs out or comes and goes hides nothing for good.
bool stays(int row)
{
    constexpr std::array rows{int{MenuPanelRow}, int{LogoPanelRow}, clockRow,       dateRow,
                              infoLineRow,       int{RunLineRow},   int{GlassesRow}};
    return std::ranges::find(rows, row) != rows.end();
}

// Which object each pixel belongs to, filled from the highest object down.
class Cover {
public:
    explicit Cover(DrawnScreen& drawn)
        : m_members(drawn.members), m_screen(QPoint(), drawn.layout.list.screen),
          m_rows(static_cast<std::size_t>(m_screen.width()) *
                     static_cast<std::size_t>(m_screen.height()),
                 none)
    {
    }
    // The object that covers the middle if all of the rectangle is covered, -1 if not.
    [[nodiscard]] int over(const QRect& rect) const
    {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (m_rows[at(x, y)] == none)
                    return none;
            }
        }
        return m_rows[at(rect.center().x(), rect.center().y())];
    }
    void add(const BootObject& object)
    {
        for (const BootOp& op : object.ops) {
            // A ground is made of the clean background, however transparent it is.
            if (op.kind == BootOp::Ground)
                fill(op.area & m_screen, object.row);
            else if (op.kind == BootOp::Masked)
                fillThrough(op, object.row);
        }
    }
    [[nodiscard]] const QRect& screen() const { return m_screen; }

private:
    static constexpr qint8 none = -1;

    [[nodiscard]] std::size_t at(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_screen.width()) +
               static_cast<std::size_t>(x);
    }
    void fill(const QRect& area, int row)
    {
        for (int y = area.top(); y <= area.bottom(); ++y)
            put(area.left(), area.right(), y, row);
    }
    void put(int from, int to, int y, int row)
    {
        for (int x = from; x <= to; ++x) {
            qint8& owner = m_rows[at(x, y)];
            if (owner == none)
                owner = static_cast<qint8>(row);
        }
    }
    // White lets nothing through that lies below.
    void fillThrough(const BootOp& op, int row)
    {
        constexpr int white = 250;
        const QImage mask = m_members.picture(op.mask);
        const QRect area = op.area & m_screen & QRect(op.at, mask.size());
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (qGreen(mask.pixel(QPoint(x, y) - op.at)) >= white)
                    put(x, x, y, row);
            }
        }
    }

    BootMembers& m_members;
    QRect m_screen;
    std::vector<qint8> m_rows;
};

// By the row of what is hidden, the row of what hides it; -1 for what is seen.
std::map<int, int> hiddenObjects(DrawnScreen& drawn)
{
    Cover cover(drawn);
    std::map<int, int> hidden;
    const std::vector<BootObject>& objects = drawn.layout.list.objects;
    for (auto object = objects.rbegin(); object != objects.rend(); ++object) {
        const QRect rect = object->rect & cover.screen();
        if (!rect.isEmpty() && object->row != MenuBarRow) {
            const int over = cover.over(rect);
            const auto [place, first] = hidden.emplace(object->row, over);
            if (!first && over < 0)
                place->second = over;
        }
        if (stays(object->row))
            cover.add(*object);
    }
    return hidden;
}

} // namespace

void checkHidden(const CheckInput& input, Findings& found)
{
    if (input.run.gfxboot_var != 3)
        return;
    for (const auto& [row, over] : hiddenObjects(input.drawn())) {
        const PanelRec* panel = input.state.object(row);
        const PanelRec* cover = input.state.object(over);
        // Two at one place are told as such.
        if (panel == nullptr || cover == nullptr ||
            (panel->Left == cover->Left && panel->Top == cover->Top))
            continue;
        Problem problem =
            aboutObject(row,
                        Words::tr("%1 lies hidden under %2.")
                            .arg(objectCaption(panel->Name), objectCaption(cover->Name)),
                        Words::tr("Move one of the two, or switch the hidden one off."));
        problem.param = {levelFileOf(*panel), std::max(0, int{panel->LeftParam})};
        problem.mend = switchedOff(input, *panel);
        found.push_back(problem);
    }
}

} // namespace fennel
