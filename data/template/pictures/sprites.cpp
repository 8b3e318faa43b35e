// SPDX-License-Identifier: MIT
#include "painting.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace fennel {

namespace {

constexpr int logoSide = 120;
constexpr int glassWidth = 100; // the object's fixed size on the boot screen
constexpr int glassHeight = 30;
constexpr int glassPanes = 5;

const QColor night(0x18, 0x30, 0x42);

QImage canvas(int width, int height, const QColor& colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QPainterPath bulb()
{
    QPainterPath path(QPointF(60, 103));
    path.cubicTo(22, 103, 20, 66, 46, 56);
    path.cubicTo(50, 54, 51, 48, 51, 40);
    path.lineTo(69, 40);
    path.cubicTo(69, 48, 70, 54, 74, 56);
    path.cubicTo(100, 66, 98, 103, 60, 103);
    return path;
}

// The lines of the layers that a cut bulb shows.
void layers(QPainter& painter)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x6f, 0xa8, 0x5c), 2, Qt::SolidLine, Qt::RoundCap));
    for (const double bend : {-26.0, -12.0, 0.0, 12.0, 26.0}) {
        QPainterPath layer(QPointF(60 + bend * 0.12, 98));
        layer.cubicTo(60 + bend, 92, 60 + bend, 66, 60 + bend * 0.24, 46);
        painter.drawPath(layer);
    }
}

void greens(QPainter& painter)
{
    painter.setBrush(Qt::NoBrush);
    for (const double lean : {-1.0, -0.45, 0.0, 0.45, 1.0}) {
        const QPointF tip(60 + 27 * lean, 18 + 10 * std::abs(lean));
        QPainterPath stem(QPointF(60 + 6 * lean, 42));
        stem.quadTo(QPointF(60 + 9 * lean, 26), tip);
        painter.setPen(QPen(QColor(0x7c, 0xc5, 0x76), 4, Qt::SolidLine, Qt::RoundCap));
        painter.drawPath(stem);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xf4, 0xcb, 0x4f));
        for (const double side : {-5.0, 0.0, 5.0})
            painter.drawEllipse(tip + QPointF(side, side == 0 ? -3 : 1), 2.8, 2.8);
        painter.setBrush(Qt::NoBrush);
    }
}

// Body, stripes and head of a bee around the middle of its frame, looking right. With one colour
// for all it is the mask.
void beeBody(QPainter& painter, const QColor& gold, const QColor& dark)
{
    painter.setPen(Qt::NoPen);
    QPainterPath body;
    body.addEllipse(QPointF(14, 29), 10, 7.5);
    painter.fillPath(body, gold);
    painter.setClipPath(body);
    for (const double x : {5.5, 11.5, 17.5})
        painter.fillRect(QRectF(x, 20, 3.2, 18), dark);
    painter.setClipping(false);
    painter.setBrush(dark);
    painter.drawEllipse(QPointF(24.5, 28), 5, 5);
    painter.setPen(QPen(dark, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(26, 24), QPointF(29.5, 20));
    painter.drawLine(QPointF(24, 23.5), QPointF(26, 19));
}

void beeWing(QPainter& painter, double angle, const QColor& colour)
{
    painter.save();
    painter.translate(15, 23);
    painter.rotate(angle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(-4.5, -17, 9, 18));
    painter.restore();
}

QImage beeStrip(const QColor& ground, const QColor& gold, const QColor& dark, const QColor& wing)
{
    QImage image = canvas(beeFrames * beeWidth, beeHeight, ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int frame = 0; frame < beeFrames; ++frame) {
        const double phase = 2 * std::numbers::pi * frame / beeFrames;
        painter.setClipping(false);
        painter.resetTransform();
        painter.translate(frame * beeWidth, 3 * std::sin(phase)); // it bobs once in a round
        beeWing(painter, -32 + 26 * std::sin(2 * phase), dark == gold ? wing : wing.darker(112));
        beeBody(painter, gold, dark);
        beeWing(painter, -8 + 34 * std::sin(2 * phase), wing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(wing);
        painter.drawEllipse(QPointF(26, 27), 1.3, 1.3); // the eye
    }
    return image;
}

} // namespace

QImage paintLogo()
{
    QImage image = canvas(logoSide, logoSide, night);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QRadialGradient ground(60, 50, 62);
    ground.setColorAt(0, QColor(0x35, 0x6b, 0x78));
    ground.setColorAt(1, QColor(0x15, 0x33, 0x44));
    painter.setBrush(ground);
    painter.setPen(QPen(QColor(0xd8, 0xe8, 0xe0), 3));
    painter.drawEllipse(QPointF(60, 60), 56.5, 56.5);
    greens(painter);
    QLinearGradient flesh(30, 40, 92, 100);
    flesh.setColorAt(0, QColor(0xf6, 0xfa, 0xec));
    flesh.setColorAt(1, QColor(0xb9, 0xd8, 0x9c));
    painter.fillPath(bulb(), flesh);
    layers(painter);
    return image;
}

QImage paintLogoMask()
{
    QImage image = canvas(logoSide, logoSide, Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(60, 60), 58, 58);
    return image;
}

QImage paintGlassMask()
{
    QImage image = canvas(glassWidth, glassHeight, Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    constexpr double step = double(glassWidth) / glassPanes;
    for (int pane = 0; pane < glassPanes; ++pane) {
        QLinearGradient shine(0, 2, 0, glassHeight - 2);
        shine.setColorAt(0, QColor(250, 250, 250));
        shine.setColorAt(0.45, QColor(150, 150, 150));
        shine.setColorAt(0.55, QColor(110, 110, 110));
        shine.setColorAt(1, QColor(190, 190, 190));
        painter.setBrush(shine);
        painter.drawRoundedRect(QRectF(pane * step + 1.5, 2, step - 3, glassHeight - 4), 5, 5);
    }
    return image;
}

QImage paintBee()
{
    return beeStrip(night, QColor(0xf2, 0xb7, 0x34), QColor(0x33, 0x26, 0x1a),
                    QColor(0xe4, 0xf1, 0xf4));
}

QImage paintBeeMask()
{
    return beeStrip(Qt::black, Qt::white, Qt::white, Qt::white);
}

} // namespace fennel
