// SPDX-License-Identifier: MIT
// Where a font file is, told by its bare name or by its path.
#pragma once

#include <string>

namespace fennel {

// `name` with a "/" in it is a path; the endings ".ttf", ".otf" and ".ttc" are tried behind it, in
// both cases, if it is no file as it stands. Any other name is looked for in fontconfig's folders
// and their sub-folders, with one of these endings or as the whole name, in any case. The path, or
// an empty string. Of several files, the one that sorts first.
std::string findFontFile(const std::string& name);

} // namespace fennel
