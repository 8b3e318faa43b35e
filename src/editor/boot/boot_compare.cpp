// SPDX-License-Identifier: MIT
#include "editor/boot/boot_compare.h"

#include "base/words.h"
#include "editor/window/retranslated.h"
#include "tools/boot_once.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize firstSize(800, 600);
constexpr int handleRadius = 11;

struct KeyRow {
    int key;
    const char16_t* name;
};
constexpr KeyRow keyRows[] = {
    {Qt::Key_Up, u"up"},         {Qt::Key_Down, u"down"},
    {Qt::Key_Left, u"left"},     {Qt::Key_Right, u"right"},
    {Qt::Key_Return, u"ret"},    {Qt::Key_Enter, u"ret"},
    {Qt::Key_Escape, u"esc"},    {Qt::Key_Tab, u"tab"},
    {Qt::Key_Space, u"spc"},     {Qt::Key_PageUp, u"pgup"},
    {Qt::Key_PageDown, u"pgdn"}, {Qt::Key_Home, u"home"},
    {Qt::Key_End, u"end"},       {Qt::Key_Insert, u"insert"},
    {Qt::Key_Delete, u"delete"}, {Qt::Key_Backspace, u"backspace"},
};

} // namespace

QString guestKey(const QKeyEvent& event)
{
    const int key = event.key();
    QString name;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        name = u'f' + QString::number(key - Qt::Key_F1 + 1);
    for (const KeyRow& row : keyRows) {
        if (row.key == key)
            name = QString::fromUtf16(row.name);
    }
    // The key's own character, whatever is held; the guest's keyboard is an American one.
    if (name.isEmpty() && key > Qt::Key_Space && key < 0x7F)
        name = bootKey(QString(QChar(static_cast<char16_t>(key)))).value_or(QString());
    if (name.isEmpty())
        return {};
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ControlModifier) ? u"ctrl+"_s : QString()) +
           (held.testFlag(Qt::AltModifier) ? u"alt+"_s : QString()) +
           (held.testFlag(Qt::ShiftModifier) ? u"shift+"_s : QString()) + name;
}

BootCompare::BootCompare(QWidget* parent) : QWidget(parent)
{
    setObjectName(u"BootCompare"_s);
    sayName(this, Words::mark("Preview and booted screen"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(firstSize / 2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize BootCompare::sizeHint() const
{
    const QImage& picture = m_preview.isNull() ? m_booted : m_preview;
    return picture.isNull() ? firstSize : picture.size();
}

void BootCompare::setPreview(const QImage& picture)
{
    m_preview = picture;
    updateGeometry();
    update();
}

void BootCompare::setBooted(const QImage& picture)
{
    m_booted = picture;
    update();
}

void BootCompare::setMarks(const QImage& marks)
{
    m_marks = marks;
    update();
}

void BootCompare::setSplit(double split)
{
    split = std::clamp(split, 0.0, 1.0);
    if (split == m_split)
        return;
    m_split = split;
    update();
    Q_EMIT splitChanged(split);
}

// Both pictures in one place: pixel for pixel where there is room, else smaller.
QRect BootCompare::shownArea() const
{
    QSize size = m_preview.size().expandedTo(m_booted.size());
    if (size.isEmpty())
        size = firstSize;
    if (size.width() > width() || size.height() > height())
        size.scale(this->size(), Qt::KeepAspectRatio);
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void BootCompare::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const QRect area = shownArea();
    const int line = area.left() + qRound(m_split * area.width());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSize most = m_preview.size().expandedTo(m_booted.size());
    const auto draw = [&](const QImage& picture, const QRect& part) {
        if (picture.isNull())
            return;
        const double scale = static_cast<double>(area.width()) / most.width();
        painter.setClipRect(part);
        painter.drawImage(QRectF(area.topLeft(), QSizeF(picture.size()) * scale), picture);
    };
    draw(m_booted, area);
    draw(m_preview, QRect(area.topLeft(), QPoint(line - 1, area.bottom())));
    draw(m_marks, area);
    painter.setClipping(false);
    paintHandle(painter, area, line);
}

void BootCompare::paintHandle(QPainter& painter, const QRect& area, int line) const
{
    if (m_preview.isNull() || m_booted.isNull())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(line - 1, area.top(), 3, area.height()), QColor(0, 0, 0, 90));
    painter.fillRect(QRect(line, area.top(), 1, area.height()), Qt::white);
    const QPointF middle(line + 0.5, area.center().y());
    painter.setPen(QPen(QColor(0, 0, 0, 120), 1));
    painter.setBrush(Qt::white);
    painter.drawEllipse(middle, handleRadius, handleRadius);
    painter.setPen(QPen(QColor(0x40, 0x48, 0x54), 1.6));
    for (const int side : {-1, 1}) {
        const QPointF tip = middle + QPointF(side * 6.5, 0);
        painter.drawPolyline(
            QPolygonF{tip + QPointF(-side * 3.0, -3.5), tip, tip + QPointF(-side * 3.0, 3.5)});
    }
}

void BootCompare::pull(double x)
{
    const QRect area = shownArea();
    setSplit((x - area.left()) / area.width());
}

void BootCompare::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        pull(event->position().x());
}

void BootCompare::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        pull(event->position().x());
}

// Also what would be a short cut of the editor, or move the focus.
bool BootCompare::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(!guestKey(*static_cast<QKeyEvent*>(event)).isEmpty());
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void BootCompare::keyPressEvent(QKeyEvent* event)
{
    const QString key = guestKey(*event);
    if (!key.isEmpty())
        Q_EMIT keyPressed(key);
}

} // namespace fennel
