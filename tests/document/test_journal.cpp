// SPDX-License-Identifier: MIT
// Unsaved work: kept while it is done, offered when it is left, and restored as it was.
#include "support/unsaved.h"

#include "editor/commands/handlers.h"
#include "params/object_table.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

class Unsaved : public testing::TestWithParam<int>, public Story {
protected:
    // Leaves changed values and members of a file of that generation, and returns what they were.
    SavableState leaveWork(int generation = 3)
    {
        source =
            generation == 3
                ? shell.file(u"boot.gz"_s, bytesOf(run().AppPath + u"/data/GFX.GZ"_s))
                : messageWith(shell, "menu_start_x=100\r\nmenu_start_y=60\r\n#boot_show=1\r\n");
        open(source);
        EXPECT_TRUE(changeMember(*this, 1));
        EXPECT_TRUE(changeValue(*this, 76));
        EXPECT_TRUE(bench.journal.flush());
        // Only the values are written now.
        EXPECT_TRUE(changeValue(*this, 77));
        const SavableState state = savableState(*this);
        makeNew();
        return state;
    }
    void restore(int entry)
    {
        showLeftWork(window);
        window.commands().runEntry(u"mnuFile_RestoreArr"_s, entry);
    }
    [[nodiscard]] QStringList folders(const QString& start)
    {
        return QDir(unsavedRoot()).entryList({start + u'*'}, QDir::Dirs);
    }

    QString source;
};

} // namespace

TEST_P(Unsaved, ComesBackAsItWasWithItsSource)
{
    const SavableState left = leaveWork(GetParam());
    EXPECT_FALSE(window.isWindowModified());
    restore(0);
    EXPECT_EQ(savableState(*this), left);
    EXPECT_EQ(run().GfxPath, source);
    EXPECT_EQ(run().GfxIsGz, GetParam() == 3);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_FALSE(bench.document.canUndo());
    const PanelRec* menu = bench.document.object(MenuPanelRow);
    EXPECT_EQ(menu->Left == 77, GetParam() == 2);
    // It stands in a journal of its own again, which a living process holds.
    EXPECT_EQ(folders(u"work-"_s).size(), 1);
    EXPECT_TRUE(bench.leftWork.empty());

    choose("mnuFile_Save");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(bench.journal.flush());
    EXPECT_EQ(membersOf(source)[u"Logo_98.txt"_s], "1");
    open(source);
    EXPECT_EQ(savableState(*this).members, left.members);
    EXPECT_EQ(folders(u"work-"_s).size(), 0);
}
INSTANTIATE_TEST_SUITE_P(Generations, Unsaved, testing::Values(2, 3));

TEST_F(Unsaved, JournalThatIsBadIsNamedAndGivesWhatItHas)
{
    const SavableState whole = leaveWork();
    const QString root = unsavedRoot();
    const QString pristine = shell.path(u"pristine"_s);
    const QByteArray sourceBytes = bytesOf(source);
    ASSERT_TRUE(shell.files.copyFolder(root + folders(u"work-"_s).value(0), pristine).ok());
    const QString values = root + u"work-case/values"_s;
    const QString base = root + u"work-case/"_s + QDir(pristine).entryList({u"base-*"_s}).value(0);
    const auto edit = [this](const QString& path, const QByteArray& bytes) {
        ASSERT_TRUE(shell.files.write(path, bytes).ok());
    };
    const QByteArray text = bytesOf(pristine + u"/values"_s);
    const QByteArray archive = bytesOf(pristine + u"/"_s + namePart(base));
    QByteArray flipped = archive;
    flipped[archive.size() / 2] = static_cast<char>(flipped[archive.size() / 2] ^ 1);
    enum Given { All, Members, Values, Nothing };
    const struct Case {
        const char* said;
        Given given;
        std::function<void()> spoil;
    } cases[] = {
        {"cut or damaged", Members, [&] { edit(values, text.left(text.size() / 2)); }},
        {"not written by this program", Members, [&] { edit(values, "{\"format\": 1}"); }},
        {"another version", Members,
         [&] { edit(values, QByteArray(text).replace("\"version\":1", "\"version\":2")); }},
        {"files of the unsaved work are damaged", Values, [&] { edit(base, flipped); }},
        {"Cannot read", Values, [&] { QFile::remove(base); }},
        {"Nothing of it can be restored", Nothing,
         [&] { edit(base, archive.left(700)), edit(source, "another"); }},
        {"Nothing of it can be restored", Nothing, [&] { edit(values, {}), QFile::remove(base); }},
        {"has changed since it was opened", All, [&] { edit(source, "another"); }},
        {"is not there any more", All, [&] { QFile::remove(source); }},
    };
    for (const Case& one : cases) {
        makeNew();
        ASSERT_TRUE(shell.files.removeFolder(root).ok());
        ASSERT_TRUE(shell.files.makePrivateFolder(root).ok());
        ASSERT_TRUE(shell.files.copyFolder(pristine, root + u"work-case"_s).ok());
        edit(source, sourceBytes);
        one.spoil();
        const QString before = run().GfxPath;
        user().expectMessage(QString::fromLatin1(one.said));
        restore(0);
        const SavableState now = savableState(*this);
        EXPECT_EQ(now.members == whole.members, one.given <= Members) << one.said;
        EXPECT_EQ(now.values == whole.values, one.given == All || one.given == Values) << one.said;
        EXPECT_EQ(run().GfxPath == before, one.given == Nothing) << one.said;
        EXPECT_EQ(window.isWindowModified(), one.given != Nothing) << one.said;
        // What could not be read whole is removed by nobody.
        EXPECT_EQ(folders(u"work-case"_s).size(), one.given == Nothing ? 1 : 0) << one.said;
        EXPECT_EQ(folders(u"kept-"_s).size(), one.given == All || one.given == Nothing ? 0 : 1);
    }
}

TEST_F(Unsaved, TheLastFiveThatNobodyHoldsAreOffered)
{
    for (int i = 0; i < 7; ++i) {
        makeNew();
        EXPECT_TRUE(changeValue(*this, 200 + i));
    }
    makeNew();
    EXPECT_EQ(folders(u"work-"_s).size(), 5);
    ASSERT_EQ(bench.leftWork.size(), 5U);
    EXPECT_TRUE(JournalFolder::take(bench.leftWork[0].folder).has_value());
    const auto held = JournalFolder::take(bench.leftWork[0].folder);
    EXPECT_EQ(bench.journal.leftWork().size(), 4U);
    restore(0);
    const auto value = bench.document.state().ZUKarr.at(0, 2).Value;
    EXPECT_EQ(value->number, 205); // the newest but the one that is held
}

TEST_F(Unsaved, WhatIsSavedOrUndoneLeavesNoJournal)
{
    makeNew();
    EXPECT_TRUE(changeValue(*this, 200));
    EXPECT_TRUE(bench.journal.flush());
    EXPECT_EQ(folders(u"work-"_s).size(), 1);
    EXPECT_TRUE(bench.document.undo());
    EXPECT_TRUE(changeValue(*this, 201));
    saveAs(shell.path(u"saved"_s), false);
    EXPECT_FALSE(bench.document.isModified());
    makeNew();
    EXPECT_EQ(folders(u"work-"_s).size(), 0);
    EXPECT_FALSE(action(u"mnuFile_Restore"_s).isEnabled());
}

TEST_F(Unsaved, StateFolderThatCannotBeWrittenIsToldOnce)
{
    shell.file(u"state"_s, "no folder");
    makeNew();
    user().expectMessage(u"Unsaved work cannot be kept"_s);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(changeValue(*this, 200 + i));
        EXPECT_FALSE(bench.journal.flush());
        QCoreApplication::processEvents();
    }
}
