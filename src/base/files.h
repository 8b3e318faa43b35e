// SPDX-License-Identifier: MIT
// Everything that the program changes in the file system goes through Files, so that a test can
// make any single step fail. Reading needs no such layer and stands here as plain functions.
#pragma once

#include "base/result.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <span>

namespace fennel {

// The bytes as the archive's readers take them; only as long as the array lives.
inline std::span<const std::uint8_t> spanOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

// Paths are absolute, and as pathOfBytes() makes them. Every call either does the whole thing or
// fails with a sentence that names the file and the system's reason.
class Files {
public:
    virtual ~Files() = default;
    // Creates or replaces the file; a failure may leave a part of it behind.
    virtual Result<void> write(const QString& path, const QByteArray& bytes) = 0;
    // Makes the file if it is missing; a failure may leave a part of the bytes behind.
    virtual Result<void> append(const QString& path, const QByteArray& bytes) = 0;
    // Copies contents and replaces an existing target.
    virtual Result<void> copy(const QString& source, const QString& target) = 0;
    // Renames, replacing an existing target in one step; falls back to copy and remove between file
    // systems.
    virtual Result<void> rename(const QString& source, const QString& target) = 0;
    // Removing what is not there is no failure.
    virtual Result<void> remove(const QString& path) = 0;
    // With everything in it; links are removed and not followed.
    virtual Result<void> removeFolder(const QString& path) = 0;
    // Makes the folder and its parents. An existing folder is no failure.
    virtual Result<void> makeFolder(const QString& path) = 0;
    // Makes a folder that only this user can enter (mode 0700), or makes an existing one of this
    // user's so. Anything else under that name (another user's folder, a link, a file) is
    // NoPermission.
    virtual Result<void> makePrivateFolder(const QString& path) = 0;
    // Copies the plain files of a folder (members live flat, without sub-folders), with their
    // times, in place of files and links of the same name. Names are taken as bytes, whatever their
    // encoding.
    virtual Result<void> copyFolder(const QString& source, const QString& target) = 0;
    // Puts the file `source` at `target` so that at every moment the target is the whole old or the
    // whole new file: a copy beside the target is written, synced, given the old file's permissions
    // and renamed over it. A target that is a link keeps being one; what it points to is replaced.
    virtual Result<void> replaceWhole(const QString& source, const QString& target) = 0;
};

class DiskFiles : public Files {
public:
    Result<void> write(const QString& path, const QByteArray& bytes) override;
    Result<void> append(const QString& path, const QByteArray& bytes) override;
    Result<void> copy(const QString& source, const QString& target) override;
    Result<void> rename(const QString& source, const QString& target) override;
    Result<void> remove(const QString& path) override;
    Result<void> removeFolder(const QString& path) override;
    Result<void> makeFolder(const QString& path) override;
    Result<void> makePrivateFolder(const QString& path) override;
    Result<void> copyFolder(const QString& source, const QString& target) override;
    Result<void> replaceWhole(const QString& source, const QString& target) override;
};

bool FileExists(const QString& path);   // a plain file, or a link to one
bool FolderExists(const QString& path); // a folder, or a link to one
bool isOwnFolder(const QString& path);  // a folder of this user's, and no link
qint64 fileSize(const QString& path);   // bytes; 0 if there is no such file

// The whole file. `limit` in bytes guards against files that are no members of a boot screen.
inline constexpr qint64 readLimit = 256LL * 1024 * 1024;
Result<QByteArray> readBytes(const QString& path, qint64 limit = readLimit);
// At most so many bytes from its beginning; the file may be of any size.
Result<QByteArray> readFront(const QString& path, qsizetype bytes);

// The folder that relative paths begin in.
QString currentFolder();
// The absolute canonical path; of a file that is not there, the absolute path.
QString shortForm(const QString& path);
// The path with one "/" at its end.
QString withSeparator(const QString& path);
// What stands before and behind the last "/"; the folder keeps the "/".
QString folderPart(const QString& path);
// The whole path if it has no "/".
QString namePart(const QString& path);

// The names of the plain files of a folder, and of links to such, in directory order, as bytes: a
// name in an unknown code page has no QString. None if the folder cannot be read.
QByteArrayList plainFiles(const QString& folder);
// Names of the plain files of a folder that fit a DOS pattern ("?" one character, "*" any run, case
// ignored), sorted without regard to case. "back_??.jpg" fits "Back_03.JPG".
QStringList filesLike(const QString& folder, const QString& pattern);
// One name against such a pattern.
bool fitsPattern(const QString& name, const QString& pattern);
// Members of one kind carry two digits: back_NN.jpg, Logo_NN.jpg, the fonts.
inline constexpr int lastMemberNumber = 99;

// The members of a numbered pattern such as "back_??.jpg": NN from 00 to the last in numeric order,
// each if it exists. A pattern without "??" is filesLike().
QStringList numberedFiles(const QString& folder, const QString& pattern);

} // namespace fennel
