// SPDX-License-Identifier: MIT
// The languages that the program speaks, and the one that is in force.
#pragma once

#include <QString>
#include <QTranslator>

#include <span>

namespace fennel {

struct Language {
    const char16_t* code; // as RunState::CurrentLang has it
    const char16_t* locale;
    const char16_t* name; // as its speakers call it
};

std::span<const Language> languageTable();
// The language of a code; English where there is no such one.
const Language& languageOf(const QString& code);

// The words of one language for the whole program, those of Qt's own dialogs among them. English
// needs no file. There is one at a time, as there is one QCoreApplication.
class Languages {
public:
    // The language of that code, with its words from the folder; English where there is no such
    // language, or its file is missing. Windows that are open are told by QEvent::LanguageChange.
    void use(const QString& code, const QString& folder);

private:
    QTranslator m_own;
    QTranslator m_toolkit;
};

} // namespace fennel
