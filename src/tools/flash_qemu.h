// SPDX-License-Identifier: MIT
// The disk of the Current Flash in QEMU: the bridge is started with it and watched without waiting
// for it. One QEMU runs at a time; it is known by its process. One that an earlier run or
// another copy of the editor left running counts as well.
#pragma once

#include "base/shell_context.h"
#include "tools/process_handle.h"

namespace fennel {

// What it needs from the window.
class QemuHost {
public:
    virtual ~QemuHost() = default;
    virtual void enableQemuStart(bool enabled) = 0; // mnuT_Qemu_Start
    // Brings CurrentFlashDisk up to date; false after the user was told why that failed.
    [[nodiscard]] virtual bool askFlashDisk() = 0;
    // The path of the image file that stands for the disk; empty for a drive.
    [[nodiscard]] virtual QString flashImagePath() const { return {}; }
    // Gives the foreground to the window of this process (or of a child of it) where the window
    // system allows that.
    virtual void bringToFront(qint64 pid) = 0;
    // Does it once nothing is under way that holds the window.
    virtual void whenIdle(const std::function<void()>& action) { action(); }
};

struct QemuLimits {
    int startMs = 5000; // until a QEMU that does not run is reported
    int closeMs = 2000; // between the request to end and the end by force
};

// The last line that the bridge writes to the log once the machine runs.
inline const QString qemuRunningLine = QStringLiteral("QEMU is running.");
inline const QString qemuLogName = QStringLiteral("#QEMU.log");
// The line behind which it starts again without KVM.
inline const QString kvmDiedLine = QStringLiteral("KVM failed: again without it.");
// Tells the bridge the letter for the window's name.
inline constexpr char flashLetterVariable[] = "FENNEL_FLASH_LETTER";
// The path of an image file that is booted in the place of the disk.
inline constexpr char flashImageVariable[] = "FENNEL_FLASH_IMAGE";
// The path of the video BIOS; without it, the one that lies beside the bridge.
inline constexpr char videoBiosVariable[] = "FENNEL_VIDEO_BIOS";

class QemuRun : public QObject {
    Q_OBJECT
public:
    // What `shell` refers to, the host and the source, which tells of running processes, outlive
    // this.
    QemuRun(const Shell& shell, const DriveSource& source, QemuHost& host, QemuLimits limits = {},
            QObject* parent = nullptr);
    // A running QEMU goes on.
    ~QemuRun() override;

    // Mode 1: Cirrus; 2: standard VGA with 1 MB; any other: standard VGA with 16 MB of video
    // memory. Returns at once. A start that fails, or is not done within the limit, is told in a
    // message with the last lines of the log.
    void RunQemu(int mode);
    // Asks every running QEMU to end, without waiting for it.
    void closeQemu();

    [[nodiscard]] bool isRunning() const { return m_process != nullptr; }
    [[nodiscard]] qint64 processId() const { return m_process ? m_process->pid() : 0; }
    // The arguments of the last start.

Q_SIGNALS:
    void started(); // the machine runs
    void ended();   // the process is gone, whoever ended it

private:
    enum class Phase { None, Starting, Late, Running };
    [[nodiscard]] bool mayBoot() const;
    [[nodiscard]] bool launch(qint64& pid);
    void watch(qint64 pid);
    [[nodiscard]] bool hold(qint64 pid);
    [[nodiscard]] bool adopt();
    void letGo();
    void lookAtLog();
    void noteKvm();
    void onEnd();
    void tellFailure();
    [[nodiscard]] QString logText() const;

    Shell m_shell;
    const DriveSource& m_source;
    QemuHost& m_host;
    QemuLimits m_limits;
    QStringList m_arguments;
    ProcessHandle* m_process = nullptr; // a child of this
    Phase m_phase = Phase::None;
    QTimer m_look;
    QTimer m_limit;
};

} // namespace fennel
