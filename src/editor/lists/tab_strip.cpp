// SPDX-License-Identifier: MIT
#include "editor/lists/tab_strip.h"

#include "base/text.h"

#include <QContextMenuEvent>

#include <algorithm>

namespace fennel {

TabStrip::TabStrip(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("TabStrip1"));
}

void TabStrip::setTabs(const std::vector<Tab>& tabs)
{
    while (m_buttons.size() > tabs.size()) {
        m_buttons.back()->deleteLater();
        // It may be the sender of the click in progress, so it is deleted later and only hidden
        // now.
        m_buttons.back()->hide();
        m_buttons.pop_back();
    }
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (i == m_buttons.size()) {
            auto* button = new QToolButton(this);
            button->setCheckable(true);
            button->setAutoRaise(true);
            const int number = static_cast<int>(i) + 1;
            button->setObjectName(QStringLiteral("TabStrip1_%1").arg(number));
            connect(button, &QToolButton::clicked, this, [this, number] {
                // The click has toggled the button by itself; whether the tab changes is decided by
                // who listens.
                mark(m_marked);
                Q_EMIT clicked(number);
            });
            button->show();
            m_buttons.push_back(button);
        }
        // A lone "&" would be taken for a short cut.
        m_buttons[i]->setText(QString(tabs[i].caption).replace(u'&', QStringLiteral("&&")));
        m_buttons[i]->setToolTip(plainTip(tabs[i].toolTip));
    }
    mark(std::min(m_marked, count()));
    layTabs();
}

void TabStrip::mark(int tab)
{
    m_marked = tab;
    for (int i = 0; i < count(); ++i)
        m_buttons[static_cast<std::size_t>(i)]->setChecked(i + 1 == tab);
}

QRect TabStrip::place(int tab) const
{
    return tab >= 1 && tab <= count() ? m_buttons[static_cast<std::size_t>(tab - 1)]->geometry()
                                      : QRect();
}

// Lines of tabs as words in a paragraph; a tab wider than the strip gets a line of its own.
int TabStrip::flow(int width) const
{
    int x = 0;
    int y = 0;
    int line = 0;
    for (QToolButton* button : m_buttons) {
        const QSize size = button->sizeHint();
        if (x > 0 && x + size.width() > width) {
            x = 0;
            y += line;
        }
        button->setGeometry(x, y, size.width(), size.height());
        x += size.width();
        line = size.height();
    }
    return y + line;
}

void TabStrip::layTabs()
{
    setFixedHeight(flow(width()));
}

void TabStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layTabs();
}

void TabStrip::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuAsked(event->globalPos());
}

TabRoom::TabRoom(TabStrip& strip, QWidget* parent) : QScrollArea(parent), m_strip(strip)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(&strip);
    // The strip shows the panel's ground and not that of a list.
    viewport()->setAutoFillBackground(false);
    strip.setAutoFillBackground(false);
}

void TabRoom::showMarked()
{
    const QRect place = m_strip.place(m_strip.marked());
    if (!place.isEmpty())
        ensureVisible(place.center().x(), place.center().y(), 0, (place.height() + 1) / 2);
}

QSize TabRoom::sizeHint() const
{
    return {0, m_strip.height()};
}

QSize TabRoom::minimumSizeHint() const
{
    return {0, m_strip.place(1).height()};
}

// The number of lines changes with the width and with the tabs.
bool TabRoom::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_strip && event->type() == QEvent::Resize) {
        setMaximumHeight(m_strip.height());
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace fennel
