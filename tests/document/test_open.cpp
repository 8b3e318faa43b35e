// SPDX-License-Identifier: MIT
#include "container/member_table.h"
#include "document/open_fixture.h"
#include "support/bin_folder.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QString failureText = u"ERROR. File back.jpg not found!\n"
                            "              This is really a \"gfxboot message\"-file?\n"
                            "\n"
                            "\"Gfxboot message\" is a cpio-archive, but additionally it can be "
                            "compressed with gZip.\n"
                            "You can specify only those variants!"_s;

QByteArrayList linesOf(const QByteArray& text)
{
    QByteArrayList lines = QByteArray(text).replace("\r", "").split('\n');
    lines.removeAll(QByteArray());
    return lines;
}

class Open : public testing::Test {
protected:
    bool open(const QString& path)
    {
        const bool opened = m_bench.open(path);
        // Whatever happens, the listener is told of one beginning and one end.
        EXPECT_EQ(m_bench.listener.begun, 1);
        EXPECT_THAT(m_bench.listener.ended, ElementsAre(opened));
        EXPECT_EQ(QDir(t.run.WorkspaceRoot).entryList({u"#open*"_s}, QDir::AllEntries).size(), 0);
        return opened;
    }
    QString file(const QString& name, const std::string& bytes)
    {
        return t.file(name, QByteArray::fromStdString(bytes));
    }
    // Opens something whole, so that there is a state to keep.
    void openGood() { ASSERT_TRUE(open(file(u"good"_s, smallMessage().close()))); }
    // The open fails with the message and this in it; what was open is as it was, on disk too.
    void expectRefused(const QString& path, const QString& reason)
    {
        const OpenState before(t.run);
        const auto files = contentsOf(t.run.Workspace);
        t.prompts.expectMessage(failureText);
        EXPECT_FALSE(open(path)) << path.toStdString();
        EXPECT_TRUE(t.prompts.texts.last().contains(reason))
            << path.toStdString() << ": " << t.prompts.texts.last().toStdString();
        EXPECT_EQ(t.prompts.types.back(), MessageType::Ok);
        EXPECT_EQ(t.prompts.titles.last(), QString());
        EXPECT_TRUE(OpenState(t.run) == before) << path.toStdString();
        EXPECT_EQ(contentsOf(t.run.Workspace), files) << path.toStdString();
        EXPECT_TRUE(m_bench.listener.steps.empty());
    }
    TestShell t;
    OpenBench m_bench{t.shell};
};

} // namespace

TEST_F(Open, MessagesOfDebianPlainAndGzippedGiveTheSameStateAndTheFilesOfGnuCpio)
{
    ASSERT_EQ(debianMessages().size(), 5);
    for (const QString& message : debianMessages()) {
        ASSERT_TRUE(open(message)) << message.toStdString();
        const OpenState plain(t.run);
        EXPECT_EQ(t.run.gfxboot_var, 2);
        EXPECT_EQ(t.run.ObjectCount, 4);
        EXPECT_TRUE(t.run.GfxOpened && t.run.GfxHasCfg && !t.run.GfxHasZuk && !t.run.GfxIsGz);
        EXPECT_EQ(QSize(t.run.BackWidth, t.run.BackHeight), QSize(800, 600));
        EXPECT_EQ(t.run.Workspace, t.run.WorkspaceRoot + u"message/"_s);
        EXPECT_EQ(t.run.BackFile, t.run.Workspace + u"back.jpg"_s);
        EXPECT_EQ(t.run.GfxPath, message);
        EXPECT_EQ(t.run.GfxFileName, u"message"_s);

        const QByteArray archive = bytesOf(message);
        const Ran listed = runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, archive);
        EXPECT_EQ(linesOf(bytesOf(t.run.Workspace + u"#.lst"_s)), linesOf(listed.out));
        const QTemporaryDir judge;
        ASSERT_EQ(runProgram(u"cpio"_s, {u"-i"_s, u"--quiet"_s}, judge.path(), archive).code, 0);
        auto files = contentsOf(t.run.Workspace);
        files.remove("#.lst");
        files.remove("#7zip.log");
        EXPECT_EQ(files, contentsOf(judge.path())) << message.toStdString();

        const Ran packed = runProgram(u"gzip"_s, {u"-9c"_s}, {}, archive);
        ASSERT_TRUE(t.files.makeFolder(t.path(u"wrapped"_s)).ok());
        const QString gz = t.file(u"wrapped/message"_s, packed.out);
        ASSERT_TRUE(open(gz));
        OpenState wrapped(t.run);
        EXPECT_TRUE(t.run.GfxIsGz);
        t.run.GfxIsGz = false;
        t.run.GfxPath = message;
        EXPECT_TRUE(OpenState(t.run) == plain);
        ASSERT_TRUE(t.files.removeFolder(t.run.Workspace).ok());
    }
}

TEST_F(Open, TheStateOfEachGeneration)
{
    t.run.AppPath = binFolder();
    m_bench.document.loadCatalogue();
    t.prompts.answerRest = [](const QString&, MessageType) { return Answer::Ok; };
    const struct {
        std::vector<std::string> members;
        int generation;
        int objects;
        int background;
        QString backFile;
    } cases[] = {
        {{}, 1, 4, 3, u"back.jpg"_s},
        {{"gfxboot.cfg", "back_03.jpg"}, 2, 4, 3, u"back.jpg"_s},
        {{"ZUK0000.CFG", "gfxboot.cfg", "back_03.jpg"}, 3, 40, 3, u"back_03.jpg"_s},
        {{"ZUK0000.CFG", "back_03.jpg"}, 3, 40, 4, u"back.jpg"_s},
        {{"ZUK0000.CFG", "back_03.jpg"}, 3, 40, 103, u"back_03.jpg"_s},
    };
    int number = 0;
    for (const auto& c : cases) {
        RawCpio archive = smallMessage(640, 480);
        const std::string number99{static_cast<char>(c.background), 0, 0, 99};
        for (const std::string& name : c.members)
            archive.add({.name = name, .data = name == "ZUK0000.CFG" ? number99 : jpegBytes(8, 8)});
        const QString name = u"case%1"_s.arg(++number);
        const QString path = file(name, archive.close());
        ASSERT_TRUE(open(path));
        EXPECT_EQ(m_bench.document.state().PanelArr.size(), c.objects);
        EXPECT_EQ(t.run.gfxboot_var, c.generation) << number;
        EXPECT_EQ(t.run.ObjectCount, c.objects);
        EXPECT_EQ(t.run.BackFile, t.run.Workspace + c.backFile) << number;
        EXPECT_EQ(QSize(t.run.BackWidth, t.run.BackHeight), QSize(640, 480));
        EXPECT_EQ(t.run.GfxHasCfg, bool(std::ranges::count(c.members, "gfxboot.cfg")));
        EXPECT_EQ(t.run.GfxHasZuk, c.generation == 3);
    }
}

TEST_F(Open, FilesThatAreNoMessageAreRefusedWithTheReason)
{
    openGood();
    const std::string good = smallMessage().close();
    const std::string gz = gzipped(good);
    const struct {
        QString name;
        std::string bytes;
        QString reason; // of the tool, with the name of the file
    } cases[] = {
        {u"text"_s, "title Boot from disk\n", u"no cpio"_s},
        {u"cut.gz"_s, gz.substr(0, gz.size() / 2), u"cut.gz"_s},
        {u"noback"_s, RawCpio().add({.name = "init", .data = "x"}).close(), {}},
        {u"case"_s, RawCpio().add({.name = "BACK.JPG", .data = jpegBytes(4, 4)}).close(), {}},
    };
    for (const auto& c : cases) {
        expectRefused(file(c.name, c.bytes), c.reason);
        if (!c.reason.isEmpty()) {
            EXPECT_TRUE(t.prompts.texts.last().contains(c.name)) << c.name.toStdString();
        }
    }
    EXPECT_FALSE(QFile::exists(t.path(u"init"_s)));
}

TEST_F(Open, PathsWithoutAFileBehindThemAreRefused)
{
    openGood();
    ASSERT_TRUE(t.files.makeFolder(t.path(u"folder"_s)).ok());
    expectRefused(t.path(u"folder"_s), u"folder"_s);
    expectRefused(t.path(u"vanished"_s), u"vanished"_s);
    ASSERT_TRUE(QFile::link(t.path(u"nowhere"_s), t.path(u"dangling"_s)));
    expectRefused(t.path(u"dangling"_s), u"dangling"_s);
}

TEST_F(Open, NamesOfFilesAndMembersMayHoldAnyCharacter)
{
    const QString cyrillic = u"Сообщение № 1, \"копия\" #2 & $HOME 'a'"_s;
    const QByteArray cp1251 = "\xcb\xee\xe3\xee \xb9 1.txt";
    const std::string bytes = smallMessage()
                                  .add({.name = cp1251.toStdString(), .data = "1251"})
                                  .add({.name = "a b'\"#&.txt", .data = "odd"})
                                  .close();
    for (const QString& name : {cyrillic, u" blank "_s, u"-rf"_s, u"100%"_s}) {
        ASSERT_TRUE(open(file(name, bytes))) << name.toStdString();
        EXPECT_EQ(t.run.GfxFileName, name);
        EXPECT_EQ(memberSize(t.run.Workspace, cp1251), 4);
        EXPECT_EQ(bytesOf(t.run.Workspace + u"a b'\"#&.txt"_s), "odd");
        EXPECT_EQ(bytesOf(t.run.Workspace + u"#.lst"_s),
                  "init\r\nback.jpg\r\n" + cp1251 + "\r\na b'\"#&.txt\r\n");
    }
    // What a wrapped archive is called inside is of no matter, also if it is a member's name.
    for (const char* inner : {"one,two", "\xcb\xee.cpio", "back.jpg"})
        EXPECT_TRUE(open(file(u"inner.gz"_s, gzipped(bytes, inner)))) << inner;
    t.prompts.expectMessage(u"4 bytes behind the end"_s);
    EXPECT_TRUE(open(file(u"tail.gz"_s, gzipped(bytes) + "tail")));
    // Work files have names of their own.
    for (const QString& name : {u"~undo_folder"_s, u"~bck_scale~.jpg"_s, u"###mess"_s, u".lock"_s})
        EXPECT_TRUE(open(file(name, bytes)) && namePart(t.run.Workspace.chopped(1)) == u'=' + name);
}

TEST_F(Open, ABackgroundThatIsNoPictureCountsWithTheUsualSize)
{
    for (const std::string& back : {std::string("no picture"), std::string()}) {
        t.prompts.expectMessage(u"back.jpg is not a picture"_s);
        ASSERT_TRUE(
            open(file(u"odd"_s, RawCpio().add({.name = "back.jpg", .data = back}).close())));
        EXPECT_EQ(QSize(t.run.BackWidth, t.run.BackHeight),
                  QSize(fallbackBackWidth, fallbackBackHeight));
    }
}

TEST_F(Open, TheSameNameHoldsTheMembersOfTheNewArchiveAlone)
{
    ASSERT_TRUE(t.files.makeFolder(t.path(u"first"_s)).ok());
    ASSERT_TRUE(open(file(u"first/good"_s,
                          smallMessage().add({.name = "ZUK0001.CFG", .data = "level"}).close())));
    openGood();
    EXPECT_FALSE(FileExists(t.run.Workspace + u"ZUK0001.CFG"_s));
    EXPECT_EQ(bytesOf(t.run.Workspace + u"init"_s), "engine");
    EXPECT_EQ(bytesOf(t.run.Workspace + u"#.lst"_s), "init\r\nback.jpg\r\n");
    // A broken file of the same name from elsewhere spoils nothing.
    ASSERT_TRUE(t.files.makeFolder(t.path(u"other"_s)).ok());
    expectRefused(file(u"other/good"_s, smallMessage().open()), u"other/good"_s);
}
