// SPDX-License-Identifier: MIT
#include "editor/fonts/spacing_frame.h"

#include "base/words.h"

#include <QHBoxLayout>

#include <algorithm>

namespace fennel {

namespace {
// What the font format can hold as an advance.
constexpr NumberRange spacings{-127, 127, 0};
constexpr int samplePixels = 15;  // height of the sample's letters, before a font is chosen
constexpr int largestSample = 32; // what the frame has room for
} // namespace

SpacingFrame::SpacingFrame(const QString& name, const QString& title, const QString& number,
                           const std::vector<Word>& words, QWidget* parent)
    : QGroupBox(title, parent),
      m_number(new NumberSpin(QStringLiteral("UpDown_") + number, number, spacings, this)),
      m_sample(new QWidget(this))
{
    setObjectName(name);
    m_number->setSuffix(Words::tr(" px"));
    m_number->setAccessibleName(title);
    m_number->setToolTip(Words::tr("Pixels of the boot screen"));
    for (const Word& word : words)
        addWord(word);
    // Room for two lines and the spacings that are of use.
    m_sample->setMinimumSize(m_sample->childrenRect().right() + samplePixels, 4 * samplePixels);
    auto* row = new QHBoxLayout(this);
    row->setSpacing(samplePixels);
    row->addWidget(m_number, 0, Qt::AlignVCenter);
    row->addWidget(m_sample, 1);
    connect(m_number, &QDoubleSpinBox::valueChanged, this, &SpacingFrame::moveWords);
}

// Each further word stands behind or below the one before.
void SpacingFrame::addWord(const Word& word)
{
    auto* label = new QLabel(word.text, m_sample);
    label->setObjectName(word.name);
    QFont font = label->font();
    font.setPixelSize(samplePixels);
    label->setFont(font);
    m_words.push_back({label, {}, word.step, word.newLine});
    placeWords();
}

void SpacingFrame::placeWords()
{
    QPoint base(0, samplePixels / 2);
    for (Placed& word : m_words) {
        word.label->adjustSize();
        if (word.newLine)
            base = QPoint(0, base.y() + word.label->height());
        word.base = base;
        base.rx() += word.label->width();
    }
    moveWords();
}

void SpacingFrame::setExtra(int pixels)
{
    m_extra = pixels;
    moveWords();
}

void SpacingFrame::setFace(const QFont& face)
{
    QFont shown(face);
    shown.setPixelSize(std::clamp(face.pixelSize(), 1, largestSample));
    for (const Placed& word : m_words)
        word.label->setFont(shown);
    placeWords();
}

void SpacingFrame::moveWords()
{
    for (const Placed& word : m_words)
        // From the base and not from the present place, so that roundings do not add up. One pixel
        // here is one of the boot screen.
        word.label->move(word.base + word.step * (value() + m_extra));
}

void SpacingFrame::setValue(int value)
{
    m_number->setValue(value);
}

qint16 SpacingFrame::value() const
{
    return static_cast<qint16>(m_number->value());
}

} // namespace fennel
