// SPDX-License-Identifier: MIT
#include "container/template.h"

#include "base/files.h"

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

struct Resource {
    QLatin1StringView name; // also of the file in the data folder
    QLatin1StringView target;
};

constexpr std::array resources{
    Resource{"GFX.GZ"_L1, "@ZUK-MOSA@.gz"_L1},
    Resource{"INIT"_L1, "init"_L1},
    Resource{"16X16.FNT"_L1, "16x16.fnt"_L1},
    Resource{"0409_SETTINGS"_L1, "Settings.txt"_L1},
    Resource{"0419_SETTINGS"_L1, "Settings.txt"_L1},
};

// Holds the bytes until they are all on disk; a plain name, as members lie flat.
constexpr QLatin1StringView unfinished("#resource.tmp");

QString resourceName(const QString& name, const QString& language)
{
    const QString upper = name.toUpper();
    // Only the settings differ by language.
    return upper == u"SETTINGS" ? CatalogueLanguage(language) + u"_SETTINGS"_s : upper;
}

// A member that is cut short would be worse than the old one, so it appears in one step.
Result<void> writeWhole(Files& files, const QString& folder, QLatin1StringView target,
                        const QByteArray& bytes)
{
    const QString part = folder + unfinished;
    Result<void> done = files.write(part, bytes);
    if (done)
        done = files.rename(part, folder + target);
    if (!done)
        (void)files.remove(part);
    return done;
}

} // namespace

QString CatalogueLanguage(const QString& language)
{
    // English is the catalogue for all languages without one of their own.
    return language == u"0419" ? language : u"0409"_s;
}

bool WriteResource(const Shell& shell, const QString& folder, const QString& name,
                   const QString& language)
{
    const QString wanted = resourceName(name, language);
    const auto* const found = std::ranges::find_if(
        resources, [&](const Resource& resource) { return resource.name == wanted; });
    // A name that is no resource is no failure and writes nothing.
    if (found == resources.end())
        return true;
    const Result<QByteArray> bytes = readBytes(shell.run.AppPath + u"/data/"_s + found->name);
    if (!bytes)
        return shell.told(bytes.failure());
    return shell.told(writeWhole(shell.files, withSeparator(folder), found->target, *bytes));
}

} // namespace fennel
