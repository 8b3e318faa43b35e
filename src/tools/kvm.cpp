// SPDX-License-Identifier: MIT
#include "tools/kvm.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <linux/kvm.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fennel {

namespace {

constexpr int knownVersion = 12;
constexpr int patienceMs = 500;
// A processor counts down in a fraction of a millisecond; where each instruction of old programs is
// imitated one by one, it takes hundreds.
constexpr long crawlMs = 50;
constexpr std::size_t pageBytes = 4096;
constexpr unsigned long codeAt = 0x1000;
// mov cx, 0xffff; loop to itself; hlt
constexpr std::array<unsigned char, 6> guestCode{0xB9, 0xFF, 0xFF, 0xE2, 0xFE, 0xF4};

void* map(int file)
{
    const int kind = file < 0 ? MAP_SHARED | MAP_ANONYMOUS : MAP_SHARED;
    void* memory = ::mmap(nullptr, pageBytes, PROT_READ | PROT_WRITE, kind, file, 0);
    return memory == MAP_FAILED ? nullptr : memory;
}

int machineWithCode(int kvm)
{
    void* page = map(-1);
    const int machine = ::ioctl(kvm, KVM_CREATE_VM, 0);
    if (page == nullptr || machine < 0)
        return -1;
    std::memcpy(page, guestCode.data(), guestCode.size());
    kvm_userspace_memory_region region{};
    region.guest_phys_addr = codeAt;
    region.memory_size = pageBytes;
    region.userspace_addr = reinterpret_cast<unsigned long>(page);
    return ::ioctl(machine, KVM_SET_USER_MEMORY_REGION, &region) == 0 ? machine : -1;
}

bool atTheCode(int processor)
{
    kvm_sregs segments{};
    if (::ioctl(processor, KVM_GET_SREGS, &segments) != 0)
        return false;
    segments.cs.base = 0;
    segments.cs.selector = 0;
    kvm_regs registers{};
    registers.rip = codeAt;
    registers.rflags = 2; // the bit that is always set
    return ::ioctl(processor, KVM_SET_SREGS, &segments) == 0 &&
           ::ioctl(processor, KVM_SET_REGS, &registers) == 0;
}

// Of this process so far, whatever else the computer does.
long processorMs()
{
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time.tv_sec * 1000 + time.tv_nsec / 1'000'000;
}

// Counts down from 65,535 in a virtual machine. Only system calls, as it runs between fork and
// exit.
bool countsDown()
{
    const int kvm = ::open("/dev/kvm", O_RDWR | O_CLOEXEC);
    if (kvm < 0 || ::ioctl(kvm, KVM_GET_API_VERSION, 0) != knownVersion)
        return false;
    const int machine = machineWithCode(kvm);
    const int processor = machine >= 0 ? ::ioctl(machine, KVM_CREATE_VCPU, 0) : -1;
    const auto* run = processor >= 0 ? static_cast<const kvm_run*>(map(processor)) : nullptr;
    return run != nullptr && atTheCode(processor) && ::ioctl(processor, KVM_RUN, 0) == 0 &&
           run->exit_reason == KVM_EXIT_HLT && processorMs() < crawlMs;
}

} // namespace

bool kvmWorks()
{
    if (const char* wish = std::getenv(kvmVariable); wish != nullptr && *wish != '\0')
        return *wish != '0';
    std::array<int, 2> ends{};
    if (::access("/dev/kvm", R_OK | W_OK) != 0 || ::pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    // In a process of its own, which can be given up whatever it hangs in.
    const pid_t child = ::fork();
    if (child == 0) {
        const char answer = countsDown() ? 'y' : 'n';
        (void)!::write(ends[1], &answer, 1);
        ::_exit(0);
    }
    char answer = 'n';
    pollfd wait{ends[0], POLLIN, 0};
    if (child > 0 && ::poll(&wait, 1, patienceMs) == 1)
        (void)!::read(ends[0], &answer, 1);
    for (const int end : ends)
        ::close(end);
    if (child > 0) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    return answer == 'y';
}

} // namespace fennel
