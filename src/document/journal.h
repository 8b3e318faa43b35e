// SPDX-License-Identifier: MIT
// Unsaved work of the open gfxboot, kept in the user's state folder while it is done: after the
// end of the process, however it comes, at most the last two seconds are gone.
#pragma once

#include "document/document.h"
#include "document/journal_writer.h"

#include <QTimer>

#include <map>
#include <mutex>
#include <optional>

namespace fennel {

class Journal : public QObject {
    Q_OBJECT
public:
    // From the first change that is not written until it is, in ms; the disk takes its time too.
    static constexpr int delay = 1000;

    // Shell and document outlive the journal. The folder is unsavedRoot() as it is now.
    Journal(const Shell& shell, Document& document);
    ~Journal() override;

    // Writes what is unsaved and waits for the disk. False if that failed.
    bool flush();
    // Another gfxboot is being opened: what is unsaved of this one is written, and nothing until
    // openEnds(). If it is open then, the journal of the one before is left.
    void openBegins();
    void openEnds(bool opened);
    // What is open now is restored work of this source.
    void adopt(const JournalSource& source);
    // Hands the work to the disk's thread, and returns at once.
    void write();

    [[nodiscard]] std::vector<LeftWork> leftWork() const { return fennel::leftWork(m_root); }

private:
    Q_INVOKABLE void tellFailure();
    void onChange();
    void onHistory();
    void onSaved();
    void tick();
    [[nodiscard]] bool isUnsaved() const;
    [[nodiscard]] JournalValues values() const;
    std::optional<JournalMembers> changedMembers();
    void tell(const Failure& failure);

    Shell m_shell;
    Document& m_document;
    const QString m_root;
    QTimer m_timer;
    // Of what was opened or saved last: a save that goes on names another file already.
    JournalSource m_source;
    QString m_name;
    bool m_gz = false;
    QByteArray m_members; // of the last members that were written: names, files, sizes and times
    struct Kept {
        QByteArray facts;
        QByteArray path;
    };
    std::map<QByteArray, Kept> m_kept; // the files of these members, under names of the journal's
    int m_takes = 0;
    bool m_opening = false;
    bool m_told = false;
    std::mutex m_failureMutex; // the writer is a thread
    std::optional<Failure> m_failure;
    JournalWriter m_writer;
};

} // namespace fennel
