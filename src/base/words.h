// SPDX-License-Identifier: MIT
// The words that the user reads, in the language of the run: English in the source, the others in
// data/languages. What is not in there, or a language without a file, stays English.
#pragma once

#include <QCoreApplication>
#include <QString>

namespace fennel {

class Words {
    // tr(text): the text in the language of the run, to be asked for anew whenever it is shown.
    Q_DECLARE_TR_FUNCTIONS(Words)
public:
    // Marks a text of a table, which stands there in English until tr() is asked for it.
    static constexpr const char* mark(const char* text) { return text; }
};

} // namespace fennel
