// SPDX-License-Identifier: MIT
#include "container/engine_info.h"

namespace fennel {

namespace {

const QByteArray gfxbootMagic = QByteArray::fromHex("007fd9b2");
const QByteArray ourMark("FENNEL-GFX engine ");
// Part of the names of all level files.
const QByteArray levelMark("ZUK");

} // namespace

bool isBootProgram(const QByteArray& member)
{
    return member.startsWith(gfxbootMagic);
}

EngineInfo engineOf(const QByteArray& init)
{
    EngineInfo engine;
    engine.there = isBootProgram(init);
    engine.readsLevels = init.contains(levelMark);
    if (const qsizetype at = init.indexOf(ourMark); at >= 0) {
        engine.kind = BootEngine::Own;
        // A number that ends with a zero byte.
        engine.version = QByteArray(init.constData() + at + ourMark.size()).left(9).toInt();
    } else if (init.contains("menu_start_x")) {
        engine.kind = BootEngine::FlatCfg;
    } else if (init.contains("mainmenu.pos")) {
        engine.kind = BootEngine::Sections;
    }
    return engine;
}

} // namespace fennel
