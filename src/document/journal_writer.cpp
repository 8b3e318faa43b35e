// SPDX-License-Identifier: MIT
#include "document/journal_writer.h"

#include "container/cpio.h"

#include <QFile>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The bytes of a member; a QString cannot name every one.
Result<QByteArray> memberBytes(const QByteArray& path)
{
    QFile file;
    std::FILE* opened = std::fopen(path.constData(), "rbe");
    if (opened == nullptr || !file.open(opened, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return Failure{FailureKind::Io, "Cannot read " + path.toStdString() + '.'};
    return file.readAll();
}

Result<QByteArray> archiveOf(const JournalMembers& members)
{
    std::vector<QByteArray> bytes;
    std::vector<CpioMember> list;
    for (const auto& [name, path] : members.files) {
        Result<QByteArray> read = memberBytes(path);
        if (!read)
            return read.failure();
        struct stat facts = {};
        (void)::stat(path.constData(), &facts);
        bytes.push_back(std::move(*read));
        list.push_back({name.toStdString(), static_cast<std::uint32_t>(facts.st_mtime), {}});
    }
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i].data = {reinterpret_cast<const std::uint8_t*>(bytes[i].constData()),
                        static_cast<std::size_t>(bytes[i].size())};
    const auto archive = writeCpio(list);
    if (!archive)
        return Failure{archive.failure().kind,
                       "Unsaved work cannot be kept: " + archive.failure().text + '.'};
    return QByteArray(reinterpret_cast<const char*>(archive->data()),
                      static_cast<qsizetype>(archive->size()));
}

} // namespace

JournalWriter::JournalWriter(const QString& root, std::function<void(const Failure&)> failed)
    : m_root(root), m_failed(std::move(failed))
{
}

JournalWriter::~JournalWriter()
{
    {
        const std::lock_guard lock(m_lock);
        m_ending = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void JournalWriter::write(JournalValues values, std::optional<JournalMembers> members)
{
    if (members)
        m_hasMembers = true;
    post({Job::Write, std::move(values), std::move(members)});
}

void JournalWriter::remove()
{
    m_hasMembers = false;
    post({Job::Remove, {}, {}});
}

void JournalWriter::leave()
{
    m_hasMembers = false;
    post({Job::Leave, {}, {}});
}

void JournalWriter::post(Job&& job)
{
    // Most runs have nothing to write.
    if (!m_thread.joinable()) {
        if (job.kind != Job::Write)
            return;
        m_thread = std::thread([this] { run(); });
    }
    {
        const std::lock_guard lock(m_lock);
        if (job.kind == Job::Write && !m_jobs.empty() && m_jobs.back().kind == Job::Write) {
            Job& waiting = m_jobs.back();
            if (job.members && waiting.members)
                job.members->unused += waiting.members->unused;
            if (!job.members)
                job.members = std::move(waiting.members);
            waiting = std::move(job);
        } else {
            m_jobs.push_back(std::move(job));
        }
    }
    m_changed.notify_all();
}

bool JournalWriter::finish()
{
    std::unique_lock lock(m_lock);
    m_changed.wait(lock, [this] { return m_jobs.empty() && !m_busy; });
    return m_good;
}

void JournalWriter::run()
{
    std::unique_lock lock(m_lock);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ending || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_busy = true;
        lock.unlock();
        doJob(job);
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

void JournalWriter::doJob(Job& job)
{
    if (job.kind == Job::Write) {
        const Result<void> done = writeJob(job);
        for (const QByteArray& path : job.members ? job.members->unused : QByteArrayList())
            ::unlink(path.constData());
        m_good = done.ok();
        if (!done)
            m_failed(done.failure());
        return;
    }
    if (m_folder && job.kind == Job::Remove)
        m_folder->removeAll();
    m_folder.reset();
    m_source.reset();
}

Result<void> JournalWriter::writeJob(Job& job)
{
    if (!m_folder) {
        Result<JournalFolder> made = JournalFolder::make(m_root);
        if (!made) {
            m_hasMembers = false;
            return made.failure();
        }
        m_folder = std::move(*made);
        m_base = {};
    }
    const QString old = m_base.base;
    if (job.members) {
        if (Result<void> packed = packMembers(*job.members); !packed) {
            m_hasMembers = false;
            return packed;
        }
    }
    noteSource(job.values.source);
    job.values.base = m_base.base;
    job.values.baseSize = m_base.baseSize;
    job.values.baseChecksum = m_base.baseChecksum;
    Result<void> done = m_folder->replace(u"values"_s, journalText(job.values));
    // Until then the values name the old members.
    if (done && !old.isEmpty() && old != m_base.base)
        m_folder->removeFile(old);
    return done;
}

Result<void> JournalWriter::packMembers(const JournalMembers& members)
{
    const Result<QByteArray> archive = archiveOf(members);
    if (!archive)
        return archive.failure();
    const QString name = u"base-%1"_s.arg(++m_number);
    if (Result<void> done = m_folder->replace(name, *archive); !done)
        return done;
    m_base.base = name;
    m_base.baseSize = archive->size();
    m_base.baseChecksum = checksumOf(*archive);
    return {};
}

// Reading a file takes time, so it is done once, and here.
void JournalWriter::noteSource(JournalSource& source)
{
    if (!source.checksum.isEmpty())
        return;
    if (!m_source || m_source->path != source.path || m_source->modified != source.modified) {
        m_source = sourceNow(source.path, true);
        if (m_source->size != source.size || m_source->modified != source.modified)
            m_source->checksum.clear();
        m_source->size = source.size;
        m_source->modified = source.modified;
    }
    source.checksum = m_source->checksum;
}

} // namespace fennel
