// SPDX-License-Identifier: MIT
// The data that the program carries with it, in the folder "data" beside the executable: a whole
// message file to start from, the current engine and standard font, the parameter catalogues.
#pragma once

#include "base/shell_context.h"

#include <QString>

namespace fennel {

// The language whose catalogue is used: the code itself if there is one in it, else "0409". Codes
// have four digits, "0419" being Russian.
QString CatalogueLanguage(const QString& language);

// Writes a resource into a folder under the name that it has there:
//     GFX.GZ     @ZUK-MOSA@.gz, the message file of a new gfxboot
//     INIT       init, the engine with 3 zero bytes behind it
//     16X16.FNT  16x16.fnt, the standard font with 2 zero bytes behind it
//     SETTINGS   Settings.txt, the catalogue in CatalogueLanguage(language)
// and 0409_SETTINGS, 0419_SETTINGS, the catalogues by their own names. Case of the name does not
// matter; any other name does nothing. An existing file gives way, but only to a whole new one. A
// failure is told to the user and leaves what was there; the result is false then and only then.
[[nodiscard]] bool WriteResource(const Shell& shell, const QString& folder, const QString& name,
                                 const QString& language = {});

} // namespace fennel
