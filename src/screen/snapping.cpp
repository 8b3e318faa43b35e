// SPDX-License-Identifier: MIT
#include "screen/snapping.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace fennel {

namespace {

// One direction of a rectangle: the edges, and what lies between them.
struct Span {
    int from = 0;
    int to = 0;
    [[nodiscard]] int length() const { return to - from; }
    [[nodiscard]] int middle() const { return from + length() / 2; }
    [[nodiscard]] Span moved(int by) const { return {from + by, to + by}; }
    [[nodiscard]] bool meets(const Span& other) const { return from < other.to && other.from < to; }
};

struct Box {
    Span along;  // the direction that is looked at
    Span across; // the other one
};

// A line to stand at: the part of the object that goes there, and how far its guide reaches.
struct Target {
    int at = 0;
    bool middleOnly = false;
    bool edgesOnly = false;
    Span reach;
};

struct Gap {
    int from = 0; // where the object's first edge goes
    std::array<Span, 2> gaps;
    int across = 0; // where the guides are drawn
};

Box boxOf(const QRect& rect, Qt::Orientation direction)
{
    const Span x{rect.left(), rect.left() + rect.width()};
    const Span y{rect.top(), rect.top() + rect.height()};
    return direction == Qt::Horizontal ? Box{x, y} : Box{y, x};
}

// Other objects first, then the screen.
std::vector<Target> targetsOf(const std::vector<Box>& others, const Box& screen)
{
    std::vector<Target> targets;
    for (const Box& other : others) {
        targets.push_back({other.along.from, false, true, other.across});
        targets.push_back({other.along.to, false, true, other.across});
        targets.push_back({other.along.middle(), true, false, other.across});
    }
    const int length = screen.along.length();
    targets.push_back({0, false, true, screen.across});
    targets.push_back({length, false, true, screen.across});
    for (const int line : {length / 2, length / 3, length - length / 3})
        targets.push_back({line, false, false, screen.across});
    return targets;
}

std::vector<int> shiftsTo(const Target& target, const Span& moved)
{
    std::vector<int> shifts;
    if (!target.middleOnly)
        shifts = {target.at - moved.from, target.at - moved.to};
    if (!target.edgesOnly)
        shifts.push_back(target.at - moved.middle());
    return shifts;
}

// Between two neighbours in the middle, or as far beyond the second as that is from the first.
void addGaps(const Box& first, const Box& second, const Box& moved, std::vector<Gap>& gaps)
{
    const Span between{first.along.to, second.along.from};
    if (between.length() < 0)
        return;
    const int width = moved.along.length();
    const int across = moved.across.middle();
    const int beyond = second.along.to + between.length();
    gaps.push_back({beyond, {between, {second.along.to, beyond}}, across});
    const int before = first.along.from - between.length() - width;
    gaps.push_back({before, {Span{before + width, first.along.from}, between}, across});
    const int room = between.length() - width;
    if (room < 0 || room % 2 != 0)
        return;
    const int middle = between.from + room / 2;
    gaps.push_back(
        {middle, {Span{between.from, middle}, Span{middle + width, between.to}}, across});
}

std::vector<Gap> gapsOf(const std::vector<Box>& others, const Box& moved)
{
    std::vector<Gap> gaps;
    for (const Box& first : others) {
        for (const Box& second : others) {
            if (first.across.meets(moved.across) && second.across.meets(moved.across))
                addGaps(first, second, moved, gaps);
        }
    }
    return gaps;
}

class Direction {
public:
    Direction(Qt::Orientation direction, const QRect& wanted, const SnapScene& scene)
        : m_direction(direction), m_moved(boxOf(wanted, direction))
    {
        for (const QRect& other : scene.others)
            m_others.push_back(boxOf(other, direction));
        m_targets = targetsOf(m_others, boxOf(QRect(QPoint(), scene.screen), direction));
    }

    // How far to go; none if nothing is within reach.
    [[nodiscard]] std::optional<int> shift(int reach) const
    {
        std::optional<int> best;
        const auto look = [&](int by) {
            if (std::abs(by) <= reach && (!best || std::abs(by) < std::abs(*best)))
                best = by;
        };
        for (const Target& target : m_targets) {
            for (const int by : shiftsTo(target, m_moved.along))
                look(by);
        }
        for (const Gap& gap : gapsOf(m_others, m_moved))
            look(gap.from - m_moved.along.from);
        return best;
    }

    // Of the object at its place.
    void addGuides(const QRect& placed, std::vector<QLine>& guides) const
    {
        const Box box = boxOf(placed, m_direction);
        for (const Target& target : m_targets) {
            const std::vector<int> shifts = shiftsTo(target, box.along);
            if (std::find(shifts.begin(), shifts.end(), 0) != shifts.end())
                guides.push_back(
                    line({target.at, target.at}, {std::min(target.reach.from, box.across.from),
                                                  std::max(target.reach.to, box.across.to)}));
        }
        for (const Gap& gap : gapsOf(m_others, box)) {
            for (const Span& span : gap.gaps) {
                if (gap.from == box.along.from && span.length() > 0)
                    guides.push_back(line(span, {gap.across, gap.across}));
            }
        }
    }

private:
    [[nodiscard]] QLine line(const Span& along, const Span& across) const
    {
        return m_direction == Qt::Horizontal ? QLine(along.from, across.from, along.to, across.to)
                                             : QLine(across.from, along.from, across.to, along.to);
    }

    Qt::Orientation m_direction;
    Box m_moved;
    std::vector<Box> m_others;
    std::vector<Target> m_targets;
};

} // namespace

Snapped snapPlace(const QRect& wanted, const SnapScene& scene)
{
    const Direction across(Qt::Horizontal, wanted, scene);
    const Direction down(Qt::Vertical, wanted, scene);
    const std::optional<int> x = scene.freeX ? across.shift(scene.reach) : std::nullopt;
    const std::optional<int> y = scene.freeY ? down.shift(scene.reach) : std::nullopt;
    Snapped result;
    result.at = wanted.topLeft() + QPoint(x.value_or(0), y.value_or(0));
    result.x = x.has_value();
    result.y = y.has_value();
    const QRect placed(result.at, wanted.size());
    if (x)
        across.addGuides(placed, result.guides);
    if (y)
        down.addGuides(placed, result.guides);
    return result;
}

} // namespace fennel
