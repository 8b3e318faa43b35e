// SPDX-License-Identifier: MIT
// Extract, Assemble and the two gzip commands, with the real tools on real files, Debian's messages
// among them, and with what goes wrong around them.
#include "base/file_names.h"
#include "container/archive_commands.h"
#include "container/archive_tools.h"
#include "container/member_list.h"
#include "support/run_program.h"

#include <fstream>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

// Names and contents as GNU cpio gives them, in the order of the archive.
QByteArrayList archived(const QString& archive)
{
    return runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, bytesOf(archive)).out.split('\n');
}
QByteArray contentsIn(const QString& archive)
{
    return runProgram(u"cpio"_s, {u"-i"_s, u"--to-stdout"_s, u"--quiet"_s}, {}, bytesOf(archive))
        .out;
}

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
    // Each tells the message, if one is given.
    void extract(const QString& from, const QString& to, const QString& told = {},
                 Answer answer = Answer::Ok)
    {
        shell.prompts.expectOpen(from);
        shell.prompts.expectFolder(to);
        expectTold(told, answer);
        mnuEdit_Extract(shell.shell);
    }
    void assemble(const QString& from, const QString& saveAs, const QString& told = {})
    {
        shell.prompts.expectFolder(from);
        if (!FileExists(from + u"/#.lst"_s))
            shell.prompts.expectMessage(u"Additional Gfxboot info-file is absent."_s);
        shell.prompts.expectSave(saveAs);
        expectTold(told);
        mnuEdit_Assemble(shell.shell);
    }
    void unpack(const QString& file, const QString& told = {}, Answer answer = Answer::Ok)
    {
        shell.prompts.expectOpen(file);
        expectTold(told, answer);
        mnuT_GZip_Extract(shell.shell);
    }
    void pack(const QString& file, const QString& told = {})
    {
        shell.prompts.expectOpen(file);
        expectTold(told);
        mnuT_GZip_Pack(shell.shell);
    }
    void expectTold(const QString& told, Answer answer = Answer::Ok)
    {
        if (!told.isEmpty())
            shell.prompts.expectMessage(told, answer);
    }

    TestShell shell;
    QString folder = shell.path(u"theme one"_s);
    QString target = shell.path(u"out"_s);
    QString archive = shell.path(u"message"_s);
};

TEST_F(ArchiveCommands, ExtractNeverReplacesTheArchiveItself)
{
    put(u"message"_s, "a member of the archive's own name");
    archiveOf({"message"});
    const QByteArray before = bytesOf(archive);
    target = shell.path({});
    extract(archive, folderPart(archive), u"would be replaced"_s);
    EXPECT_EQ(bytesOf(archive), before);
}

// A name in an unknown code page has no QString and is a member like any other.
TEST_F(ArchiveCommands, NamesOfAnyCodePageComeApartAndTogether)
{
    const QByteArray odd = "\xcc\xe5\xed\xfe.txt";
    const auto onDisk = [](const QString& where, const QByteArray& name) {
        return std::string(QFile::encodeName(where + u'/') + name);
    };
    std::ofstream(onDisk(folder, odd)) << "odd";
    put(u"#notes.txt"_s, "not the tools'");
    assemble(folder, archive);
    EXPECT_TRUE(archived(archive).contains("#notes.txt"));
    EXPECT_EQ(contentsIn(archive).size(), 17);
    std::ofstream(onDisk(target, odd)) << "an old one";
    extract(archive, target, u"exist already"_s, Answer::No);
    std::string text;
    std::getline(std::ifstream(onDisk(target, odd)), text);
    EXPECT_EQ(text, "an old one");
    extract(archive, target, u"exist already"_s, Answer::Yes);
    std::getline(std::ifstream(onDisk(target, odd)), text);
    EXPECT_EQ(text, "odd");
    EXPECT_EQ(bytesOf(target + u"/#.lst"_s), bytesOf(folder + u"/#.lst"_s));
    EXPECT_TRUE(QDir(shell.run.WorkspaceRoot).entryList({u"#*"_s}).isEmpty());
    // Nor is it another matter what the archive, its folder or a gzip file is called.
    folder = shell.path({}) + pathOfBytes("\xcf/");
    const QString gz = folder + pathOfBytes("\xcb.gz");
    ASSERT_TRUE(shell.files.makeFolder(folder).ok() &&
                shell.files.rename(archive, gz.chopped(3)).ok());
    extract(gz.chopped(3), folder);
    EXPECT_EQ(*readBytes(folder + pathOfBytes(odd)), "odd");
    assemble(folder, archive);
    pack(gz.chopped(3));
    ASSERT_TRUE(shell.files.remove(gz.chopped(3)).ok());
    unpack(gz, u"cannot be used"_s);
    EXPECT_EQ(archived(folder + u"contents"_s), archived(archive));
}

TEST_F(ArchiveCommands, AssembleMakesTheListOfPlainFilesOnly)
{
    for (const auto& name : {u"a.txt"_s, u"back_02.jpg"_s, u"init"_s, u"back.jpg"_s})
        put(name, "x");
    put(u"#message"_s, "working file");
    put(u"#7zip.log"_s, "working file");
    QDir(folder).mkdir(u"sub"_s);
    assemble(folder, shell.path(u"saved"_s));
    EXPECT_EQ(bytesOf(folder + u"/#.lst"_s), "init\r\nback.jpg\r\nback_02.jpg\r\na.txt\r\n");
    EXPECT_TRUE(FileExists(shell.path(u"saved"_s)));
}

TEST_F(ArchiveCommands, AKeptProposalStaysInTheWorkspaceAndIsTold)
{
    put(u"a.txt"_s, "a");
    assemble(folder, folder + u"MESS"_s, u"kept until the program ends"_s);
    EXPECT_EQ(shell.prompts.fileQuestions.back().proposedName, u"theme onemess"_s);
    EXPECT_EQ(shell.prompts.fileQuestions.back().title, u"Save assembled gfxboot as..."_s);
    EXPECT_TRUE(FileExists(shell.run.WorkspaceRoot + assembledName));
    EXPECT_FALSE(FileExists(folder + u"MESS"_s));
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
    pack(file);
    EXPECT_EQ(shell.prompts.fileQuestions.back().title, u"File to compress...."_s);
    EXPECT_EQ(namesIn(folder), (QStringList{u"some text.txt"_s, u"some text.txt.gz"_s}));
    EXPECT_EQ(runProgram(u"gzip"_s, {u"-dc"_s, file + u".gz"_s}).out, QByteArray(5000, 'z'));

    // More than is read into memory.
    ASSERT_TRUE(QFile::remove(file + u".gz"_s) && QFile::resize(file, readLimit + 1));
    pack(file);
    ASSERT_TRUE(QFile::remove(file));
    unpack(file + u".gz"_s);
    EXPECT_EQ(fileSize(file), readLimit + 1);
    EXPECT_EQ(namesIn(folder), (QStringList{u"some text.txt"_s, u"some text.txt.gz"_s}));
}

TEST_F(GzipCommands, PackStopsAtAnExistingTarget)
{
    put(u"a.txt"_s, "a");
    put(u"a.txt.gz"_s, "mine");
    shell.run.Tool7Zip = u"/none"_s; // no tool runs
    pack(folder + u"/a.txt"_s, u"File "_s + folder + u"/a.txt.gz is already exist."_s);
    EXPECT_EQ(bytesOf(folder + u"/a.txt.gz"_s), "mine");
    pack({});
}

TEST_F(GzipCommands, ExtractAsksBeforeItReplacesAndRefusesWhatIsNoGzip)
{
    const QString file = packed(u"a.txt"_s, "new");
    put(u"a.txt"_s, "mine");
    unpack(file, u"already exists"_s, Answer::No);
    EXPECT_EQ(bytesOf(folder + u"/a.txt"_s), "mine");
    unpack(file, u"already exists"_s, Answer::Yes);
    EXPECT_EQ(bytesOf(folder + u"/a.txt"_s), "new");

    put(u"no.gz"_s, "text");
    unpack(folder + u"/no.gz"_s, u"no.gz"_s);
    // A cut file leaves nothing, what stands behind the end is told, and so is an unusable name.
    put(u"cut.gz"_s, bytesOf(file).chopped(5));
    unpack(folder + u"/cut.gz"_s, u"already exists"_s, Answer::No);
    ASSERT_TRUE(QFile::remove(folder + u"/a.txt"_s));
    unpack(folder + u"/cut.gz"_s, u"damaged or cut short"_s);
    put(u"tail.gz"_s, bytesOf(file) + bytesOf(file) + "tail");
    unpack(folder + u"/tail.gz"_s, u"4 bytes behind the end"_s);
    EXPECT_EQ(bytesOf(folder + u"/a.txt"_s), "newnew");
    put(u"comma.gz"_s, bytesOf(file).replace("a.txt", "a,txt"));
    unpack(folder + u"/comma.gz"_s, u"cannot be used"_s);
    put(u"odd.gz"_s, bytesOf(file).replace("a.txt", "\xCB.txt"));
    unpack(folder + u"/odd.gz"_s, u"\\xcb.txt\", cannot be used"_s);
    EXPECT_EQ(namesIn(folder),
              (QStringList{u"a.txt"_s, u"a.txt.gz"_s, u"comma"_s, u"comma.gz"_s, u"cut.gz"_s,
                           u"no.gz"_s, u"odd"_s, u"odd.gz"_s, u"tail.gz"_s}));
}

} // namespace

} // namespace fennel::test
