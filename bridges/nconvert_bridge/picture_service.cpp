// SPDX-License-Identifier: MIT
#include "picture_service.h"

#include "base/picture_wire.h"
#include "base/posix_file.h"
#include "container/picture_limits.h"
#include "picture_reader.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace fennel::nconvert {

namespace {

struct Served {
    QSize stored;
    QImage image;
};

// What a decoder that a hostile file took over could still do is kept small.
void limitProcess()
{
    (void)::prctl(PR_SET_PDEATHSIG, SIGKILL); // without the editor nobody waits
    (void)::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const rlimit none{0, 0};
    (void)::setrlimit(RLIMIT_FSIZE, &none);
    (void)::setrlimit(RLIMIT_CORE, &none);
#if !defined(__SANITIZE_ADDRESS__)
    // Twice the pixels of the largest picture at eight bytes, and the libraries.
    constexpr rlim_t most = 2 * 8 * rlim_t{maxPicturePixels} + (rlim_t{512} << 20U);
    const rlimit memory{most, most};
    (void)::setrlimit(RLIMIT_AS, &memory);
#endif
}

template <class Value>
bool readValue(Value& value)
{
    return readInto(STDIN_FILENO, {reinterpret_cast<std::uint8_t*>(&value), sizeof value}) ==
           sizeof value;
}

bool writeBytes(const void* bytes, std::size_t size)
{
    return writeAll(STDOUT_FILENO, {static_cast<const std::uint8_t*>(bytes), size});
}

Result<QImage> decode(const QByteArray& bytes, const std::string& path,
                      const PictureRequest& request, QSize stored)
{
    Job job;
    job.partial = true;
    job.source = path;
    job.inside = request.mode == PictureMode::Inside;
    job.resize = job.inside;
    job.width = static_cast<int>(request.width);
    job.height = static_cast<int>(request.height);
    const auto pixels = std::uint64_t(stored.width()) * std::uint64_t(stored.height());
    if (!job.inside && pixels > request.mostPixels)
        return Failure{FailureKind::TooLarge, {}};
    Result<QImage> image = readPicture(bytes, job);
    if (!image)
        return image;
    return image->convertToFormat(QImage::Format_RGB32);
}

Result<Served> serve(const std::string& path, const PictureRequest& request, QSize& stored)
{
    QByteArray bytes;
    if (const Result<struct stat> read = readWhole(path, maxPictureBytes, bytes); !read)
        return read.failure();
    const Result<QSize> measured = measurePicture(bytes, path);
    if (!measured)
        return Failure{measured.failure().kind, path + ": " + measured.failure().text};
    stored = *measured;
    if (request.mode == PictureMode::Measure)
        return Served{stored, {}};
    Result<QImage> image = decode(bytes, path, request, stored);
    if (!image)
        return Failure{image.failure().kind, path + ": " + image.failure().text};
    return Served{stored, std::move(*image)};
}

bool answer(const Result<Served>& served, QSize stored)
{
    PictureReply reply;
    reply.storedWidth = static_cast<std::uint32_t>(std::max(stored.width(), 0));
    reply.storedHeight = static_cast<std::uint32_t>(std::max(stored.height(), 0));
    if (!served) {
        const Failure& failure = served.failure();
        reply.failure = static_cast<std::uint32_t>(failure.kind) + 1;
        reply.textBytes = static_cast<std::uint32_t>(failure.text.size());
        return writeBytes(&reply, sizeof reply) &&
               writeBytes(failure.text.data(), failure.text.size());
    }
    const QImage& image = served->image;
    reply.width = static_cast<std::uint32_t>(image.width());
    reply.height = static_cast<std::uint32_t>(image.height());
    return writeBytes(&reply, sizeof reply) &&
           (image.isNull() ||
            writeBytes(image.constBits(), static_cast<std::size_t>(image.sizeInBytes())));
}

} // namespace

int servePictures()
{
    limitProcess();
    // Loads the decoder of nearly all pictures before the first is asked for.
    QBuffer nothing;
    (void)QImageReader(&nothing, "jpeg").canRead();
    PictureRequest request;
    while (readValue(request) && request.pathBytes <= mostPathBytes) {
        std::string path(request.pathBytes, '\0');
        if (readInto(STDIN_FILENO, {reinterpret_cast<std::uint8_t*>(path.data()), path.size()}) !=
            std::ssize(path))
            return 1;
        // The signal ends the process; the editor starts another for the next picture.
        ::alarm(pictureSeconds);
        QSize stored;
        const Result<Served> served = serve(path, request, stored);
        ::alarm(0);
        if (!answer(served, stored))
            return 1;
    }
    return 0;
}

} // namespace fennel::nconvert
