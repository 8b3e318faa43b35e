// SPDX-License-Identifier: MIT
// The template in a real boot: syslinux, gfxboot.c32 and the engine in QEMU.
#include "container/cpio.h"
#include "container/gzip.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>

#include <cstdlib>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

constexpr int skipped = 77;

struct Boot {
    int code = -1;
    QByteArray told;
    QImage screen;
};

Boot boot(const QString& message, const QStringList& options = {})
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

// The built template, its back.jpg taken out or another put in its place.
struct Message {
    std::vector<std::uint8_t> archive;
    QImage background;

    explicit Message(const QByteArray& newBackground = {})
    {
        QFile file(QStringLiteral(FENNEL_BIN_DIR "/data/GFX.GZ"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray gzip = file.readAll();
        const auto contents = gzipDecompress(
            {reinterpret_cast<const std::uint8_t*>(gzip.data()), static_cast<size_t>(gzip.size())});
        auto members = readCpio(contents.value().data);
        for (CpioMember& member : members.value()) {
            if (member.name != "back.jpg")
                continue;
            background = QImage::fromData(member.data.data(), static_cast<int>(member.data.size()));
            if (!newBackground.isEmpty())
                member.data = {reinterpret_cast<const std::uint8_t*>(newBackground.data()),
                               static_cast<size_t>(newBackground.size())};
        }
        archive = writeCpio(members.value()).value();
    }

    [[nodiscard]] QString saveIn(const QTemporaryDir& folder) const
    {
        QFile file(folder.filePath(u"message with blanks"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(archive.data()),
                   static_cast<qint64>(archive.size()));
        return file.fileName();
    }
};

// Mean difference of the colours of two pictures inside a part, in levels of 0 to 255.
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

} // namespace

TEST(BootedTemplate, ShowsOurBackgroundAndTheMenu)
{
    const QTemporaryDir folder;
    const Message message;
    const Boot booted = boot(message.saveIn(folder));
    if (booted.code == skipped)
        GTEST_SKIP() << booted.told.toStdString();
    ASSERT_EQ(booted.code, 0) << booted.told.toStdString();
    ASSERT_EQ(booted.screen.size(), message.background.size());
    // Away from the menu and the lines below it the screen is the picture; the engine's decoder
    // rounds differently from ours, and its own smoothing of the colour planes is coarser.
    for (const QRect& part :
         {QRect(0, 0, 240, 400), QRect(560, 0, 240, 400), QRect(240, 0, 320, 160)})
        EXPECT_LT(difference(booted.screen, message.background, part), 4);
    // The chosen entry's bar is white over the night sky.
    EXPECT_GT(difference(booted.screen, message.background, QRect(400, 174, 140, 16)), 80);
}

TEST(BootedTemplate, TheCheckSeesAPictureThatDoesNotBoot)
{
    const QTemporaryDir folder;
    QByteArray progressive;
    QBuffer buffer(&progressive);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(Message().background));
    const Boot booted = boot(Message(progressive).saveIn(folder), {u"--wait"_s, u"8"_s});
    if (booted.code == skipped)
        GTEST_SKIP() << booted.told.toStdString();
    EXPECT_EQ(booted.code, 1);
    EXPECT_TRUE(booted.told.contains("colours") || booted.told.contains("pixels"))
        << booted.told.toStdString();
}
