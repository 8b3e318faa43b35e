// SPDX-License-Identifier: MIT
// The shown background as a splash image for GRUB Legacy and its kin.
#pragma once

#include "base/shell_context.h"

namespace fennel {

// Asks for a file and writes the background there as a gzipped XPM of 640x480 pixels with at most
// 14 colours; ".xpm.gz" is added to a name without it. The file is whole or as it was before.
void mnuFile_Splash(const Shell& shell);

} // namespace fennel
