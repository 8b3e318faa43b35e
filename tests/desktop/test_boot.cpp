// SPDX-License-Identifier: MIT
// The template in a real boot.
#include "desktop/boot.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageWriter>

using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(BootedTemplate, ShowsOurBackgroundAndTheMenu)
{
    const QTemporaryDir folder;
    const Message message;
    const Boot booted = boot(message.saveIn(folder));
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    ASSERT_EQ(booted.screen.size(), message.background.size());
    // Away from the menu and the lines below it every pixel is the picture's.
    for (const QRect& part : bareParts())
        EXPECT_LE(difference(booted.screen, message.background, part), decoderRounding);
    // The chosen entry's bar is white over the night sky.
    for (int x = 480; x < 550; ++x) // right of the entry's own words
        EXPECT_GT(difference(booted.screen.pixel(x, 182), message.background.pixel(x, 182)), 80);
}

namespace {

QByteArray jpeg(const QImage& picture, bool progressive)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(picture));
    return bytes;
}

} // namespace

TEST(BootedTemplate, TheCheckSeesAScreenThatDoesNotFit)
{
    const QTemporaryDir folder;
    const QByteArray large = jpeg(Message().background.scaled(900, 700), false);
    const Boot booted = boot(Message(large).saveIn(folder), {u"--wait"_s, u"8"_s});
    EXPECT_EQ(booted.code, 1);
    EXPECT_TRUE(booted.told.contains("pixels")) << booted.told.toStdString();
}

// The decoder would make such a picture black.
TEST(BootedTemplate, LeavesOutAPictureThatTheDecoderDoesNotKnow)
{
    const QTemporaryDir folder;
    const Message message(jpeg(Message().background, true));
    const Boot booted = boot(message.saveIn(folder));
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    EXPECT_LE(difference(booted.screen.pixel(700, 50), qRgb(0x10, 0x20, 0x30)), decoderRounding);
    EXPECT_GT(qRed(booted.screen.pixel(540, 182)), 150) << "the bar";
}
