// SPDX-License-Identifier: MIT
// Writes a journal in a thread of its own, so that no edit waits for a disk.
#pragma once

#include "document/journal_files.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace fennel {

// The files to pack as a journal's members. Nobody writes into them.
struct JournalMember {
    QByteArray name;
    QByteArray path;
};
struct JournalMembers {
    std::vector<JournalMember> files;
    QByteArrayList unused; // by these and later members; they go once these are packed
};

// Everything is called from one thread and returns at once, but for finish(). What is asked for is
// done in that order; of values that come faster than the disk takes them the last ones are
// written.
class JournalWriter {
public:
    // `failed` is called in the writing thread.
    JournalWriter(const QString& root, std::function<void(const Failure&)> failed);
    ~JournalWriter(); // does what was asked for
    JournalWriter(const JournalWriter&) = delete;
    JournalWriter& operator=(const JournalWriter&) = delete;

    // The first of a gfxboot makes a folder. The values get the checksum of their source, if that
    // still has its size and time, and the name of the members: these, or the ones before.
    void write(JournalValues values, std::optional<JournalMembers> members);
    // The gfxboot has no unsaved work: its folder goes.
    void remove();
    // The folder is left for whoever restores it; the next write makes another.
    void leave();
    // Waits until all is done. False if the last write failed.
    bool finish();
    // Whether members stand in the folder, or will; without them a write has to bring some.
    [[nodiscard]] bool hasMembers() const { return m_hasMembers; }

private:
    struct Job {
        enum Kind { Write, Remove, Leave } kind = Write;
        JournalValues values;
        std::optional<JournalMembers> members;
    };
    void post(Job&& job);
    void run();
    void doJob(Job& job);
    Result<void> writeJob(Job& job);
    Result<void> packMembers(const JournalMembers& members);
    void noteSource(JournalSource& source);

    const QString m_root;
    const std::function<void(const Failure&)> m_failed;
    std::atomic<bool> m_hasMembers = false;

    std::mutex m_lock; // of the three below
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    bool m_busy = false;
    bool m_ending = false;

    // The thread's own; its caller reads m_good once it stands still.
    std::optional<JournalFolder> m_folder;
    JournalValues m_base; // its name, size and checksum count
    std::optional<JournalSource> m_source;
    int m_number = 0;
    bool m_good = true;
    std::thread m_thread;
};

} // namespace fennel
