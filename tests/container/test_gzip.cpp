// SPDX-License-Identifier: MIT
#include "container/gzip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace fennel;
using testing::HasSubstr;

namespace {

std::vector<std::uint8_t> bytes(const std::string& text)
{
    return {text.begin(), text.end()};
}

// "123456789" as one stored block; its checksum is the check value of this CRC's definition.
const std::string digits = "123456789";
const std::string storedDigits = std::string("\x01\x09\x00\xf6\xff", 5) + digits;
const std::string digitsFooter = std::string("\x26\x39\xf4\xcb\x09\0\0\0", 8);

// A gzip member by hand: flags, and what they announce behind the fixed header.
std::string gz(char flags = 0, const std::string& fields = {})
{
    return std::string("\x1f\x8b\x08", 3) + flags + std::string("\x78\x56\x34\x12\0\x03", 6) +
           fields + storedDigits + digitsFooter;
}

std::string refusal(const std::string& file, std::size_t limit = maxGzipContents)
{
    const auto contents = gzipDecompress(bytes(file), limit);
    return contents ? std::string() : contents.failure().text;
}

} // namespace

TEST(Gzip, ReadsEveryOptionalFieldAndSeveralMembers)
{
    const std::string extra("\x03\0abc", 5);
    const std::string name("in ner\0", 7);
    const std::string comment("so what\0", 8);
    const struct {
        std::string file;
        std::string name;
        std::string data;
    } cases[] = {
        {gz(), "", digits},
        {gz(8, name), "in ner", digits},
        {gz(4 + 8 + 16 + 2, extra + name + comment + "cc"), "in ner", digits},
        {gz(16, comment), "", digits},
        {gz(8, name) + gz(8, std::string("other\0", 6)) + gz(), "in ner", digits + digits + digits},
        {gz() + std::string(1000, '\0'), "", digits},
    };
    for (const auto& c : cases) {
        const auto contents = gzipDecompress(bytes(c.file));
        ASSERT_TRUE(contents.ok()) << contents.failure().text;
        EXPECT_EQ(contents->name, c.name);
        EXPECT_EQ(contents->mtime, 0x1234'5678U);
        EXPECT_EQ(contents->data, bytes(c.data));
    }
}

TEST(Gzip, EveryCutIsRefused)
{
    const std::string extra("\x03\0abc", 5);
    const std::string fields = extra + std::string("name\0comment\0cc", 15);
    const std::string whole = gz(4 + 8 + 16 + 2, fields) + gz(8, std::string("n\0", 2));
    const std::size_t firstEnds = gz(0, fields).size();
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(refusal(whole.substr(0, size)).empty(), size == firstEnds) << size;
    EXPECT_EQ(refusal(whole), "");
}

TEST(Gzip, DamageIsTold)
{
    std::string checksum = gz();
    checksum[checksum.size() - 8] ^= 1;
    std::string size = gz();
    size[size.size() - 4] ^= 1;
    std::string hugeSize = gz();
    hugeSize.replace(hugeSize.size() - 4, 4, "\xff\xff\xff\xff");
    std::string block = gz();
    block[10] = '\x07'; // the reserved kind of block
    const struct {
        std::string file;
        const char* reason;
    } cases[] = {
        {checksum, "checksum"}, {size, "size"},
        {hugeSize, "size"},     {block, "damaged"},
        {gz('\x20'), "flags"},  {"no gzip", "no gzip"},
        {"", "no gzip"},        {gz(4, "\xff\xff"), "cut short"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(refusal(c.file), HasSubstr(c.reason));
    EXPECT_EQ(refusal(gz() + std::string("\0x", 2)), "");
}

TEST(Gzip, BombsEndAtTheLimitAlsoOverSeveralMembers)
{
    const auto packed = gzipCompress(std::vector<std::uint8_t>(1U << 20U), "zeros", 0);
    ASSERT_TRUE(packed.ok());
    ASSERT_LT(packed->size(), 2000U);
    const std::string one(packed->begin(), packed->end());
    EXPECT_EQ(refusal(one, 1U << 20U), "");
    EXPECT_THAT(refusal(one, (1U << 20U) - 1), HasSubstr("MB inside"));
    EXPECT_EQ(refusal(one + one, 2U << 20U), "");
    EXPECT_THAT(refusal(one + one, 1U << 20U), HasSubstr("MB inside"));
    // A size field that tells little must not save the bomb, nor spoil what is no bomb.
    std::string liar = one;
    liar.replace(liar.size() - 4, 4, std::string("\x01\0\0\0", 4));
    EXPECT_THAT(refusal(liar, 1U << 18U), HasSubstr("MB inside"));
    EXPECT_THAT(refusal(liar), HasSubstr("size"));
}

TEST(Gzip, WritesTheHeaderOfAMessage)
{
    const auto file = gzipCompress(bytes("x"), "#message", 0x1234'5678);
    ASSERT_TRUE(file.ok());
    const std::string header("\x1f\x8b\x08\x08\x78\x56\x34\x12\x02\x03#message\0", 19);
    EXPECT_EQ(std::string(file->begin(), file->begin() + 19), header);
    const auto contents = gzipDecompress(*file);
    ASSERT_TRUE(contents.ok());
    EXPECT_EQ(contents->data, bytes("x"));
    EXPECT_TRUE(gzipDecompress(*gzipCompress({}, "", 0)).ok());
}

TEST(Gzip, TheInnerNameIsPlainAndOtherwiseDerivedAs7ZipDoes)
{
    const struct {
        const char* stored;
        const char* archive;
        const char* inner;
    } cases[] = {
        {"#message", "x.gz", "#message"},
        {"a,b", "x.gz", "x"}, // the reader of the report would cut it
        {"../../etc/passwd", "x.gz", "passwd"},
        {"C:\\boot\\message", "x.gz", "message"},
        {" message ", "x.gz", "message"},
        {"dir/", "x.gz", "x"},
        {"..", "x.gz", "x"},
        {"a\nTesting     b", "x.gz", "x"},
        {"#.lst", "x.gz", "x"},
        {"#7zip.log", "x.gz", "x"},
        {"", "message.GZ", "message"},
        {"", "#message.gz", "#message"},
        {"", "x.tgz", "x.tar"},
        {"", "x.foo", "x"},
        {"", "message", "message~"},
        {"", ".gz", ".gz~"},
        {"", "#.lst.gz", "contents"},
        {"сообщение", "x.gz", "сообщение"},
        {"\xcb\xee\xe3\xee", "x.gz", "x"}, // no UTF-8
        {"a\xd0", "x.gz", "x"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(gzipInnerName(c.stored, c.archive), c.inner) << c.stored;
}
