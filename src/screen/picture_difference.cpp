// SPDX-License-Identifier: MIT
#include "screen/picture_difference.h"

#include <cstdlib>

namespace fennel {

namespace {

bool equal(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) <= equalLevels &&
           std::abs(qGreen(one) - qGreen(other)) <= equalLevels &&
           std::abs(qBlue(one) - qBlue(other)) <= equalLevels;
}

const QRgb* row(const QImage& picture, int y)
{
    return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
}

} // namespace

PictureDifference differenceOf(const QImage& one, const QImage& other, QRgb mark)
{
    PictureDifference result;
    const QSize size = one.size().expandedTo(other.size());
    const QSize common = one.size().boundedTo(other.size());
    if (size.isEmpty())
        return result;
    const QImage first = one.convertToFormat(QImage::Format_RGB32);
    const QImage second = other.convertToFormat(QImage::Format_RGB32);
    result.marks = QImage(size, QImage::Format_ARGB32);
    result.marks.fill(mark);
    qint64 unequal = qint64{size.width()} * size.height();
    for (int y = 0; y < common.height(); ++y) {
        const QRgb* left = row(first, y);
        const QRgb* right = row(second, y);
        auto* marks = reinterpret_cast<QRgb*>(result.marks.scanLine(y));
        for (int x = 0; x < common.width(); ++x) {
            if (!equal(left[x], right[x]))
                continue;
            marks[x] = 0;
            --unequal;
        }
    }
    result.share =
        static_cast<double>(unequal) / (static_cast<double>(size.width()) * size.height());
    return result;
}

} // namespace fennel
