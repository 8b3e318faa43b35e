// SPDX-License-Identifier: MIT
#include "screen/boot_jpeg.h"

#include "container/jpeg_check.h"
#include "screen/background.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace fennel {

namespace {

// libjpeg leaves by a jump when it gives up; nothing with a destructor may live across it.
struct JumpingErrors {
    jpeg_error_mgr base;
    std::jmp_buf leave;
};

void leaveDecoder(j_common_ptr decoder)
{
    std::longjmp(reinterpret_cast<JumpingErrors*>(decoder->err)->leave, 1);
}

void keepQuiet(j_common_ptr) {}

struct Rows {
    uchar* first;
    qsizetype stride;
    int count;
};

// The rows of a picture of that size already stand in memory, zeros. False if the data gave out.
bool decodeRows(const QByteArray& jpeg, const Rows& rows)
{
    jpeg_decompress_struct decoder;
    JumpingErrors errors;
    decoder.err = jpeg_std_error(&errors.base);
    errors.base.error_exit = leaveDecoder;
    errors.base.output_message = keepQuiet;
    if (setjmp(errors.leave) != 0) { // NOLINT(cert-err52-cpp): the library knows no other way out
        jpeg_destroy_decompress(&decoder);
        return false;
    }
    jpeg_create_decompress(&decoder);
    jpeg_mem_src(&decoder, reinterpret_cast<const uchar*>(jpeg.constData()),
                 static_cast<unsigned long>(jpeg.size()));
    jpeg_read_header(&decoder, TRUE);
    decoder.out_color_space = JCS_EXT_BGRX; // bytes of Format_RGB32
    decoder.dct_method = JDCT_ISLOW;
    decoder.do_fancy_upsampling = FALSE;
    jpeg_start_decompress(&decoder);
    while (decoder.output_scanline < static_cast<unsigned>(rows.count)) {
        JSAMPROW row = rows.first + qsizetype{decoder.output_scanline} * rows.stride;
        jpeg_read_scanlines(&decoder, &row, 1);
    }
    jpeg_destroy_decompress(&decoder);
    return true;
}

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// The high bits again below, so that full ink stays full.
constexpr int widened(int value, int bits)
{
    return value << (8 - bits) | value >> (2 * bits - 8);
}

constexpr QRgb cut(int red, int green, int blue)
{
    return qRgb(widened(red >> 3, 5), widened(green >> 2, 6), widened(blue >> 3, 5));
}

// What is added to red and blue, by row and column; green gets half of it.
constexpr std::array<std::array<int, 2>, 2> dither = {{{6, -2}, {1, 4}}};

} // namespace

bool bootable(const QByteArray& jpeg)
{
    const Result<JpegHead> head = readJpegHead(viewOf(jpeg));
    // A scan of each component is all that there can be; a file of thousands of them keeps the
    // decoder for minutes.
    return head && checkBootable(*head) && backSizeAllowed({head->width, head->height}) &&
           jpegScans(viewOf(jpeg)) <= maxJpegScans;
}

QImage decodeAsBooted(const QByteArray& jpeg)
{
    if (!bootable(jpeg))
        return {};
    const Result<JpegHead> head = readJpegHead(viewOf(jpeg));
    QImage picture(head->width, head->height, QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.fill(Qt::black);
    (void)decodeRows(jpeg, {picture.bits(), picture.bytesPerLine(), picture.height()});
    return picture;
}

void cutTo16Bits(QImage& picture, const QRect& part)
{
    const QRect area = part & picture.rect();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = area.left(); x <= area.right(); ++x)
            row[x] = cut(qRed(row[x]), qGreen(row[x]), qBlue(row[x]));
    }
}

void ditherTo16Bits(QImage& picture)
{
    const auto channel = [](int value) { return std::clamp(value, 0, 255); };
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int more =
                dither[static_cast<std::size_t>(y & 1)][static_cast<std::size_t>(x & 1)];
            row[x] = cut(channel(qRed(row[x]) + more), channel(qGreen(row[x]) + more / 2),
                         channel(qBlue(row[x]) + more));
        }
    }
}

} // namespace fennel
