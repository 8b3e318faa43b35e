// SPDX-License-Identifier: MIT
// The parts of layOutOwn(), each a file or so of the engine.
#pragma once

#include "screen/own_values.h"

#include <functional>

namespace fennel {

inline constexpr QRgb noPicture = 0xff102030; // the screen where no picture is

// The height of a line of text and where it begins, by the font's size in quarters of a point.
int ownLineTop(const BootFont& font, int line, int extra, int quarters = 0);
// How many lines fit into a height.
int ownLinesFit(const BootFont& font, int height, int extra, int quarters = 0);
// Sine and cosine of an angle in 1440ths of a circle, times 1024, clockwise from the top.
int ownSine(int angle);
inline int ownCosine(int angle)
{
    return ownSine(angle + 360);
}

// One object on the work: its rectangle cut at the screen's edges, and what is drawn in it. Places
// count from its upper left corner.
class OwnDrawing {
public:
    // `size` is that of the object where it is not the one of its record.
    OwnDrawing(const OwnObject& object, QSize size, QSize screen);

    // Whether any of it is on the screen.
    [[nodiscard]] bool seen() const { return !m_area.isEmpty(); }
    [[nodiscard]] QSize size() const { return m_area.size(); }
    void ground(const QRect& part, QRgb colour, int transparency);
    void ground(QRgb colour, int transparency) { ground({QPoint(), size()}, colour, transparency); }
    void tint(const QRect& part, QRgb colour, int transparency);
    void text(const QString& text, QPoint at, QRgb colour, int font);
    // A picture, or with an empty name the colour, through a mask from the corner `at` on.
    BootOp& masked(const QString& picture, const QString& mask, QPoint at);
    void line(QPoint from, QPoint to, QRgb colour);
    BootOp& stroke(QPoint from, QPoint to);
    [[nodiscard]] BootObject take() { return std::move(m_object); }

private:
    BootOp& add(BootOp::Kind kind, const QRect& area);

    BootObject m_object;
    QRect m_area;
};

// What a part works on.
struct OwnWork {
    const BootRequest& request;
    BootMembers& members;
    const OwnValues& values;
    BootLayout& layout;

    [[nodiscard]] QSize screen() const { return layout.list.screen; }
    // Leaves out what is not on the screen.
    void put(OwnDrawing& drawing) const;
    [[nodiscard]] int seconds() const
    {
        return static_cast<int>(request.moment.ticks / bootTicksPerSecond);
    }
};

struct OwnEntry {
    QString text; // what the menu shows
    QString note; // behind "\n" in the title, for the information line; null: none
};
std::vector<OwnEntry> ownEntries(const OwnWork& work);

// --- own_menu.cpp, own_panels.cpp, own_moving.cpp, own_timers.cpp; lowest first
void layOutMenu(const OwnWork& work, const std::vector<OwnEntry>& entries);
void layOutLogo(const OwnWork& work);
void layOutHand(const OwnWork& work);
void layOutClock(const OwnWork& work);
void layOutDate(const OwnWork& work);
void layOutInfoLine(const OwnWork& work, const std::vector<OwnEntry>& entries);
void layOutSparks(const OwnWork& work);
void layOutRunLine(const OwnWork& work);
void layOutGlass(const OwnWork& work);
void layOutLinearTimer(const OwnWork& work);
void layOutCircularTimer(const OwnWork& work);
void layOutNumber(const OwnWork& work);
void layOutAnimation(const OwnWork& work);
void layOutHelp(const OwnWork& work);
void layOutWait(const OwnWork& work);
void layOutInformation(const OwnWork& work, const std::vector<OwnEntry>& entries);

} // namespace fennel
