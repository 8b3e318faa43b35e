// SPDX-License-Identifier: MIT
// A message file in a real boot: syslinux, gfxboot.c32 and the engine in QEMU.
#pragma once

#include "container/cpio.h"

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

namespace fennel::test {

struct Boot {
    int code = -1; // 0 boots, 1 does not, 77 a program that the boot needs is missing
    QByteArray told;
    QImage screen;
};

Boot boot(const QString& message, const QStringList& options = {});

// The built template, its back.jpg taken out or another put in its place.
struct Message {
    std::vector<std::uint8_t> archive;
    QImage background;

    explicit Message(const QByteArray& newBackground = {});
    [[nodiscard]] QString saveIn(const QTemporaryDir& folder) const;
};

// A JPEG as the engine decodes it, which enlarges the colour planes without smoothing them.
QImage engineDecoded(const QByteArray& jpeg);

// Of two colours, the difference of the part that differs most, in levels of 0 to 255; the largest
// of all pixels inside a part of two pictures.
int difference(QRgb one, QRgb other);
int difference(const QImage& one, const QImage& other, const QRect& part);
// What two decoders may differ by in a pixel, as they round at different steps.
constexpr int decoderRounding = 4;

// Where neither the menu nor the lines below it cover the picture of 800x600.
std::vector<QRect> bareParts();

} // namespace fennel::test
