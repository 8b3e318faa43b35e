// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"
#include "support/bin_folder.h"

#include "base/files.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

QString cursorPath(const QString& name)
{
    return fennel::test::binFolder() + QStringLiteral("/Cursors/") + name;
}

} // namespace

TEST(CursorFile, ReadsTheProgramsOwnPointersWithTheirHotSpots)
{
    // Where each pointer points: the dropper's tip, the middle, the finger tip, the arrow's tip.
    for (const auto& [name, hotSpot] : {std::pair{u"Picker_Fsh.ani"_s, QPoint(2, 29)},
                                        {u"Dgn1_Fsh.cur"_s, {16, 16}},
                                        {u"Link_Fsh.ani"_s, {11, 6}},
                                        {u"Help_Fsh.ani"_s, {1, 1}},
                                        {u"Unav_Fsh.ani"_s, {16, 16}}}) {
        SCOPED_TRACE(name.toStdString());
        const auto picture = readCursorFile(cursorPath(name));
        ASSERT_TRUE(picture.ok()) << picture.failure().text;
        EXPECT_EQ(picture->image.size(), QSize(32, 32));
        EXPECT_EQ(picture->hotSpot, hotSpot);
        EXPECT_EQ(qAlpha(picture->image.pixel(31, 0)), 0) << "the corner is clear";
        EXPECT_GT(qAlpha(picture->image.pixel(hotSpot)), 0) << "it lies on the pointer";
    }
}

TEST(CursorFile, CutAndHostileFilesAreRefusedOrReadWithinTheirPicture)
{
    const QByteArray whole = *readBytes(cursorPath(u"Dgn1_Fsh.cur"_s));
    for (qsizetype size = 0; size < 200; ++size) {
        const auto picture = parseCursor(whole.left(size), u"cut.cur"_s);
        ASSERT_FALSE(picture.ok()) << size;
        EXPECT_EQ(picture.failure().text.find("cut.cur"), 0U);
    }
    EXPECT_FALSE(parseCursor(QByteArray(whole).replace(4, 2, "\xff\xff"), u"count"_s).ok());
    const QByteArray far = QByteArray(whole).replace(10, 2, "\xff\x7f");
    EXPECT_EQ(parseCursor(far, u"far"_s)->hotSpot, QPoint(31, 16));
    EXPECT_EQ(readCursorFile(cursorPath(u"none.cur"_s)).failure().kind, FailureKind::NotFound);
}
