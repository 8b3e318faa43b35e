// SPDX-License-Identifier: MIT
// Whose boot engine the member "init" is.
#pragma once

#include <QByteArray>

namespace fennel {

// By what it reads.
enum class BootEngine {
    Own,      // ours, with level files
    FlatCfg,  // knows the names of gfxboot.cfg that the editor knows
    Sections, // its gfxboot.cfg has sections and other names: Debian's, of the package
              // gfxboot-themes
    Unknown,
};

struct EngineInfo {
    bool there = false; // the bytes begin as gfxboot's programs do
    BootEngine kind = BootEngine::Unknown;
    int version = 0; // of ours, see docs/engine.md
    // Whether it draws what the level files ZUK????.CFG say.
    bool readsLevels = false;
};

// Whether the bytes begin as those of gfxboot's programs do.
[[nodiscard]] bool isBootProgram(const QByteArray& member);

// By the bytes of the member.
[[nodiscard]] EngineInfo engineOf(const QByteArray& init);

} // namespace fennel
