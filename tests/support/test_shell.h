// SPDX-License-Identifier: MIT
// A shell of a test's own: run state with folders in a temporary place, scripted prompts, the real
// bridges of this build. Two can stand side by side.
#pragma once

#include "shell/shell_context.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace fennel::test {

// A file layer in which the n-th change fails as a full disk does; 0 lets all succeed.
class FaultyFiles : public DiskFiles {
public:
    int failAt = 0;
    int calls = 0;
    Result<void> write(const QString& path, const QByteArray& bytes) override;
    Result<void> append(const QString& path, const QByteArray& bytes) override
    {
        return fails() ? full(path) : DiskFiles::append(path, bytes);
    }
    Result<void> overwriteStart(const QString& path, const QByteArray& bytes) override
    {
        return fails() ? full(path) : DiskFiles::overwriteStart(path, bytes);
    }
    Result<void> rename(const QString& source, const QString& target) override
    {
        return fails() ? full(target) : DiskFiles::rename(source, target);
    }
    Result<void> remove(const QString& path) override
    {
        return fails() ? full(path) : DiskFiles::remove(path);
    }
    Result<void> removeFolder(const QString& path) override
    {
        return fails() ? full(path) : DiskFiles::removeFolder(path);
    }
    Result<void> makeFolder(const QString& path) override
    {
        return fails() ? full(path) : DiskFiles::makeFolder(path);
    }
    Result<void> moveFiles(const QString& source, const QString& target) override
    {
        return fails() ? full(target) : DiskFiles::moveFiles(source, target);
    }
    Result<void> makePrivateFolder(const QString& path) override
    {
        return fails() ? full(path) : DiskFiles::makePrivateFolder(path);
    }
    Result<void> copyFolder(const QString& source, const QString& target) override
    {
        return fails() ? full(target) : DiskFiles::copyFolder(source, target);
    }
    Result<void> replaceWhole(const QString& source, const QString& target) override
    {
        return fails() ? full(target) : DiskFiles::replaceWhole(source, target);
    }

private:
    bool fails() { return ++calls == failAt; }
    static Failure full(const QString& path);
};

class TestShell {
public:
    TestShell();
    ~TestShell();
    TestShell(const TestShell&) = delete;
    TestShell& operator=(const TestShell&) = delete;
    // A file in the test's own folder, written with the given bytes; returns its path.
    QString file(const QString& name, const QByteArray& bytes);
    // The same in the Workspace.
    QString member(const QString& name, const QByteArray& bytes);
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    RunState run;
    Log log;
    FaultyFiles files;
    ScriptedPrompts prompts;
    ProcessToolRunner tools;
    Shell shell{run, log, files, prompts, tools};

private:
    QTemporaryDir m_folder;
};

QByteArray bytesOf(const QString& path);

} // namespace fennel::test
