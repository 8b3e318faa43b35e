// SPDX-License-Identifier: MIT
// Blending and geometry as plain functions.
#include "screen/blend.h"
#include "screen/geometry.h"
#include "screen/scale_rules.h"
#include "screen/snapping.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

PanelRec recAt(int left, int top, int width, int height)
{
    PanelRec rec;
    rec.Left = static_cast<qint16>(left);
    rec.Top = static_cast<qint16>(top);
    rec.Width = static_cast<qint16>(width);
    rec.Height = static_cast<qint16>(height);
    return rec;
}

} // namespace

TEST(Blend, EveryBackgroundAndAlphaRoundsToTheNearest)
{
    // All 256 values in each channel, on a width that is no multiple of any vector.
    QImage background(259, 1, QImage::Format_RGB32);
    for (int x = 0; x < 259; ++x)
        background.setPixel(x, 0, qRgb(x % 256, 255 - x % 256, (x * 7) % 256));
    const QRgb fill = qRgb(3, 128, 251);
    for (int a = 0; a <= 255; ++a) {
        QImage out;
        blendPanel(background, QRect(1, 0, 258, 1), fill, a, out);
        for (int x = 0; x < 258; ++x) {
            const QRgb from = background.pixel(x + 1, 0);
            const auto mixed = [a](int b, int f) {
                return static_cast<int>(std::lround((b * double(a) + f * (255.0 - a)) / 255.0));
            };
            const QRgb want =
                qRgb(mixed(qRed(from), 3), mixed(qGreen(from), 128), mixed(qBlue(from), 251));
            ASSERT_EQ(out.pixel(x, 0), want) << "a " << a << " x " << x;
        }
    }
}

TEST(Geometry, RectanglesAtEveryScale)
{
    // 253, 170, 547, 163 times the scale, ties to even.
    const PanelRec rec = recAt(253, 170, 547, 163);
    EXPECT_EQ(StageScale(0.33).shown(rec), QRect(83, 56, 181, 54));
    EXPECT_EQ(StageScale(0.5).shown(rec), QRect(126, 85, 274, 82)); // 126.5, 273.5, 81.5
    EXPECT_EQ(StageScale(0.75).shown(rec), QRect(190, 128, 410, 122));
    EXPECT_EQ(StageScale(1.0).shown(rec), QRect(253, 170, 547, 163));
    EXPECT_EQ(StageScale(1.5).shown(rec), QRect(380, 255, 820, 244)); // 379.5, 820.5, 244.5
    EXPECT_EQ(StageScale(2.0).shown(rec), QRect(506, 340, 1094, 326));
    EXPECT_EQ(StageScale(0.5).shown(recAt(-10, 5, -4, 0)), QRect(-5, 2, 0, 0));
}

TEST(Geometry, PullingMovesOnlyFreeSides)
{
    PanelRec rec = recAt(0, 0, 100, 50);
    const QRect panel(200, 100, 100, 50);
    const auto pull = [&](int index, int generation, QPoint to) {
        const ResizeLimits limits = resizeLimits(index, rec, panel.topLeft(), {50, 60}, {800, 600},
                                                 generation, StageScale(1));
        const ResizeBand band = pulledBand(bandAround(panel), to, limits);
        return QPoint(band.right, band.bottom);
    };
    EXPECT_EQ(pull(22, 3, {400, 300}), QPoint(303, 153)) << "no parameter, no size";
    rec.WidthParam = 4;
    EXPECT_EQ(pull(22, 3, {400, 300}), QPoint(400, 153));
    rec.HeightParam = -24;
    EXPECT_EQ(pull(22, 3, {0, 300}), QPoint(207, 153)) << "4 wide";
    rec.HeightParam = 5;
    EXPECT_EQ(pull(22, 3, {9999, 9999}), QPoint(803, 603)) << "to the edges";
    EXPECT_EQ(pull(0, 2, {400, 0}), QPoint(303, 67)) << "old menus: height only, from the menu";
    EXPECT_EQ(pull(1, 3, {0, 300}), QPoint(57, 153)) << "a bar has no height of its own";
}

TEST(Snapping, FindsEdgesMiddlesThirdsAndEqualGaps)
{
    const QRect left(100, 100, 50, 40);
    const QRect right(200, 100, 50, 40);
    const struct {
        const char* what;
        QRect wanted;
        QPoint at;
        bool x;
        bool y;
    } rows[] = {
        {"the left edge", {103, 330, 30, 21}, {100, 330}, true, false},
        {"an edge to the other's far one", {147, 330, 30, 21}, {150, 330}, true, false},
        {"middles", {112, 330, 30, 21}, {110, 330}, true, false},
        {"tops", {430, 97, 31, 20}, {430, 100}, false, true},
        {"the screen's middle", {383, 330, 30, 21}, {385, 330}, true, false},
        {"a third", {268, 410, 30, 21}, {266, 410}, true, false},
        {"its far edge", {768, 578, 30, 21}, {770, 579}, true, true},
        {"as far as those are apart", {297, 115, 31, 6}, {300, 117}, true, true},
        {"nothing near", {330, 310, 31, 23}, {330, 310}, false, false},
    };
    for (const auto& row : rows) {
        const Snapped found = snapPlace(row.wanted, {{left, right}, {800, 600}, 4, true, true});
        EXPECT_EQ(found.at, row.at) << row.what;
        EXPECT_TRUE(found.x == row.x && found.y == row.y) << row.what;
        EXPECT_EQ(found.guides.empty(), !row.x && !row.y) << row.what;
    }
    const Snapped fixed = snapPlace({103, 97, 30, 21}, {{left}, {800, 600}, 4, false, true});
    EXPECT_EQ(fixed.at, QPoint(103, 100));
}

TEST(ScaleRules, StepsMeetFullSizeAndStayWithinWhatIsTaken)
{
    EXPECT_EQ(zoomedScale(0.9, 1, {800, 600}), 1);
    EXPECT_EQ(zoomedScale(1, 4, {800, 600}), 2);
    EXPECT_EQ(zoomedScale(2, 1, {800, 600}), 2);
    EXPECT_EQ(zoomedScale(1, -40, {800, 600}), 0.25);
}
