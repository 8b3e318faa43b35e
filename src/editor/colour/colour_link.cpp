// SPDX-License-Identifier: MIT
#include "editor/colour/colour_link.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/colour/colour_tools.h"
#include "editor/colour/pipette.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "params/level_files.h"
#include "params/object_table.h"

#include <QScopedValueRollback>

#include <utility>

namespace fennel {

using namespace Qt::StringLiterals;

ColourLink::ColourLink(MainWindow& window) : m_window(window) {}

void ColourLink::connectControls()
{
    m_pipette = new Pipette(&m_window);
    m_pipette->setCursorShown(m_window.stageLink().pickerCursor());
    connect(m_pipette, &Pipette::sampled, this, &ColourLink::onSample);
    connect(m_pipette, &Pipette::finished, this, &ColourLink::onPicked);
    connect(m_pipette, &Pipette::failed, this, [this](const QString& reason) {
        m_window.shell().prompts.ShowMessage(
            Words::tr("No colour can be picked from the screen here.\n") + reason);
    });
    ColourTools& tools = m_window.colourTools();
    connect(&tools, &ColourTools::fillChanged, this, &ColourLink::setFill);
    connect(&tools, &ColourTools::transparencyChanged, this, &ColourLink::setTransparency);
    connect(&tools.colourButton(), &QPushButton::clicked, this, [this] { askFill(); });
    connect(&tools.fileButton(), &QPushButton::clicked, this, [this] { setFileValues(); });
    connect(&tools.pipette(), &QCheckBox::toggled, this, &ColourLink::onPipette);
    ValueEditor& editor = m_window.rightPanel().editor();
    connect(&editor.colourButton(), &QPushButton::clicked, this, [this] { askValue(); });
    connect(&editor.pipette(), &QCheckBox::toggled, this, &ColourLink::onPipette);
}

const PanelRec* ColourLink::record() const
{
    return m_window.document().object(m_window.stageLink().stage().ColourPanel);
}

void ColourLink::showControls(int index)
{
    if (m_pipette == nullptr)
        return; // the window is still being built
    const PanelRec* rec = m_window.document().object(index);
    ColourTools& tools = m_window.colourTools();
    if (rec == nullptr || !m_window.shell().run.GfxHasZuk) {
        tools.showNothing();
        return;
    }
    // While a menu file's values lie over the object, no value of the file can be changed.
    const bool locked = m_window.document().menuLevelShown();
    tools.showValues(locked ? ColourControls() : colourControlsFor(*rec), rec->BackColor,
                     rec->Transp);
}

int ColourLink::pipettesOn() const
{
    if (m_pipette == nullptr)
        return 0;
    return (m_window.colourTools().pipette().isChecked() ? 1 : 0) +
           (m_window.rightPanel().editor().pipette().isChecked() ? 1 : 0);
}

// A parameter that no list shows reaches no file, so nothing changes then.
void ColourLink::writeParam(int param, const ParamValue& value, const QString& what)
{
    const int object = m_window.stageLink().stage().ColourPanel;
    const PanelRec* rec = record();
    if (rec == nullptr || !ZUKarr::inRange(levelFileOf(*rec), param))
        return;
    Change change;
    change.params[{levelFileOf(*rec), param}] = value;
    StepInfo info{what.arg(objectCaption(rec->Name)), {}, {}};
    info.place.object = object;
    info.place.param = {levelFileOf(*rec), param};
    // One journey of a slider is one step.
    info.mergeKey = u"%1 %2 %3"_s.arg(param).arg(object).arg(m_window.colourTools().journey());
    (void)m_window.document().apply(change, info);
}

void ColourLink::setFill(QRgb colour)
{
    if (const PanelRec* rec = record())
        writeParam(rec->BackParam, ParamValue{colour & 0xFFFFFFU, true, {}},
                   Words::tr("colour of %1"));
    showControls(m_window.stageLink().stage().ColourPanel);
}

void ColourLink::setTransparency(int value)
{
    if (const PanelRec* rec = record())
        writeParam(rec->TranspParam, ParamValue{value, false, {}}, Words::tr("transparency of %1"));
    showControls(m_window.stageLink().stage().ColourPanel);
}

void ColourLink::setFileValues()
{
    const PanelRec* rec = record();
    if (rec == nullptr)
        return;
    const ZUKarr& table = m_window.document().state().ZUKarr;
    const int file = levelFileOf(*rec);
    m_window.colourTools().newJourney();
    const ColourControls controls = colourControlsFor(*rec);
    const qint64 fill = table.GetLevelValue(file, rec->BackParam, LayerCfg).value_or(-1);
    const qint64 transp = table.GetLevelValue(file, rec->TranspParam, LayerCfg).value_or(-1);
    // Both come back at once, and go at once when that is undone.
    StepInfo info{Words::tr("colours of %1").arg(objectCaption(rec->Name)), {}, {}};
    info.place.object = m_window.stageLink().stage().ColourPanel;
    m_window.document().beginGesture(info);
    if (controls.fill && fill >= 0)
        setFill(0xff000000U | static_cast<QRgb>(fill & 0xFFFFFF));
    if (controls.transparency && transp >= 0)
        setTransparency(transparencyShown(static_cast<int>(transp)));
    m_window.document().endGesture();
}

void ColourLink::askFill()
{
    const PanelRec* rec = record();
    const QColor initial(rec == nullptr ? qRgb(0, 0, 0) : rec->BackColor);
    const auto chosen = m_window.shell().prompts.ChooseColour(initial);
    m_window.surface().setFocus();
    m_window.colourTools().newJourney();
    if (chosen)
        setFill(chosen->rgb());
}

void ColourLink::askText()
{
    const PanelRec* rec = record();
    if (rec == nullptr)
        return;
    const auto chosen = m_window.shell().prompts.ChooseColour(QColor(rec->TextColor));
    m_window.surface().setFocus();
    m_window.colourTools().newJourney();
    if (chosen)
        writeParam(rec->TextParam, ParamValue{chosen->rgb() & 0xFFFFFFU, true, {}},
                   Words::tr("text colour of %1"));
}

void ColourLink::askValue()
{
    ValueEditor& editor = m_window.rightPanel().editor();
    const QRgb shown = 0xff000000U | static_cast<QRgb>(numberFromText(editor.text()) & 0xFFFFFF);
    const auto chosen = m_window.shell().prompts.ChooseColour(QColor(shown));
    editor.box().setFocus();
    if (chosen)
        takeValue(chosen->rgb());
}

void ColourLink::takeValue(QRgb colour)
{
    ValueEditor& editor = m_window.rightPanel().editor();
    editor.setText(hexText(colour & 0xFFFFFFU));
    editor.box().setFocus();
    (void)CommitValue(m_window);
}

void ColourLink::onPipette(bool on)
{
    if (m_ending)
        return;
    if (!on) {
        m_pipette->stop();
        return;
    }
    // Kept apart from the boxes: one that is unchecked by hand takes the last sample, too.
    m_forFill = m_window.colourTools().pipette().isChecked();
    m_forValue = m_window.rightPanel().editor().pipette().isChecked();
    if (m_forFill)
        m_window.surface().setFocus();
    m_window.surface().updatePulse();
    m_pipette->start();
}

void ColourLink::showValueSample(const QRgb* colour)
{
    QPlainTextEdit& box = m_window.rightPanel().editor().box();
    QPalette colours = m_window.palette();
    if (colour != nullptr) {
        colours.setColor(QPalette::Base, QColor(*colour));
        colours.setColor(QPalette::Text, QColor(contrastColour(*colour)));
    }
    box.setPalette(colours);
}

void ColourLink::onSample(QRgb colour)
{
    showValueSample(&colour);
    if (m_window.colourTools().pipette().isChecked())
        m_window.colourTools().showSample(colour);
}

void ColourLink::onPicked(bool taken)
{
    const bool forFill = std::exchange(m_forFill, false);
    const bool forValue = std::exchange(m_forValue, false);
    {
        const QScopedValueRollback<bool> ending(m_ending, true);
        m_window.colourTools().pipette().setChecked(false);
        m_window.rightPanel().editor().pipette().setChecked(false);
    }
    showValueSample(nullptr);
    m_window.colourTools().newJourney();
    if (forFill && taken)
        setFill(m_pipette->colour());
    else
        showControls(m_window.stageLink().stage().ColourPanel);
    if (forValue && taken)
        takeValue(m_pipette->colour());
    else if (forValue)
        m_window.rightPanel().editor().box().setFocus();
    m_window.surface().updatePulse();
}

} // namespace fennel
