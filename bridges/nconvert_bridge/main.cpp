// SPDX-License-Identifier: MIT
// The picture bridge: converts and resizes one picture and writes it as JPEG, XPM, GIF or ICO. The
// caller judges it by the file it leaves: on failure there is none, and the reason stands on
// standard error.
#include "command_line.h"
#include "picture_reader.h"
#include "picture_writer.h"
#include "tools/picture_limits.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

using namespace fennel;
using namespace fennel::nconvert;
namespace fs = std::filesystem;

Result<QByteArray> readFile(const std::string& path)
{
    std::error_code error;
    // Refused by its size before it is read.
    const auto size = fs::file_size(path, error);
    if (error)
        return Failure{FailureKind::NotFound, "Cannot read " + path + ": " + error.message() + "."};
    if (size > static_cast<std::uintmax_t>(maxPictureBytes))
        return Failure{FailureKind::TooLarge,
                       path + " is larger than " + std::to_string(maxPictureBytes >> 20) + " MB."};
    std::ifstream file(path, std::ios::binary);
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (!file.read(bytes.data(), bytes.size()))
        return Failure{FailureKind::Io, "Cannot read " + path + "."};
    return bytes;
}

// Whole or not at all: written beside the output and renamed.
Result<void> writeFile(const std::string& path, const QByteArray& bytes)
{
    const std::string beside = path + "." + std::to_string(::getpid()) + ".new";
    std::ofstream file(beside, std::ios::binary);
    file.write(bytes.constData(), bytes.size());
    file.close();
    std::error_code error;
    if (file)
        fs::rename(beside, path, error);
    if (file && !error)
        return {};
    fs::remove(beside, error);
    return Failure{FailureKind::Io, "Cannot write " + path + "."};
}

Result<void> run(const Job& job)
{
    const std::string source = sourceOf(job);
    const Result<QByteArray> bytes = readFile(source);
    std::error_code error;
    // Output and source may be one file, which must then stay until the new one is whole.
    const bool inPlace = fs::equivalent(source, job.output, error);
    if (!job.overwrite && fs::exists(job.output, error))
        return Failure{FailureKind::Unsupported,
                       job.output + " exists already, and -overwrite is not given."};
    if (!inPlace)
        fs::remove(job.output, error); // an old result must not pass for a new one
    // Told only here, after the old output is gone.
    if (!bytes)
        return bytes.failure();
    const Result<QImage> picture = readPicture(*bytes, job);
    if (!picture)
        return Failure{picture.failure().kind, source + ": " + picture.failure().text};
    const Result<QByteArray> written = encodePicture(*picture, job);
    return written ? writeFile(job.output, *written) : Result<void>(written.failure());
}

} // namespace

int main(int argc, char** argv)
{
    const Result<Job> job = parseCommandLine({argv + 1, argv + argc});
    const Result<void> done = job ? run(*job) : Result<void>(job.failure());
    if (done)
        return 0;
    std::fprintf(stderr, "%s\n", done.failure().text.c_str());
    return 1;
}
