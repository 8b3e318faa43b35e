// SPDX-License-Identifier: MIT
#pragma once

namespace fennel {

// Whether /dev/kvm gives this user a virtual machine whose processor does its work: in many a
// virtual machine the device is there, and the processor fails or crawls. Takes a millisecond where
// it works, and half a second at most.
bool kvmWorks();

} // namespace fennel
