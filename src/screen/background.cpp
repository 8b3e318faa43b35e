// SPDX-License-Identifier: MIT
#include "screen/background.h"

#include "base/text.h"
#include "base/words.h"
#include "container/picture_size.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

Failure failure(FailureKind kind, const QString& text)
{
    return {kind, text.toStdString()};
}

Failure tooLarge(const QString& path, QSize size)
{
    return failure(FailureKind::TooLarge, Words::tr("%1: %2x%3 pixels are too many to show")
                                              .arg(path)
                                              .arg(size.width())
                                              .arg(size.height()));
}

} // namespace

// In 64 bits: the sides may come from a file and their product pass 32 bits.
bool backSizeAllowed(QSize size)
{
    return size.width() <= maxBackSide && size.height() <= maxBackSide &&
           qint64{size.width()} * size.height() <= maxBackPixels;
}

Result<void> makeScaledBack(const Shell& shell, const ResizeJpgCall& resize)
{
    const RunState& run = shell.run;
    if (!FileExists(run.BackFile))
        return failure(FailureKind::NotFound, Words::tr("File %1 not found").arg(run.BackFile));
    // The same work file in both branches, so whoever shows it need not know the scale.
    const QString target = run.WorkspaceRoot + scaledBackName;
    // Copied byte for byte at 100 %: going through the tool would cost quality and time.
    if (run.PreviewScale == 1.0) {
        if (Result<void> removed = shell.files.remove(target); !removed)
            return removed;
        return shell.files.copy(run.BackFile, target);
    }
    const QSize size(std::max(1, roundToEven(run.BackWidth * run.PreviewScale)),
                     std::max(1, roundToEven(run.BackHeight * run.PreviewScale)));
    // Before the tool runs, which would fill the memory with it.
    if (!backSizeAllowed(size))
        return tooLarge(run.BackFile, size);
    return resize(size.width(), size.height(), run.BackFile, target);
}

Result<void> checkPicture(const Shell& shell, const QString& path)
{
    if (!FileExists(path))
        return failure(FailureKind::NotFound, Words::tr("File %1 not found").arg(path));
    const Result<QSize> size = pictureSize(shell, path);
    if (!size)
        return size.failure();
    return backSizeAllowed(*size) ? Result<void>() : tooLarge(path, *size);
}

Result<QImage> loadPicture(const Shell& shell, const QString& path, QSize room)
{
    if (const Result<void> checked = checkPicture(shell, path); !checked)
        return checked.failure();
    Result<FilePicture> read =
        shell.readPicture({path, room.isEmpty() ? PictureMode::Whole : PictureMode::Inside, room});
    return read ? Result<QImage>(std::move(read->image)) : read.failure();
}

} // namespace fennel
