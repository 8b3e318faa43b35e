// SPDX-License-Identifier: MIT
#include "base/files.h"

#include "base/failure_kind.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace fs = std::filesystem;

namespace {

Failure systemFailure(const char* verb, const QString& path, int error)
{
    return {failureKindOf(error), "Cannot " + std::string(verb) + " " + path.toStdString() + ": " +
                                      std::strerror(error) + "."};
}

// A file descriptor that closes itself.
class Descriptor {
public:
    Descriptor(const QString& path, int flags, mode_t mode = 0666)
        : m_fd(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
    {
    }
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int fd() const { return m_fd; }

private:
    int m_fd;
};

constexpr qint64 readStep = 64LL * 1024; // bytes, of a file that claims to be shorter

// At most `most` bytes from the start of a file. QFile::read() sets aside all that it is asked for,
// so it is asked for what the file claims to have, and again for as long as more comes.
QByteArray upTo(qint64 most, QFile& file)
{
    const qint64 step = std::max(file.size() + 1, readStep);
    QByteArray bytes;
    while (bytes.size() < most) {
        QByteArray part(std::min(step, most - bytes.size()), Qt::Uninitialized);
        const qint64 got = file.read(part.data(), part.size());
        if (got <= 0)
            break;
        part.truncate(got);
        bytes += part;
    }
    return bytes;
}

// Without `sync` the bytes may still be in the system's cache when this returns: good enough for
// working files, not for the file that replaces the user's only copy.
Result<void> writeAll(const QString& path, int flags, const QByteArray& bytes, bool sync)
{
    const Descriptor file(path, flags);
    if (file.fd() < 0)
        return systemFailure("write", path, errno);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n =
            ::write(file.fd(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        // A write may be short or interrupted without being wrong.
        if (n < 0 && errno != EINTR)
            return systemFailure("write", path, errno);
        if (n > 0)
            done += n;
    }
    if (sync && ::fsync(file.fd()) != 0)
        return systemFailure("write", path, errno);
    return {};
}

// A rename is safe against a power cut only once its folder is synced too. A failure is not told:
// the new file is in place already.
void syncFolder(const QString& folder)
{
    const Descriptor file(folder, O_RDONLY | O_DIRECTORY);
    if (file.fd() >= 0)
        ::fsync(file.fd());
}

// Makes the folder `target` and runs `step` (which returns an errno) on each plain file of `source`
// and its place in `target`.
template <class Step>
Result<void> forEachFile(const QString& source, const QString& target, Step step)
{
    std::error_code error;
    const fs::path to = QFile::encodeName(target).toStdString();
    fs::create_directories(to, error);
    fs::directory_iterator files(QFile::encodeName(source).toStdString(), error);
    if (error)
        return systemFailure("read", source, error.value());
    for (const fs::directory_entry& file : files) {
        if (!file.is_regular_file(error))
            continue;
        const int failed = step(file.path(), to / file.path().filename());
        if (failed != 0)
            return systemFailure(
                "write", withSeparator(target) + QFile::decodeName(file.path().filename().c_str()),
                failed);
    }
    return {};
}

// A "/" at the end would make the system follow a link.
QString withoutSeparator(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) && path.size() > 1 ? path.chopped(1) : path;
}

// What a chain of links ends in; the path itself if it is no link.
QString linkTarget(const QString& path)
{
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(path.toStdString(), error);
    return error ? path : QString::fromStdString(real.string());
}

} // namespace

Result<void> DiskFiles::write(const QString& path, const QByteArray& bytes)
{
    return writeAll(path, O_WRONLY | O_CREAT | O_TRUNC, bytes, false);
}

Result<void> DiskFiles::append(const QString& path, const QByteArray& bytes)
{
    return writeAll(path, O_WRONLY | O_CREAT | O_APPEND, bytes, false);
}

Result<void> DiskFiles::overwriteStart(const QString& path, const QByteArray& bytes)
{
    return writeAll(path, O_WRONLY | O_CREAT, bytes, false);
}

Result<void> DiskFiles::copy(const QString& source, const QString& target)
{
    const Result<QByteArray> bytes = readBytes(source);
    return bytes ? write(target, *bytes) : Result<void>(bytes.failure());
}

Result<void> DiskFiles::rename(const QString& source, const QString& target)
{
    const QByteArray from = QFile::encodeName(source);
    const QByteArray to = QFile::encodeName(target);
    if (::rename(from.constData(), to.constData()) == 0)
        return {};
    // The temporary folder often lies on a file system of its own, and rename() does not cross
    // over.
    if (errno != EXDEV)
        return systemFailure("move", source + QStringLiteral(" to ") + target, errno);
    if (Result<void> moved = replaceWhole(source, target); !moved)
        return moved;
    return remove(source);
}

Result<void> DiskFiles::remove(const QString& path)
{
    // Callers remove in order to be sure that a tool's old output is gone, so "not there" is what
    // they want.
    if (::unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT)
        return {};
    return systemFailure("delete", path, errno);
}

Result<void> DiskFiles::removeFolder(const QString& path)
{
    std::error_code error;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), error);
    if (error)
        return systemFailure("delete", path, error.value());
    return {};
}

Result<void> DiskFiles::makeFolder(const QString& path)
{
    std::error_code error;
    const QString bare = withoutSeparator(path);
    std::filesystem::create_directories(QFile::encodeName(bare).toStdString(), error);
    // create_directories() may report success although a plain file stands in the way.
    if (!error && FolderExists(path))
        return {};
    return systemFailure("make the folder", path, error ? error.value() : ENOTDIR);
}

Result<void> DiskFiles::moveFiles(const QString& source, const QString& target)
{
    return forEachFile(source, target, [](const fs::path& from, const fs::path& to) {
        if (::rename(from.c_str(), to.c_str()) == 0)
            return 0;
        if (errno != EXDEV)
            return errno;
        std::error_code error;
        fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
        if (!error)
            fs::remove(from, error);
        return error.value();
    });
}

Result<void> DiskFiles::makePrivateFolder(const QString& path)
{
    const QString bare = withoutSeparator(path);
    // The temporary folder is open to every user, so a folder found there may be a trap.
    if (::mkdir(QFile::encodeName(bare).constData(), 0700) != 0 && errno != EEXIST)
        return systemFailure("make the folder", path, errno);
    // The owner is asked of the opened folder, not of the name, which might change in between.
    const Descriptor folder(bare, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    struct stat facts = {};
    if (folder.fd() < 0 || ::fstat(folder.fd(), &facts) != 0 || facts.st_uid != ::geteuid())
        return systemFailure("use the folder", path, EPERM);
    if ((facts.st_mode & 07777) != 0700 && ::fchmod(folder.fd(), 0700) != 0)
        return systemFailure("use the folder", path, errno);
    return {};
}

Result<void> DiskFiles::copyFolder(const QString& source, const QString& target)
{
    return forEachFile(source, target, [](const fs::path& from, const fs::path& to) {
        std::error_code error;
        fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
        return error.value();
    });
}

Result<void> DiskFiles::replaceWhole(const QString& source, const QString& target)
{
    const Result<QByteArray> bytes = readBytes(source);
    if (!bytes)
        return bytes.failure();
    const QString real = linkTarget(target);
    if (FolderExists(real))
        return systemFailure("write", target, EISDIR);
    // Beside the target, since only a rename within one file system is a single step, under a name
    // that is short enough everywhere. The process id keeps two copies of the program apart.
    const QString beside = folderPart(real) + QStringLiteral(".fennel-gfx.%1.new").arg(::getpid());
    struct stat old = {};
    const bool existed = ::stat(QFile::encodeName(real).constData(), &old) == 0;
    // A rename would replace a write-protected file without asking, as it needs rights on the
    // folder only.
    if (existed && ::access(QFile::encodeName(real).constData(), W_OK) != 0)
        return systemFailure("write", target, errno);
    Result<void> done = writeAll(beside, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, *bytes, true);
    if (done && existed && ::chmod(QFile::encodeName(beside).constData(), old.st_mode & 07777) != 0)
        done = systemFailure("set the permissions of", beside, errno);
    // An ordinary user cannot give files away (EPERM): the file then belongs to whoever saves it.
    if (done && existed &&
        ::chown(QFile::encodeName(beside).constData(), old.st_uid, old.st_gid) != 0 &&
        errno != EPERM)
        done = systemFailure("set the owner of", beside, errno);
    if (done &&
        ::rename(QFile::encodeName(beside).constData(), QFile::encodeName(real).constData()) != 0)
        done = systemFailure("replace", target, errno);
    if (!done) {
        ::unlink(QFile::encodeName(beside).constData());
        return done;
    }
    syncFolder(folderPart(real));
    return {};
}

bool FileExists(const QString& path)
{
    return QFileInfo(path).isFile();
}

bool FolderExists(const QString& path)
{
    return QFileInfo(path).isDir();
}

bool isOwnFolder(const QString& path)
{
    const QString bare = withoutSeparator(path);
    struct stat facts = {};
    return ::lstat(QFile::encodeName(bare).constData(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           facts.st_uid == ::geteuid();
}

QByteArrayList plainFiles(const QString& folder)
{
    QByteArrayList names;
    std::error_code error;
    for (const fs::directory_entry& file :
         fs::directory_iterator(QFile::encodeName(folder).toStdString(), error)) {
        if (file.is_regular_file(error))
            names += QByteArray::fromStdString(file.path().filename().string());
    }
    return names;
}

qint64 fileSize(const QString& path)
{
    return QFileInfo(path).size();
}

Result<QByteArray> readBytes(const QString& path, qint64 limit)
{
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly))
        return systemFailure("read", path, errno != 0 ? errno : EISDIR);
    // One byte more than allowed tells a file that is too large from one that just fits.
    const QByteArray bytes = upTo(limit + 1, file);
    if (file.error() != QFileDevice::NoError)
        return systemFailure("read", path, errno != 0 ? errno : EIO);
    if (bytes.size() > limit)
        return Failure{FailureKind::TooLarge,
                       path.toStdString() + " is larger than " + std::to_string(limit) + " bytes."};
    return bytes;
}

QString shortForm(const QString& path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    // canonicalFilePath() gives nothing for a file that is not there yet, such as the target of a
    // save.
    return canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical;
}

QString withSeparator(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

QString folderPart(const QString& path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString namePart(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

bool fitsPattern(const QString& name, const QString& pattern)
{
    qsizetype n = 0;
    qsizetype p = 0;
    qsizetype star = -1; // the last "*", and what the name was matched up to there
    qsizetype resume = 0;
    while (n < name.size()) {
        const QChar c = p < pattern.size() ? pattern[p] : QChar();
        if (p < pattern.size() && c == u'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() &&
                   (c == u'?' || c.toCaseFolded() == name[n].toCaseFolded())) {
            ++n;
            ++p;
        } else if (star >= 0) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

QStringList filesLike(const QString& folder, const QString& pattern)
{
    QStringList found;
    const QStringList names =
        QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase);
    for (const QString& name : names) {
        if (fitsPattern(name, pattern))
            found.append(name);
    }
    return found;
}

QStringList numberedFiles(const QString& folder, const QString& pattern)
{
    QStringList fitting = filesLike(folder, pattern);
    const qsizetype place = pattern.indexOf(QLatin1String("??"));
    if (place < 0)
        return fitting;
    QStringList found;
    for (int number = 0; number <= lastMemberNumber; ++number) {
        // Two digits, so that "back_3.jpg" is no numbered member.
        const QString digits = QString::number(100 + number).right(2);
        for (const QString& name : fitting) {
            if (QStringView(name).mid(place, 2) == digits)
                found.append(name);
        }
    }
    return found;
}

} // namespace fennel
