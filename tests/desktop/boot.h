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

constexpr int skipped = 77; // a program that the boot needs is missing

struct Boot {
    int code = -1; // 0 boots, 1 does not, or `skipped`
    QByteArray told;
    QImage screen;
};

Boot boot(const QString& message, const QStringList& options = {});

// The built template, its back.jpg taken out or another put in its place, and another font.
struct Message {
    std::vector<std::uint8_t> archive;
    QImage background;

    explicit Message(const QByteArray& newBackground = {}, const QByteArray& newFont = {});
    [[nodiscard]] QString saveIn(const QTemporaryDir& folder) const;
};

// Mean difference of the colours of two pictures inside a part, in levels of 0 to 255.
double difference(const QImage& one, const QImage& other, const QRect& part);

// Where neither the menu nor the lines below it cover the picture of 800x600.
std::vector<QRect> bareParts();

} // namespace fennel::test
