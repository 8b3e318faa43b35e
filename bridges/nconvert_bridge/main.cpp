// SPDX-License-Identifier: MIT
// The picture bridge: converts and resizes one picture and writes it as JPEG, XPM, GIF or ICO. The
// caller judges it by the file it leaves: on failure there is none, and the reason stands on
// standard error.
#include "base/posix_file.h"
#include "command_line.h"
#include "container/picture_limits.h"
#include "picture_reader.h"
#include "picture_service.h"
#include "picture_writer.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>

namespace {

using namespace fennel;
using namespace fennel::nconvert;
namespace fs = std::filesystem;

Result<void> run(const Job& job)
{
    const std::string source = sourceOf(job);
    QByteArray bytes;
    const Result<struct stat> read = readWhole(source, maxPictureBytes, bytes);
    std::error_code error;
    // Output and source may be one file, which must then stay until the new one is whole.
    const bool inPlace = fs::equivalent(source, job.output, error);
    if (!job.overwrite && fs::exists(job.output, error))
        return Failure{FailureKind::Unsupported,
                       job.output + " exists already, and -overwrite is not given."};
    if (!inPlace)
        fs::remove(job.output, error); // an old result must not pass for a new one
    // Told only here, after the old output is gone.
    if (!read)
        return read.failure();
    const Result<QImage> picture = readPicture(bytes, job);
    if (!picture)
        return Failure{picture.failure().kind, source + ": " + picture.failure().text};
    const Result<QByteArray> written = encodePicture(*picture, job);
    if (!written)
        return written.failure();
    return writeWhole(job.output, {reinterpret_cast<const std::uint8_t*>(written->constData()),
                                   static_cast<std::size_t>(written->size())});
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc == 2 && std::string_view(argv[1]) == "-serve")
        return servePictures();
    const Result<Job> job = parseCommandLine({argv + 1, argv + argc});
    const Result<void> done = job ? run(*job) : Result<void>(job.failure());
    if (done)
        return 0;
    std::fprintf(stderr, "%s\n", done.failure().text.c_str());
    return 1;
} catch (const std::exception& fault) {
    // Memory that ran out, say: the editor shows the reason as any other.
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
}
