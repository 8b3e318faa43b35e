// SPDX-License-Identifier: MIT
// The commands on the backgrounds of a gfxboot. Each is all or nothing: if a step fails, the
// members and "#.lst" are as they were, and the user is told.
#pragma once

#include "base/shell_context.h"
#include "tools/image_tool.h"
#include "tools/picture_host.h"

namespace fennel {

// Replaces the shown background by the picture `file`, scaled to the old one's size; an empty
// `file` asks. The old picture stays in the Workspace as a file with the ending ".#pg". `refresh`
// brings the interface up to date too. True on success.
bool ImportBack(const Shell& shell, PictureHost& host, const QString& file, bool refresh);
// The same for a member that need not be shown. Generation 3 only.
void ChangeBackMember(const Shell& shell, PictureHost& host, const QString& name);
// Adds a background in the size of back.jpg and shows it. Generation 3 only.
void mnuEDIT_ADDBack(const Shell& shell, PictureHost& host);
// ImportBack() with a question, from the menu.
void mnuEdit_ChangeBack(const Shell& shell, PictureHost& host);
// The clipboard's picture as the shown background.
void mnuEdit_ge_Clipboard(const Shell& shell, PictureHost& host, const PictureClipboard& clipboard);
// Scales all backgrounds to one of the usual modes.
void mnuEdit_Resize(const Shell& shell, PictureHost& host);
// Stretches backgrounds and logos vertically for a wide monitor that the user names.
void mnuEdit_16x9Support(const Shell& shell, PictureHost& host);

} // namespace fennel
