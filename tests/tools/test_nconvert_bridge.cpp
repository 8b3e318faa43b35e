// SPDX-License-Identifier: MIT
// The picture bridge as a program: every kind of source, every output, every way to be broken.
#include "picture_judge.h"

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QRegularExpression>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString bootable = u"C0 22 11 11 | E0 DB C4"_s;

struct Bridge {
    TestShell t;
    QString source = quadrantPicture(t);
    QString output = t.path(u"out.jpg"_s);

    // Runs the bridge with blank-separated options; true if the output is there.
    bool run(const QString& options, const QString& from)
    {
        const QStringList line = QStringList{t.run.ToolNConvert} + options.split(u' ') +
                                 QStringList{u"-o"_s, output, from, u",0"_s};
        EXPECT_TRUE(t.tools.RunToolAndWait(line).ok());
        return FileExists(output);
    }
    bool resize(const QString& from, const QString& size = u"160 100"_s)
    {
        return run(u"-out jpeg -overwrite -resize %1 -q 85 -dpi 72 -rexifthumb -rmeta"_s.arg(size),
                   from);
    }
    // The quadrants as another file, made by ImageMagick.
    QString sample(const QString& name, const QString& options = {})
    {
        QStringList arguments{source};
        arguments += options.split(u' ', Qt::SkipEmptyParts);
        outputOf(u"convert"_s, arguments + QStringList{t.path(name)});
        return t.path(name);
    }
};

// A JPEG with an EXIF block that holds nothing but the orientation.
QByteArray withOrientation(const QByteArray& jpeg, char orientation)
{
    QByteArray exif("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 25);
    exif += orientation;
    exif += QByteArray(6, '\0');
    QByteArray segment("\xFF\xE1\0", 3);
    segment += static_cast<char>(exif.size() + 2);
    return jpeg.left(2) + segment + exif + jpeg.mid(2);
}

} // namespace

TEST(NConvertBridge, ReadsEveryFormatByItsContent)
{
    Bridge b;
    const QStringList samples{
        u"a.png"_s, u"a.bmp"_s, u"a.gif"_s, u"a.tif"_s, u"a.tga"_s, u"a.pcx"_s, u"a.xpm"_s,
        // A name, and with what ImageMagick makes it.
        u"rle.tga -compress RLE"_s, u"a.ico -resize 128x80!"_s, u"a.webp -quality 95"_s,
        u"16bit.png -depth 16"_s, u"16bit.tif -depth 16"_s, u"palette.bmp -type Palette"_s,
        u"cmyk.jpg -colorspace CMYK"_s, u"cmyk.tif -colorspace CMYK"_s,
        u"progressive.jpg -interlace JPEG"_s, u"444.jpg -sampling-factor 1x1 -quality 95"_s,
        u"422.jpg -sampling-factor 2x1"_s, u"profile.tif -orient TopLeft -compress LZW"_s,
        u"restart.jpg -define jpeg:restart-interval=4"_s};
    for (const QString& sample : samples) {
        SCOPED_TRACE(sample.toStdString());
        const QString from = b.sample(sample.section(u' ', 0, 0), sample.section(u' ', 1));
        ASSERT_TRUE(b.resize(from)) << b.t.tools.lastErrorOutput().toStdString();
        EXPECT_EQ(quadrantsOf(b.output), u"rgby"_s);
        EXPECT_EQ(markersOf(bytesOf(b.output)), bootable);
    }
}

TEST(NConvertBridge, LooksAtTheBytesBeforeTheEnding)
{
    Bridge b;
    for (const auto& [real, wrong] :
         {std::pair{u"a.png"_s, u"wrong1.jpg"_s}, std::pair{u"a.jpg"_s, u"wrong2.tga"_s},
          std::pair{u"a.tga"_s, u"wrong3.jpg"_s}, std::pair{u"a.pcx"_s, u"none"_s}}) {
        const QString path = b.t.file(wrong, bytesOf(b.sample(real)));
        ASSERT_TRUE(b.resize(path)) << wrong.toStdString();
        EXPECT_EQ(quadrantsOf(b.output), u"rgby"_s);
    }
    QByteArray cursor = bytesOf(b.sample(u"a.ico"_s, u"-resize 64x40!"_s));
    cursor[2] = 2; // type: cursor
    ASSERT_TRUE(b.resize(b.t.file(u"a.cur"_s, cursor)));
    EXPECT_EQ(quadrantsOf(b.output), u"rgby"_s);
}

TEST(NConvertBridge, TurnsPicturesUprightByTheirOrientation)
{
    Bridge b;
    const QByteArray jpeg = bytesOf(b.sample(u"a.jpg"_s));
    // Stored rows and columns of a picture that is shown turned: the EXIF standard, tag 0x112.
    const std::pair<char, QString> cases[] = {{1, u"rgby"_s}, {2, u"gryb"_s}, {3, u"ybgr"_s},
                                              {4, u"byrg"_s}, {5, u"rbgy"_s}, {6, u"bryg"_s},
                                              {7, u"ygbr"_s}, {8, u"gyrb"_s}};
    for (const auto& [orientation, shown] : cases) {
        ASSERT_TRUE(
            b.resize(b.t.file(u"turned.jpg"_s, withOrientation(jpeg, orientation)), u"100 0"_s));
        EXPECT_EQ(quadrantsOf(b.output), shown) << int{orientation};
        EXPECT_EQ(QImage(b.output).height(), orientation < 5 ? 63 : 160) << int{orientation};
    }
    ASSERT_TRUE(b.resize(b.sample(u"turned.tif"_s, u"-orient BottomRight"_s)));
    EXPECT_EQ(quadrantsOf(b.output), u"ybgr"_s);
}

TEST(NConvertBridge, PutsTransparentPartsOnBlack)
{
    Bridge b;
    for (const auto& name : {u"t.png"_s, u"t.gif"_s, u"t.webp"_s, u"t.tif"_s, u"t.xpm"_s}) {
        const QString from = b.sample(name, u"-transparent red -fuzz 5%"_s);
        ASSERT_TRUE(b.resize(from)) << name.toStdString();
        EXPECT_EQ(quadrantsOf(b.output).left(2), u"kg"_s) << name.toStdString();
    }
}

TEST(NConvertBridge, WritesGreyAndTaggedPicturesAsPlainColour)
{
    Bridge b;
    ASSERT_TRUE(b.resize(b.sample(u"grey.jpg"_s, u"-colorspace Gray -comment secret"_s)));
    EXPECT_EQ(markersOf(bytesOf(b.output)), bootable);
    EXPECT_EQ(
        outputOf(u"identify"_s,
                 {u"-format"_s, u"%m %wx%h %z %x %y %U %[jpeg:sampling-factor] %Q|%c"_s, b.output}),
        u"JPEG 160x100 8 72 72 PixelsPerInch 2x2,1x1,1x1 85|"_s);

    QImage wide(64, 64, QImage::Format_RGB32);
    wide.fill(QColor(120, 200, 90));
    wide.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const QImage expected = wide.convertedToColorSpace(QColorSpace::SRgb);
    const QString tagged = b.t.path(u"p3.jpg"_s);
    ASSERT_TRUE(wide.save(tagged, "jpeg", 95));
    ASSERT_TRUE(b.run(u"-out jpeg -overwrite"_s, tagged));
    EXPECT_NEAR(qRed(QImage(b.output).pixel(9, 9)), qRed(expected.pixel(9, 9)), 4);
    EXPECT_EQ(markersOf(bytesOf(b.output)), bootable);
}

TEST(NConvertBridge, SplashImageIsAnXpmThatBootLoadersParse)
{
    Bridge b;
    outputOf(u"convert"_s, {u"-size"_s, u"800x600"_s, u"-seed"_s, u"7"_s, u"plasma:fractal"_s,
                            b.t.path(u"photo.jpg"_s)});
    b.output = b.t.path(u"splash.xpm"_s);
    ASSERT_TRUE(b.run(u"-overwrite -blur 25 -colors 14 -out xpm -resize 640 480 -dpi 72"_s,
                      b.t.path(u"photo.jpg"_s)));
    EXPECT_EQ(outputOf(u"identify"_s, {u"-format"_s, u"%m %wx%h"_s, b.output}), u"XPM 640x480"_s);
    const QList<QByteArray> lines = bytesOf(b.output).split('\n');
    EXPECT_EQ(lines[0], "/* XPM */");
    const QList<QByteArray> numbers = lines[2].mid(1).split('"')[0].split(' ');
    ASSERT_EQ(numbers.size(), 4);
    const int colours = numbers[2].toInt();
    EXPECT_LE(colours, 14);
    EXPECT_GE(colours, 8); // a colourful picture uses what it may
    EXPECT_EQ(numbers[3], "1");
    const QRegularExpression colourLine(u"^\"[^\"\\\\] c #[0-9A-F]{6}\",$"_s);
    for (int i = 0; i < colours; ++i)
        EXPECT_TRUE(colourLine.match(QString::fromLatin1(lines[3 + i])).hasMatch())
            << lines[3 + i].toStdString();
}

TEST(NConvertBridge, GifHasAPalette)
{
    Bridge b;
    b.output = b.t.path(u"out.gif"_s);
    ASSERT_TRUE(b.run(u"-overwrite -out gif"_s, b.sample(u"a.xpm"_s)));
    EXPECT_EQ(outputOf(u"identify"_s, {u"-format"_s, u"%m %wx%h %k"_s, b.output}),
              u"GIF 320x200 4"_s);
    EXPECT_EQ(quadrantsOf(b.output), u"rgby"_s);
}

TEST(NConvertBridge, LeavesNothingWhenThePictureIsBroken)
{
    Bridge b;
    for (const QString& name :
         {u"b.png"_s, u"b.jpg"_s, u"p.jpg"_s, u"b.gif"_s, u"b.bmp"_s, u"b.tif"_s, u"b.tga"_s,
          u"b.pcx"_s, u"b.xpm"_s, u"b.webp"_s, u"b.ico"_s}) {
        const QString options = name == u"b.ico"   ? u"-resize 64x40! "_s
                                : name == u"p.jpg" ? u"-interlace JPEG "_s
                                                   : QString();
        const QByteArray whole =
            bytesOf(b.sample(name, options + u"-attenuate 0.2 +noise Uniform -seed 3"_s));
        for (const qsizetype kept : {whole.size() * 6 / 10, qsizetype{30}, qsizetype{3}}) {
            const QString cut = b.t.file(name, whole.left(kept));
            ASSERT_TRUE(b.t.files.write(b.output, "old").ok());
            EXPECT_FALSE(b.resize(cut))
                << name.toStdString() << ", " << kept << " bytes of " << whole.size();
            EXPECT_FALSE(b.t.tools.lastErrorOutput().isEmpty()) << name.toStdString();
        }
    }
    EXPECT_FALSE(b.resize(b.t.file(u"empty.jpg"_s, "")));
    EXPECT_FALSE(b.resize(b.t.file(u"text.jpg"_s, "This is no picture at all, but a text.")));
    EXPECT_FALSE(b.resize(b.t.path(u"missing.jpg"_s)));
    EXPECT_EQ(filesLike(folderPart(b.output), u"*.new"_s), QStringList());
}

TEST(NConvertBridge, CutsAndFitsToAnotherShape)
{
    Bridge b;
    const auto at = [&](const QString& options, QPoint place) {
        EXPECT_TRUE(b.run(u"-out jpeg -overwrite -q 100 "_s + options, b.source));
        const QImage made(b.output);
        return made.pixelColor(place).lightness();
    };
    const QColor corner = QImage(b.source).pixelColor(2, 2);
    EXPECT_NEAR(at(u"-crop 0 0 40 25 -resize 60 60"_s, {58, 58}), corner.lightness(), 6);
    EXPECT_LT(at(u"-shape fit -resize 160 400"_s, {80, 4}), 6);
    EXPECT_GT(at(u"-shape crop -resize 160 400"_s, {4, 4}), 6);
    EXPECT_GT(at(u"-extract alpha -resize 16 16"_s, {8, 8}), 250) << "opaque";
    EXPECT_FALSE(b.run(u"-out jpeg -overwrite -crop 100 0 4000 20"_s, b.source));
}

TEST(NConvertBridge, RefusesSizesAboveItsLimits)
{
    Bridge b;
    // Small files that announce 20000x20000 pixels.
    QByteArray jpeg = bytesOf(b.sample(u"a.jpg"_s));
    jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, "\x4E\x20\x4E\x20");
    EXPECT_FALSE(b.resize(b.t.file(u"huge.jpg"_s, jpeg)));
    EXPECT_TRUE(b.t.tools.lastErrorOutput().contains(u"20000x20000"_s));
    QByteArray gif = bytesOf(b.sample(u"a.gif"_s));
    gif.replace(6, 4, "\x20\x4E\x20\x4E");
    EXPECT_FALSE(b.resize(b.t.file(u"huge.gif"_s, gif)));
    EXPECT_TRUE(b.t.tools.lastErrorOutput().contains(u"20000x20000"_s));
    const QByteArray tga =
        QByteArray("\0\0\x0A\0\0\0\0\0\0\0\0\0\x20\x4E\x20\x4E\x18\0", 18) + QByteArray(64, '\xFF');
    EXPECT_FALSE(b.resize(b.t.file(u"huge.tga"_s, tga)));
    EXPECT_TRUE(b.t.tools.lastErrorOutput().contains(u"20000x20000"_s));
    EXPECT_FALSE(
        b.resize(b.t.file(u"huge.xpm"_s, "/* XPM */\n\"20000 20000 1 1\",\n\"a c #000000\",")));
    for (const QString& size :
         {u"0 0"_s, u"-5 7"_s, u"16385 10"_s, u"16384 16384"_s, u"x 10"_s, u"12abc 10"_s})
        EXPECT_FALSE(b.resize(b.source, size)) << size.toStdString();
    ASSERT_TRUE(b.resize(b.source, u"1 1"_s));
    EXPECT_EQ(QImage(b.output).size(), QSize(1, 1));
    ASSERT_TRUE(b.resize(b.source, u"0 50"_s));
    EXPECT_EQ(QImage(b.output).size(), QSize(80, 50));
}

TEST(NConvertBridge, TakesAnyNameAndKeepsWhatItMayNotReplace)
{
    Bridge b;
    for (const QString& name : {u"a b.png"_s, u"a#b&c$d.png"_s, u"кириллица 'q' \"r\".png"_s,
                                u"pic[1].png"_s, u"%d.png"_s, u"msl:x.png"_s}) {
        const QString odd = b.t.file(name, bytesOf(b.source));
        ASSERT_TRUE(b.resize(odd)) << b.t.tools.lastErrorOutput().toStdString();
    }
    ASSERT_TRUE(b.t.files.write(b.output, "mine").ok());
    EXPECT_TRUE(b.run(u"-out jpeg -truecolors -q 85"_s, b.source));
    EXPECT_EQ(bytesOf(b.output), "mine");
    EXPECT_TRUE(b.run(u"-out bmp -overwrite"_s, b.source)); // refused before anything is touched
    EXPECT_TRUE(b.run(u"-out jpeg -overwrite -sharpen 3"_s, b.source));
    EXPECT_EQ(bytesOf(b.output), "mine");
}
