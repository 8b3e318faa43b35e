// SPDX-License-Identifier: MIT
#include "document/member_versions.h"

#include "support/test_shell.h"

#include <QDir>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(MemberVersions, BringsEveryByteBack)
{
    TestShell shell;
    MemberVersions history(shell.shell);
    const auto contents = [&] {
        std::map<QString, QByteArray> files;
        for (const QString& name : QDir(shell.run.Workspace).entryList(QDir::Files))
            files[name] = bytesOf(shell.run.Workspace + name);
        return files;
    };
    for (const auto& [name, bytes] :
         {std::pair{u"kept"_s, "k"}, {u"gone"_s, "g"}, {u"new"_s, "1"}, {u"new~"_s, "~"}})
        shell.member(name, bytes);
    const auto before = contents();
    auto snapshot = history.take();
    ASSERT_TRUE(snapshot);
    DiskFiles disk;
    ASSERT_TRUE(disk.remove(shell.run.Workspace + u"gone"_s));
    // In whatever way a file is written, its older version stays.
    ASSERT_TRUE(disk.write(shell.run.Workspace + u"new"_s, "22"));
    ASSERT_TRUE(disk.append(shell.run.Workspace + u"new"_s, "3"));
    ASSERT_TRUE(disk.write(shell.run.Workspace + u"added"_s, "a"));
    const auto after = contents();
    qint64 bytes = 0;
    const auto changes = history.since(std::move(*snapshot), bytes);
    ASSERT_TRUE(changes);
    EXPECT_EQ(changes->size(), 3U);
    EXPECT_EQ(bytes, 1 + 1 + 3 + 1);
    for (int round = 0; round < 2; ++round) {
        for (const bool back : {true, false}) {
            std::map<QByteArray, VersionId> versions;
            for (const auto& [name, pair] : *changes)
                versions[name] = back ? pair.before : pair.after;
            ASSERT_TRUE(history.put(versions));
            EXPECT_EQ(contents(), back ? before : after);
            // What is written later spoils no version.
            ASSERT_TRUE(disk.write(shell.run.Workspace + u"new"_s, "zz"));
        }
    }
    auto other = history.take();
    // What is kept already is not kept again.
    const auto versions = [&] { return plainFiles(history.pathOf(0).chopped(1)).size(); };
    const auto kept = versions();
    ASSERT_TRUE(history.take());
    EXPECT_EQ(versions(), kept);
    ASSERT_TRUE(disk.write(shell.run.Workspace + u"kept"_s, "other"));
    ASSERT_TRUE(disk.remove(shell.run.Workspace + u"new"_s));
    ASSERT_TRUE(history.restore(std::move(*other)));
    EXPECT_EQ(bytesOf(shell.run.Workspace + u"kept"_s), "k");
    EXPECT_TRUE(FileExists(shell.run.Workspace + u"new"_s));
    history.clear();
    EXPECT_FALSE(FolderExists(shell.run.WorkspaceRoot + u"~history"_s));
}
