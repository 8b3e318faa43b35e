// SPDX-License-Identifier: MIT
// The way back: the stack of steps, how much of it is kept, undo and redo.
#include "document/config_file.h"
#include "document/document.h"
#include "params/panel_values.h"

#include <QUndoCommand>

namespace fennel {

namespace {

constexpr qint64 undoLimit = 256LL * 1024 * 1024; // bytes that the steps hold in all

} // namespace

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

void Document::push(Step&& step)
{
    if (step.dropUnchanged())
        return;
    m_stack.push(new Command(*this, std::move(step)));
    boundHistory();
    Q_EMIT historyChanged();
}

// Beyond the limit the oldest steps go first. The stack cannot lose them, so they stay as husks
// that nothing goes back past.
void Document::boundHistory()
{
    qint64 sum = 0;
    for (int i = m_stack.count() - 1; i >= 0; --i) {
        auto* kept = const_cast<Command*>(command(i));
        if (kept->expired)
            break;
        sum += kept->step.bytes();
        if (sum <= undoLimit || i == m_stack.count() - 1)
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
