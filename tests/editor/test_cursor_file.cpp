// SPDX-License-Identifier: MIT
#include "editor/stage/cursor_file.h"

#include <gtest/gtest.h>

#include <QImageReader>

#include <set>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

QString cursorPath(const QString& name)
{
    return QStringLiteral(FENNEL_BIN_DIR "/Cursors/") + name;
}

// 2 x 2 pixels of one bit, written by hand: the palette is black and red. Upper row red, red; lower
// row black, transparent. Hot spot 1, 0.
QByteArray tinyCursor()
{
    return QByteArray::fromHex("0000 0200 0100" // a cursor file of one picture
                               "02 02 00 00 0100 0000 40000000 16000000"
                               "28000000 02000000 04000000 0100 0100 00000000 00000000"
                               "00000000 00000000 00000000 00000000"
                               "00000000 0000ff00" // palette: blue, green, red, nothing
                               "00000000 c0000000" // colours, lower row first
                               "40000000 00000000");
}

QByteArray le32(quint32 value)
{
    QByteArray out;
    for (int i = 0; i < 4; ++i)
        out += static_cast<char>(value >> 8 * i);
    return out;
}

QByteArray chunk(const char* name, const QByteArray& bytes)
{
    return QByteArray(name) + le32(static_cast<quint32>(bytes.size())) + bytes;
}

// An animation with one picture, whose optional chunks are given.
QByteArray tinyAnimation(const QByteArray& optional)
{
    const QByteArray header =
        le32(36) + le32(1) + le32(1) + QByteArray(16, '\0') + le32(6) + le32(1);
    const QByteArray frames = QByteArray("fram") + chunk("icon", tinyCursor());
    return chunk("RIFF",
                 QByteArray("ACON") + chunk("anih", header) + optional + chunk("LIST", frames));
}

} // namespace

TEST(CursorFile, ReadsTheProgramsOwnPointersWithTheirHotSpots)
{
    struct Expected {
        QString name;
        QPoint hotSpot;
        bool moves;
    };
    // Where each pointer points: the dropper's tip, the middle, the finger tip, the arrow's tip.
    for (const Expected& expected : {Expected{u"Picker_Fsh.ani"_s, {2, 29}, true},
                                     {u"Dgn1_Fsh.cur"_s, {16, 16}, false},
                                     {u"Link_Fsh.ani"_s, {11, 6}, true},
                                     {u"Help_Fsh.ani"_s, {1, 1}, true},
                                     {u"Unav_Fsh.ani"_s, {16, 16}, true}}) {
        SCOPED_TRACE(expected.name.toStdString());
        const auto frames = readCursorFile(cursorPath(expected.name));
        ASSERT_TRUE(frames.ok()) << frames.failure().text;
        EXPECT_EQ(frames->size() > 1, expected.moves);
        std::set<QByteArray> different;
        for (const CursorFrame& frame : *frames) {
            EXPECT_EQ(frame.image.size(), QSize(32, 32));
            EXPECT_EQ(frame.hotSpot, expected.hotSpot);
            EXPECT_EQ(frame.durationMs > 0, expected.moves);
            EXPECT_EQ(qAlpha(frame.image.pixel(31, 0)), 0) << "the corner is clear";
            different.insert({reinterpret_cast<const char*>(frame.image.constBits()),
                              frame.image.sizeInBytes()});
        }
        EXPECT_EQ(different.size() > 1, expected.moves);
        const QRgb tip = frames->front().image.pixel(expected.hotSpot);
        EXPECT_GT(qAlpha(tip), 0) << "the hot spot lies on the pointer";
    }
}

TEST(CursorFile, GivesTheSamePixelsAsQtsOwnReader)
{
    QImageReader judge(cursorPath(u"Dgn1_Fsh.cur"_s), "ico");
    const QImage expected = judge.read().convertToFormat(QImage::Format_ARGB32);
    ASSERT_FALSE(expected.isNull()) << judge.errorString().toStdString();
    const auto frames = readCursorFile(cursorPath(u"Dgn1_Fsh.cur"_s));
    ASSERT_TRUE(frames.ok());
    EXPECT_EQ(frames->front().image, expected);
}

TEST(CursorFile, DecodesPaletteMaskAndRowOrder)
{
    const auto frames = parseCursor(tinyCursor(), u"tiny"_s);
    ASSERT_TRUE(frames.ok()) << frames.failure().text;
    const QImage& image = frames->front().image;
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(1, 0), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(0, 1), qRgb(0, 0, 0));
    EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0);
    EXPECT_EQ(frames->front().hotSpot, QPoint(1, 0));
}

TEST(CursorFile, AnimationsFollowTheirOrderAndRates)
{
    const auto plain = parseCursor(tinyAnimation({}), u"a"_s);
    ASSERT_TRUE(plain.ok()) << plain.failure().text;
    EXPECT_EQ(plain->size(), 1U);
    EXPECT_EQ(plain->front().durationMs, 100);

    const QByteArray extra = chunk("rate", le32(60) + le32(0) + le32(0xffffffff)) +
                             chunk("seq ", le32(0) + le32(0) + le32(0));
    const auto steps = parseCursor(tinyAnimation(extra), u"a"_s);
    ASSERT_TRUE(steps.ok()) << steps.failure().text;
    ASSERT_EQ(steps->size(), 3U);
    EXPECT_EQ((*steps)[0].durationMs, 1000);
    EXPECT_GT((*steps)[1].durationMs, 0) << "a rate of nothing would never yield";
    EXPECT_LE((*steps)[2].durationMs, 60'000);
    EXPECT_FALSE(parseCursor(tinyAnimation(chunk("seq ", le32(1))), u"a"_s).ok());
}

TEST(CursorFile, EveryCutFileIsRefusedWithItsName)
{
    for (const QByteArray& whole : {tinyCursor(), tinyAnimation({})}) {
        for (qsizetype size = 0; size < whole.size(); ++size) {
            const auto frames = parseCursor(whole.left(size), u"cut.cur"_s);
            ASSERT_FALSE(frames.ok()) << size;
            EXPECT_EQ(frames.failure().text.find("cut.cur"), 0U);
        }
    }
    EXPECT_EQ(readCursorFile(cursorPath(u"none.cur"_s)).failure().kind, FailureKind::NotFound);
}

TEST(CursorFile, HostileSizesAreRefused)
{
    const auto patched = [](qsizetype at, const char* hex) {
        QByteArray bytes = tinyCursor();
        const QByteArray patch = QByteArray::fromHex(hex);
        return bytes.replace(at, patch.size(), patch);
    };
    EXPECT_FALSE(parseCursor(patched(4, "ffff"), u"count"_s).ok());
    EXPECT_FALSE(parseCursor(patched(14, "ffffffff"), u"size"_s).ok());
    EXPECT_FALSE(parseCursor(patched(18, "f0ffffff"), u"offset"_s).ok());
    EXPECT_EQ(parseCursor(patched(26, "ffffff7f"), u"width"_s).failure().kind,
              FailureKind::TooLarge);
    EXPECT_EQ(parseCursor(patched(30, "000000 80"), u"height"_s).failure().kind,
              FailureKind::TooLarge);
    EXPECT_EQ(parseCursor(patched(36, "1000"), u"depth"_s).failure().kind,
              FailureKind::Unsupported);
    EXPECT_EQ(parseCursor(patched(22, "89504e47"), u"png"_s).failure().kind,
              FailureKind::Unsupported);
    EXPECT_TRUE(parseCursor(patched(54, "ffffffff"), u"palette count"_s).ok());
    EXPECT_EQ(parseCursor(patched(10, "ff7f"), u"far"_s)->front().hotSpot, QPoint(1, 0));
}
