// SPDX-License-Identifier: MIT
// Backgrounds of every odd kind, brought in by the picture tool, on the real boot screen: the
// engine shows a black screen for a JPEG that it cannot decode.
#include "container/jpeg_check.h"
#include "desktop/boot.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// The picture as a JPEG of the named kind, made by another program.
QString oddSource(const QTemporaryDir& folder, const QImage& picture, const QString& kind)
{
    const QString plain = folder.filePath(u"plain.png"_s);
    const QString odd = folder.filePath(kind + u".jpg"_s);
    EXPECT_TRUE(picture.save(plain));
    QStringList arguments{plain};
    if (kind == u"progressive"_s)
        arguments << u"-interlace"_s << u"Plane"_s;
    else if (kind == u"grey"_s)
        arguments << u"-colorspace"_s << u"Gray"_s;
    else if (kind == u"cmyk"_s)
        arguments << u"-colorspace"_s << u"CMYK"_s;
    else
        arguments << u"-sampling-factor"_s << u"4:4:4"_s;
    arguments << u"-quality"_s << u"95"_s << odd;
    EXPECT_EQ(runProgram(u"convert"_s, arguments).code, 0);
    return odd;
}

} // namespace

// The decoder takes what the picture tool makes of them; one of them boots.
TEST(BootPictures, OfOddKindsShowOnTheBootScreen)
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(u"back.jpg"_s);
    for (const QString& kind : {u"progressive"_s, u"grey"_s, u"full_colour"_s, u"cmyk"_s}) {
        const QString source = oddSource(folder, Message().background, kind);
        ASSERT_EQ(runBridge("nconvert/nconvert_bridge",
                            {u"-out"_s, u"jpeg"_s, u"-overwrite"_s, u"-resize"_s, u"800"_s,
                             u"600"_s, u"-q"_s, u"85"_s, u"-dpi"_s, u"72"_s, u"-rexifthumb"_s,
                             u"-rmeta"_s, u"-o"_s, target, source})
                      .code,
                  0);
        const auto head = fennel::readJpegHead(bytesOf(target).toStdString());
        ASSERT_TRUE(head && fennel::checkBootable(*head)) << kind.toStdString();
    }
    const Boot booted = boot(Message(bytesOf(target)).saveIn(folder));
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    const QImage expected = engineDecoded(bytesOf(target));
    for (const QRect& part : bareParts())
        EXPECT_LE(difference(booted.screen, expected, part), decoderRounding);
}
