// SPDX-License-Identifier: MIT
// What a save does to the lines of gfxboot.cfg and the records of level files that nobody edited.
#pragma once

namespace fennel {

enum class SaveForm {
    Kept,   // they stay as they were, byte for byte and in their places
    Listed, // the files hold what the lists show and nothing else
};

} // namespace fennel
