// SPDX-License-Identifier: MIT
#include "container/jpeg_check.h"
#include "data/template_parts.h"
#include "support/bin_folder.h"

#include <gtest/gtest.h>

using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray dataFile(const QString& name)
{
    return fileBytes(fennel::test::binFolder() + QStringLiteral("/data/") + name);
}

} // namespace

TEST(TemplateMessage, UpgradeFilesAreTheMembersWithZeroBytesBehind)
{
    const TemplateParts parts = templateParts();
    EXPECT_EQ(dataFile(u"INIT"_s), parts.members[u"init"_s] + QByteArray(3, '\0'));
    EXPECT_EQ(dataFile(u"16X16.FNT"_s), parts.members[u"16x16.fnt"_s] + QByteArray(2, '\0'));
    EXPECT_TRUE(dataFile(u"LICENSES"_s).contains("GNU General Public License, version 2"));
}

TEST(TemplateMessage, TheFontEndsWithItsTagAndHoldsNoOther)
{
    const QByteArray font = templateParts().members[u"16x16.fnt"_s];
    const QByteArray tag =
        "TAG@ZUK-MOSA@:>Created by the Fennel-GFX(GUI) using the MKBLFONT utility"
        "\tthis is the DEFAULT font|DejaVu Sans\t|size\t14 px|space\t4 px"
        "|letter space\t0 px|line space\t0 px";
    EXPECT_EQ(font.left(8).toHex(), "068e82d2af000000") << "175 characters";
    EXPECT_EQ(font.mid(11, 2).toHex(), "2000") << "the first is the blank";
    EXPECT_EQ(font.mid(11 + 5 * 174, 2).toHex(), "5f04") << "the last is U+045F";
    EXPECT_TRUE(font.endsWith(tag));
    // A reader takes the first one that it meets, among the glyphs too.
    EXPECT_EQ(font.indexOf("TAG"), font.size() - tag.size());
}

TEST(TemplateMessage, EveryPictureIsAJpegThatBoots)
{
    const TemplateParts parts = templateParts();
    for (const QString& name : parts.order.filter(u".jpg"_s)) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray& bytes = parts.members[name];
        const auto head = fennel::readJpegHead({bytes.constData(), std::size_t(bytes.size())});
        ASSERT_TRUE(head.ok()) << head.failure().text;
        EXPECT_TRUE(fennel::checkBootable(*head).ok())
            << fennel::checkBootable(*head).failure().text;
        EXPECT_FALSE(head->metadata);
    }
}
