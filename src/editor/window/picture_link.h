// SPDX-License-Identifier: MIT
// Joins the commands on backgrounds and logos to the window: its lists, the stage, the thumbnails.
#pragma once

#include "tools/picture_host.h"

namespace fennel {

class MainWindow;

class PictureLink : public PictureHost {
public:
    // The window outlives the link.
    explicit PictureLink(MainWindow& window) : m_window(window) {}

    [[nodiscard]] QStringList backgroundRows() const override;
    [[nodiscard]] QStringList logoRows() const override;
    void refillMembers() override;
    void refillBackgrounds() override;
    void refillLogos() override;
    void ShowBackground() override;
    void refreshPanels() override;
    // The selected tab stays.
    void UpdateInterface() override;
    void setLogoSize(QSize size) override;
    void mnuView_fill() override;
    void setWaiting(bool on) override;

private:
    MainWindow& m_window;
};

} // namespace fennel
