// SPDX-License-Identifier: MIT
// The three timers. Without a timeout line and ring stand there complete, and there is no number.
#include "params/object_table.h"
#include "screen/own_layout.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

enum LinearParam {
    DivisionWidth = 18,
    DivisionHeight = 19,
    DivisionGap = 20,
};
enum CircleParam { Steps = 17, Thickness = 18, StrokeLength = 19, Group = 36 };
// The same in both files.
enum TimerParam {
    ColourToCome = 21,
    ColourPassed = 22,
    TranspToCome = 23,
    TranspPassed = 24,
    Volume = 37,
    TurnOff = 38
};
enum TimerRow { LinearRow = 24, CircleRow = 25, NumberRow = 26 };
constexpr int reliefTransparency = 150;

struct Countdown {
    int all; // ticks
    int left;
    // Of that many divisions.
    [[nodiscard]] int passed(int count) const { return count * (all - left) / std::max(1, all); }
    [[nodiscard]] int seconds() const { return (left * 10 + 181) / 182; }
};

Countdown countdownOf(const BootMoment& moment)
{
    const int all = std::clamp(moment.timeout, 0, 24 * 60 * 60) * 182 / 10;
    return {std::max(1, all), std::clamp(all - moment.ticks, 1, std::max(1, all))};
}

struct Shade {
    QRgb colour;
    int transparency;
};

// Whether it stands there: a loader without a timeout stops it before it has begun.
bool stands(const OwnWork& work, const OwnObject& timer, int file)
{
    return timer.on && (work.request.moment.timeout > 0 || work.values.at(file, TurnOff) == 0);
}

Shade shadeOf(const OwnWork& work, int file, bool passed)
{
    return {work.values.colour(file, passed ? ColourPassed : ColourToCome),
            work.values.at(file, passed ? TranspPassed : TranspToCome)};
}

// Divisions along the longer side, in the middle of the shorter one.
class LinearScale {
public:
    LinearScale(const OwnWork& work, QSize panel)
        : m_panel(panel), m_level(panel.width() >= panel.height())
    {
        const int length = m_level ? panel.width() : panel.height();
        const int wide = work.values.at(LinearFile, DivisionWidth);
        const int high = work.values.at(LinearFile, DivisionHeight);
        const int gap = std::min(work.values.at(LinearFile, DivisionGap), 4096);
        m_along = std::clamp(m_level ? wide : high, 1, std::max(1, length));
        m_across = std::min(m_level ? high : wide, m_level ? panel.height() : panel.width());
        m_step = m_along + gap;
        m_count = (length + gap) / m_step;
    }
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] QRect division(int index) const
    {
        if (m_level)
            return {index * m_step, (m_panel.height() - m_across) / 2, m_along, m_across};
        return {(m_panel.width() - m_across) / 2, index * m_step, m_across, m_along};
    }

private:
    QSize m_panel;
    bool m_level;
    int m_along = 1;
    int m_across = 0;
    int m_step = 1;
    int m_count = 0;
};

void drawRelief(const QRect& part, OwnDrawing& drawing)
{
    const int x = part.x();
    const int y = part.y();
    drawing.tint({x, y, part.width(), 1}, 0xffffffff, reliefTransparency);
    drawing.tint({x, y, 1, part.height()}, 0xffffffff, reliefTransparency);
    drawing.tint({x, part.bottom(), part.width(), 1}, 0xff000000, reliefTransparency);
    drawing.tint({part.right(), y, 1, part.height()}, 0xff000000, reliefTransparency);
}

class Ring {
public:
    Ring(const OwnWork& work, QSize size) : m_work(work)
    {
        const auto value = [&](int param, int most) {
            return std::clamp(work.values.at(CircleFile, param), 1, most);
        };
        m_steps = value(Steps, 1440);
        m_brush = value(Thickness, 64);
        m_long = value(StrokeLength, 512);
        m_group = std::max(1, work.values.at(CircleFile, Group));
        m_middle = {std::min(size.width(), 4096) / 2, std::min(size.height(), 4096) / 2};
        m_depth = work.values.at(CircleFile, Volume) != 0 && m_brush >= 3;
    }
    void draw(const Countdown& countdown, OwnDrawing& drawing) const
    {
        const int passed = countdown.passed(m_steps);
        for (int i = 0; i < m_steps; ++i)
            mark(i, i < passed, drawing);
    }

private:
    // So many pixels from the ellipse towards the middle.
    [[nodiscard]] QPoint point(int sine, int cosine, int depth) const
    {
        const int in = depth + m_brush / 2 + 1;
        return {std::max(0, m_middle.x() - in) * sine / 1024 + m_middle.x(),
                m_middle.y() - std::max(0, m_middle.y() - in) * cosine / 1024};
    }
    void mark(int index, bool passed, OwnDrawing& drawing) const
    {
        const int angle = index * 1440 / m_steps;
        const int sine = ownSine(angle);
        const int cosine = ownCosine(angle);
        // The last one of a group is half as long again.
        const int length = (index + 1) % m_group == 0 ? m_long + m_long / 2 : m_long;
        BootOp& op = drawing.stroke(point(sine, cosine, 0), point(sine, cosine, length - 1));
        const Shade shade = shadeOf(m_work, CircleFile, passed);
        op.colour = shade.colour;
        op.transparency = shade.transparency;
        op.middle = op.at + point(sine, cosine, length / 2) - point(sine, cosine, 0);
        op.brush = m_brush;
        op.depth = m_depth;
        op.upright = std::abs(cosine) < std::abs(sine);
    }

    const OwnWork& m_work;
    int m_steps;
    int m_brush;
    int m_long;
    int m_group;
    QPoint m_middle;
    bool m_depth;
};

} // namespace

void layOutLinearTimer(const OwnWork& work)
{
    const OwnObject timer = work.values.object(LinearRow);
    OwnDrawing drawing(timer, timer.rect.size(), work.screen());
    if (!stands(work, timer, LinearFile) || !drawing.seen())
        return;
    const LinearScale scale(work, drawing.size());
    const int passed = countdownOf(work.request.moment).passed(scale.count());
    drawing.ground(timer.back, timer.transparency);
    for (int i = 0; i < scale.count(); ++i) {
        const Shade shade = shadeOf(work, LinearFile, i < passed);
        drawing.tint(scale.division(i), shade.colour, shade.transparency);
        if (work.values.at(LinearFile, Volume) != 0)
            drawRelief(scale.division(i), drawing);
    }
    work.put(drawing);
}

void layOutCircularTimer(const OwnWork& work)
{
    const OwnObject timer = work.values.object(CircleRow);
    OwnDrawing drawing(timer, timer.rect.size(), work.screen());
    if (!stands(work, timer, CircleFile) || !drawing.seen())
        return;
    Ring(work, timer.rect.size()).draw(countdownOf(work.request.moment), drawing);
    work.put(drawing);
}

void layOutNumber(const OwnWork& work)
{
    const OwnObject number = work.values.object(NumberRow);
    if (!number.on || work.request.moment.timeout <= 0)
        return;
    const BootFont& font = work.members.font(number.font);
    OwnDrawing drawing(number, number.rect.size().expandedTo({font.width(u"000"_s), font.height()}),
                       work.screen());
    drawing.text(QString::number(countdownOf(work.request.moment).seconds()), {}, number.text,
                 number.font);
    work.put(drawing);
}

} // namespace fennel
