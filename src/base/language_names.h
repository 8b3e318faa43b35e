// SPDX-License-Identifier: MIT
// Names of languages by Windows language identifier (the published list, 126 of its entries), and
// the identifier of a POSIX locale. Both serve the log's header only.
#pragma once

#include <QString>

namespace fennel {

// The name for an identifier of four hexadecimal digits in either case, such as "0419" ->
// "Russian"; "undef" for one that is not on the list.
QString languageName(const QString& id);

// The identifier for "ll_CC.charset@modifier", such as "ru_UA.UTF-8" -> "0419". A country that is
// not on the list gives the language's home country, or else its first entry. Empty for "C",
// "POSIX" and languages that are not on the list.
QString languageOfLocale(const QString& locale);

} // namespace fennel
