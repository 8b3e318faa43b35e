// SPDX-License-Identifier: MIT
// Text members between file and editor: what is shown of a file, and what bytes are saved. The
// engine reads UTF-8; files of older tools are 8-bit text in code page 1251, or UTF-8 without its
// mark, which cannot be told from it.
#pragma once

#include "base/files.h"
#include "base/text.h"

namespace fennel {

// Whether a row's file is edited as text: its name ends in ".txt" in either case.
bool isTextMember(const QString& name);

// The text of a file with CR LF at every line end. Every LF of the file is dropped and every CR
// becomes CR LF, so that lines that end in LF alone run into one. Fails as readBytes does.
Result<TextFile> readTextMember(const QString& path);

// What is saved of a text, whichever line ends it has: CR LF, UTF-8 behind its mark if anything is
// outside ASCII, plain ASCII without one otherwise. NUL characters are left out.
QByteArray textMemberBytes(const QString& text);

// Reads a text that was shown as code page 1251 as the UTF-8 that its bytes are.
QString readAsUtf8(const QString& text);

} // namespace fennel
