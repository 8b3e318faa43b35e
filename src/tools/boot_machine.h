// SPDX-License-Identifier: MIT
// One QEMU process with a boot test's stick in it and nothing else: no network, no other drive,
// nothing of the user's own settings. Ends with this object, and with this program.
#pragma once

#include "tools/boot_image.h"
#include "tools/qmp_link.h"
#include "tools/screen_watch.h"

namespace fennel {

struct MachineStart {
    int image = -1;        // descriptor of the stick, for reading; what the guest writes is lost
    bool kvm = false;      // else QEMU's own processor
    bool window = false;   // QEMU's own window
    bool receives = false; // waits for the state of another machine; see arrived()
    QString folder;        // for QEMU's nameless file and the socket of a move
};

class BootMachine : public QObject {
    Q_OBJECT
public:
    explicit BootMachine(QObject* parent = nullptr);
    ~BootMachine() override;

    // One of ready() and ended() follows, never before this returns.
    void start(const QString& program, const MachineStart& start);
    // Ends the process now; nothing is heard of it any more. Also within a signal.
    void end();
    [[nodiscard]] bool isReady() const { return m_ready; }
    [[nodiscard]] qint64 processId() const { return m_process->processId(); }
    [[nodiscard]] MachineTime time() const;

    using Bytes = std::function<void(const QByteArray& bytes, const QString& error)>;
    // What the screen shows, as a file in PPM.
    void screenDump(const Bytes& done);
    // The guest's memory from an address on.
    void memory(quint32 address, quint32 size, const Bytes& done);
    // Keys that are held together, by QEMU's names.
    void press(const QStringList& keys);
    // Whether the processor stands still because of a fault of it; asked after halted().
    void askFault(const std::function<void(bool fault)>& done);
    // Hands the running guest to a machine that `receives`, started in the same folder.
    void moveTo(const BootMachine& other, const std::function<void(const QString& error)>& failed);

Q_SIGNALS:
    void ready();
    void halted();  // the processor stands still
    void arrived(); // the guest of another machine goes on here
    // The guest switched the machine off, or restarted it, which ends it; ended() follows.
    void shutDown(bool restart);
    // The process is gone; the words are what it said.
    void ended(const QString& said);

private:
    void onEvent(const QString& name, const QJsonObject& data);
    void onEnd();
    void intoFile(const QString& command, QJsonObject arguments, const QString& key,
                  const Bytes& done);

    std::unique_ptr<QProcess> m_process;
    std::unique_ptr<QmpLink> m_link;
    NamelessFile m_dump; // where QEMU writes pictures and memory
    QString m_moves;     // the socket on which it receives
    bool m_ready = false;
    bool m_receives = false;
};

} // namespace fennel
