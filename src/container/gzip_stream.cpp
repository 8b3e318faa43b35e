// SPDX-License-Identifier: MIT
#include "base/posix_file.h"
#include "container/gzip.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace fennel {

namespace {

constexpr int gzipStream = 15 + 16; // the largest window, and zlib's own header and checksum
constexpr std::size_t piece = 256U << 10U;

Failure damagedStream()
{
    return {FailureKind::Malformed, "a gzip file that is damaged or cut short"};
}

using Buffer = std::vector<std::uint8_t>;

Failure noStreamMemory()
{
    return {FailureKind::NoSpace, "there is not enough memory"};
}

// A stream of zlib's between two files.
class Stream {
public:
    Stream(int in, int out, const TellBytes& tell) : m_in(in), m_out(out), m_tell(tell) {}
    z_stream* z() { return &m_z; }
    // False on an error; at the end no more bytes are there.
    bool fill()
    {
        if (m_z.avail_in > 0 || m_ended)
            return true;
        const std::ptrdiff_t got = readInto(m_in, m_from);
        if (got < 0)
            return false;
        m_read += static_cast<std::uint64_t>(got);
        m_ended = static_cast<std::size_t>(got) < m_from.size();
        m_z.next_in = m_from.data();
        m_z.avail_in = static_cast<uInt>(got);
        m_tell(m_read);
        return true;
    }
    // Makes room for `step`, which may write, and writes what it made.
    template <class Step>
    bool run(Step step)
    {
        m_z.next_out = m_to.data();
        m_z.avail_out = static_cast<uInt>(m_to.size());
        m_code = step();
        return writeAll(m_out, std::span(m_to).first(m_to.size() - m_z.avail_out));
    }
    [[nodiscard]] int code() const { return m_code; }
    [[nodiscard]] bool ended() const { return m_ended; }
    [[nodiscard]] bool outputFull() const { return m_z.avail_out == 0; }

private:
    int m_in;
    int m_out;
    const TellBytes& m_tell;
    z_stream m_z{};
    Buffer m_from = Buffer(piece);
    Buffer m_to = Buffer(piece);
    std::uint64_t m_read = 0;
    bool m_ended = false;
    int m_code = Z_OK;
};

Failure systemSays()
{
    return systemFailure("use", "the file", errno);
}

// What follows a member: true if it is another one. Its two first bytes are looked at, which may
// stand in two pieces.
bool anotherMember(Stream& stream, Result<std::uint64_t>& trailing)
{
    Buffer rest;
    for (const std::uint8_t wanted : {std::uint8_t{0x1f}, std::uint8_t{0x8b}}) {
        if (!stream.fill()) {
            trailing = systemSays();
            return false;
        }
        z_stream* z = stream.z();
        if (z->avail_in == 0 || *z->next_in != wanted)
            break;
        rest.push_back(*z->next_in++);
        --z->avail_in;
    }
    constexpr std::size_t magicBytes = 2;
    if (rest.size() == magicBytes)
        return true;
    // The first byte of a further member is a cut file and no stray byte.
    if (!rest.empty() && stream.z()->avail_in == 0) {
        trailing = damagedStream();
        return false;
    }
    std::uint64_t behind = rest.size();
    bool zeros = rest.empty();
    for (z_stream* z = stream.z(); stream.fill() && z->avail_in > 0; z->avail_in = 0) {
        behind += z->avail_in;
        zeros = zeros && std::all_of(z->next_in, z->next_in + z->avail_in,
                                     [](Bytef byte) { return byte == 0; });
    }
    // Zeros may come from media that store whole blocks.
    trailing = zeros ? 0 : behind;
    return false;
}

// zlib has to see the magic that was looked at.
bool restart(z_stream* z)
{
    std::array<Bytef, 2> magic{0x1f, 0x8b};
    if (inflateReset(z) != Z_OK)
        return false;
    Bytef* const next = z->next_in;
    const uInt left = z->avail_in;
    z->next_in = magic.data();
    z->avail_in = magic.size();
    const int code = inflate(z, Z_NO_FLUSH);
    z->next_in = next;
    z->avail_in = left;
    return code == Z_OK || code == Z_BUF_ERROR;
}

} // namespace

Result<void> gzipCompressFile(int in, int out, const std::string& name, std::uint32_t mtime,
                              const TellBytes& tell)
{
    constexpr int defaultMemory = 8;
    constexpr int systemUnix = 3;
    Stream stream(in, out, tell);
    if (deflateInit2(stream.z(), Z_BEST_COMPRESSION, Z_DEFLATED, gzipStream, defaultMemory,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        return noStreamMemory();
    std::string stored = name;
    gz_header header{};
    header.name = reinterpret_cast<Bytef*>(stored.data());
    header.time = mtime;
    header.os = systemUnix;
    (void)deflateSetHeader(stream.z(), &header);
    bool good = true;
    do {
        good = stream.fill();
        const int flush = stream.ended() ? Z_FINISH : Z_NO_FLUSH;
        good = good && stream.run([&] { return deflate(stream.z(), flush); });
    } while (good && stream.code() != Z_STREAM_END);
    deflateEnd(stream.z());
    return good ? Result<void>() : systemSays();
}

Result<std::uint64_t> gzipDecompressFile(int in, int out, const TellBytes& tell)
{
    Stream stream(in, out, tell);
    if (inflateInit2(stream.z(), gzipStream) != Z_OK)
        return noStreamMemory();
    Result<std::uint64_t> result = std::uint64_t{0};
    for (bool more = true; more;) {
        if (!stream.fill() || !stream.run([&] { return inflate(stream.z(), Z_NO_FLUSH); })) {
            result = systemSays();
            break;
        }
        const bool starved = stream.ended() && stream.z()->avail_in == 0 && !stream.outputFull();
        if (stream.code() == Z_STREAM_END) {
            more = anotherMember(stream, result) && restart(stream.z());
        } else if ((stream.code() != Z_OK && stream.code() != Z_BUF_ERROR) || starved) {
            result = damagedStream();
            more = false;
        }
    }
    inflateEnd(stream.z());
    return result;
}

} // namespace fennel
