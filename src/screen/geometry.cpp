// SPDX-License-Identifier: MIT
#include "screen/geometry.h"

#include "base/text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace fennel {

int StageScale::shown(int boot) const
{
    // In single precision on purpose: the scale is kept so, and places must round alike everywhere.
    return roundToEven(static_cast<double>(static_cast<float>(boot) * m_factor));
}

int StageScale::boot(int shown) const
{
    return roundToEven(static_cast<double>(static_cast<float>(shown) / m_factor));
}

QRect StageScale::shown(const PanelRec& rec) const
{
    return {shown(rec.Left), shown(rec.Top), std::max(0, shown(rec.Width)),
            std::max(0, shown(rec.Height))};
}

qint16 StageScale::stored(int shownNow, int storedNow, int low, int high) const
{
    // At scales below 1 several boot pixels share a shown one: what was not moved keeps its exact
    // value, or mere selecting would shift objects.
    if (shown(storedNow) == shownNow)
        return static_cast<qint16>(storedNow);
    const int top = std::min<int>(high, std::numeric_limits<qint16>::max());
    return static_cast<qint16>(std::max(low, std::min(boot(shownNow), top)));
}

QImage atScale(const QImage& screen, const StageScale& scale)
{
    if (scale.factor() == 1.0)
        return screen;
    QImage shown(scale.shown(screen.width()), scale.shown(screen.height()), QImage::Format_RGB32);
    if (shown.isNull()) // no pixel is left of it
        return screen;
    drawAtScale(screen, shown.rect(), shown);
    return shown;
}

void drawAtScale(const QImage& screen, const QRect& part, QImage& shown)
{
    const double wide = static_cast<double>(shown.width()) / screen.width();
    const double high = static_cast<double>(shown.height()) / screen.height();
    QPainter painter(&shown);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        QRectF(part), screen,
        QRectF(part.x() / wide, part.y() / high, part.width() / wide, part.height() / high));
}

QRect markerRect(const QRect& panel)
{
    // Over the lower right corner, a little inside, so that it can be grasped without hitting the
    // frame.
    return {panel.x() + panel.width() - 5, panel.y() + panel.height() - 5, markerSide, markerSide};
}

QPoint limitedPlace(QPoint wanted, const DragLimits& limits)
{
    // The upper limit counts last: an object larger than the picture may get a negative place.
    const int left = std::min(std::max(0, wanted.x()), limits.picture.width() - limits.inside);
    const int top =
        std::min(std::max(0, wanted.y()), limits.picture.height() - limits.insideHeight);
    return {limits.fixedLeft.value_or(left), limits.fixedTop.value_or(top)};
}

DragLimits dragLimits(int index, const PanelRec& rec, const QRect& panel, int menuPanelHeight,
                      QSize picture, int generation, const StageScale& scale, qint64 barWidth)
{
    DragLimits limits;
    limits.picture = picture;
    const auto kept = static_cast<int>(std::clamp<qint64>(isMenuRow(index) ? barWidth : 0,
                                                          leastSide, scale.boot(picture.width())));
    limits.inside = generation == 3 ? panel.width() : std::min(scale.shown(kept), picture.width());
    // The menu's height bounds its bar and the buttons too: the three belong together.
    limits.insideHeight = index <= ButtonsPanelRow ? menuPanelHeight : panel.height();
    if (rec.LeftParam < 0)
        limits.fixedLeft = scale.shown(-rec.LeftParam);
    if (rec.TopParam < 0)
        limits.fixedTop = scale.shown(-rec.TopParam);
    return limits;
}

// In generations 1 and 2 a menu always reaches to the right edge, so moving it changes its width.
int menuWidth(int left, int width, int pictureWidth, int generation)
{
    const int rest = std::max(0, pictureWidth - left);
    return generation == 3 ? std::min(width, rest) : rest;
}

ResizeBand bandAround(const QRect& panel)
{
    return {panel.x(), panel.y(), panel.x() + panel.width() + bandMargin,
            panel.y() + panel.height() + bandMargin};
}

// Menu and bar are pulled as one, with the menu's corner as the fixed point. Of other objects only
// the lengths that a parameter sets can be pulled.
ResizeLimits resizeLimits(int index, const PanelRec& rec, QPoint panelCorner, QPoint menuCorner,
                          QSize picture, int generation, const StageScale& scale)
{
    // Rounded up, or at small scales a length below it would be stored.
    const int least = static_cast<int>(std::ceil(leastSide * scale.factor()));
    if (isMenuRow(index))
        return {menuCorner, picture, least, generation == 3, index == MenuPanelRow};
    return {panelCorner, picture, least, rec.WidthParam > 0, rec.HeightParam > 0};
}

ResizeBand pulledBand(ResizeBand band, QPoint corner, const ResizeLimits& limits)
{
    const auto side = [&limits](int wanted, int start, int end) {
        return std::max(std::min(wanted, end + bandMargin), start + limits.least + bandMargin);
    };
    if (limits.width)
        band.right = side(corner.x(), limits.anchor.x(), limits.picture.width());
    if (limits.height)
        band.bottom = side(corner.y(), limits.anchor.y(), limits.picture.height());
    return band;
}

double linePitch(double fontSize, int menuSlit)
{
    // At least one pixel, as a slit from a file may be negative and the result is a divisor.
    return std::max(1.0, fontSize + 3 + menuSlit);
}

// A menu has whole lines, at least one.
int menuEntries(int shownHeight, double pitch, const StageScale& scale)
{
    return std::max(1, roundToEven(shownHeight / scale.factor() / pitch));
}

int menuHeight(int entries, double pitch, const StageScale& scale)
{
    return roundToEven(entries * scale.factor() * pitch);
}

int nextPanel(const PanelArr& panels, int selected, bool backwards)
{
    const int count = static_cast<int>(panels.size());
    const int step = backwards ? count - 1 : 1;
    int index = selected;
    // From -1, nothing selected, the first step forwards leads to row 0.
    for (int tries = 0; tries < count; ++tries) {
        index = (index + step) % count;
        if (index < 0)
            index += count;
        if (panels[static_cast<std::size_t>(index)].Enabled)
            return index;
    }
    return -1;
}

} // namespace fennel
