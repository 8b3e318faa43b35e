// SPDX-License-Identifier: MIT
#include "base/file_steps.h"

namespace fennel {

using namespace Qt::StringLiterals;

// Leaving a procedure early, by whichever return, takes everything back: only keep() makes it
// final.
FileSteps::~FileSteps()
{
    undo();
}

// Must succeed before the target is touched. A target that is new is noted without a copy: taking
// the step back then means removing it.
Result<void> FileSteps::save(const QString& target)
{
    // Neither replaced by a file nor taken away by an undo.
    if (FolderExists(target))
        return Failure{FailureKind::Io,
                       "Cannot write " + target.toStdString() + ": a folder has this name."};
    if (!FileExists(target)) {
        m_saved.push_back({target, {}});
        return {};
    }
    const QString kept = m_shell.run.WorkspaceRoot + u"~undo_%1"_s.arg(m_saved.size());
    Result<void> done = m_shell.files.copy(target, kept);
    if (done)
        m_saved.push_back({target, kept});
    else
        // Half a copy must not be taken for the old file by a later undo().
        (void)m_shell.files.remove(kept);
    return done;
}

Result<void> FileSteps::replace(const QString& source, const QString& target)
{
    Result<void> saved = save(target);
    return saved ? m_shell.files.rename(source, target) : saved;
}

Result<void> FileSteps::copy(const QString& source, const QString& target)
{
    Result<void> saved = save(target);
    return saved ? m_shell.files.copy(source, target) : saved;
}

Result<void> FileSteps::write(const QString& target, const QByteArray& bytes)
{
    Result<void> saved = save(target);
    return saved ? m_shell.files.write(target, bytes) : saved;
}

Result<void> FileSteps::remove(const QString& target)
{
    Result<void> saved = save(target);
    return saved ? m_shell.files.remove(target) : saved;
}

void FileSteps::keep()
{
    for (const Saved& saved : m_saved) {
        if (!saved.copy.isEmpty())
            (void)m_shell.files.remove(saved.copy); // what stays goes with WorkspaceRoot
    }
    m_saved.clear();
}

// From the last step to the first, so that a target that was changed twice ends with its oldest
// content. A copy that cannot be put back is the only one left of that file: the user is told where
// it is.
void FileSteps::undo()
{
    for (; !m_saved.empty(); m_saved.pop_back()) {
        const Saved& saved = m_saved.back();
        const Result<void> back = saved.copy.isEmpty()
                                      ? m_shell.files.remove(saved.target)
                                      : m_shell.files.rename(saved.copy, saved.target);
        if (!back && !saved.copy.isEmpty())
            m_shell.told(Failure{back.failure().kind, back.failure().text + "\nA copy is kept: " +
                                                          saved.copy.toStdString()});
        else
            (void)m_shell.told(back);
    }
}

} // namespace fennel
