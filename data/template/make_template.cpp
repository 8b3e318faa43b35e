// SPDX-License-Identifier: MIT
// Puts the template together that a new gfxboot starts from:
//
//   make_template ENGINE FONT SOURCE_FOLDER OUTPUT_FOLDER SECONDS
//
// ENGINE is the compiled boot engine, FONT the standard font without its tag; SECONDS since 1970 is
// the time of every member, so that a build can be repeated byte for byte. Writes GFX.GZ, INIT and
// 16X16.FNT into the output folder.
#include "container/cpio.h"
#include "container/gzip.h"
#include "level_source.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <span>

namespace fennel {

namespace {

using Bytes = std::vector<std::uint8_t>;

// The members in archive order; the level files stand between, as levels.txt has them.
constexpr std::array madeFirst{"init", "16x16.fnt"};
constexpr std::array sourceFiles{"back.jpg",    "Logo_msk.jpg", "ZUK_Read.txt", "RLineDef.txt",
                                 "Logo_00.jpg", "glass_02.jpg", "ani_03.jpg",   "ani_03_msk.jpg"};

constexpr const char* fontTag =
    "TAG@ZUK-MOSA@:>Created by the Fennel-GFX(GUI) using the MKBLFONT "
    "utility\tthis is the DEFAULT font|DejaVu Sans\t|size\t14 px|space\t4 "
    "px|letter space\t0 px|line space\t0 px";

// Zero bytes behind the two files that are upgraded from; readers of both pass over them.
constexpr std::size_t enginePadding = 3;
constexpr std::size_t fontPadding = 2;

Result<Bytes> readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(in), {}};
    if (!in.is_open() || in.bad())
        return Failure{FailureKind::NotFound, path + ": " + std::strerror(errno)};
    return bytes;
}

Result<void> writeFile(const std::string& path, const Bytes& bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out)
        return Failure{FailureKind::Io, path + ": " + std::strerror(errno)};
    return {};
}

// Text members have CR LF line ends; the sources have LF.
Bytes withCarriageReturns(const Bytes& text)
{
    Bytes out;
    for (const std::uint8_t byte : text) {
        if (byte == '\n')
            out.push_back('\r');
        out.push_back(byte);
    }
    return out;
}

struct Job {
    std::string engine;
    std::string font;
    std::string sourceFolder;
    std::string outputFolder;
    std::uint32_t seconds = 0;
};

struct Members {
    std::map<std::string, Bytes, std::less<>> bytes;
    std::vector<std::string> order;

    void add(std::string_view name, Bytes content)
    {
        bytes[std::string(name)] = std::move(content);
        order.emplace_back(name);
    }
};

Result<void> addEngine(const Job& job, Members& members)
{
    auto init = readFile(job.engine);
    auto font = readFile(job.font);
    if (!init || !font)
        return init ? font.failure() : init.failure();
    font->insert(font->end(), fontTag, fontTag + std::strlen(fontTag));
    members.add(madeFirst[0], *std::move(init));
    members.add(madeFirst[1], *std::move(font));
    return {};
}

Result<void> addLevels(const Job& job, Members& members)
{
    const auto source = readFile(job.sourceFolder + "/levels.txt");
    if (!source)
        return source.failure();
    auto levels = compileLevels({reinterpret_cast<const char*>(source->data()), source->size()});
    if (!levels)
        return Failure{levels.failure().kind, "levels.txt, " + levels.failure().text};
    for (LevelFile& file : *levels)
        members.add(file.name, std::move(file.bytes));
    return {};
}

Result<void> addFiles(const Job& job, Members& members)
{
    for (const std::string name : sourceFiles) {
        auto bytes = readFile(job.sourceFolder + "/" + name);
        if (!bytes)
            return bytes.failure();
        members.add(name, name.ends_with(".txt") ? withCarriageReturns(*bytes) : *std::move(bytes));
    }
    return {};
}

Result<void> writeMessage(const Job& job, const Members& members)
{
    std::vector<CpioMember> list;
    list.reserve(members.order.size());
    for (const std::string& name : members.order)
        list.push_back({name, job.seconds, members.bytes.at(name)});
    const auto archive = writeCpio(list);
    if (!archive)
        return archive.failure();
    const auto packed = gzipCompress(*archive, "#message", job.seconds);
    if (!packed)
        return packed.failure();
    return writeFile(job.outputFolder + "/GFX.GZ", *packed);
}

Result<void> writePadded(const std::string& path, Bytes bytes, std::size_t padding)
{
    bytes.resize(bytes.size() + padding);
    return writeFile(path, bytes);
}

Result<void> makeTemplate(const Job& job)
{
    Members members;
    for (const auto step : {addEngine, addLevels, addFiles})
        if (auto done = step(job, members); !done)
            return done;
    if (auto done = writeMessage(job, members); !done)
        return done;
    if (auto done =
            writePadded(job.outputFolder + "/INIT", members.bytes[madeFirst[0]], enginePadding);
        !done)
        return done;
    return writePadded(job.outputFolder + "/16X16.FNT", members.bytes[madeFirst[1]], fontPadding);
}

} // namespace

} // namespace fennel

int main(int argc, char** argv)
{
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    if (argc != 6) {
        std::fputs("usage: make_template ENGINE FONT SOURCE OUTPUT SECONDS\n", stderr);
        return 2;
    }
    fennel::Job job{words[1], words[2], words[3], words[4]};
    const std::string_view seconds(words[5]);
    if (std::from_chars(seconds.data(), seconds.data() + seconds.size(), job.seconds).ptr !=
        seconds.data() + seconds.size()) {
        std::fprintf(stderr, "make_template: %s is no number of seconds\n", words[5]);
        return 2;
    }
    if (const auto done = fennel::makeTemplate(job); !done) {
        std::fprintf(stderr, "make_template: %s\n", done.failure().text.c_str());
        return 1;
    }
    return 0;
}
