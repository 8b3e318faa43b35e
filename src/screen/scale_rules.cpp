// SPDX-License-Identifier: MIT
#include "screen/scale_rules.h"

#include "base/text.h"
#include "base/words.h"

#include <algorithm>
#include <cmath>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr double largestFill = 200;
constexpr double smallestFill = 1;
constexpr int rightPanelGap = 4; // between the picture and the panel beside it

QString sizeText(QSize size)
{
    return u"%1x%2"_s.arg(size.width()).arg(size.height());
}

} // namespace

bool menuScaleAccepted(QSize picture, double scale, int percent)
{
    // Above 399 by 299 shown pixels, reckoned from the present picture: smaller ones cannot be
    // worked on.
    return picture.width() * percent > scale * 39900 && picture.height() * percent > scale * 29900;
}

ScaleAnswer customScaleAnswer(QSize picture, double scale, double percent)
{
    // Written so that a number that is none fails too. The limit is wider than the prompt says.
    if (!(percent >= 1 && percent <= 200))
        return ScaleAnswer::Ignored;
    // Typed scales may go lower than those of the menu: 199 by 149.
    const bool small =
        picture.width() * percent < scale * 19900 || picture.height() * percent < scale * 14900;
    return small ? ScaleAnswer::TooSmall : ScaleAnswer::Accepted;
}

double zoomedScale(double scale, int steps, QSize background)
{
    constexpr double stepsOfDoubling = 4;
    constexpr double largest = 2;
    double next = std::round(scale * std::pow(2, steps / stepsOfDoubling) * 100) / 100;
    if ((scale - 1) * (next - 1) < 0)
        next = 1;
    const double smallest =
        std::max(200.0 / std::max(1, background.width()), 150.0 / std::max(1, background.height()));
    return std::clamp(next, std::min(scale, std::ceil(smallest * 100) / 100),
                      std::max(scale, largest));
}

QString customScalePrompt(QSize screen, QSize background, double scale, QSize picture)
{
    return Words::tr("Screen size: ") + sizeText(screen) + Words::tr("\nReal background size: ") +
           sizeText(background) + Words::tr("\nCurrent scale: ") +
           QString::number(scale * 100, 'f', 2) + Words::tr("%\nScreen background size: ") +
           sizeText(picture) + Words::tr("\nEnter your scale (1-100%) ");
}

FillResult fillScale(const FillRoom& room, int backWidth, int backHeight)
{
    // The window goes to the work area's corner, so its size is the room and not its far edges.
    const double across = (room.workArea.width() - room.rightPanel) * 100.0 / backWidth;
    const int height = room.workArea.height() - room.chromeHeight - room.frameHeight -
                       room.toolbar - room.bottomPanel - room.statusBar;
    const double down = height * 100.0 / backHeight;
    // The tighter side decides. In a tiny window the room may even be negative.
    const double percent = std::max(smallestFill, std::min({across, largestFill, down}));
    FillResult result;
    result.scale = percent / 100;
    result.rightPanel = room.workArea.width() - roundToEven(backWidth * result.scale) -
                        rightPanelGap - room.frameWidth;
    return result;
}

int backgroundNumber(const QString& path)
{
    // "07.jpg" is 7; "ck.jpg", the end of "back.jpg", is 0.
    return static_cast<int>(numberFromText(path.right(6)));
}

} // namespace fennel
