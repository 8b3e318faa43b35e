// SPDX-License-Identifier: MIT
#include "editor/window/layout.h"

#include <gtest/gtest.h>

using namespace fennel;

namespace {

LayoutInput input(QSize picture, QSize available = {1264, 700})
{
    LayoutInput in;
    in.picture = picture;
    in.available = available;
    in.RightPanelWidth = 400;
    in.BottomPanelHeight = 150;
    in.MinWindowWidth = 640;
    return in;
}

void expectApart(const LayoutResult& out)
{
    const QRect whole(QPoint(0, 0), out.area);
    const QRect areas[] = {out.picture,          out.rightPanel,         out.bottomPanel, out.tools,
                           out.verticalSplitter, out.horizontalSplitter, out.rightButton};
    for (const QRect& area : areas) {
        EXPECT_TRUE(area.isEmpty() || whole.contains(area));
        for (const QRect& other : areas) {
            EXPECT_TRUE(&area == &other || !area.intersects(other)) << out.area.width();
        }
    }
}

} // namespace

TEST(Layout, TheWindowIsThePictureAndThePanelsBesideIt)
{
    for (const bool right : {false, true}) {
        for (const bool bottom : {false, true}) {
            LayoutInput in = input({800, 500});
            in.rightVisible = right;
            in.bottomVisible = bottom;
            const LayoutResult out = layoutWindow(in);
            EXPECT_EQ(out.picture, QRect(0, 0, 800, 500));
            EXPECT_EQ(out.area.width(), 800 + (right ? 400 : 0) + gutterWidth);
            EXPECT_EQ(out.area.height(), 500 + (bottom ? 150 : 0) + splitterWidth);
            EXPECT_EQ(out.rightPanel, right ? QRect(800, 0, 400, 500) : QRect());
            EXPECT_EQ(out.bottomPanel, bottom ? QRect(0, 500, 800, 150) : QRect());
            EXPECT_EQ(out.tools, right && bottom ? QRect(800, 500, 400, 150) : QRect());
            EXPECT_EQ(out.RightPanelWidth, 400); // remembered while hidden
            EXPECT_EQ(out.BottomPanelHeight, 150);
            expectApart(out);
        }
    }
}

TEST(Layout, ANarrowPictureGivesTheRestToTheRightPanel)
{
    LayoutInput in = input({200, 150});
    in.RightPanelWidth = 200;
    LayoutResult out = layoutWindow(in);
    EXPECT_EQ(out.area.width(), 640);
    EXPECT_EQ(out.RightPanelWidth, 640 - gutterWidth - 200);
    EXPECT_EQ(out.rightPanel.width(), out.RightPanelWidth);
    in.rightVisible = false;
    out = layoutWindow(in);
    EXPECT_EQ(out.area.width(), 640);
    EXPECT_EQ(out.RightPanelWidth, 200);
}

TEST(Layout, WhateverIsAskedTheWindowStaysWithinTheDesktopAndKeepsAView)
{
    for (const QSize picture : {QSize(1, 1), QSize(640, 480), QSize(1600, 1200), QSize(3000, 90),
                                QSize(90, 3000), QSize(1248, 696)}) {
        for (const QSize available : {QSize(1264, 700), QSize(784, 480), QSize(1904, 980)}) {
            for (const int right : {200, 400, 1200, 9000}) {
                for (const int bottom : {60, 150, 650, 9000}) {
                    LayoutInput in = input(picture, available);
                    in.RightPanelWidth = right;
                    in.BottomPanelHeight = bottom;
                    const LayoutResult out = layoutWindow(in);
                    EXPECT_LE(out.area.width(), available.width()) << picture.width();
                    EXPECT_LE(out.area.height(), available.height()) << picture.height();
                    EXPECT_GE(out.picture.width(), std::min(picture.width(), smallestPort));
                    EXPECT_GE(out.picture.height(), std::min(picture.height(), smallestPort));
                    EXPECT_GE(out.RightPanelWidth, minRightPanelWidth);
                    EXPECT_GE(out.BottomPanelHeight, minBottomPanelHeight);
                    expectApart(out);
                    // What came out is what the next layout gives too.
                    in.RightPanelWidth = out.RightPanelWidth;
                    in.BottomPanelHeight = out.BottomPanelHeight;
                    EXPECT_EQ(layoutWindow(in).area, out.area);
                    // A window that was pulled keeps its size, and the stage gets the rest.
                    in.given = QSize(1900, 900);
                    const LayoutResult pulled = layoutWindow(in);
                    EXPECT_EQ(pulled.area, *in.given);
                    EXPECT_EQ(pulled.picture.width() + pulled.RightPanelWidth + gutterWidth, 1900);
                    expectApart(pulled);
                }
            }
        }
    }
}
