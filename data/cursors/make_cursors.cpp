// SPDX-License-Identifier: MIT
// Draws the five pointers of the stage and writes them into the folder named on the command line.
// Each is 32 by 32 pixels, dark with a white rim, so that it stands out from any background.
#include "cursor_writer.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

constexpr int side = 32;
constexpr int frameCount = 8;
constexpr int ticksPerFrame = 7; // of a sixtieth of a second: a quiet pulse of about a second

const QColor ink(0x1d, 0x2b, 0x38);
const QColor paper(Qt::white);
const QColor blue(0x3b, 0x87, 0xd9);
const QColor red(0xe0, 0x55, 0x4f);

// Draws one moment of an animation; the phase runs from 0 to just below 1.
using Drawing = std::function<void(QPainter& painter, double phase)>;

// 0 at the start of the animation, 1 in its middle.
double swell(double phase)
{
    return 0.5 - 0.5 * std::cos(2 * std::numbers::pi * phase);
}

QImage draw(const Drawing& drawing, double phase)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing(painter, phase);
    return image;
}

// A filled shape with a white rim around it.
void shape(QPainter& painter, const QPainterPath& path, const QColor& fill)
{
    painter.setPen(QPen(paper, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setPen(QPen(ink, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(fill);
    painter.drawPath(path);
}

// A line with a white rim around it.
void stroke(QPainter& painter, const QPainterPath& path, const QColor& colour, double width)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(paper, width + 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

QPainterPath polygon(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    path.closeSubpath();
    return path;
}

QPainterPath arrowPath()
{
    return polygon({{1.5, 1.5}, {1.5, 20}, {6, 16}, {9, 23}, {12, 21.7}, {9, 15}, {15, 15}});
}

// A dropper whose tip is at the lower left; a drop of colour grows in it.
void picker(QPainter& painter, double phase)
{
    painter.translate(2, 30);
    painter.rotate(45);
    QPainterPath glass;
    glass.moveTo(0, 0);
    glass.lineTo(-2.5, -6);
    glass.lineTo(-2.5, -20);
    glass.lineTo(2.5, -20);
    glass.lineTo(2.5, -6);
    glass.closeSubpath();
    shape(painter, glass, paper);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blue);
    const double level = 5 + 8 * swell(phase);
    painter.drawPolygon(
        QPolygonF({{0, -1.5}, {-1.8, -6}, {-1.8, -level}, {1.8, -level}, {1.8, -6}}));
    QPainterPath bulb;
    bulb.addRoundedRect(QRectF(-4.5, -23.5, 9, 4), 1.5, 1.5);
    shape(painter, bulb, ink);
    QPainterPath top;
    top.addRoundedRect(QRectF(-3, -32, 6, 8), 3, 3);
    shape(painter, top, ink);
}

// Sizes from the top left to the bottom right.
void diagonal(QPainter& painter, double)
{
    painter.translate(16, 16);
    painter.rotate(45);
    shape(painter,
          polygon({{-14, 0},
                   {-7, -6},
                   {-7, -2},
                   {7, -2},
                   {7, -6},
                   {14, 0},
                   {7, 6},
                   {7, 2},
                   {-7, 2},
                   {-7, 6}}),
          ink);
}

// A hand whose finger tip is the hot spot; a ring spreads from it.
void pointingHand(QPainter& painter, double phase)
{
    QColor ring = blue;
    ring.setAlphaF(static_cast<float>(1 - phase));
    painter.setPen(QPen(ring, 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(11, 7), 2 + 5 * phase, 2 + 5 * phase);
    QPainterPath hand;
    hand.setFillRule(Qt::WindingFill);
    hand.addRoundedRect(QRectF(9, 5, 4, 18), 2, 2);
    for (int finger = 0; finger < 3; ++finger)
        hand.addRoundedRect(QRectF(13 + 3.7 * finger, 12.5 + 0.8 * finger, 3.7, 10), 1.8, 1.8);
    hand.addRoundedRect(QRectF(9, 18, 15, 11), 3.5, 3.5);
    QPainterPath thumb;
    thumb.addRoundedRect(QRectF(-2, 0, 4, 10), 2, 2);
    hand.addPath(QTransform().translate(6, 16.5).rotate(-35).map(thumb));
    shape(painter, hand.simplified(), paper);
    painter.setPen(QPen(ink, 1));
    for (const double x : {13.2, 16.9, 20.5})
        painter.drawLine(QPointF(x, 17), QPointF(x, 20.5));
}

// An arrow with a question mark that swells.
void help(QPainter& painter, double phase)
{
    shape(painter, arrowPath(), paper);
    painter.translate(23, 16);
    const double scale = 0.88 + 0.14 * swell(phase);
    painter.scale(scale, scale);
    QPainterPath mark;
    mark.moveTo(-4.5, -6);
    mark.cubicTo(-4.5, -13, 5.5, -12.5, 5, -6);
    mark.cubicTo(4.7, -2.5, 0.2, -2.5, 0.2, 2.5);
    stroke(painter, mark, blue, 3);
    QPainterPath dot;
    dot.moveTo(0.2, 8);
    dot.lineTo(0.2, 8.01);
    stroke(painter, dot, blue, 3.4);
}

// A barred circle, its bar swinging a little: nothing here to take.
void unavailable(QPainter& painter, double phase)
{
    painter.translate(16, 16);
    QPainterPath circle;
    circle.addEllipse(QPointF(0, 0), 11, 11);
    stroke(painter, circle, red, 3);
    painter.rotate(45 + 12 * std::sin(2 * std::numbers::pi * phase));
    QPainterPath bar;
    bar.moveTo(-10, 0);
    bar.lineTo(10, 0);
    stroke(painter, bar, red, 3);
}

bool save(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        return true;
    std::fprintf(stderr, "make_cursors: %s: %s\n", qPrintable(path),
                 qPrintable(file.errorString()));
    return false;
}

bool saveAnimation(const QString& path, const Drawing& drawing, QPoint hotSpot)
{
    std::vector<QImage> frames;
    frames.reserve(frameCount);
    for (int frame = 0; frame < frameCount; ++frame)
        frames.push_back(draw(drawing, double(frame) / frameCount));
    return save(path, aniBytes(frames, hotSpot, ticksPerFrame));
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: make_cursors FOLDER\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + u'/';
    const bool done = saveAnimation(folder + u"Picker_Fsh.ani"_s, picker, {2, 29}) &&
                      save(folder + u"Dgn1_Fsh.cur"_s, curBytes(draw(diagonal, 0), {16, 16})) &&
                      saveAnimation(folder + u"Link_Fsh.ani"_s, pointingHand, {11, 6}) &&
                      saveAnimation(folder + u"Help_Fsh.ani"_s, help, {1, 1}) &&
                      saveAnimation(folder + u"Unav_Fsh.ani"_s, unavailable, {16, 16});
    return done ? 0 : 1;
}
