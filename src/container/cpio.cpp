// SPDX-License-Identifier: MIT
#include "container/cpio.h"

#include "container/member_name.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace fennel {

namespace {

constexpr std::size_t cpioHeaderSize = 26;
constexpr std::size_t blockSize = 512;
constexpr std::uint16_t oldBinaryMagic = 0x71C7;
// A plain file, readable and writable by all, as in the template's archive.
constexpr std::uint16_t memberMode = 0100666;
constexpr unsigned fileTypeBits = 0170000;
constexpr unsigned plainFileType = 0100000;
constexpr unsigned folderType = 0040000;
constexpr std::string_view trailerName = "TRAILER!!!";

constexpr std::size_t even(std::size_t size)
{
    return size + size % 2;
}

Failure malformed(std::string text)
{
    return {FailureKind::Malformed, std::move(text)};
}

// Words of a header in the byte order that its magic shows.
class Header {
public:
    explicit Header(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes), m_bigEndian(bytes[0] == oldBinaryMagic >> 8U)
    {
    }
    [[nodiscard]] unsigned word(std::size_t offset) const
    {
        const unsigned first = m_bytes[offset];
        const unsigned second = m_bytes[offset + 1];
        return m_bigEndian ? first << 8U | second : second << 8U | first;
    }
    // The high word stands first in either byte order.
    [[nodiscard]] std::uint32_t pair(std::size_t offset) const
    {
        return word(offset) << 16U | word(offset + 2);
    }
    [[nodiscard]] bool hasMagic() const { return word(0) == oldBinaryMagic; }
    [[nodiscard]] unsigned mode() const { return word(6); }
    [[nodiscard]] CpioFacts facts() const
    {
        CpioFacts facts = {};
        for (std::size_t i = 0; i < facts.size(); ++i)
            facts[i] = static_cast<std::uint16_t>(word(2 + 2 * i));
        return facts;
    }
    [[nodiscard]] std::uint32_t mtime() const { return pair(16); }
    [[nodiscard]] std::size_t nameSize() const { return word(20); }
    [[nodiscard]] std::uint32_t fileSize() const { return pair(22); }

private:
    std::span<const std::uint8_t> m_bytes;
    bool m_bigEndian;
};

// The formats with a magic in digits can be told by name, which saves the user a guess.
Failure notCpio(std::span<const std::uint8_t> archive)
{
    const std::string_view start(reinterpret_cast<const char*>(archive.data()),
                                 std::min<std::size_t>(archive.size(), 6));
    if (start == "070701" || start == "070702" || start == "070707")
        return {FailureKind::Unsupported,
                "a cpio archive of another format; only the old binary format is known"};
    return malformed(archive.empty() ? "an empty file" : "no cpio archive");
}

// Type 0 comes from packers that know of no types. Folders and links could lead out of the folder
// that is extracted to.
Result<void> checkType(unsigned mode, std::string_view name)
{
    const unsigned type = mode & fileTypeBits;
    if (type == 0 || type == plainFileType)
        return {};
    const char* what = type == folderType ? "a folder" : "a link or a device";
    return Failure{FailureKind::Unsupported,
                   "the member " + printableName(name) + " is " + what +
                       ", but only plain files are taken; pack the files by their plain names"};
}

class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> archive) : m_archive(archive) {}

    Result<std::vector<CpioMember>> run()
    {
        // Offsets stay far from overflow below this size.
        if (m_archive.size() > maxCpioArchive)
            return Failure{FailureKind::TooLarge, "an archive of more than 256 MB"};
        for (;;) {
            Result<bool> more = readMember();
            if (!more)
                return more.failure();
            if (!*more)
                return std::move(m_members);
        }
    }

private:
    // False at the trailer.
    Result<bool> readMember()
    {
        const std::span<const std::uint8_t> rest = m_archive.subspan(m_offset);
        // The magic is looked at before the length: a short text is no archive, not a cut one.
        if (m_offset == 0 && (rest.size() < 2 || !Header(rest).hasMagic()))
            return notCpio(rest);
        if (rest.size() < cpioHeaderSize)
            return cutShort();
        const Header header(rest);
        if (!header.hasMagic())
            return malformed("an archive with a damaged header" + afterLast());
        const std::size_t dataStart = even(cpioHeaderSize + header.nameSize());
        if (rest.size() < dataStart)
            return cutShort();
        if (header.nameSize() == 0 || rest[cpioHeaderSize + header.nameSize() - 1] != 0)
            return malformed("an archive with a name that does not end" + afterLast());
        const std::string name(reinterpret_cast<const char*>(&rest[cpioHeaderSize]),
                               header.nameSize() - 1);
        if (name == trailerName) {
            // The trailer ends the archive, what follows is padding and is not looked at.
            if (header.fileSize() != 0)
                return malformed("an archive whose trailer has contents");
            return false;
        }
        if (rest.size() - dataStart < even(header.fileSize()))
            return malformed("the member " + printableName(name) +
                             " is larger than what is there of it; the archive is cut short");
        return addMember(header, name, rest.subspan(dataStart, header.fileSize()));
    }

    Result<bool> addMember(const Header& header, const std::string& name,
                           std::span<const std::uint8_t> data)
    {
        if (const Result<void> plain = checkType(header.mode(), name); !plain)
            return plain.failure();
        // Refused here, before anything is written: members become files under their names.
        if (const std::string_view reason = whyNoMemberName(name); !reason.empty())
            return malformed("the member name " + printableName(name) + " " + std::string(reason));
        if (m_members.size() == maxCpioMembers)
            return Failure{FailureKind::TooLarge, "an archive of more than 65535 members"};
        // Members live flat in one folder, where the second would silently overwrite the first.
        if (!m_names.insert(name).second)
            return malformed("two members are named " + printableName(name));
        m_offset += even(cpioHeaderSize + header.nameSize()) + even(data.size());
        m_members.push_back({name, header.mtime(), data, header.facts()});
        return true;
    }

    [[nodiscard]] std::string afterLast() const
    {
        return m_members.empty() ? ""
                                 : " behind the member " + printableName(m_members.back().name);
    }
    [[nodiscard]] Failure cutShort() const
    {
        return malformed("an archive that is cut short" + afterLast());
    }

    std::span<const std::uint8_t> m_archive;
    std::size_t m_offset = 0;
    std::vector<CpioMember> m_members;
    std::unordered_set<std::string> m_names;
};

class Writer {
public:
    explicit Writer(std::size_t size) { m_bytes.reserve(size); }

    void member(const CpioFacts& facts, const CpioMember& member)
    {
        header(facts, member.mtime, member.name.size() + 1, member.data.size());
        name(member.name);
        m_bytes.insert(m_bytes.end(), member.data.begin(), member.data.end());
        m_bytes.resize(even(m_bytes.size()));
    }
    std::vector<std::uint8_t> finish()
    {
        header({0, 0, 0, 0, 0, 1, 0}, 0, trailerName.size() + 1, 0);
        name(trailerName);
        // An archive ends at a whole block, as packers leave it.
        m_bytes.resize((m_bytes.size() + blockSize - 1) / blockSize * blockSize);
        return std::move(m_bytes);
    }

private:
    void word(std::size_t value)
    {
        m_bytes.push_back(static_cast<std::uint8_t>(value & 0xffU));
        m_bytes.push_back(static_cast<std::uint8_t>(value >> 8U & 0xffU));
    }
    // The high word stands first although each word has its low byte first.
    void pair(std::size_t value)
    {
        word(value >> 16U);
        word(value);
    }
    void header(const CpioFacts& facts, std::uint32_t mtime, std::size_t nameSize,
                std::size_t fileSize)
    {
        word(oldBinaryMagic);
        for (const std::uint16_t fact : facts)
            word(fact);
        pair(mtime);
        word(nameSize);
        pair(fileSize);
    }
    void name(std::string_view text)
    {
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
        m_bytes.push_back(0);
        m_bytes.resize(even(m_bytes.size()));
    }

    std::vector<std::uint8_t> m_bytes;
};

} // namespace

CpioFacts newCpioFacts(std::uint16_t inode)
{
    constexpr std::uint16_t oneLink = 1;
    return {cpioDevice, inode, memberMode, 0, 0, oneLink, 0};
}

Result<std::vector<CpioMember>> readCpio(std::span<const std::uint8_t> archive)
{
    return Reader(archive).run();
}

Result<std::vector<std::uint8_t>> writeCpio(std::span<const CpioMember> members)
{
    if (members.size() > maxCpioMembers)
        return Failure{FailureKind::TooLarge, "more than 65535 members"};
    // A member of the trailer's name would end the archive early, so the name is taken from the
    // start.
    std::unordered_set<std::string_view> names{trailerName};
    // An upper bound, so that the writer never has to move its bytes.
    std::size_t size = cpioHeaderSize + trailerName.size() + blockSize;
    for (const CpioMember& member : members) {
        if (const std::string_view reason = whyNoMemberName(member.name); !reason.empty())
            return malformed("the name " + printableName(member.name) + " " + std::string(reason));
        if (!names.insert(member.name).second)
            return malformed("the name " + printableName(member.name) + " is taken already");
        size += even(cpioHeaderSize + member.name.size() + 1) + even(member.data.size());
        if (size > maxCpioArchive)
            return Failure{FailureKind::TooLarge, "members of more than 256 MB together"};
    }
    Writer writer(size);
    // Numbers of their own, as equal ones would make readers take members for links to one file.
    std::unordered_set<std::uint16_t> taken;
    for (const CpioMember& member : members) {
        if (member.facts)
            taken.insert((*member.facts)[1]);
    }
    std::uint16_t inode = 0;
    for (const CpioMember& member : members) {
        if (!member.facts)
            while (!taken.insert(++inode).second) {
            }
        writer.member(member.facts.value_or(newCpioFacts(inode)), member);
    }
    return writer.finish();
}

} // namespace fennel
