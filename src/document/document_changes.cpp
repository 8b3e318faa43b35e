// SPDX-License-Identifier: MIT
// What is done to the document, and what a change takes along.
#include "document/config_file.h"
#include "document/document.h"
#include "params/level_files.h"
#include "params/panel_values.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace fennel {

void Document::keepObject(int row, Step& step) const
{
    step.objects.try_emplace(row, BeforeAfter<PanelRec>{*m_state.object(row), {}});
}

void Document::setObject(int row, const PanelRec& record, Step& step)
{
    PanelRec* rec = m_state.object(row);
    if (rec == nullptr)
        return;
    keepObject(row, step);
    // The words on an object are what is shown and no part of a change.
    const QString text = rec->Text;
    *rec = record;
    rec->Text = text;
    step.objects[row].after = *rec;
}

void Document::setParam(const ParamKey& key, const ParamValue& value, Step& step)
{
    ZukCell& cell = m_state.ZUKarr.at(key.file, key.number);
    if (!cell.Value)
        return; // no list shows it, so no file would get it
    const auto [entry, added] = step.params.try_emplace(key);
    if (added)
        entry->second.before = cell.Value;
    cell.Value = value;
    entry->second.after = cell.Value;
    // The background in use counts at once, whatever the lists were gathered for.
    if (key == ParamKey{0, backgroundParam})
        cell.EditValue = value.number;
}

// Every object whose tab lists the parameter and that looks different with it.
void Document::recompute(const ParamKey& key, Step& step)
{
    for (int row = 0; row < static_cast<int>(m_state.PanelArr.size()); ++row) {
        const PanelRec& panel = *m_state.object(row);
        if (!panel.Enabled || levelFileOf(panel) != key.file || !feedsPanel(panel, key.number) ||
            std::ranges::find(panel.Ids, key.number, &PanelParam::number) == panel.Ids.end())
            continue;
        setObject(row, panelFromValues(m_state, m_fonts, row), step);
    }
}

bool Document::setConfig(const Change& change, Step& step)
{
    const CfgState before{m_state.cfg, m_cfgBytes};
    m_state.cfg = *change.cfg;
    bool done = true;
    if (change.writeCfg && run().GfxHasCfg) {
        const Result<CfgState> written = writeConfig(m_shell, m_state.cfg, saveForm());
        done = m_shell.told(written ? Result<void>() : written.failure());
        if (done && !written->bytes.isNull()) {
            m_state.cfg = written->lines;
            m_cfgBytes = written->bytes;
        }
    }
    if (!change.cfgKey.isEmpty() && generation() == Generation::Two) {
        for (const int row : {0, 1})
            keepObject(row, step);
        CfgApply(m_shell.run, m_state, m_fonts, change.cfgKey);
        for (const int row : {0, 1})
            step.objects[row].after = *m_state.object(row);
    }
    step.cfg = BeforeAfter<CfgState>{before, {m_state.cfg, m_cfgBytes}};
    return done;
}

DocumentChange Document::changeOf(const Step& step)
{
    DocumentChange change;
    for (const auto& [key, values] : step.params)
        change.params.insert(key);
    for (const auto& [row, records] : step.objects)
        change.objects.insert(row);
    for (const auto& [name, versions] : step.members)
        change.members.insert(name);
    change.cfg = step.cfg.has_value();
    change.generation = step.whole != nullptr;
    change.place = step.info.place;
    return change;
}

bool Document::apply(const Change& change, const StepInfo& info)
{
    Step step;
    step.info = info;
    for (const auto& [key, value] : change.params)
        setParam(key, value, step);
    for (const auto& [key, values] : std::map(step.params)) {
        if (values.before != values.after)
            recompute(key, step);
    }
    for (const auto& [row, record] : change.objects)
        setObject(row, record, step);
    const bool done = !change.cfg || setConfig(change, step);
    if (step.dropUnchanged() && done)
        return true;
    DocumentChange told = changeOf(step);
    told.live = inGesture();
    if (inGesture())
        m_gesture->absorb(std::move(step));
    else
        push(std::move(step));
    Q_EMIT changed(told);
    return done;
}

bool Document::changeMembers(const StepInfo& info, const std::function<bool()>& work)
{
    // A command that is a part of another one.
    if (m_inMembers)
        return work();
    endGesture();
    const QScopedValueRollback<bool> inside(m_inMembers, true);
    Result<MemberVersions::Snapshot> before = m_history.take();
    if (!before)
        return m_shell.told(before.failure());
    beginGesture(info);
    if (!work()) {
        cancelGesture();
        (void)m_shell.told(m_history.restore(std::move(*before)));
        return false;
    }
    auto changes = m_history.since(std::move(*before), m_gesture->memberBytes);
    if (changes)
        m_gesture->members = std::move(*changes);
    else
        (void)m_shell.told(changes.failure());
    endGesture();
    return true;
}

void Document::beginGesture(const StepInfo& info)
{
    // The end of the one before got lost, with the window that its mouse was in.
    endGesture();
    m_gesture = std::make_unique<Step>();
    m_gesture->info = info;
}

void Document::endGesture()
{
    const std::unique_ptr<Step> step = std::move(m_gesture);
    if (step == nullptr || step->dropUnchanged())
        return;
    const DocumentChange told = changeOf(*step);
    push(std::move(*step));
    Q_EMIT changed(told);
}

void Document::cancelGesture()
{
    const std::unique_ptr<Step> step = std::move(m_gesture);
    if (step == nullptr || step->dropUnchanged())
        return;
    (void)move(*step, false);
    Q_EMIT changed(changeOf(*step));
}

} // namespace fennel
