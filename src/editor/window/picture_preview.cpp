// SPDX-License-Identifier: MIT
#include "editor/window/picture_preview.h"

#include "base/files.h"
#include "base/words.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QLocale>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int previewSide = 200; // pixels

} // namespace

PicturePreview::PicturePreview(PictureTool& pictures, QWidget* parent)
    : QLabel(parent), m_pictures(pictures)
{
    setObjectName(u"PicturePreview"_s);
    setAlignment(Qt::AlignCenter);
    setFixedWidth(previewSide + 2 * 8);
    setMinimumHeight(previewSide);
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
}

void PicturePreview::addTo(QFileDialog& dialog, PictureTool& pictures)
{
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (grid == nullptr)
        return;
    auto* preview = new PicturePreview(pictures, &dialog);
    grid->addWidget(preview, 0, grid->columnCount(), grid->rowCount(), 1);
    connect(&dialog, &QFileDialog::currentChanged, preview, &PicturePreview::showFile);
}

void PicturePreview::showFile(const QString& path)
{
    // Of a quick walk through a folder only the last one counts.
    m_pictures.forget(this);
    clear();
    setToolTip({});
    if (FileExists(path) && fileSize(path) > 0)
        m_pictures.ask({path, PictureMode::Inside, {previewSide, previewSide}}, this,
                       [this, path](const Result<FilePicture>& read) { show(path, read); });
}

void PicturePreview::show(const QString& path, const Result<FilePicture>& read)
{
    if (read) {
        setPixmap(QPixmap::fromImage(read->image));
        setToolTip(
            Words::tr("%1 x %2 pixels").arg(read->stored.width()).arg(read->stored.height()));
    } else {
        setText(Words::tr("No preview.") + u'\n' + namePart(path) + u'\n' +
                QLocale().formattedDataSize(fileSize(path)));
    }
}

} // namespace fennel
