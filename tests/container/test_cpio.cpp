// SPDX-License-Identifier: MIT
#include "container/cpio.h"
#include "container/raw_cpio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace fennel;
using namespace fennel::test;
using testing::HasSubstr;

namespace {

std::span<const std::uint8_t> bytesOf(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string textOf(std::span<const std::uint8_t> bytes)
{
    return {bytes.begin(), bytes.end()};
}

// Why an archive is refused; empty if it is not.
std::string refusal(const std::string& archive)
{
    const auto members = readCpio(bytesOf(archive));
    return members ? std::string() : members.failure().text;
}

std::string refusalOfName(const std::string& name)
{
    return refusal(RawCpio().add({.name = name, .data = "x"}).close());
}

CpioMember member(const std::string& name, const std::string& data, std::uint32_t mtime = 0)
{
    return {name, mtime, bytesOf(data)};
}

} // namespace

TEST(Cpio, ReadsBothByteOrdersAndWhatOtherWritersPutIntoTheHeader)
{
    for (const bool bigEndian : {false, true}) {
        const std::string archive =
            RawCpio(bigEndian)
                .add({.name = "init", .data = "abc", .mode = 0, .mtime = 0x5F91'8DE4})
                .add({.name = "back.jpg", .device = 77, .inode = 3, .mode = 0100600, .links = 2})
                .add({.name = "\xf4\xee\xed # '.jpg", .data = std::string(70000, 'z')})
                .close();
        const auto members = readCpio(bytesOf(archive));
        ASSERT_TRUE(members.ok()) << members.failure().text;
        ASSERT_EQ(members->size(), 3U);
        EXPECT_EQ(members->at(0).name, "init");
        EXPECT_EQ(members->at(0).mtime, 0x5F91'8DE4U);
        EXPECT_EQ(textOf(members->at(0).data), "abc");
        EXPECT_EQ(members->at(1).data.size(), 0U);
        EXPECT_EQ(members->at(2).name, "\xf4\xee\xed # '.jpg");
        EXPECT_EQ(textOf(members->at(2).data), std::string(70000, 'z'));
    }
}

TEST(Cpio, EveryCutBeforeTheEndOfTheTrailerIsRefused)
{
    const std::string whole = RawCpio()
                                  .add({.name = "ab", .data = "odd"})
                                  .add({.name = "abc", .data = "even"})
                                  .add({.name = "d"})
                                  .close();
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(refusal(whole.substr(0, size)), "") << size;
    EXPECT_EQ(refusal(whole), "");
    EXPECT_EQ(refusal(whole + std::string(300, '\0')), "");
}

TEST(Cpio, HostileNamesAreRefusedWithTheNameInTheMessage)
{
    const struct {
        std::string name;
        std::string shown;
    } cases[] = {
        {"", "\"\""},
        {"/etc/passwd", "\"/etc/passwd\""},
        {"../init", "\"../init\""},
        {"..", "\"..\""},
        {".", "\".\""},
        {"./init", "\"./init\""},
        {"a\\b", "\"a\\b\""},
        {"a\nb", "\"a\\x0ab\""},
        {std::string("a\0b", 3), "\"a\\x00b\""},
        {"\x7f", "\"\\x7f\""},
        {"#.lst", "\"#.lst\""},
        {"#7zip.log", "\"#7zip.log\""},
        {"#message", "\"#message\""},
        {"#message.gz", "\"#message.gz\""},
        {"NUL", "\"NUL\""},
        {"com1.jpg", "\"com1.jpg\""},
        {std::string(256, 'n'), "\"nnnn"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(refusalOfName(c.name), HasSubstr(c.shown));
    for (const char* name : {"..a", "#a", "com", "com10", "nula", " ", "a b'\"&$.jpg", "-rf"})
        EXPECT_EQ(refusalOfName(name), "") << name;
    EXPECT_EQ(refusalOfName(std::string(255, 'n')), "");
}

TEST(Cpio, RefusesWhatIsNoArchiveOfPlainFiles)
{
    const RawMember twice{.name = "init", .data = "1"};
    const struct {
        const char* what;
        std::string archive;
        const char* reason;
    } cases[] = {
        {"empty", "", "empty"},
        {"text", "title Boot", "no cpio"},
        {"gzip", "\x1f\x8b\x08", "no cpio"},
        {"newc", "070701000000", "another format"},
        {"twice", RawCpio().add(twice).add(twice).close(), "two members are named \"init\""},
        {"huge", RawCpio().add({.name = "a", .fileSize = 0xffff'fffe}).close(), "\"a\" is larger"},
        {"odd huge", RawCpio().add({.name = "a", .fileSize = 0x7fff'ffff}).close(), "larger"},
        {"no NUL", RawCpio().add({.name = "abc", .nameSize = 3}).close(), "does not end"},
        {"no name", RawCpio().add({.name = "", .nameSize = 0}).close(), "does not end"},
        {"name to nowhere", RawCpio().add({.name = "a", .nameSize = 0xffff}).close(), "cut short"},
        {"folder", RawCpio().add({.name = "d", .mode = 040755}).close(), "\"d\" is a folder"},
        {"dot", RawCpio().add({.name = ".", .mode = 040755}).close(), "\".\" is a folder"},
        {"link", RawCpio().add({.name = "l", .data = "/etc", .mode = 0120777}).close(), "a link"},
        {"device", RawCpio().add({.name = "l", .mode = 020666}).close(), "device"},
        {"damage", RawCpio().add({.name = "ok"}).open() + std::string(40, 'x'), "member \"ok\""},
        {"trailer", RawCpio().add({.name = "TRAILER!!!", .data = "xx"}).open(), "trailer"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(refusal(c.archive), HasSubstr(c.reason)) << c.what;
}

TEST(Cpio, WritesEveryByteOfTheFormat)
{
    const auto archive = writeCpio(std::vector{member("ab", "xyz", 0x1234'5678), member("c", "")});
    ASSERT_TRUE(archive.ok());
    const char expected[] = // one line a header, its name with padding, its data with padding
        "\xC7\x71\xED\x1E\x01\x00\xB6\x81\0\0\0\0\x01\x00\0\0\x34\x12\x78\x56\x03\x00\0\0\x03\x00"
        "ab\0\0"
        "xyz\0"
        "\xC7\x71\xED\x1E\x02\x00\xB6\x81\0\0\0\0\x01\x00\0\0\0\0\0\0\x02\x00\0\0\0\0"
        "c\0"
        "\xC7\x71\0\0\0\0\0\0\0\0\0\0\x01\x00\0\0\0\0\0\0\x0B\x00\0\0\0\0"
        "TRAILER!!!\0";
    std::string text(expected, sizeof expected); // the literal's own NUL is the trailer's padding
    text.resize(512);
    EXPECT_EQ(textOf(*archive), text);
}

TEST(Cpio, WritesNothingThatItWouldNotRead)
{
    const std::string big(130U << 20U, 'b');
    const struct {
        std::vector<CpioMember> members;
        FailureKind kind;
        const char* reason;
    } cases[] = {
        {{member("a", "1"), member("a", "2")}, FailureKind::Malformed, "\"a\""},
        {{member("x/y", "1")}, FailureKind::Malformed, "\"x/y\""},
        {{member("TRAILER!!!", "1")}, FailureKind::Malformed, "TRAILER"},
        {{member("a", big), member("b", big)}, FailureKind::TooLarge, "256 MB"},
    };
    for (const auto& c : cases) {
        const auto archive = writeCpio(c.members);
        ASSERT_FALSE(archive.ok());
        EXPECT_EQ(archive.failure().kind, c.kind);
        EXPECT_THAT(archive.failure().text, HasSubstr(c.reason));
    }
}
