// SPDX-License-Identifier: MIT
// Where things stand on the preview, and how far the mouse may take them. Plain functions on plain
// numbers. "Boot" lengths are boot-screen pixels as they are stored, "shown" lengths are pixels of
// the preview; the origin of both is the top left corner of the background.
#pragma once

#include "params/object_table.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace fennel {

constexpr bool isMenuRow(int index)
{
    return index == MenuPanelRow || index == MenuBarRow;
}

// Both ways between stored and shown lengths, rounded to nearest, ties to even, in the precision of
// a 32-bit float. A scale that is not above 0 counts as 1.
class StageScale {
public:
    explicit StageScale(double previewScale)
        : m_factor(previewScale > 0 ? static_cast<float>(previewScale) : 1.0F)
    {
    }
    [[nodiscard]] double factor() const { return static_cast<double>(m_factor); }
    // From boot-screen pixels to shown ones.
    [[nodiscard]] int shown(int boot) const;
    // From shown pixels to boot-screen ones.
    [[nodiscard]] int boot(int shown) const;
    // The rectangle of a record, shown pixels; negative lengths count as 0.
    [[nodiscard]] QRect shown(const PanelRec& rec) const;
    // The length to store for a shown one, kept within low and high. A stored length that is shown
    // just so already stays, so that a click without movement changes no number at scales where
    // several lengths look the same.
    [[nodiscard]] qint16 stored(int shownNow, int storedNow, int low, int high) const;

private:
    float m_factor;
};

// The boot screen as the preview shows it at a scale; `part` of it, shown pixels, into a picture of
// the whole.
QImage atScale(const QImage& screen, const StageScale& scale);
void drawAtScale(const QImage& screen, const QRect& part, QImage& shown);

// The handle at the lower right corner of a panel: 7 by 7, at left + width - 5, top + height - 5.
inline constexpr int markerSide = 7;
QRect markerRect(const QRect& panel);

// What holds a panel while it is dragged; all shown pixels.
struct DragLimits {
    QSize picture;
    int inside = 0; // of the width, how much must stay on the picture; 0: the left edge only
    int insideHeight = 0;
    std::optional<int> fixedLeft; // the parameter is a constant: this side never moves
    std::optional<int> fixedTop;
};
// The smaller of (the larger of 0 and the wish) and (the picture's side less what must stay on it),
// for each direction. A panel wider than the picture thus ends left of it.
QPoint limitedPlace(QPoint wanted, const DragLimits& limits);

// Limits for panel `index` of the given shown rectangle. Rows 0 to 2 use the height of the menu
// panel, so that the bar cannot leave the menu's range. In generation 3 the whole width must stay
// on the picture, in older ones enough to be grasped, and of the menu `barWidth`, boot-screen
// pixels.
DragLimits dragLimits(int index, const PanelRec& rec, const QRect& panel, int menuPanelHeight,
                      QSize picture, int generation, const StageScale& scale, qint64 barWidth);

// Menu and bar share their width: up to the picture's right edge in generations 1 and 2, at most up
// to it in generation 3.
int menuWidth(int left, int width, int pictureWidth, int generation);

// The rectangle that is pulled at the marker: corners in shown pixels, right and bottom 3 beyond
// the panel's.
struct ResizeBand {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    [[nodiscard]] QRect box() const { return {left, top, right - left, bottom - top}; }
};
inline constexpr int bandMargin = 3;
// No side is pulled below that, boot-screen pixels: what has no size cannot be grasped again.
inline constexpr int leastSide = 4;
// The band of a panel's shown rectangle at the start of a pull.
ResizeBand bandAround(const QRect& panel);

struct ResizeLimits {
    QPoint anchor; // top left corner of the band
    QSize picture;
    int least = 0;      // of the panel's sides
    bool width = false; // this side may move
    bool height = false;
};
// Corners in shown pixels. Menu and bar are pulled from the menu's corner, their width in
// generation 3 only, their height by the menu; of others the lengths that a parameter sets.
ResizeLimits resizeLimits(int index, const PanelRec& rec, QPoint panelCorner, QPoint menuCorner,
                          QSize picture, int generation, const StageScale& scale);
// The band with its lower right corner brought to `corner` as far as the limits let it: the panel
// keeps its least size, and its edges reach those of the picture.
ResizeBand pulledBand(ResizeBand band, QPoint corner, const ResizeLimits& limits);

// Height of a menu line in boot pixels: the font's size taken as a height, 3, and the slit. A
// slit that would make it vanish counts as one that leaves 1.
double linePitch(double fontSize, int menuSlit);
// How many whole entries a shown height holds, at least 1, and the shown height of that many.
int menuEntries(int shownHeight, double pitch, const StageScale& scale);
// Shown pixels, rounded once for the whole menu.
int menuHeight(int entries, double pitch, const StageScale& scale);

// The next row that can be selected, from `selected` (-1 none) in steps of 1, or backwards, around
// the end; -1 if no row is enabled.
int nextPanel(const PanelArr& panels, int selected, bool backwards);

} // namespace fennel
