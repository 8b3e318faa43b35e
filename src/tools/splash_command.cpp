// SPDX-License-Identifier: MIT
#include "tools/splash_command.h"

#include "container/archive_tools.h"
#include "container/gfx_save.h"
#include "tools/image_tool.h"

#include <QDir>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString ending = u".xpm.gz"_s;
const QString packedName = u"~splash.xpm.gz"_s;

// The dialog has asked about the name without the ending.
bool mayReplace(const Shell& shell, const QString& target, const QString& chosen)
{
    return target == chosen || !FileExists(target) ||
           shell.prompts.ShowMessage(
               u"File %1 already exists.\nDo you want to replace it?"_s.arg(target),
               MessageType::YesNo, u"Save splashimage as..."_s) == Answer::Yes;
}

} // namespace

void mnuFile_Splash(const Shell& shell)
{
    const QString chosen =
        SaveDialog(shell, QDir::homePath(), u"Save splashimage as..."_s, u"Splash"_s);
    if (chosen.isEmpty())
        return;
    const bool named = namePart(chosen).endsWith(ending, Qt::CaseInsensitive);
    const QString target = named ? chosen : chosen + ending;
    if (!mayReplace(shell, target, chosen) || !BackToXpm(shell))
        return;
    const QString& folder = shell.run.WorkspaceRoot;
    const Result<QString> packed = SevenZipPack(shell, folder + splashXpmName, folder, packedName);
    if (packed)
        (void)shell.told(shell.files.replaceWhole(folder + packedName, target));
    else if (!packed.failure().text.empty())
        (void)shell.told(packed.failure());
    (void)shell.files.remove(folder + packedName);
    (void)shell.files.remove(folder + splashXpmName);
}

} // namespace fennel
