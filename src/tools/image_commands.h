// SPDX-License-Identifier: MIT
// The commands of the menu Tools / NConvert: each asks for what it needs, runs one line of the
// picture tool and puts the result where the user wanted it.
#pragma once

#include "tools/image_tool.h"

namespace fennel {

// Saves the clipboard's picture as a JPEG that the user names.
void mnuT_NConvert_Clipboard(const Shell& shell, const PictureClipboard& clipboard);
// Makes a JPEG beside a picture of another format.
void mnuT_NConvert_Convert(const Shell& shell);
// Puts the part of a JPEG that the user names on the clipboard and into Clipboard.jpg.
void mnuT_NConvert_Crop(const Shell& shell, PictureClipboard& clipboard);
// Puts a resized copy of a JPEG on the clipboard and into Clipboard.jpg of WorkspaceRoot.
void mnuT_NConvert_Resize(const Shell& shell, PictureClipboard& clipboard);

} // namespace fennel
