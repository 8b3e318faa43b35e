// SPDX-License-Identifier: MIT
#include "editor/window/picture_preview.h"

#include "base/files.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QImageReader>
#include <QLocale>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int previewSide = 200;          // pixels
constexpr qint64 mostPixels = 50'000'000; // of a picture that is read for its preview
constexpr qint64 mostBytes = 64 * 1024 * 1024;

QImage smallPicture(const QString& path, QSize* size)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    *size = reader.size();
    if (!size->isValid() || qint64{size->width()} * size->height() > mostPixels)
        return {};
    const QSize limit(previewSide, previewSide);
    if (size->width() > previewSide || size->height() > previewSide)
        reader.setScaledSize(size->scaled(limit, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

} // namespace

PicturePreview::PicturePreview(QWidget* parent) : QLabel(parent)
{
    setObjectName(u"PicturePreview"_s);
    setAlignment(Qt::AlignCenter);
    setFixedWidth(previewSide + 2 * 8);
    setMinimumHeight(previewSide);
    setWordWrap(true);
    setTextFormat(Qt::RichText);
}

void PicturePreview::addTo(QFileDialog& dialog)
{
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (grid == nullptr)
        return;
    auto* preview = new PicturePreview(&dialog);
    grid->addWidget(preview, 0, grid->columnCount(), grid->rowCount(), 1);
    connect(&dialog, &QFileDialog::currentChanged, preview, &PicturePreview::showFile);
}

void PicturePreview::showFile(const QString& path)
{
    const qint64 bytes = fileSize(path);
    if (!FileExists(path) || bytes == 0) {
        clear();
        return;
    }
    QSize size;
    const QImage picture = bytes <= mostBytes ? smallPicture(path, &size) : QImage();
    if (!picture.isNull()) {
        setPixmap(QPixmap::fromImage(picture));
        setToolTip(tr("%1 x %2 pixels").arg(size.width()).arg(size.height()));
        return;
    }
    setToolTip({});
    setText(tr("No preview.") + u"<br>"_s + namePart(path).toHtmlEscaped() + u"<br>"_s +
            QLocale().formattedDataSize(bytes));
}

} // namespace fennel
