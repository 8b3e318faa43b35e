// SPDX-License-Identifier: MIT
// The screen of the engines that read gfxboot.cfg; docs/as-it-boots.md has the rules.
#include "params/cfg_look.h"
#include "params/object_table.h"
#include "screen/boot_layout.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int textInset = 10; // of an entry in its bar
constexpr int barOver = 4;    // of the bar above and below the letters
constexpr int keysAbove = 48; // the hot keys begin so far above the lower edge
constexpr int keysLeft = 10;
constexpr int keysRight = 14;
constexpr int keyGap = 6;    // from a key to its word
constexpr int wordGap = 14;  // to the next key
constexpr int labelGap = 10; // of the options' label from the caret, of their line from the edge
constexpr int lineThickness = 2;
constexpr int lineTransparency = 224;
constexpr int rowGap = 4; // between the two rows, beside the line's height

QRgb opaqueBlack()
{
    return 0xff000000U;
}

class CfgScreen {
public:
    CfgScreen(const CfgLook& look, const BootRequest& request, BootMembers& members)
        : m_look(look), m_request(request), m_font(members.font(0))
    {
        BootList& list = m_layout.list;
        list.screen = isVideoMode(look.screen) ? look.screen : QSize(800, 600);
        list.bits = look.bits;
        list.bare = opaqueBlack();
        list.background = look.background;
        m_layout.entries = static_cast<int>(request.titles.size());
        m_layout.menuPitch = std::max(1, m_font.height() * 3 / 2);
    }
    BootLayout layOut()
    {
        menu();
        keys();
        options();
        return std::move(m_layout);
    }

private:
    [[nodiscard]] QRect screen() const { return {QPoint(), m_layout.list.screen}; }
    void text(BootObject& object, const QString& text, QPoint at, QRgb colour) const
    {
        BootOp& op = object.ops.emplace_back();
        op.kind = BootOp::Text;
        op.area =
            QRect(at, QSize(m_font.width(text) + m_font.height(), 2 * m_font.height())) & screen();
        op.text = text;
        op.at = at;
        op.colour = colour;
    }
    [[nodiscard]] int barWidth() const
    {
        int widest = 0;
        for (const QString& title : m_request.titles)
            widest = std::max(widest, m_font.width(title));
        const int width = std::max(m_look.barMinWidth, widest + m_look.barBeside);
        const int room = screen().width() - (m_look.centred ? 0 : m_look.menu.x());
        return std::clamp(width, 0, std::max(0, room));
    }
    [[nodiscard]] QPoint menuPlace() const
    {
        return m_look.centred ? QPoint((screen().width() - barWidth()) / 2, m_look.menu.y())
                              : m_look.menu;
    }
    void menu();
    void keys();
    int key(BootObject& object, const CfgKey& key, int x) const;
    [[nodiscard]] int keyWidth(const CfgKey& key) const
    {
        return m_font.width(key.key) + keyGap + m_font.width(key.word);
    }
    void options();

    const CfgLook& m_look;
    const BootRequest& m_request;
    const BootFont& m_font;
    BootLayout m_layout;
};

void CfgScreen::menu()
{
    const QPoint place = menuPlace();
    const int pitch = m_layout.menuPitch;
    const int count = m_layout.entries;
    const int lines = std::clamp(m_look.entries, 1, std::max(1, screen().height()));
    const int chosen = std::clamp(m_request.chosen, 0, std::max(0, count - 1));
    const int first = std::max(0, chosen - lines + 1);
    const QSize bar(barWidth(), m_font.height() + barOver);
    BootObject menu;
    menu.row = MenuPanelRow;
    menu.rect = {place, QSize(bar.width(), lines * pitch)};
    BootObject shine;
    shine.row = MenuBarRow;
    shine.rect = {place, bar}; // on the first line, wherever the bar is
    if (count > 0) {
        BootOp& op = shine.ops.emplace_back();
        op.kind = BootOp::Tint;
        op.area = shine.rect.translated(0, (chosen - first) * pitch) & screen();
        op.colour = m_look.bar;
        op.transparency = m_look.barTransparency;
    }
    for (int i = first; i < std::min(count, first + lines); ++i) {
        const QPoint at = place + QPoint(textInset, (i - first) * pitch + barOver / 2);
        // The bar lies over the entry's usual letters, which shine through beside the new ones.
        text(menu, m_request.titles[i], at, m_look.normal);
        if (i == chosen)
            text(shine, m_request.titles[i], at, m_look.selected);
    }
    m_layout.list.objects.push_back(std::move(menu));
    m_layout.list.objects.push_back(std::move(shine));
}

// Returns where the word ends.
int CfgScreen::key(BootObject& object, const CfgKey& key, int x) const
{
    const int top = screen().height() - keysAbove;
    text(object, key.key, {x, top}, m_look.key);
    const int word = x + m_font.width(key.key) + keyGap;
    text(object, key.word, {word, top}, key.below.isEmpty() ? m_look.word : m_look.title);
    if (!key.below.isEmpty())
        text(object, key.below, {word, top + m_font.lineHeight() + rowGap}, m_look.word);
    return word + std::max(m_font.width(key.word), m_font.width(key.below));
}

void CfgScreen::keys()
{
    BootObject keys;
    keys.row = ButtonsPanelRow;
    const int top = screen().height() - keysAbove;
    keys.rect = {0, top, screen().width(), keysAbove};
    int x = keysLeft;
    for (const CfgKey& left : m_look.left)
        x = key(keys, left, x) + wordGap;
    x = screen().width() - keysRight;
    for (auto right = m_look.right.rbegin(); right != m_look.right.rend(); ++right) {
        x -= keyWidth(*right);
        key(keys, *right, x);
        x -= wordGap;
    }
    m_layout.list.objects.push_back(std::move(keys));
}

void CfgScreen::options()
{
    if (!m_look.options)
        return;
    BootObject options;
    options.row = OptionsPanelRow;
    const int height = m_font.height() + 2;
    options.rect = QRect(m_look.caret, QSize(screen().width() - m_look.caret.x(), height));
    BootOp& caret = options.ops.emplace_back();
    caret.area = QRect(m_look.caret, QSize(1, height)) & screen();
    caret.colour = m_look.optionsText;
    if (!m_look.optionsLabel.isEmpty()) {
        const int right = m_look.caret.x() - labelGap;
        text(options, m_look.optionsLabel,
             {right - m_font.width(m_look.optionsLabel), m_look.caret.y()}, m_look.optionsText);
        BootOp& line = options.ops.emplace_back();
        line.kind = BootOp::Tint;
        line.area = QRect(m_look.caret.x(), m_look.caret.y() + height,
                          screen().width() - labelGap - m_look.caret.x(), lineThickness) &
                    screen();
        line.colour = m_look.optionsText;
        line.transparency = lineTransparency;
    }
    m_layout.list.objects.push_back(std::move(options));
}

} // namespace

BootLayout layOutCfg(const BootRequest& request, BootMembers& members, BootEngine engine)
{
    // The sections are not among the lines that the editor knows, so the file itself is read.
    const CfgLook look = engine == BootEngine::Sections
                             ? sectionedLook(members.text(u"gfxboot.cfg"_s))
                             : flatLook(request.state.cfg);
    return CfgScreen(look, request, members).layOut();
}

} // namespace fennel
