// SPDX-License-Identifier: MIT
// What the commands of the table do, one function each; the files beside hold a group of them.
#pragma once

#include "command/command_run.h"

namespace fennel {

Status runInfo(CommandRun& run);
Status runList(CommandRun& run);
Status runGet(CommandRun& run);
Status runSet(CommandRun& run);
Status runReplace(CommandRun& run);
Status runAdd(CommandRun& run);
Status runRemove(CommandRun& run);
Status runFont(CommandRun& run);
Status runExtract(CommandRun& run);
Status runPack(CommandRun& run);
Status runNew(CommandRun& run);
Status runDiff(CommandRun& run);
Status runCheck(CommandRun& run);
Status runUpgrade(CommandRun& run);
Status runRender(CommandRun& run);
Status runBoot(CommandRun& run);
Status runCompare(CommandRun& run);
Status runOpen(CommandRun& run);
Status runHelp(CommandRun& run);
Status runCompletion(CommandRun& run);

// "back.jpg" or, of a name in no known code page, what people read.
QString shownName(const QByteArray& name);
// Says that there is no such parameter, and which are near.
QString unknownName(const MessageFile& message, const ZUKarr& catalogue, const QString& name);
// "engine", "font", ...
QString kindName(const QByteArray& name);

} // namespace fennel
