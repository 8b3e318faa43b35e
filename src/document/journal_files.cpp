// SPDX-License-Identifier: MIT
#include "document/journal_files.h"

#include "base/failure_kind.h"
#include "base/failure_words.h"
#include "base/files.h"
#include "base/user_folders.h"
#include "container/cpio.h"
#include "container/member_table.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString valuesName = u"values"_s;
const QString lockName = u"lock"_s;
constexpr qint64 valuesLimit = 64LL * 1024 * 1024; // bytes
// Between the making of a folder and its lock another process may look.
constexpr int freshSeconds = 60;

Failure failed(const QString& path, const QString& reason)
{
    return {failureKindOf(errno),
            "Cannot write " + path.toStdString() + ": " + reason.toStdString() + '.'};
}

Failure systemFailed(const QString& path)
{
    return failed(path, QString::fromLocal8Bit(std::strerror(errno)));
}

void syncFolder(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    (void)::fsync(fd);
    ::close(fd);
}

// -1 if another process holds it.
int locked(const QString& folder)
{
    const int fd = ::open(QFile::encodeName(folder + lockName).constData(),
                          O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) == 0)
        return fd;
    if (fd >= 0)
        ::close(fd);
    return -1;
}

QStringList foldersLike(const QString& root, const QString& start)
{
    QStringList found;
    const QStringList names = QDir(root).entryList({start + u'*'}, QDir::Dirs | QDir::NoSymLinks);
    for (const QString& name : names)
        found.append(root + name + u'/');
    return found;
}

QString newestBase(const QString& folder)
{
    return QDir(folder).entryList({u"base-*"_s}, QDir::Files, QDir::Time).value(0);
}

Result<JournalValues> readValues(const QString& folder)
{
    const Result<QByteArray> text = readBytes(folder + valuesName, valuesLimit);
    return text ? journalValuesFrom(*text) : text.failure();
}

LeftWork describe(const QString& folder)
{
    const Result<JournalValues> values = readValues(folder);
    if (!values)
        return {folder, QFileInfo(folder).lastModified(), {}, {}, true};
    const bool whole = fileSize(folder + values->base) == values->baseSize;
    return {folder, values->when, values->name, values->source.path,
            !whole || !values->when.isValid()};
}

// What a process left that ended while it made or removed a journal.
void sweep(const QString& root)
{
    const QDateTime now = QDateTime::currentDateTime();
    for (const QString& folder : foldersLike(root, u"new-"_s) + foldersLike(root, u"gone-"_s)) {
        if (QFileInfo(folder).lastModified().secsTo(now) < freshSeconds)
            continue;
        if (auto left = JournalFolder::take(folder))
            left->removeAll();
    }
}

// The archive with gfxboot.cfg as it was last.
Result<QByteArray> withConfig(const QByteArray& archive, const QByteArray& config)
{
    auto members = readCpio(spanOf(archive));
    if (!members)
        return members.failure();
    const auto found = std::ranges::find(*members, cfgMemberName.toStdString(), &CpioMember::name);
    if (config.isNull() || config.isEmpty() || found == members->end())
        return archive;
    found->data = spanOf(config);
    const auto packed = writeCpio(*members);
    if (!packed)
        return packed.failure();
    return QByteArray(reinterpret_cast<const char*>(packed->data()),
                      static_cast<qsizetype>(packed->size()));
}

// The members that the values name, or, without values, those that are there.
Result<QByteArray> readBase(const QString& folder, const std::optional<JournalValues>& values)
{
    const QString name = values ? values->base : newestBase(folder);
    Result<QByteArray> bytes =
        name.startsWith("base-"_L1) && !name.contains(u'/')
            ? readBytes(folder + name)
            : Failure{FailureKind::NotFound, "The files of the unsaved work are missing."};
    if (!bytes)
        return bytes;
    if (values && checksumOf(*bytes) != values->baseChecksum)
        return Failure{FailureKind::Malformed, "The files of the unsaved work are damaged."};
    const Result<QByteArray> message =
        withConfig(*bytes, values ? values->cfg.bytes : QByteArray());
    return message ? message
                   : Failure{message.failure().kind, "The files of the unsaved work are damaged: " +
                                                         message.failure().text + '.'};
}

} // namespace

QString unsavedRoot()
{
    return stateHome() + u"fennel-gfx/unsaved/"_s;
}

Result<JournalFolder> JournalFolder::make(const QString& root)
{
    DiskFiles files;
    if (Result<void> made = files.makeFolder(folderPart(root.chopped(1))); !made)
        return made.failure();
    if (Result<void> made = files.makePrivateFolder(root); !made)
        return made.failure();
    QByteArray path = QFile::encodeName(root) + "new-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr)
        return systemFailed(root);
    const QString folder = QFile::decodeName(path) + u'/';
    const int lock = locked(folder);
    if (lock < 0)
        return systemFailed(folder);
    return JournalFolder(folder, lock);
}

std::optional<JournalFolder> JournalFolder::take(const QString& path)
{
    if (!isOwnFolder(path))
        return std::nullopt;
    const int lock = locked(path);
    return lock < 0 ? std::nullopt : std::optional(JournalFolder(path, lock));
}

JournalFolder::JournalFolder(JournalFolder&& other) noexcept
    : m_path(std::move(other.m_path)), m_lock(std::exchange(other.m_lock, -1))
{
}

JournalFolder& JournalFolder::operator=(JournalFolder&& other) noexcept
{
    std::swap(m_path, other.m_path);
    std::swap(m_lock, other.m_lock);
    return *this;
}

JournalFolder::~JournalFolder()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

Result<void> JournalFolder::replace(const QString& name, const QByteArray& bytes)
{
    QSaveFile file(m_path + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() ||
        ::fsync(file.handle()) != 0 || !file.commit())
        return failed(file.fileName(), file.errorString());
    syncFolder(m_path);
    if (name == valuesName && m_path.contains("/new-"_L1))
        (void)renamed(u"work-"_s);
    return {};
}

void JournalFolder::removeFile(const QString& name) const
{
    (void)QFile::remove(m_path + name);
}

QString JournalFolder::renamed(const QString& start)
{
    const QString bare = m_path.chopped(1);
    const QString id = bare.section(u'-', -1);
    const QString target = folderPart(bare) + start + id;
    if (::rename(QFile::encodeName(bare).constData(), QFile::encodeName(target).constData()) == 0)
        m_path = target + u'/';
    syncFolder(folderPart(bare));
    return m_path;
}

void JournalFolder::removeAll()
{
    (void)DiskFiles().removeFolder(renamed(u"gone-"_s));
}

QString JournalFolder::putAside()
{
    return renamed(u"kept-"_s);
}

std::vector<LeftWork> leftWork(const QString& root)
{
    std::vector<LeftWork> left;
    if (!isOwnFolder(root))
        return left;
    sweep(root);
    for (const QString& folder : foldersLike(root, u"work-"_s)) {
        if (JournalFolder::take(folder))
            left.push_back(describe(folder));
    }
    std::ranges::stable_sort(left, std::greater(), &LeftWork::when);
    int readable = 0;
    std::erase_if(left, [&](const LeftWork& work) {
        if (work.damaged || ++readable <= unsavedLimit)
            return false;
        if (auto old = JournalFolder::take(work.folder))
            old->removeAll();
        return true;
    });
    left.resize(std::min(left.size(), std::size_t{unsavedLimit}));
    return left;
}

Restorable readJournal(const QString& folder)
{
    Restorable found;
    const auto keep = [&](const auto& result, auto& place) {
        if (result)
            place = *result;
        else
            found.faults.append(failureWords(result.failure()));
    };
    keep(readValues(folder), found.values);
    keep(readBase(folder, found.values), found.message);
    return found;
}

JournalSource sourceNow(const QString& path, bool checked)
{
    JournalSource source;
    source.path = path;
    const QFileInfo file(path);
    if (path.isEmpty() || !file.isFile())
        return source;
    source.size = file.size();
    source.modified = file.lastModified().toMSecsSinceEpoch();
    if (checked) {
        if (const Result<QByteArray> bytes = readBytes(path))
            source.checksum = checksumOf(*bytes);
    }
    return source;
}

bool isUnchanged(const JournalSource& source)
{
    const JournalSource now = sourceNow(source.path, false);
    if (source.size < 0 || now.size != source.size)
        return false;
    return now.modified == source.modified ||
           (!source.checksum.isEmpty() && sourceNow(source.path, true).checksum == source.checksum);
}

} // namespace fennel
