// SPDX-License-Identifier: MIT
#include "base/last_used.h"

#include "base/text.h"
#include "base/words.h"

#include <algorithm>

namespace fennel {

namespace {

constexpr qsizetype longestFolderShown = 20; // characters up to the last separator
const QString nothingStored = QStringLiteral("*");

// The place that a key "0" to "9" stands for; -1 for any other key.
int placeOf(const QString& key)
{
    bool isNumber = false;
    const int place = key.toInt(&isNumber);
    const bool inRange = isNumber && place >= 0 && place < lastUsedLimit;
    return inRange && key == QString::number(place) ? place : -1;
}

} // namespace

// Counted in characters of the folder with its separator, since long folders, not long names, make
// the menu wide.
QString lastUsedCaption(const QString& path)
{
    const QLatin1Char separator('/');
    const qsizetype last = path.lastIndexOf(separator);
    if (last + 1 <= longestFolderShown)
        return path;
    const qsizetype second = path.indexOf(separator, path.indexOf(separator) + 1);
    return path.left(second + 1) + QStringLiteral(" ... ") + path.mid(last);
}

void LastUsed::LastUsedAdd(const Shell& shell, const QString& path, const Progress& progress)
{
    // Opening a listed file again leaves the order alone: entries do not jump while one works.
    if (holds(path))
        return;
    putFirst(path);
    if (!m_entries[0].caption.isEmpty())
        saveCaptions();
    Recreate_LastUsed(shell, progress);
}

bool LastUsed::holds(const QString& path) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& entry) { return entry.visible && entry.caption == path; });
}

void LastUsed::putFirst(const QString& path)
{
    // The last entry falls off the end by the shift; the others keep their order.
    if (m_entries[0].visible)
        std::shift_right(m_entries.begin(), m_entries.end(), 1);
    m_entries[0] = {true, path};
}

// Captions, not paths, are what is kept: a shortened one goes into the store shortened.
void LastUsed::saveCaptions()
{
    UserStore::Entries captions;
    for (int i = 0; i < lastUsedLimit; ++i) {
        const Entry& entry = m_entries[static_cast<std::size_t>(i)];
        if (entry.visible)
            captions.emplace_back(QString::number(i), entry.caption);
    }
    m_store.replaceSection(menuSection, captions);
}

void LastUsed::Recreate_LastUsed(const Shell& shell, const Progress& progress)
{
    const auto report = [&progress](int value) {
        if (progress)
            progress(value);
    };
    shell.WriteLog(QStringLiteral(" Recreate_LastUsed"));
    report(10);
    // "*" can be no path, so it tells "never stored" from an empty entry.
    if (m_store.get(menuSection, QStringLiteral("0"), nothingStored) == nothingStored) {
        m_enabled = false;
        return;
    }
    if (m_enabled)
        return;
    m_enabled = true;
    const auto stored = m_store.listAll(menuSection);
    int position = 0;
    for (const auto& [key, path] : stored) {
        ++position;
        report(10 + roundToEven(position * 10.0 / static_cast<double>(stored.size())));
        // The store is a file that anyone can edit; keys that are no place are passed over.
        if (const int place = placeOf(key); place >= 0)
            m_entries[static_cast<std::size_t>(place)] = {true, lastUsedCaption(path)};
    }
}

std::optional<QString> LastUsed::clicked(const Shell& shell, int index) const
{
    // The store and not the caption, as the caption of a long path is no path.
    const QString path = m_store.get(menuSection, QString::number(index));
    if (FileExists(path))
        return shortForm(path);
    shell.prompts.ShowMessage(Words::tr("The specified file is not available at this time.\n"
                                        "Maybe this file has been moved or deleted.\n\n"
                                        "File Path: %1\nFile Name: %2")
                                  .arg(folderPart(path), namePart(path)));
    return std::nullopt;
}

void LastUsed::clear()
{
    m_store.deleteSection(menuSection);
    m_entries = {};
    m_enabled = false;
}

} // namespace fennel
