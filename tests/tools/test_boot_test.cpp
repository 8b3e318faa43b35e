// SPDX-License-Identifier: MIT
// The boot test without a window: real boots, and QEMUs and computers that are not as they should.
#include "support/run_program.h"
#include "support/test_shell.h"
#include "tools/boot_once.h"
#include "tools/boot_stick.h"
#include "tools/dying_qemu.h"

#include <QTest>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class BootTestTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const QString& tool : {u"qemu-system-x86_64"_s, u"syslinux"_s, u"mformat"_s})
            if (!findProgram(tool))
                GTEST_SKIP() << "no " << tool.toStdString();
        qputenv(kvm, "0");
    }
    void TearDown() override
    {
        qputenv("PATH", path);
        qunsetenv(kvm);
        EXPECT_EQ(children(), 0);
    }
    // Processes of this one, those that have ended included.
    static int children()
    {
        const Ran ran = runProgram(u"pgrep"_s, {u"-P"_s, QString::number(getpid()), u"qemu"_s});
        return static_cast<int>(ran.out.count('\n'));
    }

    static constexpr char kvm[] = "FENNEL_QEMU_KVM";
    TestShell shell;
    const QByteArray path = qgetenv("PATH");
    const BootStick noMessage{"no archive", {u"One"_s}, {}, {}};
};

TEST_F(BootTestTest, KvmThatDiesIsLeftForTheRunAndATextIsTold)
{
    qputenv(kvm, "1");
    qputenv("PATH", dyingQemu(shell) + ':' + path);
    for (const char* starts : {"kvm tcg ", "kvm tcg tcg "}) {
        const auto result = bootOnce(shell.shell, {.stick = noMessage}, nullptr);
        ASSERT_TRUE(result) << result.failure().text;
        EXPECT_EQ(result->state, BootState::Text);
        EXPECT_TRUE(result->words.contains(u"no working boot engine"_s));
        EXPECT_TRUE(result->text.contains(u"message: invalid file format"_s));
        EXPECT_EQ(result->picture.size(), QSize(720, 400));
        EXPECT_EQ(bytesOf(shell.run.WorkspaceRoot + u"starts"_s), starts);
    }
    EXPECT_TRUE(shell.run.KvmFails);
}

TEST_F(BootTestTest, WhatIsMissingIsNamedWithItsPackage)
{
    qputenv("PATH", "/nowhere");
    const auto result = bootOnce(shell.shell, {.stick = noMessage}, nullptr);
    EXPECT_NE(result.failure().text.find("install the package qemu-system-x86"), std::string::npos);
    EXPECT_EQ(
        bootOnce(shell.shell, {.stick = noMessage, .keys = {u"any"_s}}, nullptr).failure().kind,
        FailureKind::Malformed);
    EXPECT_TRUE(QDir(shell.run.WorkspaceRoot).entryList({u"boot_test*"_s}).isEmpty());
}

TEST_F(BootTestTest, ASecondOneReplacesTheFirstAndCancelLeavesNothing)
{
    const QStringList before = QDir(shell.run.WorkspaceRoot).entryList();
    BootTest test(shell.shell);
    QSignalSpy rested(&test, &BootTest::rested);
    test.start(noMessage);
    EXPECT_TRUE(QTest::qWaitFor([&] { return test.isAwake(); }, 20'000));
    test.start(noMessage);
    EXPECT_TRUE(rested.wait(60'000));
    EXPECT_EQ(children(), 1);
    test.start(noMessage); // while the image is being made
    QTest::qWait(20);
    test.cancel();
    EXPECT_EQ(test.state(), BootState::None);
    EXPECT_EQ(children(), 0);
    EXPECT_EQ(QDir(shell.run.WorkspaceRoot).entryList(), before);
    EXPECT_EQ(rested.size(), 1);
}

TEST_F(BootTestTest, HostileTitlesStayInTheirLines)
{
    const QString title = u"title \tлиния 文字 abc\r\x1b[2J"_s.repeated(1) + QString(4000, u'文');
    const BootMenu menu{
        title + u"\ntitle [zuk0001] :22=1\nkernel /x\ntitle two\\nhelp"_s, true, {}};
    const QStringList titles = bootTitles(menu);
    EXPECT_EQ(titles.mid(1), (QStringList{u"[zuk0001] :22=1"_s, u"two\\nhelp"_s}));
    EXPECT_EQ(bootTitles({menu.text, false, {}}).last(), u"two"_s);
    const QByteArray text = syslinuxMenu(titles);
    for (const QByteArray& line : text.split('\n')) {
        EXPECT_LT(line.size(), 2000);
        EXPECT_FALSE(QString::fromUtf8(line).contains(QChar::ReplacementCharacter));
        EXPECT_FALSE(line.contains('\x1b'));
    }
    EXPECT_EQ(text.count("menu label"), 3);
    EXPECT_EQ(grubMenu({{}, titles, {}, "timeout 3\ngfxmenu /other\ntitle a\nboot\n"}),
              "gfxmenu /message\ntitle a\nboot\n");
}

TEST(RestWatch, AGuestThatGetsNoProcessorIsNotDone)
{
    RestWatch starved;
    RestWatch idle;
    const QStringList text{u"SYSLINUX"_s};
    bool rested = false;
    for (qint64 dump = 0; dump < 100; ++dump) {
        EXPECT_FALSE(starved.textRests(text, {dump, 40 * dump}));
        rested = idle.textRests(text, {dump, dump});
    }
    EXPECT_TRUE(rested);
    EXPECT_TRUE(starved.textRests(text, {2000, 4040})) << "it worked and wrote nothing";
}

} // namespace
