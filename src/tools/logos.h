// SPDX-License-Identifier: MIT
// The commands on the logos of a generation 3 gfxboot. All logos have the size of the mask
// Logo_msk.jpg. Each command is all or nothing: if a step fails, the members and "#.lst" are as
// they were, and the user is told.
#pragma once

#include "base/shell_context.h"
#include "tools/picture_host.h"

namespace fennel {

// Replaces the logo `name` by a picture of the user's choice, scaled to that logo's size.
void ChangeLogoMember(const Shell& shell, PictureHost& host, const QString& name);
// The same for any picture of the gfxboot, which keeps its size.
void ChangePictureMember(const Shell& shell, PictureHost& host, const QString& name);
// Adds a logo in the mask's size, with its text file.
void mnuEDIT_ADDLogo(const Shell& shell, PictureHost& host);
// Scales all logos and the mask to a size that the user types as "400 X 300".
void mnuEdit_ResizeLOGO(const Shell& shell, PictureHost& host);

} // namespace fennel
