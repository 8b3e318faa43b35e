// SPDX-License-Identifier: MIT
#include "editor/window/status_bar.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/window/retranslated.h"
#include "editor/window/status_line.h"

#include <QEvent>
#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace fennel {

namespace {

constexpr int margin = 3;
constexpr int buttonWidth = 18;

// What a field keeps room for, so that the others stand still while its text changes. Fields 7 and
// 8 share what is left.
constexpr std::array<const char16_t*, statusFieldCount> samples = {
    u"W:", u"", u"", u"", u"gfxboot Object", u"", u"", u""};
constexpr int firstSharing = 6; // from 0
constexpr int nameField = 1;    // from 0
constexpr int nameShare = 5;    // a long name takes this part of the line at most
constexpr int stepsPatienceMs = 100;
constexpr int workWidth = 160; // of the progress bar, for work that is waited for

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent), m_progress(new QProgressBar(this)), m_work(new QWidget(this)),
      m_what(new QLabel(m_work)), m_cancel(new QPushButton(m_work)),
      m_problems(new QToolButton(this)), m_bottomButton(new QToolButton(this))
{
    setObjectName(QStringLiteral("StatusBar1"));
    for (int i = 0; i < statusFieldCount; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("StatusBar1_%1").arg(i + 1));
        label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
        // Names of files and drives may hold "<".
        label->setTextFormat(Qt::PlainText);
        label->setMargin(1);
        m_fields[static_cast<std::size_t>(i)] = label;
    }
    m_progress->setObjectName(QStringLiteral("ProgressBar1"));
    m_progress->setTextVisible(false);
    // It lies over the second field and hides it while it shows.
    m_progress->raise();
    m_progress->hide();
    m_work->setAutoFillBackground(true);
    m_work->hide();
    m_what->setTextFormat(Qt::PlainText);
    m_cancel->setObjectName(QStringLiteral("ComCancel"));
    sayText(m_cancel, Words::mark("Cancel"));
    m_cancel->setToolTip(QStringLiteral("Esc"));
    m_cancel->setFocusPolicy(Qt::NoFocus);
    m_problems->setObjectName(QStringLiteral("ComProblems"));
    m_problems->setAutoRaise(true);
    m_problems->setFocusPolicy(Qt::NoFocus);
    m_problems->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_problems->hide();
    m_bottomButton->setObjectName(QStringLiteral("ComFrame2"));
    m_bottomButton->setAutoRaise(true);
    setFixedHeight(fontMetrics().height() + 2 * margin + 4);
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        measure(i);
}

void StatusBar::setField(int number, const QString& text)
{
    const auto i = static_cast<std::size_t>(number - 1);
    // Set at every move of the mouse, so an equal text must cost nothing.
    if (m_texts.at(i) == text)
        return;
    m_texts[i] = text;
    // The whole text, as the field may show only the beginning of it.
    m_fields[i]->setToolTip(plainTip(text));
    measure(i);
    layFields();
}

QString StatusBar::field(int number) const
{
    return m_texts.at(static_cast<std::size_t>(number - 1));
}

void StatusBar::measure(std::size_t i)
{
    const QFontMetrics metrics(font());
    const int text = metrics.horizontalAdvance(m_texts[i]);
    const int sample = metrics.horizontalAdvance(QString::fromUtf16(samples[i]));
    // Frame and margin on either side.
    m_needed[i] = std::max(text, sample) + 4 * margin;
    m_shown[i] = -1;
}

void StatusBar::layFields()
{
    const QFontMetrics metrics(font());
    const int problems = m_problems->isHidden() ? 0 : m_problems->sizeHint().width();
    const int end = width() - buttonWidth - problems;
    int x = 0;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const int left = std::max(0, end - x);
        int field = m_needed[i];
        if (i == nameField)
            field = std::min(field, width() / nameShare);
        // The hint at the end says what to do next; what stands before it gives way.
        if (i == firstSharing)
            field = m_texts[i].isEmpty() ? 0 : std::max(left - m_needed[i + 1], left / 4);
        else if (i > firstSharing)
            field = left;
        // Never under the button at the end, however long the texts before.
        field = std::min(field, left);
        m_fields[i]->setGeometry(x, 1, field, height() - 2);
        // Names of several versions of a file differ at their ends.
        const auto cut = i == nameField ? Qt::ElideMiddle : Qt::ElideRight;
        if (std::exchange(m_shown[i], field) != field)
            m_fields[i]->setText(
                metrics.elidedText(m_texts[i], cut, std::max(0, field - 2 * margin)));
        x += field;
    }
    m_problems->setGeometry(end, 1, problems, height() - 2);
    m_bottomButton->setGeometry(end + problems, 1, buttonWidth, height() - 2);
    m_progress->setGeometry(progressPlace(rect(), fieldPlace(2)));
    if (m_work->isVisible())
        layWork();
}

void StatusBar::layWork()
{
    QRect bar = fieldPlace(2);
    bar.setWidth(std::max(bar.width(), workWidth));
    m_progress->setGeometry(progressPlace(rect(), bar));
    const int left = m_progress->geometry().right() + 1;
    m_work->setGeometry(left, 0, m_bottomButton->x() - left, height());
    const int button = m_cancel->sizeHint().width();
    m_cancel->setGeometry(margin, 1, button, height() - 2);
    m_what->setGeometry(button + 3 * margin, 0, m_work->width() - button - 3 * margin, height());
}

void StatusBar::showWork(const QString& what, std::optional<double> share)
{
    m_what->setText(what);
    m_progress->setRange(0, share ? 100 : 0);
    m_progress->setValue(static_cast<int>(share.value_or(0) * 100));
    m_progress->show();
    m_work->show();
    m_work->raise();
    layWork();
}

void StatusBar::hideWork()
{
    m_work->hide();
    m_progress->hide();
    m_progress->setRange(0, 100);
    layFields();
}

void StatusBar::setProblems(const QIcon& icon, const QString& count, const QString& tip)
{
    m_problems->setIcon(icon);
    m_problems->setText(count);
    m_problems->setToolTip(tip);
    m_problems->setAccessibleName(tip);
    m_problems->setHidden(count.isEmpty());
    layFields();
}

QRect StatusBar::fieldPlace(int number) const
{
    return m_fields.at(static_cast<std::size_t>(number - 1))->geometry();
}

void StatusBar::beginSteps(const QRect& place)
{
    m_progress->setGeometry(place);
    m_steps.start();
}

// A visible bar paints itself, and with it all of the window that waits to be painted.
void StatusBar::setStep(int percent)
{
    if (m_steps.isValid() && m_steps.hasExpired(stepsPatienceMs))
        m_progress->show();
    m_progress->setValue(percent);
}

void StatusBar::endSteps()
{
    m_steps.invalidate();
    m_progress->hide();
}

void StatusBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    setFixedHeight(fontMetrics().height() + 2 * margin + 4);
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        measure(i);
    layFields();
}

void StatusBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layFields();
}

} // namespace fennel
