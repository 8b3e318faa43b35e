// SPDX-License-Identifier: MIT
// Where the areas of the window stand. The preview dictates its own size and the side areas are
// added to it; the window follows. Plain arithmetic on logical pixels, the origin is the top left
// corner of the area under the toolbar.
#pragma once

#include <QRect>
#include <QSize>

#include <optional>

namespace fennel {

inline constexpr int splitterWidth = 4;
inline constexpr int sideButtonWidth = 12; // ComFrame1, between the areas and the right edge
inline constexpr int gutterWidth = splitterWidth + sideButtonWidth;
inline constexpr int minRightPanelWidth = 200;
inline constexpr int minBottomPanelHeight = 60;
// The port of a picture that is larger than the desktop keeps at least this in both directions.
inline constexpr int smallestPort = 120;

struct LayoutInput {
    QSize picture;   // Picture1
    QSize available; // the most that the desktop leaves for this area
    // What the user has pulled the window to: stage and lists then share that room, whatever the
    // picture's size. None: the window follows the picture.
    std::optional<QSize> given;
    int RightPanelWidth = 200;
    int BottomPanelHeight = 150;
    int MinWindowWidth = 0;
    int leastRightPanel = minRightPanelWidth; // what stands in the panels has no room in less
    int leastBottomPanel = minBottomPanelHeight;
    bool rightVisible = true;
    bool bottomVisible = true;
    bool toolsWanted = true; // the colour tools rather than the message, at the lower right
};

struct LayoutResult {
    QSize area;            // what the window must give
    int RightPanelWidth;   // as asked, within what the window and the desktop allow
    int BottomPanelHeight; // as asked, within what the desktop allows
    int largestRightPanel; // what the picture, or half the desktop if that is less, leaves
    int largestBottomPanel;
    int leastRightPanel;
    int leastBottomPanel;
    QRect picture;            // the port that shows Picture1; smaller than it on a small desktop
    QRect rightPanel;         // Frame1Vkladki; empty if hidden, as the following
    QRect bottomPanel;        // Frame2Podval and, over it, Frame8FontINFO
    QRect tools;              // Frame5RDPanelTools or Frame7RDMessage
    QRect verticalSplitter;   // Frame3Vertical
    QRect horizontalSplitter; // Frame4Horizontal
    QRect rightButton;        // ComFrame1
};

LayoutResult layoutWindow(const LayoutInput& input);

// The right panel's width at start: 400, 300 or 200 by the width of the desktop.
int initialRightPanelWidth(int desktopWidth);

} // namespace fennel
