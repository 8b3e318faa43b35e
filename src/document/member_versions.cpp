// SPDX-License-Identifier: MIT
#include "document/member_versions.h"

#include "base/file_names.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace {

MemberVersions::Snapshot filesOf(const QString& folder)
{
    MemberVersions::Snapshot files;
    const QByteArray start = QFile::encodeName(folder);
    for (const QByteArray& name : plainFiles(folder)) {
        struct stat facts {};
        if (lstat((start + name).constData(), &facts) == 0 && S_ISREG(facts.st_mode))
            files[name] = {0, facts.st_ino, facts.st_size,
                           facts.st_mtim.tv_sec * 1'000'000'000LL + facts.st_mtim.tv_nsec};
    }
    return files;
}

Failure failed(const QByteArray& name)
{
    return {FailureKind::Io, "The history of " + name.toStdString() +
                                 " cannot be kept: " + std::strerror(errno) + '.'};
}

// A further name of the same file, or its copy where a file system has no links.
Result<void> linkOrCopy(const QByteArray& from, const QByteArray& to)
{
    unlink(to.constData());
    if (link(from.constData(), to.constData()) == 0)
        return {};
    return DiskFiles().copy(pathOfBytes(from), pathOfBytes(to));
}

// Not looked into.
bool sameFile(const MemberVersions::Seen& a, const MemberVersions::Seen& b)
{
    return a.inode == b.inode && a.size == b.size && a.changed == b.changed;
}

} // namespace

QString MemberVersions::pathOf(VersionId version) const
{
    return m_shell.run.WorkspaceRoot + QStringLiteral("~history/") + QString::number(version);
}

QByteArray MemberVersions::inWorkspace(const QByteArray& name) const
{
    return QFile::encodeName(m_shell.run.Workspace) + name;
}

Result<VersionId> MemberVersions::keep(const QByteArray& name)
{
    if (m_last == 0) {
        if (Result<void> made = m_shell.files.makeFolder(folderPart(pathOf(0))); !made)
            return made.failure();
    }
    const VersionId version = ++m_last;
    const Result<void> kept = linkOrCopy(inWorkspace(name), QFile::encodeName(pathOf(version)));
    return kept ? Result<VersionId>(version) : kept.failure();
}

Result<MemberVersions::Snapshot> MemberVersions::take()
{
    Snapshot now = filesOf(m_shell.run.Workspace);
    for (auto kept = m_kept.begin(); kept != m_kept.end();) {
        const auto is = now.find(kept->first);
        if (is != now.end() && sameFile(kept->second, is->second)) {
            is->second.version = kept->second.version;
            ++kept;
        } else {
            drop(kept->second.version);
            kept = m_kept.erase(kept);
        }
    }
    for (auto& [name, seen] : now) {
        if (seen.version != 0)
            continue;
        const Result<VersionId> version = keep(name);
        if (!version)
            return version.failure();
        seen.version = *version;
        m_kept[name] = seen;
    }
    return now;
}

// A file that was put back from a copy is another one with the same bytes.
bool MemberVersions::unchanged(const Seen& was, const QByteArray& name, const Seen& now) const
{
    if (sameFile(was, now) || was.size != now.size)
        return was.size == now.size;
    const Result<QByteArray> old = readBytes(pathOf(was.version));
    const Result<QByteArray> fresh = readBytes(pathOfBytes(inWorkspace(name)));
    return old && fresh && *old == *fresh;
}

Result<std::map<QByteArray, BeforeAfter<VersionId>>> MemberVersions::since(Snapshot&& before,
                                                                           qint64& bytes)
{
    std::map<QByteArray, BeforeAfter<VersionId>> changes;
    const Snapshot files = filesOf(m_shell.run.Workspace);
    for (const auto& [name, now] : files) {
        const auto was = before.find(name);
        if (was != before.end() && unchanged(was->second, name, now))
            continue;
        const Result<VersionId> version = keep(name);
        if (!version)
            return version.failure();
        changes[name].after = *version;
        bytes += now.size;
    }
    for (const auto& [name, was] : before) {
        if (files.contains(name) && !changes.contains(name))
            continue;
        changes[name].before = was.version;
        m_kept.erase(name); // who asked has it now
        bytes += was.size;
    }
    return changes;
}

Result<void> MemberVersions::restore(Snapshot&& before)
{
    const Snapshot now = filesOf(m_shell.run.Workspace);
    std::map<QByteArray, VersionId> versions;
    for (const auto& [name, is] : now) {
        if (!before.contains(name))
            versions[name] = 0;
    }
    for (const auto& [name, was] : before) {
        const auto is = now.find(name);
        if (is == now.end() || !sameFile(was, is->second))
            versions[name] = was.version;
    }
    return put(versions);
}

Result<void> MemberVersions::put(const std::map<QByteArray, VersionId>& versions)
{
    const auto work = [this](VersionId version) {
        return QFile::encodeName(pathOf(version)) + '~';
    };
    // All that can fail for want of space comes first.
    for (const auto& [name, version] : versions) {
        if (version == 0)
            continue;
        if (Result<void> made = linkOrCopy(QFile::encodeName(pathOf(version)), work(version));
            !made)
            return made;
    }
    for (const auto& [name, version] : versions) {
        const QByteArray target = inWorkspace(name);
        // Removed first: renaming one link of a file over another does nothing.
        if (unlink(target.constData()) != 0 && errno != ENOENT)
            return failed(name);
        if (version != 0 && rename(work(version).constData(), target.constData()) != 0)
            return failed(name);
    }
    return {};
}

void MemberVersions::drop(VersionId version)
{
    if (version != 0)
        unlink(QFile::encodeName(pathOf(version)).constData());
}

void MemberVersions::clear()
{
    if (m_last > 0)
        (void)m_shell.files.removeFolder(folderPart(pathOf(0)));
    m_last = 0;
    m_kept.clear();
}

} // namespace fennel
