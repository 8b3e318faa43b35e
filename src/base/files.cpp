// SPDX-License-Identifier: MIT
#include "base/files.h"

#include "base/file_names.h"
#include "base/posix_file.h"

#include <QDir>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace fennel {

namespace fs = std::filesystem;

namespace {

std::string nameOf(const QString& path)
{
    return bytesOfPath(path).toStdString();
}

Failure systemFailure(const char* verb, const QString& path, int error)
{
    return fennel::systemFailure(verb, path.toStdString(), error);
}

// A new file, with the time of the old one, which goes into an archive: a link that has the name is
// replaced, not followed.
int copyInto(const fs::path& from, const fs::path& to)
{
    if (::unlink(to.c_str()) != 0 && errno != ENOENT)
        return errno;
    std::error_code error;
    fs::copy_file(from, to, fs::copy_options::none, error);
    std::error_code kept;
    if (!error)
        fs::last_write_time(to, fs::last_write_time(from, kept), kept);
    return error.value();
}

// A "/" at the end would make the system follow a link.
QString withoutSeparator(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) && path.size() > 1 ? path.chopped(1) : path;
}

} // namespace

namespace {

// A file that has further names, such as the versions that undo keeps, is left to them: what is
// written goes into one of its own.
Result<void> makeOwn(const QString& path)
{
    struct stat facts {};
    if (lstat(bytesOfPath(path).constData(), &facts) != 0 || !S_ISREG(facts.st_mode) ||
        facts.st_nlink < 2)
        return {};
    const Result<QByteArray> bytes = readBytes(path);
    if (!bytes)
        return bytes.failure();
    // A name that is free: any fixed one may be another member's.
    QByteArray own = bytesOfPath(folderPart(path)) + ".own-XXXXXX";
    Descriptor file(::mkostemp(own.data(), O_CLOEXEC));
    if (file.valid() && writeAll(file.get(), spanOf(*bytes)) &&
        ::fchmod(file.get(), facts.st_mode & 0777) == 0 && file.close() &&
        ::rename(own.constData(), bytesOfPath(path).constData()) == 0)
        return {};
    const int error = errno;
    (void)::unlink(own.constData());
    return systemFailure("write", path, error);
}

Result<void> writeOwn(const QString& path, int flags, const QByteArray& bytes)
{
    const Result<void> own = makeOwn(path);
    return own ? writeFile(nameOf(path), flags, spanOf(bytes)) : own;
}

} // namespace

Result<void> DiskFiles::write(const QString& path, const QByteArray& bytes)
{
    return writeOwn(path, O_WRONLY | O_CREAT | O_TRUNC, bytes);
}

Result<void> DiskFiles::append(const QString& path, const QByteArray& bytes)
{
    return writeOwn(path, O_WRONLY | O_CREAT | O_APPEND, bytes);
}

Result<void> DiskFiles::copy(const QString& source, const QString& target)
{
    const Result<QByteArray> bytes = readBytes(source);
    return bytes ? write(target, *bytes) : Result<void>(bytes.failure());
}

Result<void> DiskFiles::rename(const QString& source, const QString& target)
{
    const QByteArray from = bytesOfPath(source);
    const QByteArray to = bytesOfPath(target);
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
    if (::unlink(bytesOfPath(path).constData()) == 0 || errno == ENOENT)
        return {};
    return systemFailure("delete", path, errno);
}

Result<void> DiskFiles::removeFolder(const QString& path)
{
    std::error_code error;
    std::filesystem::remove_all(bytesOfPath(path).toStdString(), error);
    if (error)
        return systemFailure("delete", path, error.value());
    return {};
}

Result<void> DiskFiles::makeFolder(const QString& path)
{
    std::error_code error;
    const QString bare = withoutSeparator(path);
    std::filesystem::create_directories(bytesOfPath(bare).toStdString(), error);
    // create_directories() may report success although a plain file stands in the way.
    if (!error && FolderExists(path))
        return {};
    return systemFailure("make the folder", path, error ? error.value() : ENOTDIR);
}

Result<void> DiskFiles::makePrivateFolder(const QString& path)
{
    const QString bare = withoutSeparator(path);
    // The temporary folder is open to every user, so a folder found there may be a trap.
    if (::mkdir(bytesOfPath(bare).constData(), 0700) != 0 && errno != EEXIST)
        return systemFailure("make the folder", path, errno);
    // The owner is asked of the opened folder, not of the name, which might change in between.
    const Descriptor folder = openFile(nameOf(bare), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    struct stat facts = {};
    if (!folder.valid() || ::fstat(folder.get(), &facts) != 0 || facts.st_uid != ::geteuid())
        return systemFailure("use the folder", path, EPERM);
    if ((facts.st_mode & 07777) != 0700 && ::fchmod(folder.get(), 0700) != 0)
        return systemFailure("use the folder", path, errno);
    return {};
}

Result<void> DiskFiles::copyFolder(const QString& source, const QString& target)
{
    std::error_code error;
    const fs::path to = nameOf(target);
    fs::create_directories(to, error);
    fs::directory_iterator files(nameOf(source), error);
    if (error)
        return systemFailure("read", source, error.value());
    for (const fs::directory_entry& file : files) {
        if (!file.is_regular_file(error))
            continue;
        const fs::path name = file.path().filename();
        if (const int failed = copyInto(file.path(), to / name); failed != 0)
            return systemFailure("write", withSeparator(target) + pathOfBytes(name.c_str()),
                                 failed);
    }
    return {};
}

Result<void> DiskFiles::replaceWhole(const QString& source, const QString& target)
{
    const Result<QByteArray> bytes = readBytes(source);
    if (!bytes)
        return bytes.failure();
    return fennel::replaceWhole(nameOf(target), spanOf(*bytes));
}

bool FileExists(const QString& path)
{
    struct stat facts {};
    return ::stat(bytesOfPath(path).constData(), &facts) == 0 && S_ISREG(facts.st_mode);
}

bool FolderExists(const QString& path)
{
    struct stat facts {};
    return ::stat(bytesOfPath(path).constData(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool isOwnFolder(const QString& path)
{
    const QString bare = withoutSeparator(path);
    struct stat facts = {};
    return ::lstat(bytesOfPath(bare).constData(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           facts.st_uid == ::geteuid();
}

QByteArrayList plainFiles(const QString& folder)
{
    QByteArrayList names;
    std::error_code error;
    for (const fs::directory_entry& file :
         fs::directory_iterator(bytesOfPath(folder).toStdString(), error)) {
        if (file.is_regular_file(error))
            names += QByteArray::fromStdString(file.path().filename().string());
    }
    return names;
}

qint64 fileSize(const QString& path)
{
    struct stat facts {};
    return ::stat(bytesOfPath(path).constData(), &facts) == 0 ? facts.st_size : 0;
}

Result<QByteArray> readBytes(const QString& path, qint64 limit)
{
    QByteArray bytes;
    const Result<struct stat> facts =
        readWhole(nameOf(path), static_cast<std::uint64_t>(limit), bytes);
    return facts ? Result<QByteArray>(std::move(bytes)) : facts.failure();
}

Result<QByteArray> readFront(const QString& path, qsizetype bytes)
{
    const Result<PlainFile> file =
        openPlain(nameOf(path), std::numeric_limits<std::uint64_t>::max());
    if (!file)
        return file.failure();
    QByteArray front(bytes, Qt::Uninitialized);
    const std::ptrdiff_t got =
        readInto(file->file.get(),
                 {reinterpret_cast<std::uint8_t*>(front.data()), static_cast<std::size_t>(bytes)});
    if (got < 0)
        return systemFailure("read", path, errno);
    front.truncate(got);
    return front;
}

QString currentFolder()
{
    std::error_code error;
    return pathOfBytes(QByteArray::fromStdString(fs::current_path(error).string()));
}

QString shortForm(const QString& path)
{
    const std::unique_ptr<char, decltype(&std::free)> canonical(
        ::realpath(bytesOfPath(path).constData(), nullptr), &std::free);
    // There is none of a file that is not there yet, such as the target of a save.
    return canonical != nullptr ? pathOfBytes(canonical.get())
                                : QDir::cleanPath(QDir(currentFolder()).absoluteFilePath(path));
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
    // A folder may hold as many files as an archive has members: only what fits is sorted.
    for (const QByteArray& bytes : plainFiles(folder)) {
        const QString name = QString::fromUtf8(bytes);
        if (bytes.isValidUtf8() && fitsPattern(name, pattern))
            found.append(name);
    }
    std::ranges::sort(found, [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
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
