// SPDX-License-Identifier: MIT
#include "tools/image_drive.h"

#include "base/words.h"
#include "tools/boot_image.h"
#include "tools/stick_save.h"

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headSize = 512;
const QString imageFolder = u"~image/"_s;

quint8 byteAt(const QByteArray& head, qsizetype at)
{
    return static_cast<quint8>(head[at]);
}

// What a run did is judged by the files; only one that was called off, hung or crashed is a
// failure.
Result<void> runMtool(const Shell& shell, const QStringList& arguments)
{
    const Result<QString> program = findProgram(u"mcopy"_s);
    return program ? shell.tools.RunToolAndWait(QStringList{*program} + arguments)
                   : Result<void>(program.failure());
}

QString imageArgument(const ImageDrive& image)
{
    return u"%1@@%2"_s.arg(image.path).arg(image.offset);
}

// What is not there stays away.
Result<void> copyOut(const Shell& shell, const ImageDrive& image, const QString& name)
{
    const QString folder = image.folder + folderPart(name);
    if (Result<void> made = shell.files.makeFolder(folder); !made)
        return made;
    return runMtool(shell,
                    {u"-n"_s, u"-m"_s, u"-i"_s, imageArgument(image), u"::/"_s + name, folder});
}

// Configurations first, as they name the message files; those with the copies kept before.
Result<void> copyOutAll(const Shell& shell, const ImageDrive& image)
{
    Result<void> done = copyOut(shell, image, u"*.lst"_s);
    for (const QString& config : loaderConfigs())
        done = done ? copyOut(shell, image, config) : done;
    if (!done)
        return done;
    for (const LoaderPlace& place : loaderPlacesOf(image.folder))
        done = done ? copyOut(shell, image, place.message + u'*') : done;
    return done;
}

// Read back, since an image may be full.
Result<void> copyIn(const Shell& shell, const ImageDrive& image, const QString& name)
{
    const QString inImage = u"::/"_s + name;
    const QString written = shell.run.WorkspaceRoot + u"~written"_s;
    if (Result<void> removed = shell.files.remove(written); !removed)
        return removed;
    Result<void> done = runMtool(
        shell, {u"-o"_s, u"-m"_s, u"-i"_s, imageArgument(image), image.folder + name, inImage});
    const QString reason = shell.tools.lastErrorOutput();
    if (done)
        done = runMtool(shell, {u"-n"_s, u"-i"_s, imageArgument(image), inImage, written});
    if (done) {
        const Result<QByteArray> ours = readBytes(image.folder + name);
        const Result<QByteArray> theirs = readBytes(written);
        if (!ours || !theirs || *ours != *theirs)
            done = Failure{FailureKind::ToolFailed, (u"mcopy: "_s + reason).toStdString()};
    }
    (void)shell.files.remove(written);
    return done;
}

} // namespace

std::optional<qint64> fatOffset(const QByteArray& head)
{
    constexpr std::array<quint8, 6> fatTypes = {0x01, 0x04, 0x06, 0x0B, 0x0C, 0x0E};
    constexpr qsizetype table = 446;
    constexpr qsizetype entrySize = 16;
    constexpr qsizetype signature = 510;
    constexpr qsizetype fatName = 54;
    constexpr qsizetype fat32Name = 82;
    if (head.size() < headSize || byteAt(head, signature) != 0x55 ||
        byteAt(head, signature + 1) != 0xAA)
        return std::nullopt;
    if (head.mid(fatName, 3) == "FAT" || head.mid(fat32Name, 3) == "FAT")
        return 0;
    for (qsizetype entry = table; entry < signature; entry += entrySize) {
        const quint8 type = byteAt(head, entry + 4);
        if (std::find(fatTypes.begin(), fatTypes.end(), type) == fatTypes.end())
            continue;
        qint64 sector = 0;
        for (qsizetype i = 3; i >= 0; --i)
            sector = sector * 256 + byteAt(head, entry + 8 + i);
        return sector * headSize;
    }
    return std::nullopt;
}

Result<ImageDrive> openImageDrive(const Shell& shell, const QString& path)
{
    if (const Result<QString> tool = findProgram(u"mcopy"_s); !tool)
        return tool.failure();
    const Result<QByteArray> head = readFront(path, headSize);
    if (!head)
        return head.failure();
    const std::optional<qint64> offset = fatOffset(*head);
    if (!offset)
        return Failure{
            FailureKind::Unsupported,
            (Words::tr("%1 is no disk image with a FAT file system.").arg(path)).toStdString()};
    const ImageDrive image{path, *offset, shell.run.WorkspaceRoot + imageFolder};
    if (Result<void> removed = shell.files.removeFolder(image.folder); !removed)
        return removed.failure();
    const Result<void> copied = copyOutAll(shell, image);
    return copied ? Result<ImageDrive>(image) : copied.failure();
}

Result<void> writeToImage(const Shell& shell, const ImageDrive& image, const QStringList& names)
{
    Result<void> done;
    for (const QString& name : names)
        done = done ? copyIn(shell, image, name) : done;
    return done;
}

} // namespace fennel
