// SPDX-License-Identifier: MIT
// The tool behind the editor's gzip work:
//   7zip_bridge INFO file folder #7zip.log ,0    test report of the file into folder/#7zip.log
//   7zip_bridge EXTR file folder #7zip.log ,0    contents of a gzip file into the folder
//   7zip_bridge ASSM input output ,0             `input` compressed into the path `output`
//   7zip_bridge PACK input output ,0             the same for input of any size, and
//   7zip_bridge UNPK file output ,0              the way back: the user's file is replaced whole;
//                                                what is ignored is told on standard error
// The report has the wording of 7-Zip's test command, as its reader looks for the line "Testing "
// with the inner name behind it; a file that is no gzip file gets a report without such a line. A
// gzip file with any fault is refused before the first byte is written. On a failure the report or
// the compressed file is not there, one sentence stands on standard error, and the exit code is 1.
#include "common/bridge_io.h"
#include "container/gzip.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <limits>

using namespace fennel;

namespace {

struct Opened {
    bool gzip = false;
    WholeFile file;
    GzipContents contents;
    std::string innerName;
};

// The user needs to know which file the sentence is about.
Result<Opened> openFile(const std::string& path)
{
    // Read as a whole, so that what is tested is what is written.
    Result<WholeFile> file = readWholeFile(AT_FDCWD, path, maxGzipContents);
    if (!file)
        return file.failure();
    Opened opened;
    opened.file = std::move(*file);
    opened.gzip = isGzip(opened.file.bytes);
    if (!opened.gzip)
        return opened;
    Result<GzipContents> contents = gzipDecompress(opened.file.bytes);
    if (!contents)
        return about(path, contents.failure());
    opened.contents = std::move(*contents);
    opened.innerName = gzipInnerName(opened.contents.name, baseName(path));
    return opened;
}

// The path stays out of the report: a comma in it would begin a line for the report's reader.
Result<void> report(const OutputFolder& folder, const std::string& log, const std::string& verb,
                    const Opened& opened)
{
    std::string text = "\r\n7-Zip bridge of FENNEL-GFX\r\n\r\n";
    if (opened.gzip)
        text += verb + opened.innerName + "\r\n\r\nEverything is Ok\r\n\r\nSize:       " +
                std::to_string(opened.contents.data.size()) +
                "\r\nCompressed: " + std::to_string(opened.file.bytes.size()) + "\r\n" +
                (opened.contents.trailing == 0
                     ? std::string()
                     : "Tail Size: " + std::to_string(opened.contents.trailing) + "\r\n");
    else
        text += "There is no gzip archive in this file\r\n";
    return folder.replaceFile(
        log, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, nullptr);
}

Result<void> info(const std::string& path, const OutputFolder& folder, const std::string& log)
{
    const Result<Opened> opened = openFile(path);
    // The old report goes also if the file cannot be opened: its reader takes what is there.
    folder.remove(log);
    if (!opened)
        return opened.failure();
    return report(folder, log, "Testing     ", *opened);
}

// The contents of "a" may be called "a" too; they must not take the place of the only copy.
Result<void> checkOtherFile(const OutputFolder& folder, const Opened& opened,
                            const std::string& path)
{
    struct stat target {};
    if (::fstatat(folder.descriptor(), opened.innerName.c_str(), &target, AT_SYMLINK_NOFOLLOW) ==
            0 &&
        target.st_dev == opened.file.device && target.st_ino == opened.file.inode)
        return Failure{
            FailureKind::Unsupported,
            path + ": the contents have the name of the archive itself, and would replace it"};
    return folder.checkReplaceable(opened.innerName);
}

Result<void> extract(const std::string& path, const OutputFolder& folder, const std::string& log)
{
    const Result<Opened> opened = openFile(path);
    folder.remove(log);
    if (!opened)
        return opened.failure();
    if (!opened->gzip)
        return Failure{FailureKind::Malformed, path + ": no gzip file"};
    if (Result<void> free = checkOtherFile(folder, *opened, path); !free)
        return free;
    // 0 means that the gzip file tells no time.
    const std::uint32_t* time = opened->contents.mtime != 0 ? &opened->contents.mtime : nullptr;
    if (Result<void> done = folder.replaceFile(opened->innerName, opened->contents.data, time);
        !done)
        return done;
    return report(folder, log, "Extracting  ", *opened);
}

Result<void> assemble(const std::string& input, const std::string& output)
{
    const Result<WholeFile> file = readWholeFile(AT_FDCWD, input, maxGzipContents);
    struct stat old {};
    if (file && ::stat(output.c_str(), &old) == 0 && old.st_dev == file->device &&
        old.st_ino == file->inode)
        return Failure{FailureKind::Unsupported, output + ": input and output are the same file"};
    // Only after both are known to be different files.
    removeFile(output);
    if (!file)
        return file.failure();
    const Result<std::vector<std::uint8_t>> packed =
        gzipCompress(file->bytes, baseName(input), file->mtime);
    if (!packed)
        return about(input, packed.failure());
    return writeWhole(output, *packed);
}

// Both ways take files of any size, a piece at a time.
Result<void> stream(const std::string& input, const std::string& output, bool pack)
{
    const Result<PlainFile> file = openPlain(input, std::numeric_limits<std::uint64_t>::max());
    if (!file)
        return file.failure();
    Share share(static_cast<std::uint64_t>(file->facts.st_size));
    const auto tell = [&](std::uint64_t done) { share.tell(done); };
    const int in = file->file.get();
    const auto mtime = static_cast<std::uint32_t>(std::clamp<std::int64_t>(
        file->facts.st_mtim.tv_sec, 0, std::numeric_limits<std::uint32_t>::max()));
    return replaceWhole(output, [&](int out) -> Result<void> {
        if (pack)
            return gzipCompressFile(in, out, baseName(input), mtime, tell);
        const Result<std::uint64_t> behind = gzipDecompressFile(in, out, tell);
        if (!behind)
            return about(input, behind.failure());
        if (*behind > 0)
            (void)std::fprintf(stderr, "%llu bytes behind the end of %s were ignored.\n",
                               static_cast<unsigned long long>(*behind), input.c_str());
        return {};
    });
}

Result<void> run(const std::vector<std::string>& arguments)
{
    if (arguments.size() == 3 && (arguments[0] == "PACK" || arguments[0] == "UNPK"))
        return stream(arguments[1], arguments[2], arguments[0] == "PACK");
    if (arguments.size() == 3 && arguments[0] == "ASSM")
        return assemble(arguments[1], arguments[2]);
    const bool known = !arguments.empty() && (arguments[0] == "INFO" || arguments[0] == "EXTR");
    // The report lies in the folder itself; a path could lead anywhere.
    if (!known || arguments.size() != 4 || arguments[3].find('/') != std::string::npos)
        return Failure{FailureKind::Unsupported,
                       "call it as 7zip_bridge INFO|EXTR file folder "
                       "#7zip.log ,0 or 7zip_bridge ASSM input output ,0"};
    const Result<OutputFolder> folder = OutputFolder::open(arguments[2]);
    if (!folder)
        return folder.failure();
    return arguments[0] == "INFO" ? info(arguments[1], *folder, arguments[3])
                                  : extract(arguments[1], *folder, arguments[3]);
}

} // namespace

int main(int argc, char** argv)
{
    return exitCode("7zip_bridge", run(toolArguments(argc, argv)));
}
