// SPDX-License-Identifier: MIT
#include "document/journal.h"

#include "base/failure_words.h"
#include "base/file_names.h"
#include "base/words.h"
#include "container/member_list.h"
#include "container/member_table.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// A further name of a file that is never written over; its copy where there are no links.
bool keep(const QByteArray& from, const QByteArray& to)
{
    (void)::unlink(to.constData()); // an earlier run's
    return ::link(from.constData(), to.constData()) == 0 ||
           DiskFiles().copy(pathOfBytes(from), pathOfBytes(to)).ok();
}

// Whether it is still the same file with the same bytes, without a look into it.
QByteArray factsOf(const QByteArray& path)
{
    struct stat facts = {};
    if (::stat(path.constData(), &facts) != 0)
        return {};
    return QByteArray::number(static_cast<qulonglong>(facts.st_ino)) + ' ' +
           QByteArray::number(static_cast<qlonglong>(facts.st_size)) + ' ' +
           QByteArray::number(static_cast<qlonglong>(facts.st_mtim.tv_sec)) + '.' +
           QByteArray::number(static_cast<qlonglong>(facts.st_mtim.tv_nsec));
}

} // namespace

Journal::Journal(const Shell& shell, Document& document)
    : m_shell(shell), m_document(document), m_root(unsavedRoot()),
      m_writer(m_root, [this](const Failure& failure) {
          const std::scoped_lock lock(m_failureMutex);
          m_failure = failure;
          QMetaObject::invokeMethod(this, "tellFailure", Qt::QueuedConnection);
      })
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Journal::tick);
    connect(&document, &Document::changed, this, &Journal::onChange);
    connect(&document, &Document::historyChanged, this, &Journal::onHistory);
    connect(&document, &Document::saved, this, &Journal::onSaved);
}

Journal::~Journal() = default;

void Journal::tellFailure()
{
    std::optional<Failure> failure;
    {
        const std::scoped_lock lock(m_failureMutex);
        failure.swap(m_failure);
    }
    if (failure)
        tell(*failure);
}

bool Journal::isUnsaved() const
{
    return m_document.run().GfxOpened && (m_document.isModified() || m_document.inGesture());
}

void Journal::onChange()
{
    if (!m_opening && !m_timer.isActive())
        m_timer.start();
}

void Journal::onHistory()
{
    if (m_opening)
        return;
    if (isUnsaved()) {
        onChange();
        return;
    }
    m_timer.stop();
    m_writer.remove();
}

void Journal::onSaved()
{
    adopt(sourceNow(m_shell.run.GfxPath, false));
}

void Journal::adopt(const JournalSource& source)
{
    m_source = source;
    m_name = m_shell.run.GfxFileName;
    m_gz = m_shell.run.GfxIsGz;
}

void Journal::tick()
{
    // Half of a command is nothing to come back to; it ends soon.
    if (m_document.inMembers())
        m_timer.start();
    else if (isUnsaved())
        write();
    else // a gesture was cancelled
        m_writer.remove();
}

bool Journal::flush()
{
    if (m_opening || !isUnsaved())
        return true;
    m_timer.stop();
    write();
    return m_writer.finish();
}

void Journal::openBegins()
{
    (void)flush();
    m_timer.stop();
    m_opening = true;
}

void Journal::openEnds(bool opened)
{
    m_opening = false;
    if (!opened) {
        if (isUnsaved())
            onChange();
        return;
    }
    m_writer.leave();
    (void)m_writer.finish(); // from now on it can be restored
    // Only what the user saved is a file to come back to.
    const RunState& run = m_document.run();
    adopt(run.GfxFileName == unsavedGfxName ? JournalSource() : sourceNow(run.GfxPath, false));
}

JournalValues Journal::values() const
{
    const ParamState& state = m_document.state();
    JournalValues values;
    values.when = QDateTime::currentDateTimeUtc();
    values.name = m_name;
    values.gz = m_gz;
    values.source = m_source;
    values.upgradeChoice = state.UpgradeChoice;
    values.cfg = m_document.config();
    // The older generations leave the values of a gfxboot before as they were.
    const bool levels = m_document.generation() == Generation::Three;
    for (int file = 0; levels && file < zukFileCount; ++file) {
        for (int number = 1; number <= zukParamCount; ++number) {
            if (const auto& value = state.ZUKarr.at(file, number).Value)
                values.params.emplace_hint(values.params.end(), ParamKey{file, number}, *value);
        }
    }
    return values;
}

// gfxboot.cfg goes with the values, as it changes with every value that is typed.
std::optional<JournalMembers> Journal::changedMembers()
{
    const RunState& run = m_document.run();
    const QByteArray workspace = QFile::encodeName(run.Workspace);
    const Result<QByteArray> list = readBytes(run.Workspace + memberListName);
    std::map<QByteArray, Kept> files;
    QByteArrayList names;
    QByteArray seen;
    for (const MemberName& name : list ? memberNames(*list) : std::vector<MemberName>()) {
        const QByteArray facts = factsOf(workspace + name.bytes);
        if (facts.isEmpty())
            continue;
        files[name.bytes].facts = facts;
        names.append(name.bytes);
        seen += name.bytes + '\n';
        if (name.text != cfgMemberName)
            seen += facts + '\n';
    }
    if (m_writer.hasMembers() && seen == m_members)
        return std::nullopt;
    const QString place = run.WorkspaceRoot + u"~journal/"_s;
    if (!FolderExists(place)) // never made, or taken away by whoever cleans up
        m_kept.clear();
    if (Result<void> made = DiskFiles().makeFolder(place); !made) {
        tell(made.failure());
        return std::nullopt;
    }
    JournalMembers members;
    for (const QByteArray& name : names) {
        const auto kept = m_kept.find(name);
        Kept& file = files[name];
        if (kept != m_kept.end() && kept->second.facts == file.facts) {
            file.path = kept->second.path;
            m_kept.erase(kept);
        } else {
            file.path = QFile::encodeName(place) + QByteArray::number(++m_takes);
            if (!keep(workspace + name, file.path)) {
                (void)::unlink(file.path.constData()); // no part of it passes for the member
                file.facts.clear();                    // tried again at the next write
            }
        }
        members.files.push_back({name, file.path});
    }
    for (const auto& [name, kept] : m_kept)
        members.unused.append(kept.path);
    m_kept = std::move(files);
    m_members = seen;
    return members;
}

void Journal::write()
{
    std::optional<JournalMembers> members = changedMembers();
    m_writer.write(values(), std::move(members));
}

void Journal::tell(const Failure& failure)
{
    m_shell.logFailure(failure);
    if (m_told)
        return;
    m_told = true;
    m_shell.prompts.ShowMessage(
        Words::tr("Unsaved work cannot be kept until this is mended:\n%1\n\n"
                  "The work goes on.")
            .arg(failureWords(failure)));
}

} // namespace fennel
