// SPDX-License-Identifier: MIT
// A failure in the language of the run. Its sentence may come from a bridge or from the system,
// which speak English only: then its kind is said, and the sentence follows as a detail.
#pragma once

#include "base/result.h"

#include <QString>

namespace fennel {

[[nodiscard]] QString failureWords(const Failure& failure);

} // namespace fennel
