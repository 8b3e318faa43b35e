// SPDX-License-Identifier: MIT
#include "picture_workspace.h"
#include "tools/backgrounds.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(Backgrounds, ImportKeepsTheOldPictureAndItsSize)
{
    PictureWorkspace w;
    const QByteArray old = bytesOf(w.member(u"back.jpg"_s));
    EXPECT_TRUE(ImportBack(w.shell, w.host, {}, true));
    EXPECT_EQ(w.look(u"back.jpg"_s), u"64x48 ff0"_s);
    EXPECT_EQ(bytesOf(w.member(u"back.#pg"_s)), old);
    EXPECT_EQ(w.host.calls, (QStringList{u"backgrounds"_s, u"show"_s, u"interface"_s}));
    EXPECT_EQ(w.host.waiting, 0);
    const FileQuestion& asked = w.user.fileQuestions.front();
    EXPECT_EQ(asked.title, u"File open...."_s);
    EXPECT_EQ(asked.filter, u"All picture Files |*.jpg;*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;"
                            "*.jpeg;*.ico|jpg-files (*.jpg)|*.jpg|"_s);

    EXPECT_EQ(w.user.choices, QStringList(u"Stretch"_s)) << "of another shape";

    // The backup is read before it is replaced.
    for (const QString& look : {u"64x48 f00"_s, u"64x48 ff0"_s}) {
        EXPECT_TRUE(ImportBack(w.shell, w.host, w.member(u"back.#pg"_s), false));
        EXPECT_EQ(w.look(u"back.jpg"_s), look);
    }
    // Onto itself: the backup is the source.
    w.host.calls.clear();
    EXPECT_TRUE(ImportBack(w.shell, w.host, w.member(u"back.jpg"_s), false));
    EXPECT_EQ(w.look(u"back.jpg"_s), u"64x48 ff0"_s);
    EXPECT_EQ(w.recorder.lines.last().at(w.recorder.lines.last().size() - 2),
              w.member(u"back.#pg"_s));
    EXPECT_EQ(w.host.calls, (QStringList{u"backgrounds"_s, u"show"_s}));
    EXPECT_TRUE(w.user.texts.isEmpty());
    // A member that is called as the backup is none.
    w.t.member(u"back.#pg"_s, "a member");
    EXPECT_TRUE(w.t.files.append(w.member(u"#.lst"_s), "back.#pg\r\n").ok());
    EXPECT_TRUE(ImportBack(w.shell, w.host, {}, false));
    EXPECT_EQ(bytesOf(w.member(u"back.#pg"_s)), "a member");
}

TEST(Backgrounds, ChangesAMemberThatIsNotShown)
{
    PictureWorkspace w;
    ChangeBackMember(w.shell, w.host, u"back_01.jpg"_s);
    EXPECT_EQ(w.look(u"back_01.jpg"_s), u"80x60 ff0"_s);
    EXPECT_EQ(w.look(u"back.jpg"_s), u"64x48 f00"_s);
    EXPECT_EQ(w.t.run.BackFile, w.member(u"back.jpg"_s));
}

TEST(Backgrounds, AddsUnderTheNextNumberInTheSizeOfTheFirst)
{
    PictureWorkspace w;
    w.t.run.BackFile = w.member(u"back_01.jpg"_s);
    mnuEDIT_ADDBack(w.shell, w.host);
    EXPECT_EQ(w.look(u"back_02.jpg"_s), u"64x48 ff0"_s);
    EXPECT_EQ(w.t.run.BackFile, w.member(u"back_02.jpg"_s));
    EXPECT_EQ(w.listed(), (QStringList{u"back.jpg"_s, u"Logo_msk.jpg"_s, u"Logo_00.jpg"_s,
                                       u"back_01.jpg"_s, u"back_02.jpg"_s, u"mine.bin"_s}));

    w.host.backs.append(u"Back_07.JPG"_s); // a gap is not filled
    mnuEDIT_ADDBack(w.shell, w.host);
    EXPECT_EQ(w.look(u"back_08.jpg"_s), u"64x48 ff0"_s);
    w.host.backs = QStringList{u"back.jpg"_s};
    w.t.run.BackFile = w.member(u"back.jpg"_s);
    mnuEDIT_ADDBack(w.shell, w.host);
    EXPECT_EQ(w.look(u"back_01.jpg"_s), u"64x48 ff0"_s);

    w.host.backs = QStringList{u"back_99.jpg"_s};
    const auto before = w.everything();
    mnuEDIT_ADDBack(w.shell, w.host);
    EXPECT_TRUE(w.user.texts.last().contains(u"no free number"_s));
    w.host.backs = QStringList{};
    w.user.chosen.clear(); // cancelled
    mnuEDIT_ADDBack(w.shell, w.host);
    EXPECT_TRUE(w.everything() == before);
    EXPECT_EQ(w.t.run.BackFile, w.member(u"back_01.jpg"_s));
}

TEST(Backgrounds, ResizesAllOrNone)
{
    PictureWorkspace w;
    const auto resize = [&](const std::optional<QString>& answer) {
        w.user.typed = answer;
        w.user.texts.clear();
        mnuEdit_Resize(w.shell, w.host);
    };
    const auto before = w.everything();
    for (const auto& stops : {std::optional<QString>(), std::optional(u""_s), std::optional(u"0"_s),
                              std::optional(u"abc"_s)})
        resize(stops);
    EXPECT_TRUE(w.recorder.lines.isEmpty());
    EXPECT_EQ(w.user.lastInitialInput, u"3"_s);
    resize(u"9"_s);
    EXPECT_EQ(w.recorder.lines.last().mid(5, 2), (QStringList{u"0"_s, u"0"_s}));
    EXPECT_EQ(w.user.texts.filter(u"Perhaps nconvert error..."_s).size(), 1);
    EXPECT_TRUE(w.everything() == before);
    EXPECT_EQ(w.t.run.BackWidth, 64);

    w.t.member(u"back_02.jpg"_s, "a broken one among them");
    const auto withBroken = w.everything();
    resize(u"2 (VGA)"_s);
    EXPECT_TRUE(w.everything() == withBroken);
    ASSERT_TRUE(w.t.files.remove(w.member(u"back_02.jpg"_s)).ok());

    w.user.typed = u"1"_s;
    mnuEdit_Resize(w.shell, w.host);
    EXPECT_EQ(w.look(u"back.jpg"_s), u"320x200 f00"_s);
    EXPECT_EQ(w.look(u"back_01.jpg"_s), u"320x200 0f0"_s);
    EXPECT_EQ(w.look(u"Logo_00.jpg"_s), u"20x10 00f"_s);
    EXPECT_EQ(w.t.run.BackHeight, 200);
    EXPECT_EQ(w.host.calls.last(), u"fill"_s);
    const qsizetype runs = w.recorder.lines.size();
    resize(u"1"_s); // the size that it has
    EXPECT_EQ(w.recorder.lines.size(), runs);
}
