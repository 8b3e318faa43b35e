// SPDX-License-Identifier: MIT
// From an older generation to the newest.
#include "base/text.h"
#include "base/words.h"
#include "container/member_list.h"
#include "document/document.h"
#include "document/upgrade.h"
#include "params/object_table.h"

namespace fennel {

using namespace Qt::StringLiterals;

WholeState Document::whole() const
{
    return {m_state,         m_cfgBytes,        run().GfxHasCfg,
            run().GfxHasZuk, run().gfxboot_var, run().ObjectCount};
}

void Document::become(const WholeState& other)
{
    RunState& run = m_shell.run;
    run.GfxHasCfg = other.hasCfg;
    run.GfxHasZuk = other.hasZuk;
    run.gfxboot_var = other.gfxboot_var;
    run.ObjectCount = other.objects;
    m_cfgBytes = other.cfgBytes;
    m_state = other.params;
}

bool Document::writeUpgrade()
{
    const QString& folder = run().Workspace;
    const CfgLook look = cfgLook(decodeText(m_cfgBytes).text, m_state.cfg);
    const auto files = upgradedFiles(m_shell, look);
    if (!files)
        return m_shell.told(files.failure());
    for (const auto& [name, bytes] : *files) {
        if (!m_shell.told(m_shell.files.write(folder + name, bytes)) ||
            !m_shell.told(RebuildMemberList(m_shell, name)))
            return false;
    }
    return m_shell.told(m_shell.files.remove(folder + cfgMemberName)) &&
           m_shell.told(RebuildMemberList(m_shell, {}));
}

bool Document::upgrade()
{
    if (!run().GfxOpened || generation() == Generation::Three)
        return false;
    const WholeState before = whole();
    const StepInfo info{Words::tr("upgrade to @ZUK-MOSA@"), {}, {}};
    return changeMembers(info, [&] {
        if (!writeUpgrade())
            return false;
        WholeState newest = before;
        newest.params.cfg.clear();
        newest.cfgBytes.clear();
        newest.hasCfg = false;
        newest.hasZuk = true;
        newest.gfxboot_var = 3;
        newest.objects = zukObjectCount;
        become(newest);
        readLevels();
        buildObjects();
        listValues(false);
        m_gesture->whole = std::make_shared<const BeforeAfter<WholeState>>(
            BeforeAfter<WholeState>{before, whole()});
        return true;
    });
}

} // namespace fennel
