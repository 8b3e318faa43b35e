// SPDX-License-Identifier: MIT
// Joins the stage to the rest of the window: what the stage asks for is looked up in the lists, and
// what it changes is written there.
#pragma once

#include "editor/stage/stage.h"
#include "editor/stage/stage_host.h"

#include <QCursor>

namespace fennel {

class MainWindow;
class StageSurface;

class StageLink : public StageHost {
public:
    // The window outlives the link.
    explicit StageLink(MainWindow& window);
    ~StageLink() override;

    [[nodiscard]] Stage& stage() { return m_stage; }
    // Picture1, made with `parent`.
    StageSurface* makeSurface(QWidget* parent);
    // The pointer that marks the picking of a colour.
    [[nodiscard]] QCursor pickerCursor() const;

    int objectOfCurrentTab() override;
    int selectTabOf(int index) override;
    void focusStage() override;
    int pipettesOn() override;
    void showColourControls(int index) override;
    void setStatus(int panel, const QString& text) override;
    void refreshStatus() override;
    void panelMenu(int index, QPoint at) override;
    void objectMenu(int index, QPoint at) override;
    void backgroundMenu(QPoint at) override;
    void setOnOffCaption(int item, const QString& caption) override;
    void prepareBackground() override;
    void layOutWindow() override;
    void scaleApplied() override;
    void beep(double hertz, int milliseconds) override;

private:
    [[nodiscard]] StageData stageData();
    void popUp(const QString& menu, QPoint at);

    MainWindow& m_window;
    Stage m_stage;
    StageSurface* m_surface = nullptr;
    QCursor m_picker{Qt::CrossCursor};
};

} // namespace fennel
