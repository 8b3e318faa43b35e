// SPDX-License-Identifier: MIT
#include "editor/window/thumbnail_strip.h"

#include <QImageReader>
#include <QMouseEvent>

#include <algorithm>

namespace fennel {

namespace {

constexpr int cellGap = 6;
constexpr int controlWidth = 54;
constexpr QSize cellSize(128, 96);

// A small picture of the file; null if it is none. JPEG decodes at a fraction of its size.
QPixmap thumbnail(const QString& path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid())
        return {};
    // Smaller pictures are shown as they are; blown up they would say nothing more.
    if (size.width() > cellSize.width() || size.height() > cellSize.height())
        reader.setScaledSize(size.scaled(cellSize, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return QPixmap::fromImage(reader.read());
}

} // namespace

ThumbnailStrip::ThumbnailStrip(QWidget* parent)
    : QFrame(parent), m_port(new QWidget(this)), m_scroll(new QScrollBar(Qt::Vertical, this)),
      m_upDown(new QSpinBox(this))
{
    setObjectName(QStringLiteral("Frame2Podval"));
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
    m_scroll->setObjectName(QStringLiteral("VScroll1"));
    m_upDown->setObjectName(QStringLiteral("UpDown2"));
    m_upDown->setToolTip(tr("Height of the bottom panel"));
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
        m_images[i].loaded = false;
        m_images[i].label->clear();
        m_images[i].label->setProperty("member", name);
        m_images[i].label->setToolTip(name);
    }
    m_scroll->setValue(0);
    place();
}

void ThumbnailStrip::load(Image& image)
{
    image.loaded = true;
    const QPixmap picture = thumbnail(image.path);
    if (picture.isNull())
        image.label->setText(image.label->toolTip());
    else
        image.label->setPixmap(picture);
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
    for (std::size_t i = 0; i < m_images.size(); ++i) {
        const int column = static_cast<int>(i) % columns;
        const int row = static_cast<int>(i) / columns;
        Image& image = m_images[i];
        const QRect place(cellGap + column * cell.width(),
                          cellGap + row * cell.height() - m_scroll->value(), cellSize.width(),
                          cellSize.height());
        image.label->setGeometry(place);
        if (!image.loaded && place.intersects(m_port->rect()))
            load(image);
    }
}

void ThumbnailStrip::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    const QRect inside = contentsRect();
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
