// SPDX-License-Identifier: MIT
#include "support/test_shell.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Files, NumberedPatternsComeInNumericOrderAndIgnoreCase)
{
    TestShell t;
    for (const auto& name : {u"back_10.jpg"_s, u"BACK_02.JPG"_s, u"back_aa.jpg"_s, u"back.jpg"_s})
        t.member(name, "x");
    EXPECT_EQ(numberedFiles(t.run.Workspace, u"back_??.jpg"_s),
              (QStringList{u"BACK_02.JPG"_s, u"back_10.jpg"_s}));
    EXPECT_TRUE(fitsPattern(u"a(1).x"_s, u"a(?).*"_s));
    EXPECT_FALSE(fitsPattern(u"ab"_s, u"a"_s));
}

TEST(Files, PatternsOfDos)
{
    const struct {
        const char* pattern;
        const char* fitting;
        const char* other;
    } cases[] = {{"*", "", nullptr},
                 {"*.jpg", "a.b.JPG", "a.jpg.b"},
                 {"*.jpg", ".jpg", "jpg"},
                 {"a*b*c", "aXbbXbcbc", "aXbXcX"},
                 {"a**c", "ac", "a"},
                 {"??", "ЖЖ", "Ж"},
                 {"ЛОГО*", "лого_1", "лог"},
                 {"", "", "a"},
                 {"ZUK????.CFG", "zuk0001.cfg", "ZUK001.CFG"}};
    for (const auto& c : cases) {
        const QString pattern = QString::fromUtf8(c.pattern);
        EXPECT_TRUE(fitsPattern(QString::fromUtf8(c.fitting), pattern)) << c.pattern;
        EXPECT_FALSE(c.other != nullptr && fitsPattern(QString::fromUtf8(c.other), pattern))
            << c.other;
    }
}
