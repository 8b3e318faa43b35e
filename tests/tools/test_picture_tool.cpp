// SPDX-License-Identifier: MIT
// Pictures that were made to harm. The real bridge reads them; a watchdog ends what hangs.
#include "base/file_names.h"
#include "base/picture_tool.h"
#include "container/jpeg_check.h"
#include "picture_judge.h"
#include "support/long_run.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// The pixels of a JPEG, gone over `count` times.
QByteArray scansOf(int count)
{
    const QByteArray one = jpegOf({64, 64});
    const qsizetype scan = one.indexOf("\xFF\xDA");
    return one.left(scan) + one.mid(scan).chopped(2).repeated(count) + one.right(2);
}

FailureKind refusal(TestShell& t, const QString& path)
{
    const Watchdog watchdog(60);
    for (const PictureMode mode : {PictureMode::Measure, PictureMode::Whole})
        if (t.shell.readPicture({path, mode}).ok())
            return FailureKind::Io;
    return t.shell.readPicture({path, PictureMode::Inside, {16, 16}}).failure().kind;
}

} // namespace

TEST(PictureTool, WhatIsNoPictureOfTheShortListIsNotOpened)
{
    TestShell t;
    const QString pipe = t.path(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(pipe, t.path(u"link.jpg"_s)));
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' "
                           "xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='9'>"
                           "<image width='9' height='9' xlink:href='%'/></svg>";
    const QString drawing =
        t.file(u"back.jpg"_s, QByteArray(svg).replace('%', QFile::encodeName(pipe)));
    for (const QString& path : {drawing, pipe, t.path(u"link.jpg"_s), u"/dev/zero"_s})
        EXPECT_EQ(refusal(t, path), FailureKind::Unsupported) << path.toStdString();
    EXPECT_EQ(refusal(t, t.path(u"gone"_s)), FailureKind::NotFound);
    EXPECT_EQ(refusal(t, t.file(u"cut.jpg"_s, jpegOf({9, 9}).left(200))), FailureKind::Malformed);
}

TEST(PictureTool, AJpegIsNotGoneOverThousandsOfTimes)
{
    TestShell t;
    EXPECT_EQ(jpegScans(scansOf(3).toStdString()), 3);
    EXPECT_EQ(refusal(t, t.file(u"scans.jpg"_s, scansOf(2000))), FailureKind::TooLarge);
    EXPECT_TRUE(t.shell.readPicture({t.file(u"few.jpg"_s, scansOf(1))}).ok());
}

TEST(PictureTool, PixelsComeAsTheyAreAndAtTheSizeThatIsShown)
{
    TestShell t;
    const QString path = quadrantPicture(t);
    const QString odd = t.path({}) + pathOfBytes("\xcb.png");
    ASSERT_TRUE(t.files.copy(path, odd).ok());
    const Result<FilePicture> whole = t.shell.readPicture({odd});
    ASSERT_TRUE(whole.ok()) << whole.failure().text;
    EXPECT_EQ(whole->image, QImage(path).convertToFormat(QImage::Format_RGB32));
    const QString large = t.file(u"large.jpg"_s, jpegOf({5600, 5600}));
    const qint64 before = residentBytes();
    for (int i = 0; i < 20; ++i) {
        const Result<FilePicture> icon =
            t.shell.readPicture({large, PictureMode::Inside, {128, 96}});
        ASSERT_TRUE(icon.ok()) << icon.failure().text;
        EXPECT_EQ(icon->stored, QSize(5600, 5600));
        EXPECT_EQ(icon->image.size(), QSize(96, 96));
    }
    EXPECT_LT(residentBytes() - before, 32 << 20);
}

TEST(PictureTool, AnswersComeInOrderAndABridgeThatDiesTakesOnePictureWithIt)
{
    TestShell t;
    QObject receiver;
    QStringList order;
    const auto ask = [&](const QString& path) {
        t.shell.pictures().ask({path}, &receiver, [&order](const Result<FilePicture>& read) {
            order.append(read ? u"read"_s : u"failed"_s);
        });
    };
    ask(quadrantPicture(t));
    ask(t.path(u"gone"_s));
    EXPECT_TRUE(t.shell.readPicture({quadrantPicture(t)}).ok()) << "before what can wait";
    EXPECT_TRUE(QTest::qWaitFor([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (QStringList{u"read"_s, u"failed"_s}));
    t.run.ToolNConvert = t.script(u"dies"_s, "exit 1");
    order.clear();
    ask(quadrantPicture(t));
    ask(quadrantPicture(t));
    EXPECT_EQ(t.shell.readPicture({quadrantPicture(t)}).failure().kind, FailureKind::ToolFailed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return order.size() == 2; }));
}
