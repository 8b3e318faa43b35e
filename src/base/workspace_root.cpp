// SPDX-License-Identifier: MIT
#include "base/workspace_root.h"

#include "base/posix_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/file.h>

namespace fennel {

namespace {

// Also the mark of a folder that this program made: what else is called so is never emptied.
const QString lockName = QStringLiteral(".lock");

bool isForeign(const QString& path)
{
    const QDir folder(path);
    return !QFile::exists(folder.filePath(lockName)) &&
           !folder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

// The run before may have removed the file between our opening and locking it.
bool isNamed(const Descriptor& file, const std::string& path)
{
    struct stat opened {};
    struct stat named {};
    return file.valid() && ::fstat(file.get(), &opened) == 0 &&
           ::lstat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

std::string lockPath(const QString& root)
{
    return QFile::encodeName(withSeparator(root) + lockName).toStdString();
}

} // namespace

Result<std::shared_ptr<Descriptor>> takeRoot(Files& files, const QString& path)
{
    const std::string lock = lockPath(path);
    constexpr int attempts = 10; // each is lost only to a run that ends at this very moment
    for (int i = 0; i < attempts; ++i) {
        if (isForeign(path))
            return Failure{FailureKind::NoPermission,
                           "Cannot use the folder " + path.toStdString() + ": it holds files."};
        if (Result<void> made = files.makePrivateFolder(path); !made)
            return made.failure();
        auto held = std::make_shared<Descriptor>(
            openFile(lock, O_RDWR | O_CREAT | O_NOFOLLOW, AT_FDCWD, 0600));
        if (!held->valid() && errno != ENOENT)
            return systemFailure("write", lock, errno);
        if (held->valid() && ::flock(held->get(), LOCK_EX | LOCK_NB) != 0)
            return Failure{FailureKind::NoPermission,
                           "Cannot use the folder " + path.toStdString() + ": another copy does."};
        if (isNamed(*held, lock))
            return held;
    }
    return Failure{FailureKind::Io, "Cannot use the folder " + path.toStdString() + '.'};
}

Result<void> needRoot(const Shell& shell)
{
    RunState& run = shell.run;
    const bool there = run.rootLock ? isNamed(*run.rootLock, lockPath(run.WorkspaceRoot))
                                    : isOwnFolder(run.WorkspaceRoot);
    if (there || run.WorkspaceRoot.isEmpty())
        return {};
    Result<std::shared_ptr<Descriptor>> taken = takeRoot(shell.files, run.WorkspaceRoot);
    if (!taken)
        return taken.failure();
    run.rootLock = *taken;
    return {};
}

bool isLeftRoot(const QString& path)
{
    return isOwnFolder(path) && QFile::exists(withSeparator(path) + lockName);
}

// The lock goes last: until then no other copy puts anything into the folder.
Result<void> removeRoot(Files& files, const QString& path, const std::shared_ptr<Descriptor>& lock)
{
    if (!lock || !isNamed(*lock, lockPath(path)))
        return {};
    Result<void> removed;
    const QFileInfoList entries = QDir(path).entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                           QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        if (entry.fileName() == lockName)
            continue;
        const QString name = entry.filePath();
        Result<void> gone =
            entry.isDir() && !entry.isSymLink() ? files.removeFolder(name) : files.remove(name);
        removed = removed ? gone : removed;
    }
    if (removed)
        removed = files.remove(withSeparator(path) + lockName);
    if (removed && !QDir().rmdir(path))
        removed = Failure{FailureKind::Io, "Cannot delete " + path.toStdString() + '.'};
    return removed;
}

} // namespace fennel
