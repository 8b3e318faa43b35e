// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace Qt::StringLiterals;

TEST(Number, ReadsTheSameTextTheSameWayEverywhere)
{
    const std::pair<const char*, qint64> cases[] = {
        {"12abc", 12},       {"abc", 0},         {"", 0},
        {" 12 13", 1213},    {"-5", -5},         {"14 px", 14},
        {"0xff00", 0xff00},  {"0XFF", 255},      {" 0x1234567", 0x234567},
        {"0xff # red", 255}, {"0x", 0},          {"14.5", 14},
        {"1.2.3", 1},        {"--5", 0},         {"4294967295", 4294967295},
        {"- 7", -7},         {"0xFFGG00", 0xff}, {"+8", 8},
        {"0-5", 0},          {"007", 7},         {"0.5", 0},
        {"12.7", 13},        {"15.5", 16},       {"-1.2", -1},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(numberFromText(QString::fromLatin1(text)), number) << text;
    const auto million = [](char c) { return QString(1'000'000, QLatin1Char(c)); };
    EXPECT_EQ(numberFromText(million('9')), 1LL << 53);
    EXPECT_EQ(numberFromText(u"-"_s + million('9')), -(1LL << 53));
    EXPECT_EQ(numberFromText(u"-"_s + million('0') + u"12."_s + million('5')), -13);
    const std::pair<const char*, const char*> texts[] = {
        {"4294967295", "4294967295"},
        {"12.5", "12.5"},
        {".5", "0.5"},
        {"1.50 px", "1.5"},
        {"-0", "0"},
        {"-.0", "0"},
        {"- 07.10", "-7.1"},
        {"100", "100"},
        {"12\t13", "1213"},
        {"abc", "0"},
        {"+5.", "5"},
        {"1.2.3", "1.2"},
    };
    for (const auto& [text, number] : texts)
        EXPECT_EQ(leadingNumberText(QString::fromLatin1(text)), QLatin1StringView(number));
    EXPECT_EQ(hexText(0xff00), u"0x00FF00"_s);
    EXPECT_EQ(hexText(0x1234567), u"0x234567"_s);
    EXPECT_EQ(roundToEven(0.5), 0);
    EXPECT_EQ(roundToEven(1.5), 2);
    EXPECT_EQ(roundToEven(-2.5), -2);
}

TEST(Text, KeepsEveryByteOfCodePage1251)
{
    QByteArray all;
    for (int i = 1; i < 256; ++i)
        all.append(static_cast<char>(i));
    EXPECT_EQ(toCp1251(fromCp1251(all)), all);
    EXPECT_EQ(fromCp1251("\xCF\xCB\xC0\xCD"), u"ПЛАН"_s);
    EXPECT_EQ(toCp1251(u"\u4e00"_s), "?");
}

TEST(Text, TellsTheMarkFromTheText)
{
    const TextFile marked = decodeText("\xEF\xBB\xBF\xD0\x9F");
    EXPECT_TRUE(marked.TextIsUtf8);
    EXPECT_EQ(marked.text, u"П"_s);
    EXPECT_EQ(encodeText(marked.text, true), "\xEF\xBB\xBF\xD0\x9F");
    EXPECT_FALSE(decodeText("\xEF\xBB").TextIsUtf8);
}
