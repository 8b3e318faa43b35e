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

TEST(BootedTemplate, TheCheckSeesAPictureThatDoesNotBoot)
{
    const QTemporaryDir folder;
    QByteArray progressive;
    QBuffer buffer(&progressive);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(Message().background));
    const Boot booted = boot(Message(progressive).saveIn(folder), {u"--wait"_s, u"8"_s});
    EXPECT_EQ(booted.code, 1);
    EXPECT_TRUE(booted.told.contains("colours") || booted.told.contains("pixels"))
        << booted.told.toStdString();
}
