// SPDX-License-Identifier: MIT
#include "picture_workspace.h"
#include "tools/logos.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Logos, AddsALogoInTheSizeOfTheMaskWithItsText)
{
    PictureWorkspace w;
    const QByteArray mask = bytesOf(w.member(u"Logo_msk.jpg"_s));
    w.failEachStep([&] { mnuEDIT_ADDLogo(w.shell, w.host); });
    EXPECT_EQ(w.look(u"Logo_01.jpg"_s), u"40x30 ff0"_s);
    EXPECT_EQ(bytesOf(w.member(u"Logo_msk.jpg"_s)), mask);
    EXPECT_EQ(bytesOf(w.member(u"Logo_01.txt"_s)), "This txt-file is associated with Logo_01.jpg");
    EXPECT_EQ(w.listed(),
              (QStringList{u"back.jpg"_s, u"Logo_msk.jpg"_s, u"Logo_00.jpg"_s, u"Logo_01.jpg"_s,
                           u"Logo_01.txt"_s, u"back_01.jpg"_s, u"mine.bin"_s}));
    EXPECT_EQ(w.host.calls, (QStringList{u"members"_s, u"logos"_s, u"show"_s, u"panels"_s}));

    // A text that is there already is kept as it is.
    w.host.logos.append(u"Logo_01.jpg"_s);
    w.t.member(u"Logo_02.txt"_s, "mine");
    mnuEDIT_ADDLogo(w.shell, w.host);
    EXPECT_EQ(w.look(u"Logo_02.jpg"_s), u"40x30 ff0"_s);
    EXPECT_EQ(bytesOf(w.member(u"Logo_02.txt"_s)), "mine");
    EXPECT_TRUE(w.listed().contains(u"Logo_02.jpg"_s));
    EXPECT_FALSE(w.listed().contains(u"Logo_02.txt"_s));
}

TEST(Logos, AChangedLogoKeepsItsOwnSize)
{
    PictureWorkspace w;
    const QByteArray mask = bytesOf(w.member(u"Logo_msk.jpg"_s));
    w.failEachStep([&] { ChangeLogoMember(w.shell, w.host, u"Logo_00.jpg"_s); });
    EXPECT_EQ(w.look(u"Logo_00.jpg"_s), u"20x10 ff0"_s);
    EXPECT_EQ(bytesOf(w.member(u"Logo_msk.jpg"_s)), mask);

    w.user.texts.clear();
    ChangeLogoMember(w.shell, w.host, u"Logo_05.jpg"_s);
    EXPECT_TRUE(ImportLogo(w.shell, w.host, w.member(u"Logo_msk.jpg"_s))); // onto itself
    EXPECT_TRUE(ImportLogo(w.shell, w.host, {}));
    EXPECT_EQ(w.look(u"Logo_msk.jpg"_s), u"40x30 ff0"_s);
    ASSERT_TRUE(w.t.files.remove(w.member(u"Logo_msk.jpg"_s)).ok());
    ChangeLogoMember(w.shell, w.host, u"Logo_00.jpg"_s);
    EXPECT_FALSE(ImportLogo(w.shell, w.host, {}));
    EXPECT_EQ(w.user.texts,
              (QStringList{u"File Logo_05.jpg not found"_s, u"File Logo_msk.jpg not found"_s,
                           u"File Logo_msk.jpg not found"_s}));
}

TEST(Logos, ResizesAllLogosAndTheMask)
{
    PictureWorkspace w;
    const auto before = w.everything();
    const auto resize = [&](const std::optional<QString>& answer) {
        w.user.typed = answer;
        mnuEdit_ResizeLOGO(w.shell, w.host);
    };
    for (const auto& stops : {std::optional<QString>(), std::optional(u""_s),
                              std::optional(u"400"_s), std::optional(u" 40 X 30"_s)})
        resize(stops);
    EXPECT_TRUE(w.recorder.lines.isEmpty());
    EXPECT_EQ(w.user.lastInitialInput, u"40x30"_s);
    for (const QString& refused : {u"0x0"_s, u"-5x7"_s, u"99999x99999"_s, u"xx"_s}) {
        w.user.texts.clear();
        resize(refused);
        EXPECT_EQ(w.user.texts.filter(u"Perhaps nconvert error..."_s).size(), 1)
            << refused.toStdString();
    }
    EXPECT_TRUE(w.everything() == before);
    EXPECT_TRUE(w.host.calls.isEmpty());

    w.user.typed = u"400 X 300"_s;
    w.failEachStep([&] { mnuEdit_ResizeLOGO(w.shell, w.host); });
    EXPECT_EQ(w.look(u"Logo_msk.jpg"_s), u"400x300 fff"_s);
    EXPECT_EQ(w.look(u"Logo_00.jpg"_s), u"400x300 00f"_s);
    EXPECT_EQ(w.look(u"back.jpg"_s), u"64x48 f00"_s);
    EXPECT_EQ(w.host.logoSize, QSize(400, 300));
    EXPECT_EQ(w.host.waiting, 0);
}
