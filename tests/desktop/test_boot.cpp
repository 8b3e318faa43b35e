// SPDX-License-Identifier: MIT
// The check of boots itself.
#include "desktop/boot.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(BootCheck, SeesAScreenThatDoesNotFit)
{
    const QTemporaryDir folder;
    QByteArray large;
    QBuffer buffer(&large);
    EXPECT_TRUE(Message().background.scaled(900, 700).save(&buffer, "jpeg"));
    const Boot booted = boot(Message(large).saveIn(folder), {u"--wait"_s, u"3"_s});
    EXPECT_EQ(booted.code, 1);
    EXPECT_TRUE(booted.told.contains("pixels")) << booted.told.toStdString();
}
