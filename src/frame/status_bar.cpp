// SPDX-License-Identifier: MIT
#include "frame/status_bar.h"

#include <QFontMetrics>

#include <algorithm>

namespace fennel {

namespace {

constexpr int margin = 3;
constexpr int buttonWidth = 18;

// What each field must hold at least, and the share of the width that is left over. Field 8 is the
// hint, which takes what it can get.
struct FieldWidth {
    const char16_t* sample;
    int share;
};
constexpr std::array<FieldWidth, statusFieldCount> widths = {{
    {u"W:", 0},
    {u"no current gfxboot", 3},
    {u"@ZUK-MOSA@ ", 0},
    {u"1920x1080, Scale=100%", 0},
    {u"gfxboot Object", 2},
    {u"(1024;1024), 1024x1024, Transp.=255", 0},
    {u"", 3},
    {u"", 6},
}};

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
}

QString StatusBar::field(int number) const
{
    return m_fields.at(static_cast<std::size_t>(number - 1))->text();
}

void StatusBar::layFields()
{
    const QFontMetrics metrics(font());
    int left = width() - buttonWidth;
    int shares = 0;
    for (const FieldWidth& field : widths) {
        left -= metrics.horizontalAdvance(QString::fromUtf16(field.sample)) + 4 * margin;
        shares += field.share;
    }
    int x = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const int least =
            metrics.horizontalAdvance(QString::fromUtf16(widths[i].sample)) + 4 * margin;
        const int field = least + std::max(0, left) * widths[i].share / shares;
        m_fields[i]->setGeometry(x, 1, std::min(field, width() - buttonWidth - x), height() - 2);
        x += m_fields[i]->width();
    }
    m_bottomButton->setGeometry(width() - buttonWidth, 1, buttonWidth, height() - 2);
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
