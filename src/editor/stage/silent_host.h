// SPDX-License-Identifier: MIT
// No window around the stage: for pictures of it and for measurements.
#pragma once

#include "editor/stage/stage_host.h"

namespace fennel {

class SilentHost : public StageHost {
public:
    int objectOfCurrentTab() override { return -1; }
    int selectTabOf(int) override { return 0; }
    void focusStage() override {}
    int pipettesOn() override { return 0; }
    void showColourControls(int) override {}
    void setStatus(int, const QString&) override {}
    void refreshStatus() override {}
    void panelMenu(int, QPoint) override {}
    void objectMenu(int, QPoint) override {}
    void backgroundMenu(QPoint) override {}
    void setOnOffCaption(int, const QString&) override {}
    void prepareBackground() override {}
    void layOutWindow() override {}
    void scaleApplied() override {}
    void beep(double, int) override {}
};

} // namespace fennel
