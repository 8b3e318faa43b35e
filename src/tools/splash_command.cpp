// SPDX-License-Identifier: MIT
#include "tools/splash_command.h"

#include "base/words.h"
#include "container/archive_tools.h"
#include "container/gfx_save.h"
#include "tools/image_tool.h"

#include <QDir>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString ending = u".xpm.gz"_s;
const QString packedName = u"~splash.xpm.gz"_s;

} // namespace

void mnuFile_Splash(const Shell& shell)
{
    const QString chosen = SaveDialog(shell, QDir::homePath(), Words::tr("Save splashimage as..."),
                                      Words::tr("Splash"));
    if (chosen.isEmpty())
        return;
    const bool named = namePart(chosen).endsWith(ending, Qt::CaseInsensitive);
    const QString target = named ? chosen : chosen + ending;
    if (!mayReplace(shell, target, chosen, Words::tr("Save splashimage as...")) ||
        !BackToXpm(shell))
        return;
    const QString& folder = shell.run.WorkspaceRoot;
    const Result<QString> packed = SevenZipPack(shell, folder + splashXpmName, folder, packedName);
    if (packed)
        (void)shell.told(shell.files.replaceWhole(folder + packedName, target));
    else
        (void)shell.tell(packed.failure());
    (void)shell.files.remove(folder + packedName);
    (void)shell.files.remove(folder + splashXpmName);
}

} // namespace fennel
