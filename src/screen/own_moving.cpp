// SPDX-License-Identifier: MIT
// What moves: sparks, running line, glass, animation.
#include "params/object_table.h"
#include "screen/own_layout.h"

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

enum MovingParam {
    SparkCount = 1, // file 1; those of a spark grow by 10 from one to the next
    SparkAX = 2,
    SparkAY = 3,
    SparkBX = 4,
    SparkBY = 5,
    SparkRadius = 6,
    RunLineShift = 9,
    GlassColours = 19,
    GlassFirstColour = 20,
    AnimationDX = 12,
    AnimationDY = 13,
    FrameWidth = 18,
    FrameHeight = 19,
    PictureNumber = 99, // of glass and animation
};
constexpr int mostSparks = 8;
constexpr int sparkBends = 6;
constexpr int sparkSway = 6;
constexpr QRgb sparkWhite = 0xffe8f0ff;
constexpr QRgb sparkGlow = 0xff6f8fff;
constexpr int frameTicks = 2;
constexpr int mostTicks = 18 * 60 * 60; // further nobody looks

// Random numbers of a spark's line; the same at every drawing, as nobody can tell the real ones.
class Stray {
public:
    explicit Stray(int seed) : m_seed(static_cast<unsigned>(seed) + 1) {}
    int operator()(int spread)
    {
        m_seed = (m_seed * 1103515245U + 12345U) & 0x7fffffffU;
        return static_cast<int>((m_seed >> 8U) % static_cast<unsigned>(2 * spread + 1)) - spread;
    }

private:
    unsigned m_seed;
};

struct Spark {
    QPoint a;
    QPoint b;
    int radius;
};

Spark sparkOf(const OwnWork& work, int index)
{
    const auto value = [&](int param, int most) {
        return std::min(work.values.at(SparksFile, param + 10 * index), most);
    };
    return {{value(SparkAX, 4096), value(SparkAY, 4096)},
            {value(SparkBX, 4096), value(SparkBY, 4096)},
            value(SparkRadius, 64)};
}

void drawSpark(const Spark& spark, QPoint corner, Stray stray, OwnDrawing& drawing)
{
    const auto shaken = [&stray](QPoint point, int spread) {
        const int x = stray(spread);
        return point + QPoint(x, stray(spread));
    };
    QPoint from = shaken(spark.a - corner, spark.radius);
    for (int part = 1; part <= sparkBends; ++part) {
        const QPoint way((spark.b.x() - spark.a.x()) * part / sparkBends,
                         (spark.b.y() - spark.a.y()) * part / sparkBends);
        const QPoint to =
            shaken(spark.a + way - corner, part < sparkBends ? sparkSway : spark.radius);
        drawing.line(from + QPoint(1, 0), to + QPoint(1, 0), sparkGlow);
        drawing.line(from + QPoint(0, 1), to + QPoint(0, 1), sparkGlow);
        drawing.line(from, to, sparkWhite);
        from = to;
    }
}

struct Bounce {
    int at;
    int step;
};

// One coordinate moves; at an edge it turns back.
Bounce moved(Bounce now, int limit)
{
    const int place = now.at + now.step;
    if (place >= 0 && place <= limit)
        return {place, now.step};
    return {std::clamp(place, 0, limit), -now.step};
}

} // namespace

void layOutSparks(const OwnWork& work)
{
    const int count = std::min(work.values.at(SparksFile, SparkCount), mostSparks);
    for (int i = 0; i < count; ++i) {
        const Spark spark = sparkOf(work, i);
        const int reach = spark.radius + sparkSway + 2;
        OwnObject object;
        object.row = FirstSparkleRow + i;
        const QPoint low(std::max(0, std::min(spark.a.x(), spark.b.x()) - reach),
                         std::max(0, std::min(spark.a.y(), spark.b.y()) - reach));
        const QPoint high(std::max(spark.a.x(), spark.b.x()) + reach,
                          std::max(spark.a.y(), spark.b.y()) + reach);
        object.rect.moveTopLeft(low);
        OwnDrawing drawing(object, {high.x() - low.x(), high.y() - low.y()}, work.screen());
        drawSpark(spark, low, Stray(i), drawing);
        work.put(drawing);
    }
}

void layOutRunLine(const OwnWork& work)
{
    const OwnObject line = work.values.object(RunLineRow);
    if (!line.on)
        return;
    OwnDrawing drawing(line, line.rect.size(), work.screen());
    drawing.ground(line.back, line.transparency);
    QString text = work.members.text(u"RLineDef.txt"_s);
    const int shift = std::min(work.values.at(RunLineFile, RunLineShift), 1000);
    const BootFont& font = work.members.font(line.font);
    if (!text.isEmpty() && shift > 0 && drawing.seen()) {
        text.replace(u'\n', u' ');
        // From one start at the right edge to the next.
        const int turn = (drawing.size().width() + font.width(text)) / shift + 1;
        const int place = drawing.size().width() - shift * (work.request.moment.ticks % turn);
        drawing.text(text, {place, 0}, line.text, line.font);
    }
    work.put(drawing);
}

void layOutGlass(const OwnWork& work)
{
    const OwnObject glass = work.values.object(GlassesRow);
    const int number = work.values.at(GlassFile, PictureNumber) % 100;
    const QString mask = u"glass_%1.jpg"_s.arg(number, 2, 10, QChar(u'0'));
    if (!glass.on || work.members.picture(mask).isNull())
        return;
    OwnDrawing drawing(glass, glass.rect.size(), work.screen());
    const int colours = std::clamp(work.values.at(GlassFile, GlassColours), 1, 19);
    drawing.masked({}, mask, {}).colour =
        work.values.colour(GlassFile, GlassFirstColour + work.seconds() % colours);
    work.put(drawing);
}

void layOutAnimation(const OwnWork& work)
{
    const OwnObject area = work.values.object(AnimationRow);
    const int number = work.values.at(AnimationFile, PictureNumber) % 100;
    const QString picture = u"ani_%1.jpg"_s.arg(number, 2, 10, QChar(u'0'));
    const QString mask = u"ani_%1_msk.jpg"_s.arg(number, 2, 10, QChar(u'0'));
    OwnDrawing drawing(area, area.rect.size(), work.screen());
    if (!area.on || !drawing.seen())
        return;
    const QSize whole =
        work.members.picture(picture).size().boundedTo(work.members.picture(mask).size());
    if (whole.isEmpty())
        return;
    const int wide = work.values.at(AnimationFile, FrameWidth);
    const int high = work.values.at(AnimationFile, FrameHeight);
    const QSize frame =
        QSize(std::clamp(wide, 1, whole.width()), std::clamp(high, 1, whole.height()))
            .boundedTo(drawing.size());
    const int frames = std::max(1, whole.width() / std::max(1, wide));
    Bounce x{0, std::min(work.values.at(AnimationFile, AnimationDX), 4096)};
    Bounce y{0, std::min(work.values.at(AnimationFile, AnimationDY), 4096)};
    const int ticks = std::min(work.request.moment.ticks, mostTicks);
    for (int i = 0; i < ticks; ++i) {
        x = moved(x, drawing.size().width() - frame.width());
        y = moved(y, drawing.size().height() - frame.height());
    }
    BootOp& op = drawing.masked(picture, mask, {x.at, y.at});
    op.from = {ticks / frameTicks % frames * wide, 0};
    op.area &= QRect(op.at, frame);
    work.put(drawing);
}

} // namespace fennel
