// SPDX-License-Identifier: MIT
// Joins the boot test to the window: what is on the stage now is booted, and what the guest shows
// stands beside the preview.
#pragma once

#include "screen/boot_screen.h"
#include "tools/boot_test.h"

namespace fennel {

class BootWindow;
class MainWindow;

class BootLink : public QObject {
    Q_OBJECT
public:
    // The window outlives the link.
    explicit BootLink(MainWindow& window);
    ~BootLink() override;

    // The picture that the booted screen is compared with, one pixel of the boot screen each.
    std::function<QImage()> currentPreviewPicture;

    // Boots the open gfxboot with all that is not saved, in place of a test that runs.
    void start();
    // Asks for a Grub4DOS loader to boot with from now on; none: syslinux again.
    void chooseLoader();
    [[nodiscard]] BootTest& test() { return m_test; }

private:
    [[nodiscard]] QImage asItBoots();
    [[nodiscard]] Result<QString> menuText() const;
    [[nodiscard]] QString loader() const;
    [[nodiscard]] QString blackReason() const;
    BootWindow& shownWindow();
    void showPictures();
    void showState();

    MainWindow& m_window;
    BootTest m_test;
    BootScreen m_screen;
    QStringList m_titles; // of the boot that runs
    QElapsedTimer m_standing;
    BootWindow* m_boot = nullptr; // a child of the window
};

} // namespace fennel
