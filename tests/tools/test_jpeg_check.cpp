// SPDX-License-Identifier: MIT
#include "container/jpeg_check.h"
#include "picture_judge.h"

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
    EXPECT_EQ(verdictOn(t, good), "");
    QByteArray restarts = bytesOf(t.path(u"made.jpg"_s));
    restarts.insert(2, QByteArray("\xFF\xDD\0\x04\0\x08", 6));
    EXPECT_FALSE(checkBootable(*readJpegHead(viewOf(restarts))).ok());
}
