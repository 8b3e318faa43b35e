// SPDX-License-Identifier: MIT
// Whether the parts of an idle program agree with each other: rows, records, stage, files, menus.
#pragma once

#include "support/story.h"

namespace fennel::test {

// What does not agree, a sentence for each; empty if all is well. Nothing may be in the middle of
// being typed or dragged.
QStringList disagreements(Story& story);
// The same for the rows and the file that they were saved to last.
QStringList disagreementsWithFile(Story& story);

} // namespace fennel::test
