// SPDX-License-Identifier: MIT
#include "desktop/hostile_messages.h"

#include "document/open_fixture.h"
#include "support/bin_folder.h"
#include "support/story.h"

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

std::vector<RawMember> rawMembers(const QString& messageFile)
{
    std::vector<RawMember> members;
    for (const auto& [name, bytes] : membersOf(messageFile))
        members.push_back({.name = name.toStdString(), .data = bytes.toStdString()});
    return members;
}

// A place in the bytes, more often than not within the first kilobytes, where the headers are.
std::size_t placeIn(const std::string& bytes, Dice& dice)
{
    const auto size = static_cast<qsizetype>(bytes.size());
    return static_cast<std::size_t>(
        dice.below(dice.chance(60) ? std::min<qsizetype>(size, 2000) : size));
}

std::string noise(Dice& dice, qsizetype size)
{
    std::string bytes(static_cast<std::size_t>(size), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(dice.below(256));
    return bytes;
}

void flip(std::string& bytes, Dice& dice, int count)
{
    for (int i = 0; i < count && !bytes.empty(); ++i)
        bytes[placeIn(bytes, dice)] = static_cast<char>(dice.below(256));
}

void swapPieces(std::string& bytes, Dice& dice)
{
    const std::size_t size = 2U << static_cast<unsigned>(dice.below(2));
    const std::size_t a = placeIn(bytes, dice);
    const std::size_t b = placeIn(bytes, dice);
    for (std::size_t i = 0; i < size && a + i < bytes.size() && b + i < bytes.size(); ++i)
        std::swap(bytes[a + i], bytes[b + i]);
}

// Where a JPEG's frame header says height and width; npos if there is none.
std::size_t jpegSizeAt(const std::string& bytes)
{
    for (std::size_t i = 2; i + 9 < bytes.size() && bytes[i] == '\xFF';) {
        if (bytes[i + 1] >= '\xC0' && bytes[i + 1] <= '\xC2')
            return i + 5;
        const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(bytes[k]); };
        i += 2U + byte(i + 2) * 256U + byte(i + 3);
    }
    return std::string::npos;
}

void announceHugePicture(std::string& jpeg, Dice& dice)
{
    const std::size_t at = jpegSizeAt(jpeg);
    if (at == std::string::npos)
        return;
    for (std::size_t i = 0; i < 4; ++i)
        jpeg[at + i] = static_cast<char>(dice.chance(50) ? 0xFF : dice.below(256));
}

} // namespace

HostileMessages::HostileMessages(const QString& forbidden)
{
    m_messages.push_back(rawMembers(fennel::test::binFolder() + QStringLiteral("/data/GFX.GZ")));
    for (const char* theme : {"KDE", "SLED", "SLES", "openSUSE", "upstream"})
        m_messages.push_back(rawMembers(
            u"/etc/bootsplash/themes/%1/bootloader/message"_s.arg(QLatin1String(theme))));
    addSmallOnes();
    m_names = {"../x",       "../../x",     "../../../x", "/etc/x",     "a/../../x",
               "a/b",        "..",          ".",          "",           "/",
               "..\\x",      "C:\\x",       "x\ny",       "#.lst",      "#message",
               "#7zip.log",  "#message.gz", "con.jpg",    "back.jpg",   "BACK.JPG",
               "init",       "\xFF\xFE",    "-rf",        "$(touch x)", "back_01.jpg",
               "TRAILER!!!", "a b.jpg",     "~undo_0",    "*",          "Logo_99.jpg"};
    m_names[3] = forbidden.toStdString();
    m_names.insert(m_names.end(),
                   {std::string(255, 'n'), std::string(300, 'n'), std::string(4000, '/')});
}

// Small files are hit where it matters more often.
void HostileMessages::addSmallOnes()
{
    Members members = m_messages.front();
    std::erase_if(members, [](const RawMember& member) {
        return !member.name.starts_with("16x16") && !member.name.starts_with("ZUK");
    });
    members.push_back({.name = "init", .data = "engine menu_start_x boot_show welcome hide_help"});
    members.push_back({.name = "back.jpg", .data = jpegBytes(64, 48)});
    members.push_back({.name = "menu.lst", .data = "title One\ntitle Two\nkernel /x\n"});
    m_messages.push_back(members);
    std::erase_if(members, [](const RawMember& member) { return member.name.starts_with("ZUK"); });
    members.push_back({.name = "gfxboot.cfg",
                       .data = "menu_start_x=100 # left\r\n#menu_start_y=50\r\nboot_show=1\r\n"});
    m_messages.push_back(members);
    m_messages.push_back(members);
}

void HostileMessages::mangleBytes(std::string& bytes, Dice& dice, QString& kind) const
{
    switch (dice.below(5)) {
    case 0:
        kind += u"flips"_s;
        flip(bytes, dice, dice.between(1, 20));
        break;
    case 1:
        kind += u"cut"_s;
        bytes.resize(placeIn(bytes, dice));
        break;
    case 2:
        kind += u"swapped"_s;
        swapPieces(bytes, dice);
        break;
    case 3: {
        kind += u"spliced"_s;
        const std::size_t from = placeIn(bytes, dice);
        bytes.insert(placeIn(bytes, dice), bytes.substr(from, 26U + placeIn(bytes, dice) % 4000U));
        break;
    }
    default:
        kind += u"noise"_s;
        bytes.insert(placeIn(bytes, dice), noise(dice, dice.between(1, 500)));
        break;
    }
}

void HostileMessages::mangleHeader(Members& members, Dice& dice, QString& kind) const
{
    constexpr std::uint32_t sizes[] = {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFEU, 0x80000000U, 0x00FFFFFFU};
    constexpr unsigned modes[] = {0120777, 0040755, 0060666, 0010666, 0140777, 0106777, 0};
    RawMember& member = dice.of(members);
    switch (dice.below(6)) {
    case 0:
        kind += u"size"_s;
        member.fileSize = dice.chance(50) ? dice.of(sizes)
                                          : static_cast<std::uint32_t>(member.data.size()) + 7U -
                                                static_cast<std::uint32_t>(dice.below(14));
        break;
    case 1:
        kind += u"name size"_s;
        member.nameSize = static_cast<unsigned>(dice.below(dice.chance(50) ? 20 : 65536));
        break;
    case 2: {
        kind += u"mode"_s;
        // A link out of the folder, and a member that would go through it.
        member.mode = dice.of(modes);
        RawMember through = member;
        through.mode = 0100644;
        member.data = "../..";
        members.push_back(through);
        break;
    }
    case 3:
        kind += u"twice"_s;
        members.push_back(member);
        break;
    default: {
        kind += u"name"_s;
        RawMember added = member;
        added.name = dice.of(m_names);
        if (dice.chance(50))
            member = added;
        else
            members.insert(members.begin() + dice.below(static_cast<qsizetype>(members.size())),
                           added);
        break;
    }
    }
}

void HostileMessages::mangleContents(Members& members, Dice& dice, QString& kind) const
{
    RawMember& member = dice.of(members);
    kind += u"in "_s + QString::fromStdString(member.name) + u": "_s;
    switch (dice.below(7)) {
    case 0:
        kind += u"empty"_s;
        member.data.clear();
        break;
    case 1:
        kind += u"noise"_s;
        member.data = noise(dice, dice.between(1, 5000));
        break;
    case 2:
        kind += u"giant"_s;
        member.data.resize(1U << static_cast<unsigned>(dice.between(16, 24)),
                           static_cast<char>(dice.below(256)));
        break;
    case 3:
        kind += u"another's"_s;
        member.data = dice.of(members).data;
        break;
    case 4:
        if (member.data.starts_with("\xFF\xD8")) {
            kind += u"huge picture"_s;
            announceHugePicture(member.data, dice);
            break;
        }
        [[fallthrough]];
    default:
        mangleBytes(member.data, dice, kind);
        break;
    }
}

std::string HostileMessages::packed(const Members& members, Dice& dice) const
{
    RawCpio archive(dice.chance(10));
    for (const RawMember& member : members)
        archive.add(member);
    return dice.chance(10) ? archive.open() : archive.close();
}

HostileMessage HostileMessages::next(Dice& dice) const
{
    const QString names[] = {u"message"_s,  u"message.gz"_s, u"my # & $ file"_s,
                             u"Загрузка"_s, u"m.x.gz"_s,     u"-o"_s};
    HostileMessage made;
    made.name = names[dice.below(std::ssize(names))];
    Members members = m_messages[static_cast<std::size_t>(dice.below(std::ssize(m_messages)))];
    const qsizetype road = dice.below(10);
    if (road < 3)
        mangleHeader(members, dice, made.kind);
    else if (road < 8)
        mangleContents(members, dice, made.kind);
    std::string bytes = packed(members, dice);
    if (road == 8)
        mangleBytes(bytes, dice, made.kind);
    if (dice.chance(50)) {
        made.kind += u", gzip"_s;
        bytes = gzipped(bytes, dice.chance(80) ? "#message" : dice.of(m_names));
        if (road == 9)
            mangleBytes(bytes, dice, made.kind);
    } else if (road == 9) {
        mangleBytes(bytes, dice, made.kind);
    }
    made.bytes = QByteArray::fromStdString(bytes);
    return made;
}

} // namespace fennel::test
