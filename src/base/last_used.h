// SPDX-License-Identifier: MIT
// The list of message files last used: the entries `mnuFile1` of the menu `mnuFile_LastUsed` as
// data, at most ten, entry 0 the newest. The captions are what is saved, as they stand: a long path
// that was shortened for showing goes back shortened when the next file is added, and such an entry
// can no longer be opened.
#pragma once

#include "base/shell_context.h"
#include "base/user_store.h"

#include <array>
#include <functional>
#include <optional>

namespace fennel {

inline constexpr int lastUsedLimit = 10;

class LastUsed {
public:
    struct Entry {
        bool visible = false;
        QString caption;
    };
    using Progress = std::function<void(int)>; // the progress bar's value, 10 to 20

    explicit LastUsed(UserStore& store) : m_store(store) {}

    [[nodiscard]] const std::array<Entry, lastUsedLimit>& entries() const { return m_entries; }
    [[nodiscard]] bool enabled() const { return m_enabled; } // mnuFile_LastUsed

    // Puts a path on top of the list and saves the captions. A path that equals a caption changes
    // nothing; the eleventh drops the oldest.
    void LastUsedAdd(const Shell& shell, const QString& path, const Progress& progress = {});
    // Builds the list from the store, once: it stops if the list is enabled already.
    void Recreate_LastUsed(const Shell& shell, const Progress& progress = {});
    // What a click on an entry opens: the canonical form of the path in the store, not of the
    // caption. A file that is gone is told to the user and gives nothing; the entry stays.
    [[nodiscard]] std::optional<QString> clicked(const Shell& shell, int index) const;
    void clear(); // mnuFile_Clear

private:
    [[nodiscard]] bool holds(const QString& path) const;
    void putFirst(const QString& path);
    void saveCaptions();

    UserStore& m_store;
    std::array<Entry, lastUsedLimit> m_entries;
    bool m_enabled = false;
};

// A path whose last "/" stands behind character 20 (counted from 1) becomes what goes up to its
// second "/", " ... ", and what starts at its last "/".
QString lastUsedCaption(const QString& path);

} // namespace fennel
