// SPDX-License-Identifier: MIT
#include "tools/boot_test.h"

#include "base/words.h"
#include "tools/kvm.h"
#include "tools/qemu_advice.h"

#include <utility>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr int awaitedLookMs = 40; // between two dumps while something is waited for
constexpr int idleLookMs = 150;
constexpr quint32 keyBufferAt = 0x41A;
constexpr quint32 keyBufferBytes = 4;

Failure failure(FailureKind kind, const QString& text)
{
    return {kind, text.trimmed().toStdString()};
}

} // namespace

BootTest::BootTest(const Shell& shell, BootLimits limits, QObject* parent)
    : QObject(parent), m_shell(shell), m_limits(limits)
{
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &BootTest::look);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        setState(BootState::Hanging,
                 Words::tr("The boot does not come to rest. This is what it shows."));
    });
}

BootTest::~BootTest()
{
    blockSignals(true);
    cancel();
}

bool BootTest::isRunning() const
{
    return m_state != BootState::None && m_state != BootState::Ended;
}

void BootTest::start(const BootStick& stick, bool mayUseKvm)
{
    cancel();
    m_dump = {};
    m_text.clear();
    m_clock.start();
    m_shell.WriteLog(u"Boot test"_s);
    m_kvm = mayUseKvm && !m_shell.run.KvmFails;
    if (m_kvm && !kvmWorks()) {
        m_kvm = false;
        m_shell.run.KvmFails = true;
        m_shell.WriteLog(u"      KVM does not work here"_s);
    }
    m_maker = std::make_unique<BootImage>(m_shell);
    connect(m_maker.get(), &BootImage::failed, this, &BootTest::fail);
    connect(m_maker.get(), &BootImage::made, this, [this] {
        m_image = m_maker->take();
        leave(m_maker);
        bootImage();
    });
    m_maker->make(stick);
    setState(BootState::Making);
}

void BootTest::cancel()
{
    m_look.stop();
    m_patience.stop();
    leave(m_maker);
    leave(m_machine);
    leave(m_window);
    m_image = NamelessFile();
    m_watched = false;
    setState(BootState::None);
}

// It may be the sender of what led here.
template <class Part>
void BootTest::leave(std::unique_ptr<Part>& part)
{
    if (!part)
        return;
    part->disconnect(this);
    part->end();
    part->setParent(this);
    part.release()->deleteLater();
}

void BootTest::setState(BootState state, const QString& words)
{
    if (std::exchange(m_state, state) == state && m_words == words)
        return;
    m_words = words;
    Q_EMIT stateChanged();
}

QString BootTest::words() const
{
    switch (m_state) {
    case BootState::Making:
        return Words::tr("Making the image ...");
    case BootState::Booting:
        return m_kvm ? Words::tr("Booting ...") : Words::tr("Booting without KVM ...");
    case BootState::Standing:
        return m_words.isEmpty() ? Words::tr("The boot screen stands.") : m_words;
    default:
        return m_words;
    }
}

std::unique_ptr<BootMachine> BootTest::makeMachine(const MachineStart& start)
{
    const Result<QString> program = findProgram(u"qemu-system-x86_64"_s);
    if (!program) {
        fail(program.failure());
        return nullptr;
    }
    auto machine = std::make_unique<BootMachine>();
    m_shell.WriteLog(u"      %1 with %2"_s.arg(*program, start.kvm ? u"KVM"_s : u"TCG"_s));
    machine->start(*program, start);
    return machine;
}

void BootTest::bootImage()
{
    m_machine = makeMachine(
        {.image = m_image.descriptor(), .kvm = m_kvm, .folder = m_shell.run.WorkspaceRoot});
    if (!m_machine)
        return;
    m_rest = RestWatch(m_kvm);
    m_farewell.clear();
    m_life.start();
    m_awaited = true;
    m_keyPending = false;
    m_bootMs = 0;
    m_patience.start(m_limits.patienceMs);
    connect(m_machine.get(), &BootMachine::ready, this, &BootTest::look);
    listen();
    setState(BootState::Booting);
}

void BootTest::listen()
{
    BootMachine* machine = m_machine.get();
    connect(machine, &BootMachine::ended, this, &BootTest::onEnd);
    connect(machine, &BootMachine::shutDown, this, [this](bool restart) {
        m_farewell = restart ? Words::tr("The guest restarted the machine.")
                             : Words::tr("The guest switched the machine off.");
    });
    connect(machine, &BootMachine::halted, this, [this] {
        m_machine->askFault([this](bool fault) {
            if (fault)
                leaveKvm(Words::tr("it stopped with an internal error"));
        });
    });
}

void BootTest::look()
{
    if (!isAwake())
        return;
    if (m_keyPending)
        m_machine->memory(keyBufferAt, keyBufferBytes,
                          [this](const QByteArray& bytes, const QString&) { onKeyBuffer(bytes); });
    m_machine->screenDump([this](const QByteArray& bytes, const QString& error) {
        const ScreenDump dump(bytes);
        if (!error.isEmpty() || dump.size.isEmpty())
            m_look.start(idleLookMs); // the guest is on its way into a window, or out
        else
            onDump(dump);
    });
}

void BootTest::onDump(const ScreenDump& dump)
{
    const bool rests = m_rest.pictureRests(dump, m_machine->time());
    const bool news = dump.file != m_dump.file && m_rest.begun();
    if (news)
        m_dump = dump;
    if (dump.isText()) {
        m_machine->memory(
            textMemoryAt, textMemoryBytes,
            [this](const QByteArray& bytes, const QString&) { onText(screenText(bytes)); });
    } else {
        m_text.clear();
        if (rests && !m_keyPending)
            rest(BootState::Standing);
    }
    if (news)
        Q_EMIT pictureChanged();
    if (!isAwake())
        return;
    checkLife();
    m_look.start(m_awaited ? awaitedLookMs : idleLookMs);
}

void BootTest::onText(const QStringList& text)
{
    m_text = text;
    if (m_rest.textRests(text, m_machine->time()) && !m_keyPending)
        rest(BootState::Text);
}

void BootTest::rest(BootState state)
{
    m_patience.stop();
    if (m_bootMs == 0)
        m_bootMs = m_clock.elapsed();
    const TextMeaning meaning = state == BootState::Text ? meaningOf(m_text) : TextMeaning{};
    const QString unknown = Words::tr("The boot ended in text mode.");
    setState(state, state != BootState::Text     ? QString()
                    : meaning.sentence.isEmpty() ? unknown
                                                 : meaning.sentence);
    if (std::exchange(m_awaited, false))
        Q_EMIT rested();
}

// In some virtual machines KVM opens and takes the guest, and its processor does next to nothing.
void BootTest::checkLife()
{
    if (!m_kvm || m_bootMs > 0)
        return;
    if (m_life.hasExpired(m_rest.begun() ? m_limits.kvmPictureMs : m_limits.kvmStartMs) &&
        !m_rest.drawn())
        leaveKvm(Words::tr("its processor does next to nothing"));
}

void BootTest::leaveKvm(const QString& reason)
{
    if (!m_kvm) {
        fail(failure(FailureKind::ToolFailed, Words::tr("The guest stopped: ") + reason + u'.'));
        return;
    }
    m_kvm = false;
    m_shell.run.KvmFails = true;
    m_shell.WriteLog(u"      KVM does not work here, "_s + reason +
                     Words::tr(": again without it."));
    leave(m_machine);
    bootImage();
}

void BootTest::onEnd(const QString& said)
{
    m_look.stop();
    m_patience.stop();
    if (m_kvm && m_bootMs == 0 && m_farewell.isEmpty()) {
        leaveKvm(Words::tr("QEMU ended") + (said.isEmpty() ? QString() : u" ("_s + said + u')'));
        return;
    }
    if (m_farewell.isEmpty() && m_watched)
        m_farewell = Words::tr("QEMU's window was closed.");
    if (m_farewell.isEmpty()) {
        fail(failure(FailureKind::ToolFailed, Words::tr("QEMU ended.\n") + said));
        return;
    }
    leave(m_machine);
    m_image = NamelessFile();
    setState(BootState::Ended, m_farewell);
    if (std::exchange(m_awaited, false))
        Q_EMIT rested();
}

void BootTest::fail(const Failure& failure)
{
    m_shell.logFailure(failure);
    cancel();
    Q_EMIT failed(failure);
}

void BootTest::press(const QString& key)
{
    if (!isAwake())
        return;
    m_awaited = true;
    m_keyPending = true;
    m_keyClock.start();
    m_machine->memory(keyBufferAt, keyBufferBytes,
                      [this, key](const QByteArray& buffer, const QString&) {
                          m_keyBuffer = buffer;
                          m_machine->press(key.split(u'+'));
                      });
    m_look.start(awaitedLookMs);
}

void BootTest::restAgain()
{
    m_rest.startOver();
    m_awaited = true;
}

// The BIOS keeps two places, where the next key is taken from and where the next one is put. A key
// was heard if it was put there and the two are equal again.
void BootTest::onKeyBuffer(const QByteArray& buffer)
{
    const bool put = buffer.size() == keyBufferBytes && buffer.right(2) != m_keyBuffer.right(2);
    const bool taken = buffer.left(2) == buffer.right(2);
    // Some keys are none to the BIOS, and a guest may take them past it.
    if ((put && taken) || m_keyClock.hasExpired(m_limits.keyMs)) {
        m_keyPending = false;
        m_rest.startOver();
    }
}

// The guest moves as it is, with its memory and its screen, into a QEMU that has a window.
void BootTest::watch()
{
    if (!isAwake() || m_window || m_watched)
        return;
    m_window = makeMachine({.image = m_image.descriptor(),
                            .kvm = m_kvm,
                            .window = true,
                            .receives = true,
                            .folder = m_shell.run.WorkspaceRoot});
    if (!m_window)
        return;
    connect(m_window.get(), &BootMachine::ready, this, [this] {
        m_machine->moveTo(*m_window, [this](const QString& error) { refuseWindow(error); });
    });
    connect(m_window.get(), &BootMachine::arrived, this, &BootTest::onArrived);
    connect(m_window.get(), &BootMachine::ended, this, &BootTest::refuseWindow);
}

void BootTest::onArrived()
{
    leave(m_machine);
    m_window->disconnect(this);
    m_machine = std::move(m_window);
    m_watched = true;
    listen();
    m_look.start(awaitedLookMs);
    Q_EMIT stateChanged();
}

void BootTest::refuseWindow(const QString& said)
{
    leave(m_window);
    const QString hint = qemuAdvice(said);
    Q_EMIT watchFailed(failure(FailureKind::ToolFailed, Words::tr("QEMU's window did not open.\n") +
                                                            (hint.isEmpty() ? said : hint)));
}

} // namespace fennel
