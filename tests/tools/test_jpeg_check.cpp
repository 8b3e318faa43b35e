// SPDX-License-Identifier: MIT
#include "picture_judge.h"
#include "screen/jpeg_check.h"

#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// What checkBootable says of a JPEG that ImageMagick makes with the options.
std::string verdictOn(TestShell& t, const QString& options)
{
    const QString path = t.path(u"made.jpg"_s);
    outputOf(u"convert"_s, QStringList{quadrantPicture(t)} +
                               options.split(u' ', Qt::SkipEmptyParts) + QStringList{path});
    const Result<JpegHead> head = readJpegHead(viewOf(bytesOf(path)));
    EXPECT_TRUE(head.ok());
    if (!head)
        return head.failure().text;
    EXPECT_EQ(head->width, 320);
    EXPECT_EQ(head->height, 200);
    const Result<void> good = checkBootable(*head);
    return good ? std::string() : good.failure().text;
}

} // namespace

TEST(JpegCheck, TellsWhatKeepsAPictureFromTheBootScreen)
{
    TestShell t;
    const QString good = u"-sampling-factor 2x2"_s;
    EXPECT_EQ(verdictOn(t, good), "");
    const std::pair<QString, const char*> cases[] = {
        {good + u" -interlace JPEG"_s, "progressive"},
        {good + u" -colorspace Gray"_s, "1 colour components"},
        {good + u" -colorspace CMYK"_s, "4 colour components"},
        {u"-sampling-factor 1x1"_s, "4:2:0"},
        {u"-sampling-factor 2x1"_s, "4:2:0"},
    };
    for (const auto& [options, part] : cases)
        EXPECT_NE(verdictOn(t, options).find(part), std::string::npos) << options.toStdString();
}

TEST(JpegCheck, SeesRestartsMetadataAndDensity)
{
    TestShell t;
    const QString path = t.path(u"plain.jpg"_s);
    outputOf(u"convert"_s, {quadrantPicture(t), u"-strip"_s, u"-density"_s, u"72"_s, u"-units"_s,
                            u"PixelsPerInch"_s, u"-sampling-factor"_s, u"2x2"_s, path});
    const QByteArray plain = bytesOf(path);
    const Result<JpegHead> head = readJpegHead(viewOf(plain));
    ASSERT_TRUE(head.ok());
    EXPECT_FALSE(head->metadata);
    EXPECT_EQ(head->dotsPerInch, 72);

    const auto with = [&](const QByteArray& segment) {
        const QByteArray bytes = plain.left(2) + "\xFF" + segment + plain.mid(2); // a fill byte too
        const Result<JpegHead> changed = readJpegHead(viewOf(bytes));
        EXPECT_TRUE(changed.ok());
        return changed ? *changed : JpegHead();
    };
    EXPECT_EQ(with(QByteArray("\xFF\xDD\0\x04\0\x08", 6)).restartInterval, 8);
    EXPECT_FALSE(checkBootable(with(QByteArray("\xFF\xDD\0\x04\0\x08", 6))).ok());
    EXPECT_TRUE(checkBootable(with(QByteArray("\xFF\xDD\0\x04\0\0", 6))).ok());
    EXPECT_TRUE(with(QByteArray("\xFF\xFE\0\x04hi", 6)).metadata);
    EXPECT_TRUE(with(QByteArray("\xFF\xE1\0\x06"
                                "Exif",
                                8))
                    .metadata);
}

TEST(JpegCheck, StopsAtTheEndOfCutOffFiles)
{
    TestShell t;
    const QString path = t.path(u"whole.jpg"_s);
    outputOf(u"convert"_s, {quadrantPicture(t), path});
    const QByteArray whole = bytesOf(path);
    const qsizetype scan = whole.indexOf("\xFF\xDA");
    for (qsizetype size = 0; size < scan; ++size)
        EXPECT_FALSE(readJpegHead(viewOf(whole.left(size))).ok()) << size;
}
