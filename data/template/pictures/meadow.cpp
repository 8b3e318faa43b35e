// SPDX-License-Identifier: MIT
#include "painting.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>
#include <random>

namespace fennel {

namespace {

constexpr int width = 800;
constexpr int height = 600;
constexpr double pi = std::numbers::pi;

// The distributions of the standard library differ between vendors; this does not.
class Dice {
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    double between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(m_engine()) / 4294967296.0;
    }

private:
    std::mt19937 m_engine;
};

QColor withAlpha(QColor colour, double alpha)
{
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

void glow(QPainter& painter, QPointF centre, double radius, const QColor& colour)
{
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0, colour);
    gradient.setColorAt(0.4, withAlpha(colour, colour.alphaF() * 0.4));
    gradient.setColorAt(1, withAlpha(colour, 0));
    painter.fillRect(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius),
                     gradient);
}

void sky(QPainter& painter)
{
    QLinearGradient gradient(0, 0, 0, 500);
    gradient.setColorAt(0, QColor(0x0b, 0x1b, 0x2b));
    gradient.setColorAt(0.4, QColor(0x18, 0x30, 0x42));
    gradient.setColorAt(0.7, QColor(0x25, 0x53, 0x63));
    gradient.setColorAt(0.88, QColor(0x5f, 0x86, 0x81));
    gradient.setColorAt(1, QColor(0xc9, 0xa2, 0x72));
    painter.fillRect(0, 0, width, height, gradient);
    Dice dice(7);
    painter.setPen(Qt::NoPen);
    for (int star = 0; star < 140; ++star) {
        const double y = dice.between(0, 1);
        painter.setBrush(QColor(255, 250, 235, static_cast<int>(dice.between(40, 190) * (1 - y))));
        const double radius = dice.between(0.4, 1.2);
        painter.drawEllipse(QPointF(dice.between(0, width), 330 * y), radius, radius);
    }
}

// A thin moon whose dark part is the ground of the numerical timer.
void moon(QPainter& painter)
{
    const QPointF centre(124, 216);
    constexpr double radius = 56;
    glow(painter, centre, 170, QColor(190, 220, 225, 60));
    QPainterPath disc;
    disc.addEllipse(centre, radius, radius);
    QPainterPath shadow;
    shadow.addEllipse(centre + QPointF(-13, -9), radius, radius);
    painter.fillPath(disc, QColor(0x1d, 0x3a, 0x4c));
    QLinearGradient light(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
    light.setColorAt(0.3, QColor(0x9f, 0xb7, 0xb4));
    light.setColorAt(1, QColor(0xff, 0xf0, 0xc8));
    painter.fillPath(disc.subtracted(shadow), light);
}

void hill(QPainter& painter, double top, double wave, double phase, const QColor& upper,
          const QColor& lower)
{
    QPainterPath path(QPointF(0, height));
    for (int x = 0; x <= width; x += 8)
        path.lineTo(x, top + wave * std::sin(x / 140.0 + phase) +
                           0.4 * wave * std::sin(x / 53.0 + 2 * phase));
    path.lineTo(width, height);
    QLinearGradient gradient(0, top - wave, 0, height);
    gradient.setColorAt(0, upper);
    gradient.setColorAt(1, lower);
    painter.fillPath(path, gradient);
}

void land(QPainter& painter)
{
    hill(painter, 462, 14, 0.3, QColor(0x5a, 0x7d, 0x7b), QColor(0x4b, 0x73, 0x72));
    hill(painter, 492, 16, 2.1, QColor(0x38, 0x62, 0x66), QColor(0x3f, 0x6c, 0x68));
    hill(painter, 526, 12, 4.4, QColor(0x1f, 0x47, 0x4c), QColor(0x33, 0x5f, 0x58));
    QLinearGradient mist(0, 520, 0, height);
    mist.setColorAt(0, QColor(0x86, 0xa3, 0x95, 0));
    mist.setColorAt(1, QColor(0x86, 0xa3, 0x95, 215));
    painter.fillRect(0, 520, width, height - 520, mist);
}

struct Bloom {
    QColor stalk;
    QColor flower;
    double size = 1;
};

void line(QPainter& painter, QPointF from, QPointF bend, QPointF to, const QColor& colour,
          double thickness)
{
    QPainterPath path(from);
    path.quadTo(bend, to);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, thickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(path);
}

QPointF along(QPointF from, double angle, double length)
{
    return from + QPointF(std::cos(angle) * length, std::sin(angle) * length);
}

// A small umbel at the end of a ray: a dozen flowers on a shallow dome.
void umbellet(QPainter& painter, QPointF base, double angle, const Bloom& bloom, Dice& dice)
{
    constexpr int rays = 11;
    for (int ray = 0; ray < rays; ++ray) {
        const double spread = angle + (double(ray) / (rays - 1) - 0.5) * 2.2;
        const QPointF tip = along(base, spread, bloom.size * dice.between(7, 10.5));
        line(painter, base, (base + tip) / 2, tip, bloom.stalk, 0.7 * bloom.size);
        painter.setPen(Qt::NoPen);
        painter.setBrush(bloom.flower.lighter(static_cast<int>(dice.between(88, 118))));
        const double radius = bloom.size * dice.between(1.1, 1.9);
        painter.drawEllipse(tip, radius, radius);
    }
}

void umbel(QPainter& painter, QPointF base, double lean, const Bloom& bloom, Dice& dice)
{
    constexpr int rays = 13;
    for (int ray = 0; ray < rays; ++ray) {
        const double share = double(ray) / (rays - 1) - 0.5;
        const double angle = -pi / 2 + lean + share * 2.5;
        const double length = bloom.size * (46 - 22 * share * share + dice.between(-3, 3));
        const QPointF tip = along(base, angle, length);
        const QPointF bend = along(base, -pi / 2 + lean + share * 1.5, length * 0.55);
        line(painter, base, bend, tip, bloom.stalk, 1.1 * bloom.size);
        umbellet(painter, tip, angle - share * 0.5, bloom, dice);
    }
}

// Hair-thin leaves, forked three times.
void leaf(QPainter& painter, QPointF base, double angle, double length, int forks,
          const QColor& colour, Dice& dice)
{
    const QPointF tip = along(base, angle, length);
    line(painter, base, along(base, angle - 0.15, length * 0.6), tip, colour, 0.6 + 0.35 * forks);
    if (forks == 0)
        return;
    for (const double share : {0.35, 0.6, 0.8, 1.0})
        for (const double side : {-1.0, 1.0})
            leaf(painter, along(base, angle, length * share),
                 angle + side * dice.between(0.35, 0.7), length * dice.between(0.32, 0.45),
                 forks - 1, colour, dice);
}

// A plant from the ground at `foot` to an umbel at `crown`, with side shoots on the way.
void plant(QPainter& painter, QPointF foot, QPointF crown, const Bloom& bloom, unsigned seed)
{
    Dice dice(seed);
    const QPointF bend(foot.x() + 0.15 * (crown.x() - foot.x()), (foot.y() + crown.y()) / 2);
    line(painter, foot, bend, crown, bloom.stalk, 3.4 * bloom.size);
    for (const double share : {0.25, 0.45, 0.65, 0.8}) {
        const double rest = 1 - share;
        const QPointF node = rest * rest * foot + 2 * rest * share * bend + share * share * crown;
        const double side = dice.between(-1, 1) < 0 ? -1 : 1;
        leaf(painter, node, -pi / 2 - side * dice.between(0.7, 1.1), 62 * bloom.size, 2,
             withAlpha(bloom.stalk, 0.75 * bloom.stalk.alphaF()), dice);
        if (share < 0.4)
            continue;
        const QPointF shoot =
            node + QPointF(side * dice.between(34, 60), -dice.between(60, 95)) * bloom.size;
        line(painter, node, node + QPointF(side * 26, -14) * bloom.size, shoot, bloom.stalk,
             2 * bloom.size);
        umbel(painter, shoot, side * 0.2, {bloom.stalk, bloom.flower, bloom.size * 0.62}, dice);
    }
    umbel(painter, crown, 0, bloom, dice);
}

void fennel(QPainter& painter)
{
    const Bloom far{QColor(0x3f, 0x6b, 0x68, 170), QColor(0xa8, 0xa2, 0x62, 150), 0.6};
    plant(painter, {600, 600}, {604, 352}, far, 11);
    plant(painter, {48, 600}, {40, 430}, far, 12);
    plant(painter, {792, 600}, {778, 268}, far, 13);
    const Bloom middle{QColor(0x4c, 0x7e, 0x62, 235), QColor(0xd6, 0xb4, 0x4c, 225), 0.85};
    plant(painter, {664, 600}, {648, 262}, middle, 21);
    plant(painter, {8, 600}, {6, 470}, middle, 22);
    const Bloom close{QColor(0x6c, 0x9d, 0x62), QColor(0xf0, 0xcb, 0x55), 1.15};
    plant(painter, {744, 605}, {722, 172}, close, 35);
}

void fireflies(QPainter& painter)
{
    Dice dice(99);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (int light = 0; light < 26; ++light) {
        const double side = dice.between(0, 1) * dice.between(0, 1);
        const QPointF place(width - side * width, dice.between(330, 560));
        glow(painter, place, dice.between(5, 17),
             QColor(255, 222, 130, static_cast<int>(dice.between(60, 170))));
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace

QImage paintBackground()
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    sky(painter);
    moon(painter);
    land(painter);
    fennel(painter);
    fireflies(painter);
    return image;
}

} // namespace fennel
