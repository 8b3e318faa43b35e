// SPDX-License-Identifier: MIT
// Changes, and the way back.
#include "document/config_file.h"
#include "document/document.h"
#include "params/level_files.h"
#include "params/panel_values.h"

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <algorithm>

namespace fennel {

// Keeps a step on the stack. The document itself goes back and forth, since that can fail.
struct Document::Command : public QUndoCommand {
    Command(Document& owner, Step&& done) : document(owner), step(std::move(done))
    {
        setText(step.info.what);
    }
    ~Command() override { forget(); }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    int id() const override { return step.info.mergeKey.isEmpty() ? -1 : 1; }
    bool mergeWith(const QUndoCommand* later) override
    {
        const auto* other = static_cast<const Command*>(later);
        if (other->step.info.mergeKey != step.info.mergeKey || !other->step.members.empty())
            return false;
        step.absorb(Step(other->step));
        // There and back again is nothing that anybody would undo.
        setObsolete(step.dropUnchanged());
        return true;
    }
    // The versions of files that only this step keeps.
    void forget()
    {
        for (const auto& [name, versions] : step.members) {
            document.m_history.drop(versions.before);
            document.m_history.drop(versions.after);
        }
        step.members.clear();
    }

    Document& document;
    Step step;
    bool expired = false; // too old to be kept: there is no way back past it
};

const Document::Command* Document::command(int index) const
{
    return static_cast<const Command*>(m_stack.command(index));
}

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
    Result<MemberHistory::Snapshot> before = m_history.take();
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

void Document::push(Step&& step)
{
    if (step.dropUnchanged())
        return;
    m_stack.push(new Command(*this, std::move(step)));
    boundHistory();
    Q_EMIT historyChanged();
}

// The stack cannot lose its oldest commands, so they stay as husks that nothing goes back past.
void Document::boundHistory()
{
    qint64 sum = 0;
    for (int i = m_stack.count() - 1; i >= 0; --i) {
        auto* kept = const_cast<Command*>(command(i));
        if (kept->expired)
            break;
        sum += kept->step.bytes();
        if (sum <= historyLimit || i == m_stack.count() - 1)
            continue;
        kept->forget();
        kept->step = Step{kept->step.info, {}, {}, {}, {}, 0, {}};
        kept->expired = true;
    }
}

bool Document::canUndo() const
{
    return !inGesture() && m_stack.canUndo() && !command(m_stack.index() - 1)->expired;
}

bool Document::canRedo() const
{
    return !inGesture() && m_stack.canRedo();
}

QString Document::undoText() const
{
    return canUndo() ? m_stack.undoText() : QString();
}

QString Document::redoText() const
{
    return canRedo() ? m_stack.redoText() : QString();
}

bool Document::isModified() const
{
    return !m_stack.isClean();
}

void Document::markSaved()
{
    m_stack.setClean();
    Q_EMIT historyChanged();
    Q_EMIT saved();
}

void Document::markUnsaved()
{
    m_stack.resetClean();
    Q_EMIT historyChanged();
}

// Files first, as they can fail; the rest cannot.
bool Document::move(const Step& step, bool forward)
{
    const auto side = [forward](const auto& pair) -> const auto&
    {
        return forward ? pair.after : pair.before;
    };
    std::map<QByteArray, VersionId> versions;
    for (const auto& [name, pair] : step.members)
        versions[name] = side(pair);
    if (!m_shell.told(m_history.put(versions)))
        return false;
    if (step.cfg) {
        const CfgState& config = side(*step.cfg);
        if (config.bytes != m_cfgBytes && !m_shell.told(putConfig(m_shell, config.bytes)))
            return false;
        m_state.cfg = config.lines;
        m_cfgBytes = config.bytes;
    }
    for (const auto& [key, pair] : step.params) {
        ZukCell& cell = m_state.ZUKarr.at(key.file, key.number);
        cell.Value = side(pair);
        if (key == ParamKey{0, backgroundParam} && cell.Value)
            cell.EditValue = cell.Value->number;
    }
    for (const auto& [row, pair] : step.objects) {
        if (PanelRec* rec = m_state.object(row)) {
            const QString text = rec->Text;
            *rec = side(pair);
            rec->Text = text;
        }
    }
    if (step.whole)
        become(side(*step.whole));
    // What lies over the lists goes on lying over them.
    if (menuLevelShown())
        RecalcPanelsFromLevels(m_shell, m_state, m_fonts, LayerLst);
    return true;
}

bool Document::travel(bool forward)
{
    if (!(forward ? canRedo() : canUndo()))
        return false;
    const Step& step = command(m_stack.index() - (forward ? 0 : 1))->step;
    if (!move(step, forward))
        return false;
    DocumentChange told = changeOf(step);
    told.cause = DocumentChange::Undone;
    if (forward)
        m_stack.redo();
    else
        m_stack.undo();
    Q_EMIT changed(told);
    Q_EMIT historyChanged();
    return true;
}

// Undo and redo come back to what was saved, and never to what would be saved over it: the step
// that led here ends with it, the next one begins with it.
void Document::noteSavedConfig(const CfgState& saved)
{
    const CfgState before{m_state.cfg, m_cfgBytes};
    m_state.cfg = saved.lines;
    m_cfgBytes = saved.bytes;
    const auto step = [this](int index) -> Step& {
        return const_cast<Command*>(command(index))->step;
    };
    if (m_stack.index() > 0) {
        auto& cfg = step(m_stack.index() - 1).cfg;
        cfg = BeforeAfter<CfgState>{cfg ? cfg->before : before, saved};
    }
    for (int i = m_stack.index(); i < m_stack.count(); ++i) {
        if (step(i).cfg) {
            step(i).cfg->before = saved;
            break;
        }
    }
}

} // namespace fennel
