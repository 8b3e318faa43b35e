// SPDX-License-Identifier: MIT
#include "editor/fonts/char_page.h"

#include "base/words.h"
#include "editor/window/retranslated.h"
#include "fonts/font_dialog.h"
#include "fonts/unicode_blocks.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int largeSide = 120;
constexpr int largePixels = 72;
constexpr int shownBlocks = 24; // rows of the open list

// The block that a page begins in.
// A page may hold several blocks; the last one that starts at or before the page counts.
int blockOfPage(int page)
{
    int found = 0;
    for (int i = 0; i < blockCount; ++i) {
        if (unicodeBlocks[static_cast<std::size_t>(i)].first <= page * cellCount)
            found = i;
    }
    return found;
}

} // namespace

CharPage::CharPage(const CharSelected& set, QWidget* parent)
    : QGroupBox(parent), m_grid(new CharGrid(set, this)),
      m_scroll(new QScrollBar(Qt::Vertical, this)), m_blocks(new QComboBox(this)),
      m_large(new QLabel(this)), m_code(new QLabel(this))
{
    setObjectName(u"FrameUNICODE"_s);
    m_scroll->setObjectName(u"VScrollUnicode"_s);
    m_scroll->setRange(0, pageCount - 1);
    // 16 pages, 4096 characters.
    m_scroll->setPageStep(16);
    auto* cells = new QHBoxLayout;
    cells->setSpacing(2);
    cells->addWidget(m_grid);
    cells->addWidget(m_scroll);
    auto* left = new QVBoxLayout;
    left->addLayout(makeChoice());
    left->addLayout(cells);
    auto* row = new QHBoxLayout(this);
    row->addLayout(left);
    row->addLayout(makeView(), 1);
    connect(m_scroll, &QScrollBar::valueChanged, this, &CharPage::showPage);
    // Only what the user chooses: showPage() sets the block itself and must not come back here.
    connect(m_blocks, &QComboBox::activated, this,
            [this](int block) { setPage(pageOfBlock(m_blocks->itemText(block))); });
    connect(m_grid, &CharGrid::cellPressed, this, &CharPage::cellPressed);
    connect(m_grid, &CharGrid::runMarked, this, &CharPage::runMarked);
    connect(m_grid, &CharGrid::cellEntered, this, &CharPage::showCharacter);
    connect(m_grid, &CharGrid::pagesTurned, this,
            [this](int pages) { m_scroll->setValue(m_scroll->value() + pages); });
    showPage(0);
}

QLayout* CharPage::makeChoice()
{
    auto* label = new QLabel(Words::tr("Check symbols to be included in fnt-file"), this);
    label->setObjectName(u"Label1"_s);
    m_blocks->setObjectName(u"ComboSets"_s);
    sayName(m_blocks, Words::mark("Block of characters"));
    m_blocks->setMaxVisibleItems(shownBlocks);
    // Without this, the desktop's style may open a list of 150 rows over the whole screen.
    m_blocks->setStyleSheet(u"QComboBox { combobox-popup: 0; }"_s);
    for (const UnicodeBlock& block : unicodeBlocks)
        m_blocks->addItem(blockText(block));
    m_blocks->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_blocks->setMinimumContentsLength(44);
    m_grid->setToolTip(Words::tr("Shift+click marks all up to the cell that was clicked before"));
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addStretch(1);
    row->addWidget(m_blocks);
    return row;
}

QLayout* CharPage::makeView()
{
    auto* label = new QLabel(Words::tr("Select to view"), this);
    label->setObjectName(u"Label5"_s);
    label->setAlignment(Qt::AlignCenter);
    m_large->setObjectName(u"Obrazec"_s);
    m_large->setTextFormat(Qt::PlainText);
    m_large->setFixedSize(largeSide, largeSide);
    m_large->setAlignment(Qt::AlignCenter);
    m_large->setTextFormat(Qt::PlainText);
    m_large->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
    m_large->setBackgroundRole(QPalette::Base);
    m_large->setAutoFillBackground(true);
    m_code->setObjectName(u"TextCode"_s);
    m_code->setTextFormat(Qt::PlainText);
    m_code->setText(Words::tr("Text1"));
    m_code->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(m_large, 0, Qt::AlignHCenter);
    column->addWidget(m_code);
    column->addStretch(1);
    return column;
}

void CharPage::setPage(int page)
{
    m_scroll->setValue(page);
}

void CharPage::showPage(int page)
{
    setTitle(Words::tr("Unicode Characters Page: ") + pageRange(page));
    m_grid->setPage(page);
    // A block chosen from the list stays shown although its page begins with another one.
    if (pageOfBlock(m_blocks->currentText()) != page)
        m_blocks->setCurrentIndex(blockOfPage(page));
    Q_EMIT pageChanged(page);
}

void CharPage::setFace(const QRawFont& face, const QFont& shown, const CharSelected& there)
{
    m_there = there;
    m_grid->setFace(face);
    QFont large = shown;
    large.setPixelSize(largePixels);
    m_large->setFont(large);
    if (m_shownCode >= 0)
        showCharacter(m_shownCode);
}

void CharPage::showCharacter(int code)
{
    m_shownCode = code;
    const bool there = m_there[static_cast<std::size_t>(code)];
    const bool control = cellGlyph(code / cellCount, code % cellCount).trimmed().isEmpty();
    m_large->setText(QString(QChar(static_cast<char16_t>(code))));
    // What the font lacks comes from another font, so it is shown faded.
    m_large->setForegroundRole(there ? QPalette::Text : QPalette::PlaceholderText);
    QString text = u"Unicode: U+"_s + QString::number(code, 16).toUpper().rightJustified(4, u'0');
    if (!there && !control)
        text += u'\n' + Words::tr("not in this font");
    m_code->setText(text);
}

} // namespace fennel
