// SPDX-License-Identifier: MIT
#include "editor/window/layout.h"

#include <algorithm>

namespace fennel {

namespace {

// Room for a scroll bar where the port is smaller than the picture.
constexpr int scrollBarWidth = 16;

// What a side panel may take of `available` beside a picture. A picture of more than half the
// desktop gets scroll bars before the panel gives way.
int largestPanel(int available, int picture, int smallest)
{
    return std::max(smallest, available - std::clamp(picture, smallestPort, available / 2));
}

// The port of the picture in a room: the picture's own size where it fits.
QSize portSize(const QSize& picture, const QSize& room)
{
    const QSize limit = room.expandedTo({smallestPort, smallestPort});
    QSize port = picture.boundedTo(limit);
    // A scroll bar along one side takes room of the other, which grows for it as far as it can.
    if (picture.width() > limit.width())
        port.setHeight(std::min(picture.height() + scrollBarWidth, limit.height()));
    if (picture.height() > limit.height())
        port.setWidth(std::min(picture.width() + scrollBarWidth, limit.width()));
    return port;
}

} // namespace

// Logical pixels. Small desktops keep their room for the picture.
int initialRightPanelWidth(int desktopWidth)
{
    if (desktopWidth > 1200)
        return 400;
    return desktopWidth > 1100 ? 300 : 200;
}

LayoutResult layoutWindow(const LayoutInput& in)
{
    LayoutResult out{};
    out.leastRightPanel = in.leastRightPanel;
    out.leastBottomPanel = in.leastBottomPanel;
    const QSize most =
        in.given ? in.given->expandedTo({in.MinWindowWidth, smallestPort}) : in.available;
    out.largestRightPanel =
        largestPanel(most.width() - gutterWidth, in.picture.width(), in.leastRightPanel);
    out.largestBottomPanel =
        largestPanel(most.height() - splitterWidth, in.picture.height(), in.leastBottomPanel);
    // The wish is cut, so that the picture keeps its share of the desktop.
    out.RightPanelWidth = std::clamp(in.RightPanelWidth, in.leastRightPanel, out.largestRightPanel);
    out.BottomPanelHeight =
        std::clamp(in.BottomPanelHeight, in.leastBottomPanel, out.largestBottomPanel);
    const int bottom = in.bottomVisible ? out.BottomPanelHeight : 0;
    const int right = in.rightVisible ? out.RightPanelWidth : 0;
    const QSize room(most.width() - right - gutterWidth, most.height() - bottom - splitterWidth);
    const QSize port =
        in.given ? room.expandedTo({smallestPort, smallestPort}) : portSize(in.picture, room);

    // The toolbar must stay whole. The window follows the picture and not the other way round.
    const int width = std::max(in.MinWindowWidth, port.width() + right + gutterWidth);
    const int height = port.height() + bottom + splitterWidth;
    const int inner = width - gutterWidth;
    out.area = {width, height};
    if (in.rightVisible)
        // What the minimal width leaves over beside a small picture goes to the panel.
        out.RightPanelWidth = std::max(out.RightPanelWidth, inner - port.width());
    out.picture = QRect(QPoint(0, 0), port);
    if (in.rightVisible)
        out.rightPanel = QRect(port.width(), 0, out.RightPanelWidth, port.height());
    // The corner below the right panel is an area of its own and comes with both panels.
    if (in.bottomVisible) {
        const int besides = in.rightVisible ? out.RightPanelWidth : 0;
        out.bottomPanel = QRect(0, port.height(), inner - besides, bottom);
        if (in.rightVisible)
            out.tools = QRect(inner - besides, port.height(), besides, bottom);
    }
    out.verticalSplitter = QRect(width - splitterWidth, 0, splitterWidth, height - splitterWidth);
    out.horizontalSplitter = QRect(0, height - splitterWidth, width, splitterWidth);
    out.rightButton = QRect(inner, 0, sideButtonWidth, port.height());
    return out;
}

} // namespace fennel
