// SPDX-License-Identifier: MIT
#include "container/gfx_save.h"
#include "document/open_fixture.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

bool written()
{
    return true;
}

class Save : public testing::Test {
protected:
    // "boot/message", gzipped or not, is open.
    void SetUp() override
    {
        ASSERT_TRUE(t.files.makeFolder(t.path(u"boot"_s)).ok());
        m_plain = smallMessage().add({.name = "note", .data = "old"}).close();
        openFile(t.file(u"boot/message"_s, QByteArray::fromStdString(m_plain)));
    }
    void openFile(const QString& path) { ASSERT_TRUE(OpenBench(t.shell).open(path)); }
    void edit(const QByteArray& text) { t.member(u"note"_s, text); }
    // What GNU cpio and gzip find in a saved file.
    static QByteArray noteIn(const QString& path, bool gzipped)
    {
        QByteArray bytes = bytesOf(path);
        if (gzipped) {
            EXPECT_EQ(runProgram(u"gzip"_s, {u"-t"_s}, {}, bytes).code, 0);
            bytes = runProgram(u"gzip"_s, {u"-dc"_s}, {}, bytes).out;
        }
        const QTemporaryDir folder;
        const Ran ran = runProgram(u"cpio"_s, {u"-i"_s, u"--quiet"_s}, folder.path(), bytes);
        EXPECT_EQ(ran.code, 0) << path.toStdString() << ran.err.toStdString();
        const Ran listed = runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, bytes);
        EXPECT_EQ(listed.out, "init\nback.jpg\nnote\n");
        return bytesOf(folder.filePath(u"note"_s));
    }
    QStringList filesBeside() const
    {
        return QDir(t.path(u"boot"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    void expectQuestion(Answer answer)
    {
        t.prompts.expectMessage(u"FENNEL-GFX is able to compress the resulting \n"
                                "file in a gZip archive.\n\nTo do this?"_s,
                                answer);
    }
    bool saveAs(const QString& path, Answer compress)
    {
        t.prompts.expectSave(path);
        expectQuestion(compress);
        return GfxSaveAs(t.shell, written);
    }
    TestShell t;
    std::string m_plain;
};

} // namespace

TEST_F(Save, WritesTheMembersOfTheListInItsOrderPlainOrGzipped)
{
    edit("new");
    t.member(u"no member"_s, "x");
    EXPECT_TRUE(GfxSave(t.shell, written));
    EXPECT_EQ(noteIn(t.run.GfxPath, false), "new");

    const QString gz = t.file(u"boot/message.gz"_s, QByteArray::fromStdString(gzipped(m_plain)));
    openFile(gz);
    edit("newer");
    EXPECT_TRUE(GfxSave(t.shell, written));
    EXPECT_EQ(noteIn(gz, true), "newer");
    EXPECT_EQ(bytesOf(gz).mid(10, 9), QByteArray("#message\0", 9));
    EXPECT_FALSE(FileExists(t.run.Workspace + u"#message.gz"_s));
    EXPECT_EQ(filesBeside(), (QStringList{u"message"_s, u"message.gz"_s}));
    EXPECT_TRUE(t.prompts.texts.isEmpty());
}

TEST_F(Save, AMemberThatIsGoneIsNamedAndTheOldFileStays)
{
    ASSERT_TRUE(t.files.remove(t.run.Workspace + u"note"_s).ok());
    t.prompts.expectMessage(u"note"_s);
    EXPECT_FALSE(GfxSave(t.shell, written));
    EXPECT_EQ(bytesOf(t.run.GfxPath).toStdString(), m_plain);
}

TEST_F(Save, LinksAndPermissionsOfTheOldFileStay)
{
    const QString real = t.run.GfxPath;
    ::chmod(QFile::encodeName(real).constData(), 0640);
    const QString link = t.path(u"link"_s);
    ASSERT_TRUE(QFile::link(real, link));
    t.run.GfxPath = link;
    t.run.GfxFileName = u"link"_s;
    edit("through");
    EXPECT_TRUE(GfxSave(t.shell, written));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(noteIn(real, false), "through");
    struct stat info = {};
    ASSERT_EQ(::stat(QFile::encodeName(real).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
}

TEST_F(Save, ACopyHasItsOwnNameFolderAndCompression)
{
    edit("copy");
    const QString first = t.run.Workspace;
    const QString back = first + u"back_03.jpg"_s;
    t.run.BackFile = back;
    ASSERT_TRUE(saveAs(t.path(u"boot/my file.gz"_s), Answer::Yes));
    EXPECT_EQ(t.prompts.fileQuestions.back().folder, t.path(u"boot/"_s));
    EXPECT_EQ(t.prompts.fileQuestions.back().proposedName, u"messageNew"_s);
    EXPECT_EQ(t.prompts.fileQuestions.back().title, u"Save gfxboot As..."_s);
    EXPECT_EQ(t.prompts.titles.last(), u"Saving As..."_s);
    EXPECT_EQ(t.prompts.types.back(), MessageType::YesNoCancel);
    EXPECT_EQ(t.run.GfxPath, t.path(u"boot/my_file.gz"_s));
    EXPECT_EQ(t.run.GfxFileName, u"my_file.gz"_s);
    EXPECT_EQ(t.run.Workspace, t.run.WorkspaceRoot + u"my_file.gz/"_s);
    EXPECT_EQ(t.run.BackFile, t.run.Workspace + u"back.jpg"_s);
    EXPECT_TRUE(t.run.GfxIsGz);
    EXPECT_EQ(noteIn(t.run.GfxPath, true), "copy");
    EXPECT_EQ(bytesOf(t.path(u"boot/message"_s)).toStdString(), m_plain);
    EXPECT_EQ(bytesOf(first + u"note"_s), "copy"); // the earlier folder stays as it was
    EXPECT_EQ(QFileInfo(t.run.Workspace + u"init"_s).lastModified(),
              QFileInfo(first + u"init"_s).lastModified());

    // A typed ".gz" stays with a plain content too. What was opened under that name is no part.
    ASSERT_TRUE(t.files.makeFolder(t.run.WorkspaceRoot + u"plain.gz"_s).ok());
    t.file(u"root/plain.gz/stray"_s, "of another gfxboot");
    ASSERT_TRUE(saveAs(t.path(u"boot/plain.gz"_s), Answer::No));
    EXPECT_FALSE(t.run.GfxIsGz);
    EXPECT_EQ(noteIn(t.path(u"boot/plain.gz"_s), false), "copy");
    EXPECT_FALSE(FileExists(t.run.Workspace + u"stray"_s));
    // The same name in another folder uses the folder that is open.
    ASSERT_TRUE(t.files.makeFolder(t.path(u"else"_s)).ok());
    ASSERT_TRUE(saveAs(t.path(u"else/plain.gz"_s), Answer::No));
    EXPECT_EQ(noteIn(t.path(u"else/plain.gz"_s), false), "copy");
}

TEST_F(Save, ACancelledCopyChangesNothing)
{
    const OpenState before(t.run);
    t.prompts.expectSave({});
    t.prompts.expectMessage(u"Canceled by user"_s);
    EXPECT_FALSE(GfxSaveAs(t.shell, written));
    EXPECT_FALSE(saveAs(t.path(u"boot/x"_s), Answer::Cancel));
    // The dialog asked about "note", not about "note.gz", which is there.
    t.file(u"boot/note.gz"_s, "precious");
    t.prompts.expectSave(t.path(u"boot/note"_s));
    expectQuestion(Answer::Yes);
    t.prompts.expectMessage(u"already exists"_s, Answer::No);
    EXPECT_FALSE(GfxSaveAs(t.shell, written));
    EXPECT_EQ(bytesOf(t.path(u"boot/note.gz"_s)), "precious");
    EXPECT_TRUE(OpenState(t.run) == before);
    EXPECT_EQ(QDir(t.run.WorkspaceRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList{u"message"_s});
}

TEST_F(Save, AFileWithoutAPlaceIsSavedAnew)
{
    t.run.GfxFileName = unsavedGfxName;
    ASSERT_TRUE(saveAs(t.path(u"boot/first"_s), Answer::Yes));
    EXPECT_EQ(t.prompts.fileQuestions.back().folder, QDir::homePath());
    EXPECT_EQ(t.prompts.fileQuestions.back().proposedName, u"@ZUK-MOSA@New"_s);
    EXPECT_EQ(noteIn(t.path(u"boot/first.gz"_s), true), "old");
}

// Such as a second copy of this program.
TEST_F(Save, WhatAnotherProgramWroteIsReplacedOnlyAfterAQuestion)
{
    edit("mine");
    ASSERT_TRUE(DiskFiles().write(t.run.GfxPath, "theirs").ok());
    t.prompts.expectMessage(u"changed by another program"_s, Answer::No);
    EXPECT_FALSE(GfxSave(t.shell, written));
    EXPECT_EQ(bytesOf(t.run.GfxPath), "theirs");
    t.prompts.expectMessage(u"changed by another program"_s, Answer::Yes);
    EXPECT_TRUE(GfxSave(t.shell, written));
    EXPECT_TRUE(GfxSave(t.shell, written));
    EXPECT_EQ(noteIn(t.run.GfxPath, false), "mine");
}

TEST_F(Save, ReOpeningWarnsAndALostFileIsTold)
{
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        t.prompts.expectMessage(u"Your changes will be lost.\nContinue?"_s, answer);
        if (answer == Answer::No)
            t.prompts.expectMessage(u"Canceled by user"_s);
        EXPECT_EQ(mayReOpen(t.shell), answer == Answer::Yes);
    }
    EXPECT_EQ(t.prompts.titles.first(), u"Gfxboot ReOpen"_s);
    EXPECT_EQ(t.prompts.types.front(), MessageType::YesNo);
    ASSERT_TRUE(t.files.remove(t.run.GfxPath).ok());
    t.prompts.expectMessage(u"File %1 is lost!\nMaybe your drive %2 was unplugged."_s.arg(
        t.run.GfxPath, t.run.GfxPath.left(2)));
    EXPECT_FALSE(mayReOpen(t.shell));
}
