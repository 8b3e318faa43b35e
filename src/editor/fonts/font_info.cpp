// SPDX-License-Identifier: MIT
#include "editor/fonts/font_info.h"

#include "base/words.h"
#include "editor/window/retranslated.h"
#include "fonts/font_dialog.h"

#include <QHBoxLayout>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {
constexpr double largestSize = 200; // points: a tag may claim any
constexpr int margin = 8;
} // namespace

FontInfo::FontInfo(QWidget* parent)
    : QGroupBox(parent), m_example(new QLabel), m_change(new QPushButton(this))
{
    setObjectName(u"Frame8FontINFO"_s);
    setAutoFillBackground(true);
    retranslated(this, [this] { setTitle(Words::tr("Font INFO")); });
    m_example->setObjectName(u"FontExample"_s);
    // Until a font of the message is shown there.
    retranslated(m_example, [this, example = QString()]() mutable {
        if (m_example->text() != example)
            return;
        example = Words::tr("Two sleepy wolves jog beneath a quiet moon");
        m_example->setText(example);
    });
    // The text comes from a file's tag and must not be read as markup.
    m_example->setTextFormat(Qt::PlainText);
    m_example->setWordWrap(true);
    m_example->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_change->setObjectName(u"Font_change"_s);
    sayText(m_change, Words::mark("Change font..."));
    // A click must not take the focus from the list that the font is chosen in.
    m_change->setFocusPolicy(Qt::TabFocus);
    m_change->setEnabled(false);
    auto* port = new QScrollArea(this);
    // It scrolls, as a large size would otherwise push the window apart.
    port->setFrameStyle(QFrame::NoFrame);
    port->setFocusPolicy(Qt::NoFocus);
    port->setWidgetResizable(true);
    port->setWidget(m_example);
    port->viewport()->setAutoFillBackground(false);
    m_example->setAutoFillBackground(false);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margin, margin / 2, margin, margin / 2);
    row->addWidget(port, 1);
    row->addWidget(m_change, 0, Qt::AlignVCenter);
    hide();
}

void FontInfo::showSample(const FontSample& sample)
{
    QFont font = m_example->font();
    setFace(font, sample.face, sample.record.Bold, sample.record.Italic);
    const double points = std::clamp(sample.record.Size, 1.0, largestSize);
    font.setPixelSize(facePixels(points));
    m_example->setFont(font);
    m_example->setText(sample.text);
}

} // namespace fennel
