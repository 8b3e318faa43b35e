// SPDX-License-Identifier: MIT
// Extract, Assemble and the two gzip commands, with the real tools on real files.
#include "container/archive_commands.h"
#include "container/archive_tools.h"
#include "container/member_list.h"
#include "support/run_program.h"

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

class ArchiveCommands : public testing::Test {
protected:
    ArchiveCommands()
    {
        EXPECT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(QDir().mkpath(target));
    }
    void put(const QString& name, const QByteArray& bytes)
    {
        ASSERT_TRUE(DiskFiles().write(folder + u'/' + name, bytes).ok());
    }
    QStringList namesIn(const QString& where)
    {
        return QDir(where).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    // An archive of the folder's files in the order of the names.
    QString archiveOf(const QByteArrayList& names)
    {
        put(u"#.lst"_s, names.join("\r\n") + "\r\n");
        EXPECT_TRUE(CpioAssemble(shell.shell, archive, folder).ok());
        EXPECT_TRUE(QFile::remove(folder + u"/#.lst"_s));
        return archive;
    }
    void extract()
    {
        shell.prompts.expectOpen(archive);
        shell.prompts.expectFolder(target);
        mnuEdit_Extract(shell.shell);
    }
    void assemble(const QString& saveAs)
    {
        shell.prompts.expectFolder(folder);
        if (!FileExists(folder + u"/#.lst"_s))
            shell.prompts.expectMessage(u"Additional Gfxboot info-file is absent."_s);
        shell.prompts.expectSave(saveAs);
        mnuEdit_Assemble(shell.shell);
    }
    TestShell shell;
    QString folder = shell.path(u"theme one"_s);
    QString target = shell.path(u"out"_s);
    QString archive = shell.path(u"message"_s);
};

TEST_F(ArchiveCommands, ExtractedAndAssembledIsTheSameArchive)
{
    put(u"b.txt"_s, "bee");
    put(u"a.txt"_s, "");
    put(u"init"_s, QByteArray(3001, 'x'));
    const QByteArray before = bytesOf(archiveOf({"init", "b.txt", "a.txt"}));
    extract();
    EXPECT_EQ(bytesOf(target + u"/#.lst"_s), "init\r\nb.txt\r\na.txt\r\n");
    EXPECT_EQ(bytesOf(target + u"/init"_s), QByteArray(3001, 'x'));
    folder = target;
    assemble(shell.path(u"again"_s));
    // The members' dates are those of the extraction; names, order and contents are the same.
    const QByteArray again = bytesOf(shell.path(u"again"_s));
    EXPECT_EQ(runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, again).out,
              "init\nb.txt\na.txt\n");
    EXPECT_EQ(again.size(), before.size());
    EXPECT_FALSE(FileExists(shell.run.WorkspaceRoot + assembledName));
}

TEST_F(ArchiveCommands, ExtractNeverReplacesTheArchiveItself)
{
    put(u"message"_s, "a member of the archive's own name");
    archiveOf({"message"});
    const QByteArray before = bytesOf(archive);
    target = shell.path({});
    shell.prompts.expectOpen(archive);
    shell.prompts.expectFolder(folderPart(archive));
    shell.prompts.expectMessage(u"would be replaced"_s);
    mnuEdit_Extract(shell.shell);
    EXPECT_EQ(bytesOf(archive), before);
}

TEST_F(ArchiveCommands, AFailedExtractLeavesTheFolder)
{
    put(u"a.txt"_s, "new");
    put(u"b.txt"_s, "new");
    archiveOf({"a.txt", "b.txt"});
    ASSERT_TRUE(DiskFiles().write(target + u"/a.txt"_s, "old").ok());
    // Away with an old list, then a kept copy of what is replaced, and three deliveries.
    constexpr int changes = 5;
    for (int step = 1; step <= changes; ++step) {
        shell.files.calls = 0;
        shell.files.failAt = step;
        shell.prompts.expectOpen(archive);
        shell.prompts.expectFolder(target);
        const qsizetype told = shell.prompts.texts.size();
        shell.prompts.expectMessage({});
        mnuEdit_Extract(shell.shell);
        EXPECT_EQ(shell.prompts.texts.size(), told + 1) << step;
        EXPECT_EQ(bytesOf(target + u"/a.txt"_s), "old") << step;
        EXPECT_EQ(namesIn(target), QStringList{u"a.txt"_s}) << step;
    }
    shell.files.failAt = 0;
    extract();
    EXPECT_EQ(namesIn(target), (QStringList{u"#.lst"_s, u"a.txt"_s, u"b.txt"_s}));
}

TEST_F(ArchiveCommands, WhatIsNoPlainArchiveIsToldAndLeavesNothing)
{
    ASSERT_TRUE(DiskFiles().write(archive, "\x1f\x8b no archive").ok());
    shell.prompts.expectOpen(archive);
    shell.prompts.expectFolder(target);
    shell.prompts.expectMessage({});
    mnuEdit_Extract(shell.shell);
    EXPECT_TRUE(namesIn(target).isEmpty());
    shell.prompts.expectOpen({});
    mnuEdit_Extract(shell.shell);
    shell.prompts.expectOpen(archive);
    shell.prompts.expectFolder({});
    mnuEdit_Extract(shell.shell);
}

TEST_F(ArchiveCommands, AssembleMakesTheListOfPlainFilesOnly)
{
    put(u"a.txt"_s, "a");
    put(u"#message"_s, "working file");
    put(u"#7zip.log"_s, "working file");
    QDir(folder).mkdir(u"sub"_s);
    assemble(shell.path(u"saved"_s));
    EXPECT_EQ(bytesOf(folder + u"/#.lst"_s), "a.txt\r\n");
    EXPECT_TRUE(FileExists(shell.path(u"saved"_s)));
}

TEST_F(ArchiveCommands, AKeptProposalStaysInTheWorkspaceAndIsTold)
{
    put(u"a.txt"_s, "a");
    shell.prompts.expectFolder(folder);
    shell.prompts.expectMessage(u"info-file is absent"_s);
    shell.prompts.expectSave(folder + u"MESS"_s);
    shell.prompts.expectMessage(u"kept until the program ends"_s);
    mnuEdit_Assemble(shell.shell);
    EXPECT_EQ(shell.prompts.fileQuestions.back().proposedName, u"theme onemess"_s);
    EXPECT_EQ(shell.prompts.fileQuestions.back().title, u"Save assembled gfxboot as..."_s);
    EXPECT_TRUE(FileExists(shell.run.WorkspaceRoot + assembledName));
    EXPECT_FALSE(FileExists(folder + u"MESS"_s));
}

TEST_F(ArchiveCommands, AssembleTellsWhatFails)
{
    // A list that names what is not there; an old result must not count as the new one.
    put(u"#.lst"_s, "gone.txt\r\n");
    ASSERT_TRUE(DiskFiles().write(shell.run.WorkspaceRoot + assembledName, "old").ok());
    shell.prompts.expectFolder(folder);
    shell.prompts.expectMessage(u"CPIO Error"_s);
    mnuEdit_Assemble(shell.shell);
    ASSERT_TRUE(QFile::remove(folder + u"/#.lst"_s));
    shell.prompts.expectFolder(folder);
    shell.prompts.expectMessage(u"info-file is absent"_s);
    shell.prompts.expectMessage(u"holds no files"_s);
    mnuEdit_Assemble(shell.shell);
    shell.run.ToolCpio = u"/none"_s;
    shell.prompts.expectMessage(u"/none not found!"_s);
    mnuEdit_Assemble(shell.shell);
}

class GzipCommands : public ArchiveCommands {
protected:
    QString packed(const QString& name, const QByteArray& bytes)
    {
        put(name, bytes);
        EXPECT_EQ(runProgram(u"gzip"_s, {u"-N"_s, folder + u'/' + name}).code, 0);
        return folder + u'/' + name + u".gz"_s;
    }
};

TEST_F(GzipCommands, PackAndExtractGiveTheFileBack)
{
    put(u"some text.txt"_s, QByteArray(5000, 'z'));
    const QString file = folder + u"/some text.txt"_s;
    shell.prompts.expectOpen(file);
    mnuT_GZip_Pack(shell.shell);
    EXPECT_EQ(shell.prompts.fileQuestions.back().title, u"File to compress...."_s);
    EXPECT_EQ(namesIn(folder), (QStringList{u"some text.txt"_s, u"some text.txt.gz"_s}));
    EXPECT_EQ(runProgram(u"gzip"_s, {u"-dc"_s, file + u".gz"_s}).out, QByteArray(5000, 'z'));

    ASSERT_TRUE(QFile::remove(file));
    shell.prompts.expectOpen(file + u".gz"_s);
    mnuT_GZip_Extract(shell.shell);
    EXPECT_EQ(bytesOf(file), QByteArray(5000, 'z'));
    EXPECT_EQ(namesIn(folder), (QStringList{u"some text.txt"_s, u"some text.txt.gz"_s}));
}

TEST_F(GzipCommands, PackStopsAtAnExistingTarget)
{
    put(u"a.txt"_s, "a");
    put(u"a.txt.gz"_s, "mine");
    shell.run.Tool7Zip = u"/none"_s; // no tool runs
    shell.prompts.expectOpen(folder + u"/a.txt"_s);
    shell.prompts.expectMessage(u"File "_s + folder + u"/a.txt.gz is already exist."_s);
    mnuT_GZip_Pack(shell.shell);
    EXPECT_EQ(bytesOf(folder + u"/a.txt.gz"_s), "mine");
    shell.prompts.expectOpen({});
    mnuT_GZip_Pack(shell.shell);
}

TEST_F(GzipCommands, AFolderThatCannotBeWrittenIsTold)
{
    put(u"a.txt"_s, "a");
    shell.files.failAt = 2; // the delivery
    shell.prompts.expectOpen(folder + u"/a.txt"_s);
    shell.prompts.expectMessage(u"a.txt.gz"_s);
    mnuT_GZip_Pack(shell.shell);
    EXPECT_EQ(namesIn(folder), QStringList{u"a.txt"_s});
    EXPECT_TRUE(QDir(shell.run.WorkspaceRoot).entryList(QDir::Files).isEmpty());
}

TEST_F(GzipCommands, ExtractAsksBeforeItReplacesAndRefusesWhatIsNoGzip)
{
    const QString file = packed(u"a.txt"_s, "new");
    put(u"a.txt"_s, "mine");
    shell.prompts.expectOpen(file);
    shell.prompts.expectMessage(u"already exists"_s, Answer::No);
    mnuT_GZip_Extract(shell.shell);
    EXPECT_EQ(bytesOf(folder + u"/a.txt"_s), "mine");
    shell.prompts.expectOpen(file);
    shell.prompts.expectMessage(u"already exists"_s, Answer::Yes);
    mnuT_GZip_Extract(shell.shell);
    EXPECT_EQ(bytesOf(folder + u"/a.txt"_s), "new");

    put(u"no.gz"_s, "text");
    shell.prompts.expectOpen(folder + u"/no.gz"_s);
    shell.prompts.expectMessage(u"no.gz"_s);
    mnuT_GZip_Extract(shell.shell);
    EXPECT_EQ(namesIn(folder), (QStringList{u"a.txt"_s, u"a.txt.gz"_s, u"no.gz"_s}));
}

} // namespace

} // namespace fennel::test
