// SPDX-License-Identifier: MIT
// What the program keeps for a user between runs, beside the settings file: texts under a section
// and a key. It lies where the platform keeps such things (on Linux
// ~/.config/FENNEL-GFX/FENNEL-GFX.conf). A damaged or unwritable store reads as what is left of it
// and never fails.
#pragma once

#include <QSettings>
#include <QString>

#include <utility>
#include <vector>

namespace fennel {

inline const QString langsSection = QStringLiteral("Langs");
inline const QString languageKey = QStringLiteral("DefaultLang"); // four hex digits
inline const QString viewSection = QStringLiteral("View");        // key AsItBoots: 0 or 1
inline const QString menuSection = QStringLiteral("Menu");        // keys 0 to 9: files last used

class UserStore {
public:
    using Entries = std::vector<std::pair<QString, QString>>; // key, value

    UserStore();                             // the user's own
    explicit UserStore(const QString& file); // a file in INI format, such as a test's

    // The stored text, or `fallback` if the key was never stored; an empty text counts as stored.
    [[nodiscard]] QString get(const QString& section, const QString& key,
                              const QString& fallback = {}) const;
    // Written to disk before it returns, so that a crash loses nothing.
    void save(const QString& section, const QString& key, const QString& value);
    // With all its keys; a section that is not there is no failure.
    void deleteSection(const QString& section);
    // The section then holds these entries and no other.
    void replaceSection(const QString& section, const Entries& entries);
    // Every key and value of a section, sorted by key.
    [[nodiscard]] Entries listAll(const QString& section) const;

private:
    // QSettings reads through a lock of its own and has no const members for groups.
    mutable QSettings m_settings;
};

} // namespace fennel
