// SPDX-License-Identifier: MIT
#include "desktop/boot.h"

#include "container/gzip.h"
#include "support/bin_folder.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cstdlib>

namespace fennel::test {

using namespace Qt::StringLiterals;

Boot boot(const QString& message, const QStringList& options)
{
    const QTemporaryDir folder;
    const QString shot = folder.filePath(u"screen.png"_s);
    QProcess process;
    process.start(QStringLiteral(FENNEL_BOOT_CHECK),
                  QStringList{message, u"--screenshot"_s, shot} + options);
    Boot result;
    if (process.waitForFinished(1'000'000))
        result.code = process.exitCode();
    result.told = process.readAllStandardOutput() + process.readAllStandardError();
    result.screen = QImage(shot);
    return result;
}

Message::Message(const QByteArray& newBackground)
{
    QFile file(fennel::test::binFolder() + QStringLiteral("/data/GFX.GZ"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray gzip = file.readAll();
    const auto contents = gzipDecompress(
        {reinterpret_cast<const std::uint8_t*>(gzip.data()), static_cast<size_t>(gzip.size())});
    auto members = readCpio(contents.value().data);
    for (CpioMember& member : members.value()) {
        if (member.name == "back.jpg")
            background = engineDecoded({reinterpret_cast<const char*>(member.data.data()),
                                        static_cast<qsizetype>(member.data.size())});
        if (member.name == "back.jpg" && !newBackground.isEmpty())
            member.data = {reinterpret_cast<const std::uint8_t*>(newBackground.data()),
                           static_cast<size_t>(newBackground.size())};
    }
    archive = writeCpio(members.value()).value();
}

QString Message::saveIn(const QTemporaryDir& folder) const
{
    QFile file(folder.filePath(u"message with blanks"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(archive.data()), static_cast<qint64>(archive.size()));
    return file.fileName();
}

QImage engineDecoded(const QByteArray& jpeg)
{
    const Ran ran = runProgram(
        u"convert"_s, {u"-define"_s, u"jpeg:fancy-upsampling=off"_s, u"jpg:-"_s, u"bmp:-"_s}, {},
        jpeg);
    return QImage::fromData(ran.out, "bmp");
}

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

int difference(const QImage& one, const QImage& other, const QRect& part)
{
    int most = one.size() == other.size() ? 0 : 255;
    for (int y = part.top(); most < 255 && y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            most = std::max(most, difference(one.pixel(x, y), other.pixel(x, y)));
    return most;
}

std::vector<QRect> bareParts()
{
    return {QRect(0, 0, 240, 120), QRect(560, 0, 240, 400), QRect(240, 0, 320, 85)};
}

} // namespace fennel::test
