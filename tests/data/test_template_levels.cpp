// SPDX-License-Identifier: MIT
#include "data/template_parts.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QRect>

using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

using Records = QMap<int, int>;

Records records(const TemplateParts& parts, const QString& name)
{
    Records out;
    const QByteArray bytes = parts.members[name];
    EXPECT_EQ(bytes.size() % 4, 0);
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4) {
        const auto byte = [&](qsizetype i) { return static_cast<uchar>(bytes[at + i]); };
        EXPECT_GE(byte(3), 1) << name.toStdString();
        EXPECT_LE(byte(3), 99) << name.toStdString();
        EXPECT_TRUE(out.isEmpty() || byte(3) > out.lastKey()) << "numbers ascend";
        out[byte(3)] = byte(0) | byte(1) << 8 | byte(2) << 16;
    }
    return out;
}

} // namespace

TEST(TemplateLevels, KnownBytesStandAsTheyMust)
{
    const TemplateParts parts = templateParts();
    const QByteArray base = parts.members[u"ZUK0000.CFG"_s];
    EXPECT_EQ(base.left(16).toHex(' ').toUpper(),
              "01 00 00 01 3B 01 00 02 5A 00 00 03 42 30 18 06");
    EXPECT_EQ(base.right(4).toHex(), "01000063");
    EXPECT_EQ(parts.members[u"ZUK0001.CFG"_s], QByteArray(80, '\0'));
    EXPECT_EQ(parts.members[u"ZUK0006.CFG"_s].size(), 24);
    EXPECT_EQ(records(parts, u"ZUK0006.CFG"_s),
              (Records{{1, 1}, {2, 110}, {3, 205}, {8, 0xFB5944}, {9, 3}, {38, 0}}));
}

TEST(TemplateLevels, ObjectsLieOnTheBackground)
{
    const TemplateParts parts = templateParts();
    // The file, then the parameters of left and top; those of width and height, or, below 0, sizes
    // that no parameter sets.
    const std::tuple<QString, int, int, int, int> objects[] = {
        {u"ZUK0000.CFG"_s, 2, 3, -72, -22},  {u"ZUK0000.CFG"_s, 12, 13, -72, -22},
        {u"ZUK0000.CFG"_s, 22, 23, 24, -24}, {u"ZUK0000.CFG"_s, 42, 43, 54, -140},
        {u"ZUK0000.CFG"_s, 32, 33, 0, 0},    {u"ZUK0002.CFG"_s, 2, 3, 4, 5},
        {u"ZUK0003.CFG"_s, 2, 3, -100, -30}, {u"ZUK0004.CFG"_s, 2, 3, 4, 5},
        {u"ZUK0005.CFG"_s, 2, 3, 4, 5},      {u"ZUK0007.CFG"_s, 2, 3, 4, 5},
        {u"ZUK0008.CFG"_s, 2, 3, 4, 5},      {u"ZUK0015.CFG"_s, 2, 3, -575, -375},
    };
    for (const auto& [file, left, top, width, height] : objects) {
        const Records r = records(parts, file);
        const QSize logo = QImage::fromData(parts.members[u"Logo_msk.jpg"_s]).size();
        const QSize own(width < 0 ? -width : r.value(width),
                        height < 0 ? -height : r.value(height));
        const QSize size = width == 0 ? logo : own; // the logo has that of its mask
        EXPECT_TRUE(QRect(0, 0, 800, 600).contains(QRect({r.value(left), r.value(top)}, size)))
            << file.toStdString() << left;
    }
}

TEST(TemplateLevels, EffectsNameTheirPicturesAndCutThemEvenly)
{
    const TemplateParts parts = templateParts();
    const Records bee = records(parts, u"ZUK0008.CFG"_s);
    EXPECT_EQ(bee[99], 3) << "ani_03.jpg";
    EXPECT_EQ(records(parts, u"ZUK0003.CFG"_s)[99], 2) << "glass_02.jpg";
    const QSize strip = QImage::fromData(parts.members[u"ani_03.jpg"_s]).size();
    EXPECT_EQ(strip.width() % bee[18], 0);
    EXPECT_EQ(strip.height(), bee[19]);
}
