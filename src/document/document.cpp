// SPDX-License-Identifier: MIT
// What is open, and what is shown of it.
#include "document/document.h"

#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "document/config_file.h"
#include "params/catalogue.h"
#include "params/cfg_keep.h"
#include "params/level_files.h"
#include "params/object_table.h"
#include "params/panel_values.h"

namespace fennel {

Document::Document(const Shell& shell, const FontTable& fonts)
    : m_shell(shell), m_fonts(fonts), m_history(m_shell)
{
}

Document::~Document() = default;

Generation Document::generation() const
{
    // The newest sign wins: a generation 3 file may still hold the cfg of generation 2.
    return run().GfxHasZuk   ? Generation::Three
           : run().GfxHasCfg ? Generation::Two
                             : Generation::One;
}

QString Document::CfgValue(QStringView name) const
{
    return fennel::CfgValue(m_state.cfg, name);
}

qint64 Document::fontOf(int object) const
{
    const PanelRec* rec = m_state.object(object);
    if (rec == nullptr)
        return 0;
    // A constant font is a source below 0, like every constant.
    return rec->FontParam > 0 ? GetPanelParam(m_state, object, rec->FontParam)
                              : -qint64{rec->FontParam};
}

void Document::loadCatalogue()
{
    (void)LoadCatalogue(m_shell, m_state.ZUKarr);
}

void Document::readLevels()
{
    m_state.UpgradeChoice = 0;
    ReadLevelFiles(m_shell, m_state.ZUKarr);
}

void Document::readConfigLines()
{
    m_state.cfg.clear();
    m_cfgBytes.clear();
    m_savedCfgBytes.clear();
    if (!FileExists(m_shell.run.Workspace + cfgMemberName)) {
        // With it off nothing is written back later.
        m_shell.run.GfxHasCfg = false;
        return;
    }
    const Result<CfgState> config = readConfig(m_shell);
    if (!config) {
        (void)m_shell.told(config.failure());
        return;
    }
    m_state.cfg = config->lines;
    m_cfgBytes = m_savedCfgBytes = config->bytes;
}

void Document::buildObjects()
{
    m_menuLevel = m_menuLevel && run().GfxHasZuk;
    BuildPanels(m_shell, m_state);
    applyGeneration(m_shell, m_state, m_fonts);
}

bool Document::needsUpgrade() const
{
    return generation() == Generation::Three && lacksParameters(m_state);
}

void Document::listValues(bool upgraded)
{
    m_state.UpgradeChoice = upgraded ? 1 : -1;
    if (generation() == Generation::Three)
        fennel::listValues(m_state);
}

void Document::beginHistory()
{
    m_gesture.reset();
    m_stack.clear();
    m_stack.setClean(); // clear() leaves an empty stack as it is
    m_history.clear();
    m_saveForm.reset();
    Q_EMIT historyChanged();
}

// Also of what is in the Workspace already, where typed values go at once.
bool Document::configEdited() const
{
    return m_cfgBytes != m_savedCfgBytes || keptCfg(m_cfgBytes, m_state.cfg) != m_cfgBytes;
}

// What the lists do not show of the files that a save would write.
QStringList Document::losses() const
{
    if (generation() == Generation::Three) {
        const Result<QStringList> lost = levelLosses(m_shell, m_state.ZUKarr);
        return lost ? *lost : QStringList();
    }
    const bool writes = run().GfxHasCfg && configEdited();
    return writes ? cfgLosses(m_cfgBytes, m_state.cfg) : QStringList();
}

// Asked before the first save that it matters to. False if the user calls the save off.
bool Document::chooseSaveForm()
{
    if (m_saveForm)
        return true;
    const QStringList lost = losses();
    if (lost.isEmpty())
        return true;
    Choice question;
    question.title = Words::tr("Save");
    question.text = Words::tr("%1 holds more than the lists show.\n"
                              "This would be lost or changed although nobody edited it:")
                        .arg(run().GfxFileName);
    question.list = lost;
    question.answers = {Words::tr("Keep them as they are"), Words::tr("Save as the lists show"),
                        Words::tr("Cancel")};
    question.cancel = 2;
    const int answer = m_shell.prompts.choose(question);
    if (answer != question.cancel)
        m_saveForm = answer == 0 ? SaveForm::Kept : SaveForm::Listed;
    return m_saveForm.has_value();
}

bool Document::writeParameters()
{
    if (generation() == Generation::Three)
        GatherListValues(m_state.ZUKarr);
    if (!chooseSaveForm())
        return false;
    if (generation() == Generation::Three)
        return m_shell.told(WriteLevelFiles(m_shell, m_state.ZUKarr, saveForm())) &&
               m_shell.told(RebuildMemberList(m_shell, QStringLiteral("*.CFG")));
    return !run().GfxHasCfg || !configEdited() || saveConfig();
}

bool Document::saveConfig()
{
    const Result<CfgState> written = writeConfig(m_shell, m_state.cfg, saveForm());
    if (!written)
        return m_shell.told(written.failure());
    // What undo and redo come back to is what was saved, and not what would be saved over it.
    noteSavedConfig(written->bytes.isNull() ? CfgState{m_state.cfg, m_cfgBytes} : *written);
    m_savedCfgBytes = m_cfgBytes;
    DocumentChange change;
    change.cfg = true;
    Q_EMIT changed(change);
    return true;
}

void Document::showMenuLevel(bool on)
{
    m_menuLevel = on;
    if (generation() != Generation::Three)
        return;
    // The lists were covered by the menu's values; now they count again, with whatever was edited
    // in them before.
    if (!on)
        GatherListValues(m_state.ZUKarr);
    RecalcPanelsFromLevels(m_shell, m_state, m_fonts, on ? LayerLst : LayerEdit);
}

void Document::setMenuValues(const std::function<void(ZUKarr&)>& impose)
{
    impose(m_state.ZUKarr);
}

void Document::setMenuEntries(const QString& entries)
{
    const MenuTexts texts = menuTexts(entries);
    if (PanelRec* bar = m_state.object(MenuBarRow))
        bar->Text = texts.bar;
    if (PanelRec* menu = m_state.object(MenuPanelRow))
        menu->Text = texts.menu;
}

void Document::setMenuTitles(const QStringList& titles)
{
    m_menuTitles = titles;
    DocumentChange change;
    change.cause = DocumentChange::Shown;
    Q_EMIT changed(change);
}

void Document::setText(int object, const QString& text)
{
    if (PanelRec* rec = m_state.object(object))
        rec->Text = text;
}

void Document::noteBackground(int number)
{
    ZukCell& cell = m_state.ZUKarr.at(0, backgroundParam);
    cell.EditValue = number;
    // Showing changes nothing: a number whose picture is missing, for which another stands in,
    // stays.
    if (!inGesture() || !cell.Value || cell.Value->number == number)
        return;
    Change change;
    change.params[{0, backgroundParam}] = ParamValue{number, cell.Value->hex, {}};
    (void)apply(change, m_gesture->info);
}

void Document::fitMenuToFont()
{
    // What a menu imposes lies over the lists' values.
    if (menuLevelShown())
        RecalcPanelsFromLevels(m_shell, m_state, m_fonts, LayerLst);
    else
        fennel::fitMenuToFont(m_shell.run, m_state, m_fonts);
}

} // namespace fennel
