// SPDX-License-Identifier: MIT
// TabStrip1: tabs in as many lines as their number needs, so that all of them can be seen. In a
// panel too low for all lines they scroll.
#pragma once

#include <QScrollArea>
#include <QToolButton>
#include <QWidget>

#include <vector>

namespace fennel {

class TabStrip : public QWidget {
    Q_OBJECT
public:
    // No tabs until setTabs().
    explicit TabStrip(QWidget* parent);

    struct Tab {
        QString caption;
        QString toolTip;
    };
    // Buttons are used again, so a click in progress is safe. The mark stays, or goes to the last
    // tab if its own is gone.
    void setTabs(const std::vector<Tab>& tabs);
    // Tabs are counted from 1; 0 marks none.
    void mark(int tab);
    [[nodiscard]] int marked() const { return m_marked; }
    // Of a tab's button in the strip, logical pixels; empty for a number without tab.
    [[nodiscard]] QRect place(int tab) const;
    [[nodiscard]] int count() const { return static_cast<int>(m_buttons.size()); }

Q_SIGNALS:
    // By the user; the mark moves only with mark().
    void clicked(int tab);
    // Screen coordinates, logical pixels.
    void menuAsked(QPoint globalPlace);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void layTabs();
    // Places the buttons; returns the height that they need.
    int flow(int width) const;

    std::vector<QToolButton*> m_buttons;
    int m_marked = 0;
};

// As high as the strip where there is room, and never lower than one line of tabs.
class TabRoom : public QScrollArea {
public:
    TabRoom(TabStrip& strip, QWidget* parent);
    // Scrolls to the marked tab.
    void showMarked();
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TabStrip& m_strip;
};

} // namespace fennel
