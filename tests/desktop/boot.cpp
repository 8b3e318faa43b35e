// SPDX-License-Identifier: MIT
#include "desktop/boot.h"

#include "container/gzip.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

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
    if (process.waitForFinished(90'000))
        result.code = process.exitCode();
    result.told = process.readAllStandardOutput() + process.readAllStandardError();
    result.screen = QImage(shot);
    return result;
}

Message::Message(const QByteArray& newBackground, const QByteArray& newFont)
{
    QFile file(QStringLiteral(FENNEL_BIN_DIR "/data/GFX.GZ"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray gzip = file.readAll();
    const auto contents = gzipDecompress(
        {reinterpret_cast<const std::uint8_t*>(gzip.data()), static_cast<size_t>(gzip.size())});
    auto members = readCpio(contents.value().data);
    for (CpioMember& member : members.value()) {
        if (member.name == "back.jpg")
            background = QImage::fromData(member.data.data(), static_cast<int>(member.data.size()));
        const QByteArray& other = member.name == "back.jpg"    ? newBackground
                                  : member.name == "16x16.fnt" ? newFont
                                                               : QByteArray();
        if (!other.isEmpty())
            member.data = {reinterpret_cast<const std::uint8_t*>(other.data()),
                           static_cast<size_t>(other.size())};
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

double difference(const QImage& one, const QImage& other, const QRect& part)
{
    double sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b));
        }
    return sum / (3.0 * part.width() * part.height());
}

std::vector<QRect> bareParts()
{
    return {QRect(0, 0, 240, 400), QRect(560, 0, 240, 400), QRect(240, 0, 320, 160)};
}

} // namespace fennel::test
