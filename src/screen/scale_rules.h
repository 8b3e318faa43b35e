// SPDX-License-Identifier: MIT
// Which scales the preview takes, and the words about them. Scales are shown pixels per
// boot-screen pixel, percentages a hundred times that.
#pragma once

#include "base/words.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <array>

namespace fennel {

// The entries of the menu "Scales"; the index of each item is its percentage.
struct ScaleEntry {
    int percent;
    const char* caption; // see Words
};
inline constexpr std::array<ScaleEntry, 9> scaleEntries = {{{33, "1/3 (33%)"},
                                                            {50, "1/2 (50%)"},
                                                            {66, "2/3 (66%)"},
                                                            {75, "3/4 (75%)"},
                                                            {90, "90%"},
                                                            {125, "5/4 (125%)"},
                                                            {133, "4/3 (133%)"},
                                                            {150, "3/2 (150%)"},
                                                            {200, "200%"}}};

inline QString minimalSizeText()
{
    return Words::tr("Minimal size is 400x300");
}
inline QString tooSmallText()
{
    return Words::tr("The scale is too small");
}
inline QString customScaleTitle()
{
    return Words::tr("Custom scale");
}

// True if the picture, now shown in the given size at `scale`, would be larger than 399 by 299 at
// the percentage.
bool menuScaleAccepted(QSize picture, double scale, int percent);

enum class ScaleAnswer { Ignored, TooSmall, Accepted };
// The verdict on a typed percentage: outside 1 to 200 nothing happens, below 199 by 149 pixels the
// user is told. Less strict than the menu, on purpose.
ScaleAnswer customScaleAnswer(QSize picture, double scale, double percent);
// The five lines above the input box. Its last line names another upper bound than the one in
// force; people know it so.
QString customScalePrompt(QSize screen, QSize background, double scale, QSize picture);

// The scale so many steps closer (or, below 0, farther): a fourth of a doubling each, a whole
// percentage that customScaleAnswer() takes, and 100 % is never passed over.
double zoomedScale(double scale, int steps, QSize background);

// What the fit needs to know of the window; all screen pixels. The sizes of hidden parts are 0.
struct FillRoom {
    QRect workArea;
    int rightPanel = 0;  // width of Frame1Vkladki
    int bottomPanel = 0; // height of Frame2Podval
    int toolbar = 0;     // heights
    int statusBar = 0;
    int chromeHeight = 0; // ChromeHeight, FrameHeight and FrameWidth of the window layout
    int frameHeight = 0;
    int frameWidth = 0;
};
struct FillResult {
    double scale = 1;
    int rightPanel = 0; // width that is left for Frame1Vkladki
};
// The largest scale up to 2 that fits the work area. A screen without room gives 1 %, never
// nothing. The background's size must be above 0.
FillResult fillScale(const FillRoom& room, int backWidth, int backHeight);

// The number in the last six characters of a background's name: "back_03.jpg" is 3, "back.jpg" 0.
int backgroundNumber(const QString& path);

} // namespace fennel
