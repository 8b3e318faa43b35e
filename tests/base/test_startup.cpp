// SPDX-License-Identifier: MIT
#include "app/startup.h"
#include "base/settings_file.h"
#include "base/workspace_root.h"
#include "support/test_shell.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// A program folder, a store and a temporary folder of a test's own.
class Start : public testing::Test {
protected:
    Start()
    {
        EXPECT_TRUE(t.files.makeFolder(t.path(u"bin/Tools"_s)).ok());
        EXPECT_TRUE(t.files.makeFolder(t.path(u"temp"_s)).ok());
        qputenv("Temp", QFile::encodeName(t.path(u"temp"_s)));
        input.executableFolder = t.path(u"bin"_s);
        input.fontList = [] { return u"Tahoma (TrueType)>tahoma.ttf"_s; };
    }
    ~Start() override { qputenv("Temp", m_oldTemp); }

    NextStep start() { return Form_Initialize(t.shell, store, input); }
    [[nodiscard]] QString stored() const { return store.get(langsSection, u"DefaultLang"_s); }
    QByteArray ini() { return bytesOf(t.path(u"bin/FENNEL.ini"_s)); }

    TestShell t;
    UserStore store{t.path(u"store.conf"_s)};
    StartInput input;

private:
    QByteArray m_oldTemp = qgetenv("Temp");
};

} // namespace

TEST_F(Start, FirstRunMakesTheSettingsFileAndThePaths)
{
    qputenv("LANG", "ru_RU.UTF-8");
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(t.run.CurrentLang, u"0409"_s) << "the system's language selects nothing";
    EXPECT_EQ(stored(), u"0409"_s);
    EXPECT_TRUE(ini().contains("\r\nDefault Font Name=Tahoma\r\n"));
    EXPECT_TRUE(ini().endsWith("\r\nDefault Language=0409\r\n"));
    EXPECT_TRUE(FolderExists(t.path(u"bin/LOGs"_s)));
    EXPECT_EQ(t.run.ToolCpio, shortForm(t.path(u"bin"_s)) + u"/Tools/CPIO/cpio_bridge"_s);
    EXPECT_FALSE(FileExists(t.path(u"bin/FENNEL-GFX.log"_s)));
    EXPECT_EQ(settingsFileThere(t.shell), NextStep::GoOn);
}

TEST_F(Start, LanguageComesFromTheFileThenFromTheStore)
{
    t.file(u"bin/FENNEL.ini"_s, "Default Language=419\r\n");
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(t.run.CurrentLang, u"0419"_s);
    EXPECT_EQ(stored(), u"0419"_s);

    // Without the key the stored language stays, and the file gains its code read as decimal.
    t.file(u"bin/FENNEL.ini"_s, "Default Font Name=Arial");
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(t.run.CurrentLang, u"0419"_s);
    EXPECT_EQ(ini(), "Default Font Name=Arial\r\nDefault Language=1A3\r\n");
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(t.run.CurrentLang, u"01A3"_s);

    store.deleteSection(langsSection);
    t.file(u"bin/FENNEL.ini"_s, "Default Language=\r\n");
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(t.run.CurrentLang, u"0409"_s);
    EXPECT_EQ(ini(), "Default Language=\r\nDefault Language=199\r\n");
}

TEST_F(Start, OnlyTheFirstWordSwitchesTheLogOn)
{
    EXPECT_TRUE(wantsLog({u"-LOGFILE"_s, u"more"_s}));
    EXPECT_TRUE(wantsLog({u" -logfile more"_s}));
    EXPECT_FALSE(wantsLog({u"-logfile=x"_s}));
    EXPECT_FALSE(wantsLog({u"file"_s, u"-logfile"_s}));
    EXPECT_FALSE(wantsLog({}));

    t.file(u"bin/FENNEL-GFX.log"_s, "an older run\r\n");
    input.words = QStringList{u"-LogFile"_s};
    EXPECT_EQ(start(), NextStep::GoOn);
    const QStringList lines =
        QString::fromUtf8(bytesOf(t.path(u"bin/FENNEL-GFX.log"_s))).split(u"\r\n"_s);
    EXPECT_EQ(lines.value(1), QString(72, u'-'));
    EXPECT_EQ(lines.mid(11, 2).join(u'|'),
              u"Start Logging from Form_Initialize...|Form_Initialize End"_s);
}

TEST_F(Start, MissingToolsAreAskedAboutOnce)
{
    ASSERT_TRUE(t.files.removeFolder(t.path(u"bin/Tools"_s)).ok());
    t.prompts.expectMessage(u"Download a Set of Tools for the FENNEL-GFX?"_s, Answer::Yes);
    t.prompts.expectMessage(u"Planned..."_s);
    EXPECT_EQ(start(), NextStep::EndProcess);
    EXPECT_EQ(t.prompts.titles.first(), u"ERROR. No necessary tools for the program!"_s);
    EXPECT_EQ(t.prompts.types.front(), MessageType::YesNo);

    ASSERT_TRUE(t.files.removeFolder(t.path(u"bin/Tools"_s)).ok());
    t.prompts.expectMessage(u"Download"_s, Answer::No);
    EXPECT_EQ(start(), NextStep::GoOn);
    EXPECT_EQ(start(), NextStep::GoOn) << "the empty folder is there now";
}

TEST_F(Start, FolderThatCannotBeWrittenEndsTheRunWithoutACrash)
{
    // Nothing can be made below a plain file, whoever the user is.
    input.executableFolder = t.file(u"no folder"_s, "x");
    input.words = QStringList{u"-logfile"_s};
    t.prompts.expectMessage(u"File not found: "_s);
    t.prompts.expectMessage(u"Download"_s, Answer::No);
    EXPECT_EQ(start(), NextStep::GoOn);
    t.prompts.expectMessage(u"Is Not Admin"_s);
    EXPECT_EQ(settingsFileThere(t.shell), NextStep::EndProcess);
    EXPECT_EQ(t.prompts.titles.last(), QString());
}

// Neither folder can be made: the run has its defaults and goes on.
TEST_F(Start, AnInstalledProgramWritesToItsUsersFoldersOnly)
{
    t.file(u"bin/installed"_s, "x");
    input.words = QStringList{u"-logfile"_s};
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    for (const QString& home : {t.path(u"home"_s), t.file(u"no folder"_s, "x")}) {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home + u"/config"_s));
        qputenv("XDG_STATE_HOME", QFile::encodeName(home + u"/state"_s));
        EXPECT_EQ(start(), NextStep::GoOn);
        EXPECT_EQ(t.run.CurrentLang, u"0409"_s);
        EXPECT_EQ(settingsFileThere(t.shell), NextStep::GoOn);
        EXPECT_EQ(QDir(t.path(u"bin"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                  (QStringList{u"installed"_s, u"Tools"_s}));
    }
    EXPECT_TRUE(FileExists(t.path(u"home/config/FENNEL-GFX/FENNEL.ini"_s)));
    EXPECT_TRUE(FileExists(t.path(u"home/state/fennel-gfx/FENNEL-GFX.log"_s)));
    qputenv("XDG_CONFIG_HOME", config);
    qputenv("XDG_STATE_HOME", state);
}

TEST(FileToOpen, IsTheFirstWordThatIsNoSwitch)
{
    const std::pair<QStringList, QString> cases[] = {
        {{u"-logfile"_s, u"a b/../message"_s, u"other"_s}, u"/home/message"_s},
        {{u"/boot/message"_s}, u"/boot/message"_s},
        {{u"-x"_s, u"--"_s, u"-y"_s}, u"/home/-y"_s},
        {{u"-logfile"_s}, QString()}};
    for (const auto& [words, path] : cases)
        EXPECT_EQ(fileToOpen(words, u"/home"_s), path);
}

TEST_F(Start, RootOfACrashedRunIsFoundAgainAndGoesWithACleanEnd)
{
    const QString root = shortForm(t.path(u"temp"_s)) + u"/FENNEL-GFX/"_s;
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_EQ(t.run.WorkspaceRoot, root);
    const QFile::Permissions others = QFile::ReadGroup | QFile::ExeGroup | QFile::WriteGroup |
                                      QFile::ReadOther | QFile::ExeOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(root) & others, QFile::Permissions());
    // A crash: no end. Its leavings hold a link, which must not be followed on removal.
    ASSERT_TRUE(t.files.makeFolder(root + u"message"_s).ok());
    ASSERT_TRUE(t.files.write(root + u"message/back.jpg"_s, "x").ok());
    ASSERT_TRUE(QFile::link(t.path(u"bin"_s), root + u"message/link"_s));
    ASSERT_TRUE(QFile::setPermissions(root, QFile::Permissions(0x7755)));

    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_EQ(t.run.WorkspaceRoot, root);
    EXPECT_TRUE(FileExists(root + u"message/back.jpg"_s));
    EXPECT_EQ(QFile::permissions(root) & others, QFile::Permissions());
    Form_Unload(t.shell);
    EXPECT_FALSE(QFileInfo::exists(root));
    EXPECT_TRUE(FolderExists(t.path(u"bin/Tools"_s)));
}

TEST_F(Start, NameThatIsNotOursIsLeftAlone)
{
    const QString plain = t.path(u"temp/FENNEL-GFX"_s);
    const QString numbered = shortForm(t.path(u"temp"_s)) + u"/FENNEL-GFX-%1/"_s.arg(::geteuid());
    ASSERT_TRUE(t.files.makeFolder(t.path(u"victim"_s)).ok());
    ASSERT_TRUE(QFile::link(t.path(u"victim"_s), plain));
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_EQ(t.run.WorkspaceRoot, numbered);
    Form_Unload(t.shell);
    EXPECT_FALSE(QFileInfo::exists(numbered));
    EXPECT_TRUE(FolderExists(t.path(u"victim"_s)));

    // A root under the number that a crash left goes too, when the plain name is free again.
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    ASSERT_TRUE(QFile::remove(plain));
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_EQ(t.run.WorkspaceRoot, shortForm(plain) + u'/');
    Form_Unload(t.shell);
    EXPECT_FALSE(QFileInfo::exists(numbered));
    EXPECT_FALSE(QFileInfo::exists(plain));
}

// As from a session without XDG_RUNTIME_DIR, where the other copy's own lock is not seen.
TEST_F(Start, TwoCopiesShareNoRootAndNoneTakesTheOthersWorkWithIt)
{
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    const QString first = t.run.WorkspaceRoot;
    ASSERT_TRUE(t.files.write(first + u"~work"_s, "x").ok());
    RunState otherRun;
    const Shell other{otherRun, t.log, t.files, t.prompts, t.tools};
    ASSERT_EQ(makeWorkspaceRoot(other), NextStep::GoOn);
    EXPECT_NE(otherRun.WorkspaceRoot, first);
    Form_Unload(other);
    EXPECT_FALSE(FolderExists(otherRun.WorkspaceRoot));
    EXPECT_TRUE(FileExists(first + u"~work"_s));

    // The system cleared its temporary folder.
    ASSERT_TRUE(t.files.removeFolder(first).ok());
    EXPECT_TRUE(needRoot(t.shell).ok());
    EXPECT_EQ(QFile::permissions(first) & (QFile::ExeGroup | QFile::ExeOther), 0);
    // And somebody else came first; a folder with files of the user's own is none of ours either.
    ASSERT_TRUE(t.files.removeFolder(first).ok() && t.files.makeFolder(first).ok() &&
                t.files.write(first + u"thesis"_s, "x").ok());
    EXPECT_EQ(needRoot(t.shell).failure().kind, FailureKind::NoPermission);
    Form_Unload(t.shell);
    EXPECT_TRUE(FileExists(first + u"thesis"_s));
}

TEST_F(Start, FolderOfAnotherUserIsLeftAlone)
{
    EXPECT_EQ(::geteuid() == 0, isOwnFolder(u"/usr"_s));
    if (::geteuid() != 0) {
        EXPECT_EQ(t.files.makePrivateFolder(u"/usr"_s).failure().kind, FailureKind::NoPermission);
        return;
    }
    const QString plain = t.path(u"temp/FENNEL-GFX"_s);
    ASSERT_TRUE(t.files.makeFolder(plain).ok());
    ASSERT_EQ(::chown(QFile::encodeName(plain).constData(), 65534, 65534), 0);
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_TRUE(t.run.WorkspaceRoot.endsWith(u"/FENNEL-GFX-0/"_s));
    Form_Unload(t.shell);
    EXPECT_TRUE(FolderExists(plain));
    EXPECT_FALSE(QFileInfo::exists(t.run.WorkspaceRoot));
}

TEST_F(Start, RootIsNeverAroundTheProgramAndAFullDiskIsTold)
{
    t.run.AppPath = shortForm(t.path(u"temp"_s)) + u"/FENNEL-GFX/build/bin"_s;
    ASSERT_TRUE(t.files.makeFolder(t.run.AppPath).ok());
    ASSERT_EQ(makeWorkspaceRoot(t.shell), NextStep::GoOn);
    EXPECT_TRUE(t.run.WorkspaceRoot.endsWith(u"/FENNEL-GFX-%1/"_s.arg(::geteuid())));
    Form_Unload(t.shell);
    EXPECT_TRUE(FolderExists(t.run.AppPath));

    t.files.calls = 0;
    t.files.failAt = 1;
    t.prompts.expectMessage(u"No space left"_s);
    EXPECT_EQ(makeWorkspaceRoot(t.shell), NextStep::EndProcess);
}

TEST(LogLine, ErrInAnyCaseIsThePendingError)
{
    TestShell t;
    const QString path = t.path(u"FENNEL-GFX.log"_s);
    t.log.start(path);
    t.shell.WriteLog(u"err"_s);
    t.log.setPendingError(53, u"modCpio"_s, u"File not found"_s);
    EXPECT_EQ(t.shell.WriteLog(u"Err"_s), u"Err"_s);
    const QByteArray bytes = bytesOf(path);
    EXPECT_TRUE(bytes.startsWith("   ERROR 0 : :  : 0\r\n   ERROR 53 :modCpio : File not found : "))
        << bytes.toStdString();
}
