// SPDX-License-Identifier: MIT
#include "picture_judge.h"

#include "support/run_program.h"

#include <gtest/gtest.h>

namespace fennel::test {

using namespace Qt::StringLiterals;

QString outputOf(const QString& program, const QStringList& arguments)
{
    const Ran ran = runProgram(program, arguments);
    EXPECT_EQ(ran.code, 0) << program.toStdString() << ' ' << arguments.join(u' ').toStdString()
                           << ": " << ran.err.toStdString();
    return QString::fromUtf8(ran.out).trimmed();
}

QString quadrantPicture(TestShell& t)
{
    QImage picture(320, 200, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool right = x >= 160;
            picture.setPixel(x, y,
                             y < 100 ? (right ? 0xff00ff00 : 0xffff0000)
                                     : (right ? 0xffffff00 : 0xff0000ff));
        }
    }
    const QString path = t.path(u"quadrants.png"_s);
    EXPECT_TRUE(picture.save(path));
    return path;
}

namespace {

QChar letterOf(QRgb colour)
{
    const auto high = [](int value) { return value > 200; };
    const auto low = [](int value) { return value < 60; };
    const int r = qRed(colour);
    const int g = qGreen(colour);
    const int b = qBlue(colour);
    if (low(b) && high(r) && high(g))
        return u'y';
    if (high(r) && low(g) && low(b))
        return u'r';
    if (low(r) && high(g) && low(b))
        return u'g';
    if (low(r) && low(g) && high(b))
        return u'b';
    return low(r) && low(g) && low(b) ? u'k' : u'?';
}

} // namespace

QString quadrantsOf(const QString& path)
{
    const QImage picture(path);
    EXPECT_FALSE(picture.isNull()) << path.toStdString();
    QString letters;
    for (const int y : {1, 3}) {
        for (const int x : {1, 3})
            letters += letterOf(picture.pixel(picture.width() * x / 4, picture.height() * y / 4));
    }
    return letters;
}

QString markersOf(const QByteArray& jpeg)
{
    QString frame;
    QString others;
    qsizetype at = 2;
    while (at + 9 < jpeg.size() && static_cast<quint8>(jpeg[at]) == 0xFF) {
        const int marker = static_cast<quint8>(jpeg[at + 1]);
        const qsizetype length =
            static_cast<quint8>(jpeg[at + 2]) * 256 + static_cast<quint8>(jpeg[at + 3]);
        const QString name = QString::number(marker, 16).toUpper();
        if (marker == 0xDA)
            return frame + u" |"_s + others;
        if (marker >= 0xC0 && marker <= 0xC2) {
            frame = name;
            for (qsizetype i = 0; i < static_cast<quint8>(jpeg[at + 9]); ++i)
                frame += u' ' + QString::number(static_cast<quint8>(jpeg[at + 11 + i * 3]), 16);
        } else if (!others.contains(name)) {
            others += u' ' + name;
        }
        at += 2 + length;
    }
    return u"no scan"_s;
}

Result<void> RecordingTools::RunToolAndWait(const QStringList& commandLine)
{
    lines.append(commandLine);
    return m_real.RunToolAndWait(commandLine);
}

Result<void> RecordingTools::runIntoFile(const QStringList& commandLine, const QString& outputFile)
{
    lines.append(commandLine);
    return m_real.runIntoFile(commandLine, outputFile);
}

} // namespace fennel::test
