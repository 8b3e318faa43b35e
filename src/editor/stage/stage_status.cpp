// SPDX-License-Identifier: MIT
// What the stage says in its fields of the status line: size and scale, and why an object stays.
#include "base/text.h"
#include "base/words.h"
#include "document/place_change.h"
#include "editor/stage/stage.h"

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int sizeStatus = 4;

} // namespace

void Stage::showSizeStatus()
{
    if (!run().GfxOpened)
        return;
    m_note = m_asItBoots ? m_boot.note() : QString();
    QString text = Words::tr("%1x%2, Scale=%3%")
                       .arg(run().BackWidth)
                       .arg(run().BackHeight)
                       .arg(roundToEven(run().PreviewScale * 100));
    if (!m_note.isEmpty())
        text += u"; "_s + m_note;
    host().setStatus(sizeStatus, text);
}

QString Stage::whyFixed(int index) const
{
    return m_asItBoots ? whyPlaceStays(document().state(), run().gfxboot_var, index) : QString();
}

void Stage::tellFixed(int index) const
{
    if (const QString why = whyFixed(index); !why.isEmpty())
        host().setStatus(nameStatus, why);
}

} // namespace fennel
