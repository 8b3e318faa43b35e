// SPDX-License-Identifier: MIT
#include "frame/status_bar.h"

#include <QFontMetrics>

#include <algorithm>

namespace fennel {

namespace {

constexpr int margin = 3;
constexpr int buttonWidth = 18;

// What a field keeps room for, so that the others stand still while its text changes. Fields 7 and
// 8 share what is left.
constexpr std::array<const char16_t*, statusFieldCount> samples = {
    u"W:", u"", u"", u"", u"gfxboot Object", u"", u"", u""};
constexpr int firstSharing = 6; // from 0

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent), m_progress(new QProgressBar(this)), m_bottomButton(new QToolButton(this))
{
    setObjectName(QStringLiteral("StatusBar1"));
    for (int i = 0; i < statusFieldCount; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("StatusBar1_%1").arg(i + 1));
        label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
        label->setTextFormat(Qt::PlainText);
        label->setMargin(1);
        m_fields[static_cast<std::size_t>(i)] = label;
    }
    m_progress->setObjectName(QStringLiteral("ProgressBar1"));
    m_progress->setTextVisible(false);
    m_progress->raise();
    m_progress->hide();
    m_bottomButton->setObjectName(QStringLiteral("ComFrame2"));
    m_bottomButton->setAutoRaise(true);
    setFixedHeight(fontMetrics().height() + 2 * margin + 4);
}

void StatusBar::setField(int number, const QString& text)
{
    QLabel* label = m_fields.at(static_cast<std::size_t>(number - 1));
    if (label->text() == text)
        return;
    label->setText(text);
    label->setToolTip(text);
    layFields();
}

QString StatusBar::field(int number) const
{
    return m_fields.at(static_cast<std::size_t>(number - 1))->text();
}

int StatusBar::neededWidth(std::size_t i) const
{
    const QFontMetrics metrics(font());
    const int text = metrics.horizontalAdvance(m_fields[i]->text());
    const int sample = metrics.horizontalAdvance(QString::fromUtf16(samples[i]));
    return std::max(text, sample) + 4 * margin;
}

void StatusBar::layFields()
{
    const int end = width() - buttonWidth;
    int x = 0;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const int left = end - x;
        int field = neededWidth(i);
        if (i == firstSharing)
            field =
                m_fields[i]->text().isEmpty() ? 0 : std::max(left - neededWidth(i + 1), left / 2);
        else if (i > firstSharing)
            field = left;
        field = std::clamp(field, 0, std::max(0, left));
        m_fields[i]->setGeometry(x, 1, field, height() - 2);
        x += field;
    }
    m_bottomButton->setGeometry(end, 1, buttonWidth, height() - 2);
    ProgressBar_reset();
}

void StatusBar::ProgressBar_reset()
{
    const QRect field = m_fields[1]->geometry();
    m_progress->setGeometry(field.left(), 1, field.width(), height() - 2);
}

void StatusBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layFields();
}

} // namespace fennel
