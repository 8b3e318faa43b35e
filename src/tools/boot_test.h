// SPDX-License-Identifier: MIT
// A boot of a message file in seconds, without a stick and without a window: the image is made, a
// QEMU boots it, and what its screen shows comes by signals, now and after every key. One boot at a
// time; everything it uses ends with it, and with the program, however that ends.
#pragma once

#include "tools/boot_machine.h"
#include "tools/screen_watch.h"

#include <QElapsedTimer>
#include <QTimer>

namespace fennel {

enum class BootState {
    None,     // nothing runs, nothing is to be seen
    Making,   // the image
    Booting,  // no picture yet, or a key is being answered
    Standing, // the picture rests
    Text,     // the loader wrote a text instead of a menu
    Hanging,  // neither came in time; the boot goes on
    Ended,    // the guest is gone; the last picture is kept
};

struct BootLimits {

    int patienceMs = 60'000; // until a boot counts as hanging; a busy computer takes its time
    // Until KVM counts as dead: the BIOS has set a mode, the loader has set one for its menu. It
    // takes a twentieth of that.
    int kvmStartMs = 1'000;
    int kvmPictureMs = 3'000;
    int keyMs = 3'000; // until a key that nobody takes is no longer waited for
};

class BootTest : public QObject {
    Q_OBJECT
public:
    // What the shell refers to outlives this.
    explicit BootTest(const Shell& shell, BootLimits limits = {}, QObject* parent = nullptr);
    ~BootTest() override;

    // Ends the boot before and begins a new one. KVM is used if it may be, and where it works.
    void start(const BootStick& stick, bool mayUseKvm = true);
    // Ends everything, from any state, also within a signal.
    void cancel();
    // Keys by QEMU's names; those that are joined by "+" are held together. Passed over while no
    // guest runs.
    void press(const QString& key);
    // rested() comes once more, when the screen has gone on resting.
    void restAgain();
    // Opens the running guest in a window of QEMU's, where it goes on.
    void watch();

    [[nodiscard]] BootState state() const { return m_state; }
    [[nodiscard]] bool isRunning() const;
    // The guest runs, and keys reach it.
    [[nodiscard]] bool isAwake() const { return m_machine && m_machine->isReady(); }
    [[nodiscard]] bool isWatched() const { return m_watched; }
    [[nodiscard]] bool usesKvm() const { return m_kvm; }
    // The screen as it was last seen; a text screen too.
    [[nodiscard]] QImage picture() const { return m_dump.picture(); }
    [[nodiscard]] const QStringList& text() const { return m_text; }
    // What there is to say of the state, and why the guest is gone.
    [[nodiscard]] QString words() const;
    // From start() to the first rested(), in ms.
    [[nodiscard]] qint64 bootMs() const { return m_bootMs; }

Q_SIGNALS:
    void stateChanged();
    void pictureChanged();
    // The screen, picture or text, rests: once for the boot, and once behind every key.
    void rested();
    // The boot is over. Nothing of it is left.
    void failed(const fennel::Failure& failure);
    // The window did not open; the boot goes on as it was.
    void watchFailed(const fennel::Failure& failure);

private:
    void setState(BootState state, const QString& words = {});
    void bootImage();
    void look();
    void onDump(const ScreenDump& dump);
    void onText(const QStringList& text);
    void onKeyBuffer(const QByteArray& buffer);
    void rest(BootState state);
    void onEnd(const QString& said);
    void checkLife();
    void leaveKvm(const QString& reason);
    void fail(const Failure& failure);
    void listen();
    void onArrived();
    void refuseWindow(const QString& said);
    std::unique_ptr<BootMachine> makeMachine(const MachineStart& start);
    template <class Part>
    void leave(std::unique_ptr<Part>& part);

    Shell m_shell;
    BootLimits m_limits;
    std::unique_ptr<BootImage> m_maker;
    NamelessFile m_image;
    std::unique_ptr<BootMachine> m_machine;
    std::unique_ptr<BootMachine> m_window; // where the guest is on its way to
    QTimer m_look;
    QTimer m_patience;
    QElapsedTimer m_clock;
    QElapsedTimer m_life; // since the machine was switched on
    RestWatch m_rest;
    ScreenDump m_dump;
    QStringList m_text;
    BootState m_state = BootState::None;
    QString m_words;
    QString m_farewell; // why the guest ends
    qint64 m_bootMs = 0;
    bool m_kvm = false;
    bool m_watched = false;
    bool m_awaited = false;    // rested() is to come
    bool m_keyPending = false; // a key was sent that the guest has not taken yet
    QByteArray m_keyBuffer;    // the BIOS's places before it was sent
    QElapsedTimer m_keyClock;
};

} // namespace fennel
