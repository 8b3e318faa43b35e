// SPDX-License-Identifier: MIT
#pragma once

namespace fennel {

// Whether /dev/kvm gives this user a virtual machine whose processor does its work: in many a
// virtual machine the device is there, and the processor fails or crawls. Takes a millisecond where
// it works, and half a second at most. The variable answers without a trial: "0" no, "1" yes.
bool kvmWorks();
inline constexpr char kvmVariable[] = "FENNEL_QEMU_KVM";

} // namespace fennel
