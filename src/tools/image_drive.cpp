// SPDX-License-Identifier: MIT
#include "tools/image_drive.h"

#include "base/text.h"
#include "base/words.h"
#include "tools/boot_image.h"
#include "tools/stick_save.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headSize = 512;
constexpr int toolMs = 60'000;
const QString imageFolder = u"~image/"_s;

quint8 byteAt(const QByteArray& head, qsizetype at)
{
    return static_cast<quint8>(head[at]);
}

Result<void> runMtool(const QStringList& arguments)
{
    const Result<QString> program = findProgram(u"mcopy"_s);
    if (!program)
        return program.failure();
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(*program, arguments);
    if (process.waitForFinished(toolMs) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return {};
    const QString reason = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return Failure{FailureKind::ToolFailed, (QStringLiteral("mcopy: ") + reason).toStdString()};
}

QString imageArgument(const ImageDrive& image)
{
    return u"%1@@%2"_s.arg(image.path).arg(image.offset);
}

// What is not there stays away.
void copyOut(const ImageDrive& image, const QString& name)
{
    const QString folder = image.folder + folderPart(name);
    if (QDir().mkpath(folder))
        (void)runMtool({u"-n"_s, u"-m"_s, u"-i"_s, imageArgument(image), u"::/"_s + name, folder});
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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure{
            FailureKind::Io,
            (Words::tr("%1 cannot be opened: %2").arg(path, file.errorString())).toStdString()};
    const std::optional<qint64> offset = fatOffset(file.read(headSize));
    if (!offset)
        return Failure{
            FailureKind::Unsupported,
            (Words::tr("%1 is no disk image with a FAT file system.").arg(path)).toStdString()};
    const ImageDrive image{path, *offset, shell.run.WorkspaceRoot + imageFolder};
    if (Result<void> removed = shell.files.removeFolder(image.folder); !removed)
        return removed.failure();
    copyOut(image, u"*.lst"_s);
    for (const QString& config : loaderConfigs())
        copyOut(image, config);
    // With the copies that were kept before.
    for (const LoaderPlace& place : loaderPlacesOf(image.folder))
        copyOut(image, place.message + u'*');
    return image;
}

Result<void> writeToImage(const ImageDrive& image, const QStringList& names)
{
    for (const QString& name : names) {
        if (Result<void> copied = runMtool({u"-o"_s, u"-m"_s, u"-i"_s, imageArgument(image),
                                            image.folder + name, u"::/"_s + name});
            !copied)
            return copied;
    }
    return {};
}

} // namespace fennel
