// SPDX-License-Identifier: MIT
// The tool behind the editor's archive work:
//   cpio_bridge INFO archive folder #.lst ,0    names of the members into folder/#.lst
//   cpio_bridge EXTR archive folder #.lst ,0    members into the folder
//   cpio_bridge ASSM archive folder #.lst ,0    new archive of the files that folder/#.lst names
// An archive with any fault is refused before the first byte is written. On a failure the output
// (the list, the archive) is not there, one sentence stands on standard error, and the exit code
// is 1.
#include "common/bridge_io.h"
#include "container/cpio.h"
#include "container/member_name.h"

#include <algorithm>
#include <fcntl.h>

using namespace fennel;

namespace {

constexpr std::size_t maxList = 32U
                                << 20U; // all members with names of the greatest length, and CR LF

struct Call {
    std::string archive;
    std::string folder;
    std::string list; // relative to the folder
};

struct Archive {
    WholeFile file; // owns what the members' data point into
    std::vector<CpioMember> members;
};

// The whole archive is checked before anything of it is used.
Result<Archive> openArchive(const std::string& path)
{
    Result<WholeFile> file = readWholeFile(AT_FDCWD, path, maxCpioArchive);
    if (!file)
        return file.failure();
    Archive archive{std::move(*file), {}};
    Result<std::vector<CpioMember>> members = readCpio(archive.file.bytes);
    if (!members)
        return about(path, members.failure());
    archive.members = std::move(*members);
    return archive;
}

Result<void> info(const Call& call)
{
    const Result<OutputFolder> folder = OutputFolder::open(call.folder);
    if (!folder)
        return folder.failure();
    const Result<Archive> archive = openArchive(call.archive);
    // Also if the archive cannot be opened: an old list must not pass for this archive's.
    folder->remove(call.list);
    if (!archive)
        return archive.failure();
    // Lines that any reader can split: a member's name holds no control character.
    std::vector<std::uint8_t> list;
    for (const CpioMember& member : archive->members) {
        list.insert(list.end(), member.name.begin(), member.name.end());
        list.push_back('\r');
        list.push_back('\n');
    }
    return folder->replaceFile(call.list, list, nullptr);
}

Result<void> extract(const Call& call)
{
    const Result<OutputFolder> folder = OutputFolder::open(call.folder);
    if (!folder)
        return folder.failure();
    const Result<Archive> archive = openArchive(call.archive);
    if (!archive)
        return archive.failure();
    // All names are checked before the first file is written.
    for (const CpioMember& member : archive->members)
        if (Result<void> free = folder->checkReplaceable(member.name); !free)
            return free;
    Share share(archive->file.bytes.size());
    std::size_t bytes = 0;
    for (const CpioMember& member : archive->members) {
        if (Result<void> done = folder->replaceFile(member.name, member.data, &member.mtime); !done)
            return done;
        share.tell(bytes += member.data.size());
    }
    return {};
}

// One name a line; line ends of both kinds, empty lines passed over.
std::vector<std::string> namesOf(std::span<const std::uint8_t> list)
{
    std::vector<std::string> names;
    std::string name;
    const auto end = [&] {
        if (name.ends_with('\r'))
            name.pop_back();
        if (!name.empty())
            names.push_back(std::move(name));
        name.clear();
    };
    for (const std::uint8_t byte : list) {
        if (byte == '\n')
            end();
        else
            name.push_back(static_cast<char>(byte));
    }
    end();
    return names;
}

Result<std::vector<std::string>> readList(const OutputFolder& folder, const Call& call)
{
    const Result<WholeFile> list = readWholeFile(folder.descriptor(), call.list, maxList);
    if (!list)
        return about(call.folder, list.failure());
    std::vector<std::string> names = namesOf(list->bytes);
    // An archive without members would be no boot screen, and replace one.
    if (names.empty())
        return Failure{FailureKind::Malformed, folder.pathOf(call.list) + ": names no member"};
    for (const std::string& name : names)
        if (const std::string_view reason = whyNoMemberName(name); !reason.empty())
            return Failure{FailureKind::Malformed, folder.pathOf(call.list) + ": the name " +
                                                       printableName(name) + " " +
                                                       std::string(reason)};
    // Written last, it would hold itself as it was before.
    if (folder.holds(call.archive) &&
        std::find(names.begin(), names.end(), baseName(call.archive)) != names.end())
        return Failure{FailureKind::Unsupported,
                       call.archive + ": the archive would replace one of its own members"};
    return names;
}

Result<std::vector<WholeFile>> readMembers(const OutputFolder& folder,
                                           const std::vector<std::string>& names)
{
    std::vector<WholeFile> files;
    std::size_t total = 0;
    Share share(names.size());
    for (const std::string& name : names) {
        share.tell(files.size());
        // The limit is what is left of the whole archive's.
        Result<WholeFile> file = readWholeFile(folder.descriptor(), name, maxCpioArchive - total);
        if (!file)
            return about("the member " + printableName(name) + " of #.lst", file.failure());
        total += file->bytes.size();
        files.push_back(std::move(*file));
    }
    return files;
}

Result<void> assemble(const Call& call)
{
    const Result<OutputFolder> folder = OutputFolder::open(call.folder);
    if (!folder)
        return folder.failure();
    const Result<std::vector<std::string>> names = readList(*folder, call);
    if (!names) // an unsafe list never costs a file: the output may be one of the members
        return names.failure();
    removeFile(call.archive);
    const Result<std::vector<WholeFile>> files = readMembers(*folder, *names);
    if (!files)
        return files.failure();
    std::vector<CpioMember> members;
    for (std::size_t i = 0; i < files->size(); ++i)
        members.push_back({(*names)[i], (*files)[i].mtime, (*files)[i].bytes});
    const Result<std::vector<std::uint8_t>> archive = writeCpio(members);
    if (!archive)
        return about(folder->pathOf(call.list), archive.failure());
    return writeWhole(call.archive, *archive);
}

Result<void> run(const std::vector<std::string>& arguments)
{
    const Failure usage{FailureKind::Unsupported,
                        "call it as cpio_bridge INFO|EXTR|ASSM archive folder #.lst ,0"};
    if (arguments.size() != 4)
        return usage;
    const Call call{arguments[1], arguments[2], arguments[3]};
    // A list elsewhere could be any file of the user's, and INFO removes it first.
    if (call.list.find('/') != std::string::npos)
        return Failure{FailureKind::Unsupported,
                       call.list + ": the list lies in the folder itself"};
    if (arguments[0] == "INFO")
        return info(call);
    if (arguments[0] == "EXTR")
        return extract(call);
    return arguments[0] == "ASSM" ? assemble(call) : usage;
}

} // namespace

int main(int argc, char** argv)
{
    return exitCode("cpio_bridge", run(toolArguments(argc, argv)));
}
