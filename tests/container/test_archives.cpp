// SPDX-License-Identifier: MIT
// The commands on archives with Debian's messages and with what goes wrong around them: odd gzip
// files, places that cannot be written, targets that are there already.
#include "container/archive_commands.h"
#include "container/archive_tools.h"
#include "container/gfxboot_open.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

const QDir themes(u"/etc/bootsplash/themes"_s);

class Archives : public testing::Test {
protected:
    QString folderHere(const QString& name)
    {
        EXPECT_TRUE(QDir().mkpath(shell.path(name)));
        return shell.path(name);
    }
    void extract(const QString& archive, const QString& folder)
    {
        shell.prompts.expectOpen(archive);
        shell.prompts.expectFolder(folder);
        mnuEdit_Extract(shell.shell);
    }
    void assemble(const QString& folder, const QString& saveAs)
    {
        shell.prompts.expectFolder(folder);
        if (!FileExists(folder + u"/#.lst"_s))
            shell.prompts.expectMessage(u"Will be assembled all the files from the folder"_s);
        shell.prompts.expectSave(saveAs);
        mnuEdit_Assemble(shell.shell);
    }
    // Names and contents as GNU cpio gives them, in the order of the archive.
    static QByteArrayList namesIn(const QString& archive)
    {
        return runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, bytesOf(archive))
            .out.split('\n');
    }
    static QByteArray contentsIn(const QString& archive)
    {
        return runProgram(u"cpio"_s, {u"-i"_s, u"--to-stdout"_s, u"--quiet"_s}, {},
                          bytesOf(archive))
            .out;
    }
    bool nothingLeft() { return QDir(shell.run.WorkspaceRoot).entryList(QDir::Files).isEmpty(); }
    TestShell shell;
};

TEST_F(Archives, DebiansMessagesComeApartAndTogetherAgain)
{
    const QStringList names = themes.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_GE(names.size(), 5);
    for (const QString& theme : names) {
        SCOPED_TRACE(theme.toStdString());
        const QString message = themes.filePath(theme + u"/bootloader/message"_s);
        const QString folder = folderHere(theme + u" apart"_s);
        extract(message, folder);
        QByteArrayList listed = bytesOf(folder + u"/#.lst"_s).split('\n');
        for (QByteArray& name : listed)
            name = name.trimmed();
        EXPECT_EQ(listed, namesIn(message));

        const QString again = shell.path(theme);
        assemble(folder, again);
        EXPECT_EQ(namesIn(again), namesIn(message));
        EXPECT_EQ(contentsIn(again), contentsIn(message));
        EXPECT_EQ(bytesOf(again).size() % 512, 0);

        // Without the list: the same files, whatever order the folder has them in.
        ASSERT_TRUE(QFile::remove(folder + u"/#.lst"_s));
        assemble(folder, again);
        const QString apart = folderHere(theme + u" judge"_s);
        EXPECT_EQ(runProgram(u"cpio"_s, {u"-i"_s, u"--quiet"_s}, apart, bytesOf(again)).code, 0);
        auto files = contentsOf(folder);
        EXPECT_TRUE(files.remove("#.lst")); // stays there
        EXPECT_EQ(contentsOf(apart), files);
        QByteArrayList sorted = namesIn(again);
        QByteArrayList expected = namesIn(message);
        std::sort(sorted.begin(), sorted.end());
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(sorted, expected);
    }
    EXPECT_TRUE(nothingLeft());
}

QByteArray gzipped(const QByteArray& data)
{
    return runProgram(u"gzip"_s, {u"-cn"_s}, {}, data).out;
}

// The same with a name in its header.
QByteArray named(const QByteArray& name, const QByteArray& data)
{
    QByteArray file = gzipped(data);
    file[3] = '\x08';
    return file.insert(10, name + '\0');
}

TEST_F(Archives, OddGzipFilesGiveOneFileBesideThemOrAMessage)
{
    const QByteArray megabytes = gzipped(QByteArray(64 << 20, '\0'));
    const struct {
        const char* what;
        QByteArray bytes;
        QByteArray madeAs; // empty: nothing, and the user is told
        QByteArray contents;
    } cases[] = {
        {"no byte", "", "", ""},
        {"no member", "just a text", "", ""},
        {"half a header", QByteArray("\x1f\x8b\x08", 3), "", ""},
        {"an empty member", gzipped(""), "in", ""},
        {"one member", named("a name.txt", "one"), "a name.txt", "one"},
        {"three members", gzipped("one") + named("second", "two") + gzipped("three"), "in",
         "onetwothree"},
        {"the second is damaged", gzipped("one") + gzipped("two").chopped(5), "", ""},
        {"a way out", named("../../out.txt", "x"), "out.txt", "x"},
        {"an absolute path", named("/etc/passwd.new", "x"), "passwd.new", "x"},
        {"a path of another system", named("C:\\boot\\menu.lst", "x"), "menu.lst", "x"},
        {"only a path", named("../..", "x"), "in", "x"},
        {"a working file", named("#.lst", "x"), "in", "x"},
        {"its own name", named("in.gz", "x"), "", ""},
        {"a bomb of 320 MB", megabytes.repeated(5), "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const QString folder = folderHere(QString::fromLatin1(c.what) + u"/deep"_s);
        ASSERT_TRUE(DiskFiles().write(folder + u"/in.gz"_s, c.bytes).ok());
        shell.prompts.expectOpen(folder + u"/in.gz"_s);
        if (c.madeAs.isEmpty())
            shell.prompts.expectMessage(u"in.gz"_s);
        mnuT_GZip_Extract(shell.shell);
        QMap<QByteArray, QByteArray> expected{{"in.gz", c.bytes}};
        if (!c.madeAs.isEmpty())
            expected[c.madeAs] = c.contents;
        EXPECT_EQ(contentsOf(folder), expected);
        EXPECT_EQ(contentsOf(folderPart(folder)).size(), 1);
    }
    EXPECT_TRUE(nothingLeft());
}

TEST_F(Archives, PlacesThatTakeNothingAreTold)
{
    const QString message = themes.filePath(u"upstream/bootloader/message"_s);
    // Nobody may make files there, root included.
    const QString closed = u"/proc/self"_s;
    shell.prompts.expectOpen(message);
    shell.prompts.expectFolder(closed);
    shell.prompts.expectMessage(shortForm(closed)); // a link to a folder with a number
    mnuEdit_Extract(shell.shell);
    const QString folder = folderHere(u"components"_s);
    ASSERT_TRUE(DiskFiles().write(folder + u"/a.txt"_s, "a").ok());
    shell.prompts.expectFolder(folder);
    shell.prompts.expectMessage(u"info-file is absent"_s);
    shell.prompts.expectSave(closed + u"/assembled"_s);
    shell.prompts.expectMessage(u"assembled"_s);
    mnuEdit_Assemble(shell.shell);
}

TEST_F(Archives, AFolderInThePlaceOfAFileStays)
{
    const QString folder = folderHere(u"out"_s);
    for (const QString& name : {u"out/init"_s, u"out/a.txt"_s, u"out/b.gz"_s, u"out/saved"_s})
        ASSERT_TRUE(DiskFiles().write(folderHere(name) + u"/kept"_s, "kept").ok());
    const auto before = contentsOf(folder);
    shell.prompts.expectOpen(themes.filePath(u"upstream/bootloader/message"_s));
    shell.prompts.expectFolder(folder);
    shell.prompts.expectMessage(u"out/init: a folder"_s);
    mnuEdit_Extract(shell.shell);
    EXPECT_EQ(contentsOf(folder), before);

    ASSERT_TRUE(DiskFiles().write(folder + u"/in.gz"_s, named("a.txt", "x")).ok());
    shell.prompts.expectOpen(folder + u"/in.gz"_s);
    shell.prompts.expectMessage(u"out/a.txt: a folder"_s);
    mnuT_GZip_Extract(shell.shell);
    ASSERT_TRUE(DiskFiles().write(folder + u"/b"_s, "x").ok());
    shell.prompts.expectOpen(folder + u"/b"_s);
    shell.prompts.expectMessage(u"b.gz"_s);
    mnuT_GZip_Pack(shell.shell);
    const QString parts = folderHere(u"parts"_s);
    ASSERT_TRUE(DiskFiles().write(parts + u"/a"_s, "a").ok());
    shell.prompts.expectFolder(parts);
    shell.prompts.expectMessage(u"info-file is absent"_s);
    shell.prompts.expectSave(folder + u"/saved"_s);
    shell.prompts.expectMessage(u"saved"_s);
    mnuEdit_Assemble(shell.shell);
    auto after = contentsOf(folder);
    EXPECT_TRUE(after.remove("in.gz") && after.remove("b"));
    EXPECT_EQ(after, before);
    for (const QString& name : {u"init"_s, u"a.txt"_s, u"b.gz"_s, u"saved"_s})
        EXPECT_TRUE(FileExists(folder + u'/' + name + u"/kept"_s)) << name.toStdString();
}

} // namespace

} // namespace fennel::test
