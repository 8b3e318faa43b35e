// SPDX-License-Identifier: MIT
// A shell of a test's own: run state with folders in a temporary place, scripted prompts, the real
// bridges of this build. Two can stand side by side.
#pragma once

#include "base/shell_context.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

namespace fennel::test {

// A file layer in which the n-th change fails, as on a full disk or for want of the right (`kind`
// is NoSpace or NoPermission); 0 lets all succeed.
class FaultyFiles : public DiskFiles {
public:
    int failAt = 0;
    int calls = 0;
    FailureKind kind = FailureKind::NoSpace;
    Result<void> write(const QString& path, const QByteArray& bytes) override;
    Result<void> append(const QString& path, const QByteArray& bytes) override
    {
        return fails() ? failure(path) : DiskFiles::append(path, bytes);
    }
    Result<void> rename(const QString& source, const QString& target) override
    {
        return fails() ? failure(target) : DiskFiles::rename(source, target);
    }
    Result<void> remove(const QString& path) override
    {
        return fails() ? failure(path) : DiskFiles::remove(path);
    }
    Result<void> removeFolder(const QString& path) override
    {
        return fails() ? failure(path) : DiskFiles::removeFolder(path);
    }
    Result<void> makeFolder(const QString& path) override
    {
        return fails() ? failure(path) : DiskFiles::makeFolder(path);
    }
    Result<void> makePrivateFolder(const QString& path) override
    {
        return fails() ? failure(path) : DiskFiles::makePrivateFolder(path);
    }
    Result<void> copyFolder(const QString& source, const QString& target) override
    {
        return fails() ? failure(target) : DiskFiles::copyFolder(source, target);
    }
    Result<void> replaceWhole(const QString& source, const QString& target) override
    {
        return fails() ? failure(target) : DiskFiles::replaceWhole(source, target);
    }

private:
    bool fails() { return ++calls == failAt; }
    [[nodiscard]] Failure failure(const QString& path) const;
};

// What may befall a tool: it cannot be started, ends at its first written byte or its 513th, finds
// the disk full behind the 512th, hangs, or ends without a word and without a result.
enum class ToolFault { NotStarted, KilledAtOnce, KilledHalfWay, FullDisk, Hung, Silent };

// The real tools, of which the n-th meets its fault; 0 lets all succeed.
class FaultyTools : public ProcessToolRunner {
public:
    int failAt = 0;
    int calls = 0;
    ToolFault fault = ToolFault::NotStarted;
    Result<void> RunToolAndWait(const QStringList& commandLine) override;
    [[nodiscard]] QString lastErrorOutput() const override;

private:
    ProcessToolRunner m_hasty{300};
    bool m_lastWasHasty = false;
};

class TestShell {
public:
    TestShell();
    ~TestShell();
    TestShell(const TestShell&) = delete;
    TestShell& operator=(const TestShell&) = delete;
    // Makes AppPath a folder as the program's first start leaves it: its data, and a settings file.
    void install();
    // A file in the test's own folder, written with the given bytes; returns its path.
    QString file(const QString& name, const QByteArray& bytes);
    // The same in the Workspace.
    QString member(const QString& name, const QByteArray& bytes);
    QString folder(const QString& name);
    // A shell script that stands in for a tool.
    QString script(const QString& name, const QByteArray& text);
    // A picture of one colour, of the kind that the name's ending says.
    QString picture(const QString& name, QSize size, QRgb colour);
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    RunState run;
    Log log;
    FaultyFiles files;
    ScriptedPrompts prompts;
    FaultyTools tools;
    Shell shell{run, log, files, prompts, tools};

private:
    QTemporaryDir m_folder;
};

QByteArray bytesOf(const QString& path);
QByteArray jpegOf(QSize size); // of one colour

} // namespace fennel::test
