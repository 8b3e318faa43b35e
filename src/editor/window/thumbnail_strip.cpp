// SPDX-License-Identifier: MIT
#include "editor/window/thumbnail_strip.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>

namespace fennel {

namespace {

constexpr int cellGap = 6;
constexpr int leastControlWidth = 54;
constexpr QSize cellSize(128, 96);

} // namespace

ThumbnailStrip::ThumbnailStrip(const Shell& shell, QWidget* parent)
    : QFrame(parent), m_shell(shell), m_port(new QWidget(this)),
      m_scroll(new QScrollBar(Qt::Vertical, this)), m_upDown(new QSpinBox(this))
{
    setObjectName(QStringLiteral("Frame2Podval"));
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
    m_scroll->setObjectName(QStringLiteral("VScroll1"));
    m_upDown->setObjectName(QStringLiteral("UpDown2"));
    sayTip(m_upDown, Words::mark("Height of the bottom panel"));
    // Otherwise the strip would jump at every digit that is typed.
    m_upDown->setKeyboardTracking(false);
    m_upDown->setFocusPolicy(Qt::ClickFocus);
    connect(m_scroll, &QScrollBar::valueChanged, this, &ThumbnailStrip::place);
}

void ThumbnailStrip::addImage()
{
    auto* label = new QLabel(m_port);
    label->setObjectName(QStringLiteral("Image1_%1").arg(m_images.size()));
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    label->setMouseTracking(true);
    label->installEventFilter(this);
    label->show();
    m_images.push_back({label, {}});
}

void ThumbnailStrip::setFiles(const QString& folder, const QStringList& names)
{
    const auto count = static_cast<std::size_t>(names.size());
    while (m_images.size() > count) {
        delete m_images.back().label;
        m_images.pop_back();
    }
    while (m_images.size() < count)
        addImage();
    for (std::size_t i = 0; i < count; ++i) {
        const QString& name = names[static_cast<qsizetype>(i)];
        m_images[i].path = folder + name;
        unload(m_images[i]);
        m_images[i].label->setProperty("member", name);
        m_images[i].label->setToolTip(plainTip(name));
    }
    m_scroll->setValue(0);
    place();
}

// Later, when what is asked for first is on the screen.
void ThumbnailStrip::load(Image& image)
{
    image.loaded = true;
    QLabel* label = image.label;
    m_shell.pictures().ask({image.path, PictureMode::Inside, cellSize}, label,
                           [label](const Result<FilePicture>& read) {
                               if (read)
                                   label->setPixmap(QPixmap::fromImage(read->image));
                               else
                                   label->setText(label->property("member").toString());
                           });
}

void ThumbnailStrip::unload(Image& image)
{
    m_shell.pictures().forget(image.label);
    image.loaded = false;
    image.label->clear();
}

void ThumbnailStrip::place()
{
    const QSize cell = cellSize + QSize(cellGap, cellGap);
    // At least one column, cut off in a narrow window.
    const int columns = std::max(1, m_port->width() / cell.width());
    const int rows = (static_cast<int>(m_images.size()) + columns - 1) / columns;
    m_scroll->setRange(0, std::max(0, rows * cell.height() + cellGap - m_port->height()));
    m_scroll->setPageStep(m_port->height());
    m_scroll->setSingleStep(cell.height() / 2);
    m_scroll->setVisible(m_scroll->maximum() > 0);
    // What is scrolled far away goes, or thousands of pictures would fill the memory.
    const QRect seen = m_port->rect();
    const QRect near = seen.adjusted(0, -2 * seen.height(), 0, 2 * seen.height());
    for (std::size_t i = 0; i < m_images.size(); ++i) {
        const int column = static_cast<int>(i) % columns;
        const int row = static_cast<int>(i) / columns;
        Image& image = m_images[i];
        const QRect place(cellGap + column * cell.width(),
                          cellGap + row * cell.height() - m_scroll->value(), cellSize.width(),
                          cellSize.height());
        image.label->setGeometry(place);
        if (!image.loaded && place.intersects(seen))
            load(image);
        else if (image.loaded && !place.intersects(near))
            unload(image);
    }
}

void ThumbnailStrip::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    const QRect inside = contentsRect();
    // Large fonts need more than the usual room for three digits.
    const int controlWidth = std::max(leastControlWidth, m_upDown->minimumSizeHint().width());
    const int side = inside.right() - controlWidth;
    m_upDown->setGeometry(side, inside.top() + 2, controlWidth, m_upDown->sizeHint().height());
    const int scrollTop = m_upDown->geometry().bottom() + 3;
    m_scroll->setGeometry(inside.right() - m_scroll->sizeHint().width(), scrollTop,
                          m_scroll->sizeHint().width(), inside.bottom() - scrollTop);
    m_port->setGeometry(inside.left(), inside.top(), side - inside.left(), inside.height());
    place();
}

bool ThumbnailStrip::eventFilter(QObject* watched, QEvent* event)
{
    const QString name = watched->property("member").toString();
    if (event->type() == QEvent::MouseMove)
        Q_EMIT hovered(name);
    if (event->type() == QEvent::MouseButtonRelease) {
        const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
        Q_EMIT clicked(name, button);
    }
    return QFrame::eventFilter(watched, event);
}

void ThumbnailStrip::wheelEvent(QWheelEvent* event)
{
    // The wheel scrolls wherever it turns over the strip.
    QCoreApplication::sendEvent(m_scroll, event);
}

} // namespace fennel
