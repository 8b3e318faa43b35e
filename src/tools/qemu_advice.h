// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace fennel {

// What the user can do about what QEMU says; empty if nothing is known.
QString qemuAdvice(const QString& said);

} // namespace fennel
