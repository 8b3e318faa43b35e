// SPDX-License-Identifier: MIT
#include "container/gzip.h"

#include "container/member_name.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace fennel {

namespace {

using Bytes = std::span<const std::uint8_t>;

// The third is the method, deflate.
constexpr std::array<std::uint8_t, gzipMarkSize> gzipMagic{0x1f, 0x8b, 8};
constexpr std::uint8_t flagCrc = 2;
constexpr std::uint8_t flagExtra = 4;
constexpr std::uint8_t flagName = 8;
constexpr std::uint8_t flagComment = 16;
constexpr std::uint8_t flagsReserved = 0xe0;
// What the header says of the level; readers ignore it, but the bytes stay as the usual tool writes
// them.
constexpr std::uint8_t bestCompression = 2;
constexpr std::uint8_t systemUnix = 3;
constexpr std::size_t fixedHeader = 10;
constexpr std::size_t footer = 8;      // checksum and size
constexpr std::size_t maxRatio = 1032; // of deflate: 258 bytes out of two bits
constexpr std::size_t smallestGuess = 64 << 10;
// Below some hundred bytes libdeflate is a few bytes longer than zlib at times: it tries no block
// of fixed codes for the smallest inputs. Up to this size both are tried, at the cost of a
// millisecond.
constexpr std::size_t smallInput = 16 << 10;

struct Release {
    void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
    void operator()(libdeflate_decompressor* d) const { libdeflate_free_decompressor(d); }
};

Failure cutShort()
{
    return {FailureKind::Malformed, "a gzip file that is cut short"};
}

Failure noMemory()
{
    return {FailureKind::NoSpace, "there is not enough memory"};
}

std::uint32_t read32(Bytes bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8U | bytes[offset + i];
    return value;
}

void put32(std::vector<std::uint8_t>& target, std::uint32_t value)
{
    for (unsigned shift = 0; shift < 32; shift += 8)
        target.push_back(static_cast<std::uint8_t>(value >> shift & 0xffU));
}

struct MemberHeader {
    std::size_t size = 0;
    std::uint32_t mtime = 0;
    std::string name;
};

// A text up to its NUL; moves `at` behind it. Nothing if there is no NUL.
std::optional<std::string> readText(Bytes member, std::size_t& at)
{
    const auto begin = member.begin() + static_cast<std::ptrdiff_t>(at);
    const auto end = std::find(begin, member.end(), std::uint8_t{0});
    if (end == member.end())
        return std::nullopt;
    std::string text(begin, end);
    at += text.size() + 1;
    return text;
}

// The optional fields in the order in which the format has them (RFC 1952): extra, name, comment,
// checksum of the header.
Result<MemberHeader> readHeader(Bytes member)
{
    if (member.size() < fixedHeader)
        return cutShort();
    const unsigned flags = member[3];
    // Such a flag may announce a field of unknown length, so nothing behind it could be read.
    if ((flags & flagsReserved) != 0)
        return Failure{FailureKind::Unsupported, "a gzip file with unknown flags"};
    MemberHeader header{fixedHeader, read32(member, 4), {}};
    if ((flags & flagExtra) != 0) {
        if (member.size() < header.size + 2)
            return cutShort();
        header.size += 2U + member[header.size] + (std::size_t{member[header.size + 1]} << 8U);
    }
    if (header.size > member.size())
        return cutShort();
    for (const std::uint8_t flag : {flagName, flagComment}) {
        if ((flags & flag) == 0)
            continue;
        std::optional<std::string> text = readText(member, header.size);
        if (!text)
            return cutShort();
        if (flag == flagName)
            header.name = std::move(*text);
    }
    header.size += (flags & flagCrc) != 0 ? 2 : 0;
    if (header.size + footer > member.size())
        return cutShort();
    return header;
}

// How much room the first try gets. The last four bytes of a file with one member are its size; in
// any other file they are noise, bounded here by what deflate can reach at all.
std::size_t firstGuess(Bytes member, std::size_t limit)
{
    const std::size_t told = read32(member, member.size() - 4);
    const std::size_t possible = std::min(member.size() * maxRatio, limit);
    return std::min(std::max(told, smallestGuess), possible);
}

class Decompressor {
public:
    Decompressor(Bytes file, std::size_t limit) : m_rest(file), m_limit(limit) {}

    Result<GzipContents> run()
    {
        if (!isGzip(m_rest))
            return Failure{FailureKind::Malformed, "no gzip file"};
        if (!m_engine)
            return noMemory();
        // A file may be several members joined; their contents are one stream, named by the first.
        for (bool first = true; !m_rest.empty(); first = false) {
            if (!isGzip(m_rest))
                return ended();
            Result<MemberHeader> header = readHeader(m_rest);
            if (!header)
                return header.failure();
            if (first) {
                m_contents.name = std::move(header->name);
                m_contents.mtime = header->mtime;
            }
            if (const Result<void> done = inflate(header->size); !done)
                return done.failure();
        }
        return std::move(m_contents);
    }

private:
    Result<GzipContents> ended()
    {
        // The first bytes of a further member are a cut file and no stray bytes.
        if (m_rest.size() < gzipMagic.size() &&
            std::equal(m_rest.begin(), m_rest.end(), gzipMagic.begin()))
            return cutShort();
        // Zeros behind the end may come from media that store whole blocks.
        if (std::any_of(m_rest.begin(), m_rest.end(), [](std::uint8_t b) { return b != 0; }))
            m_contents.trailing = m_rest.size();
        return std::move(m_contents);
    }

    // Appends one member's contents, each try with twice the room of the last.
    Result<void> inflate(std::size_t headerSize)
    {
        const std::size_t start = m_contents.data.size();
        const Bytes body = m_rest.subspan(headerSize);
        std::size_t room = firstGuess(m_rest, m_limit - start);
        for (;;) {
            m_contents.data.resize(start + room);
            std::size_t in = 0;
            std::size_t out = 0;
            const libdeflate_result result =
                libdeflate_deflate_decompress_ex(m_engine.get(), body.data(), body.size(),
                                                 m_contents.data.data() + start, room, &in, &out);
            if (result == LIBDEFLATE_SUCCESS) {
                m_contents.data.resize(start + out);
                return finishMember(headerSize + in, start);
            }
            if (result != LIBDEFLATE_INSUFFICIENT_SPACE)
                return Failure{FailureKind::Malformed, "a gzip file that is damaged or cut short"};
            // The limit guards against a small file that unpacks to fill the memory.
            if (room == m_limit - start)
                return Failure{FailureKind::TooLarge, "a gzip file with more than " +
                                                          std::to_string(m_limit >> 20U) +
                                                          " MB inside"};
            room = std::min(std::max(room * 2, smallestGuess), m_limit - start);
        }
    }

    Result<void> finishMember(std::size_t footerAt, std::size_t start)
    {
        if (m_rest.size() - footerAt < footer)
            return cutShort();
        const Bytes data = Bytes(m_contents.data).subspan(start);
        // A damaged member must not pass: it would be saved again as if it were sound.
        if (libdeflate_crc32(0, data.data(), data.size()) != read32(m_rest, footerAt))
            return Failure{FailureKind::Malformed, "a gzip file whose checksum is wrong"};
        if (read32(m_rest, footerAt + 4) != static_cast<std::uint32_t>(data.size()))
            return Failure{FailureKind::Malformed, "a gzip file whose stored size is wrong"};
        m_rest = m_rest.subspan(footerAt + footer);
        return {};
    }

    Bytes m_rest;
    std::size_t m_limit;
    GzipContents m_contents;
    std::unique_ptr<libdeflate_decompressor, Release> m_engine{libdeflate_alloc_decompressor()};
};

// zlib's best, cut to `limit` bytes: empty if it needs more.
std::vector<std::uint8_t> deflateByZlib(Bytes data, std::size_t limit)
{
    constexpr int rawStream = -15; // deflate without a header of its own, window of 32 KB
    constexpr int defaultMemory = 8;
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, rawStream, defaultMemory,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    std::vector<std::uint8_t> body(limit);
    stream.next_in = const_cast<Bytef*>(data.data()); // zlib's interface; it only reads
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = body.data();
    stream.avail_out = static_cast<uInt>(body.size());
    const bool fits = deflate(&stream, Z_FINISH) == Z_STREAM_END;
    body.resize(fits ? stream.total_out : 0);
    deflateEnd(&stream);
    return body;
}

// The deflate stream for the data, as short as we can make it.
std::vector<std::uint8_t> deflateBody(libdeflate_compressor* engine, Bytes data)
{
    std::vector<std::uint8_t> body(libdeflate_deflate_compress_bound(engine, data.size()));
    body.resize(
        libdeflate_deflate_compress(engine, data.data(), data.size(), body.data(), body.size()));
    if (data.size() >= smallInput || body.size() < 2)
        return body;
    std::vector<std::uint8_t> shorter = deflateByZlib(data, body.size() - 1);
    return shorter.empty() ? body : shorter;
}

std::string lowerEnding(std::string_view name)
{
    const std::size_t point = name.rfind('.');
    std::string ending(point == std::string_view::npos ? "" : name.substr(point));
    for (char& c : ending)
        c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    return ending;
}

// Whether every byte above 0x7f belongs to a sequence of 2 to 4 bytes.
bool isUtf8(std::string_view text)
{
    int expected = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = (byte & 0xc0U) == 0x80;
        if (continues != (expected > 0) || byte > 0xf7)
            return false;
        if (continues)
            --expected;
        else if (byte >= 0xc0)
            expected = byte >= 0xf0 ? 3 : byte >= 0xe0 ? 2 : 1;
    }
    return expected == 0;
}

// The editor has to find the file again by the name in the report, which it reads as UTF-8, up to a
// comma.
bool usable(std::string_view name)
{
    if (name.find(',') != std::string_view::npos)
        return false;
    // These two are right in a name of our own working files, and wrong as a member of an archive.
    return name == "#message" || name == "#message.gz" ||
           (whyNoMemberName(name).empty() && isUtf8(name));
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

bool isGzip(Bytes file)
{
    return file.size() >= gzipMagic.size() &&
           std::equal(gzipMagic.begin(), gzipMagic.end(), file.begin());
}

Result<std::vector<std::uint8_t>> gzipCompress(Bytes data, std::string_view name,
                                               std::uint32_t mtime, int level)
{
    // The size in the footer has 32 bits, and reading has the same limit: what is written can be
    // read.
    if (data.size() > maxGzipContents)
        return Failure{FailureKind::TooLarge,
                       "more than " + std::to_string(maxGzipContents >> 20U) + " MB to compress"};
    const std::unique_ptr<libdeflate_compressor, Release> engine{
        libdeflate_alloc_compressor(level)};
    if (!engine)
        return noMemory();
    const std::vector<std::uint8_t> body = deflateBody(engine.get(), data);
    std::vector<std::uint8_t> file(gzipMagic.begin(), gzipMagic.end());
    file.reserve(fixedHeader + name.size() + 1 + body.size() + footer);
    // The inner name is the only optional field, the editor finds the extracted file by it.
    file.push_back(flagName);
    put32(file, mtime);
    file.push_back(bestCompression);
    file.push_back(systemUnix);
    file.insert(file.end(), name.begin(), name.end());
    file.push_back(0);
    file.insert(file.end(), body.begin(), body.end());
    put32(file, libdeflate_crc32(0, data.data(), data.size()));
    put32(file, static_cast<std::uint32_t>(data.size()));
    return file;
}

std::string gzipStoredName(Bytes start)
{
    if (!isGzip(start))
        return {};
    // A start that is cut off behind the header is as good as the whole.
    std::vector<std::uint8_t> padded(start.begin(), start.end());
    padded.resize(padded.size() + footer);
    const Result<MemberHeader> header = readHeader(padded);
    return header ? header->name : std::string();
}

Result<GzipContents> gzipDecompress(Bytes file, std::size_t limit)
{
    return Decompressor(file, limit).run();
}

// The stored name if it can be a file's, else the archive's without its ending, else a fixed one:
// some name is always there, and never one that leads out of the folder.
std::string gzipInnerName(std::string_view storedName, std::string_view archiveName)
{
    const std::size_t separator = storedName.find_last_of("/\\");
    const std::string_view stored = trimmed(
        separator == std::string_view::npos ? storedName : storedName.substr(separator + 1));
    if (usable(stored))
        return std::string(stored);
    const std::string ending = lowerEnding(archiveName);
    std::string derived(archiveName);
    if (!ending.empty() && ending.size() < archiveName.size())
        derived = std::string(archiveName.substr(0, archiveName.size() - ending.size())) +
                  (ending == ".tgz" ? ".tar" : "");
    else
        derived += '~';
    const std::string_view plain = trimmed(derived);
    return usable(plain) ? std::string(plain) : "contents";
}

} // namespace fennel
