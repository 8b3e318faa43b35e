// SPDX-License-Identifier: MIT
#include "base/languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <algorithm>
#include <array>

namespace fennel {

namespace {

constexpr auto spokenLanguages = std::to_array<Language>({
    {u"0409", u"en", u"English"},
    {u"0419", u"ru", u"Русский"},
});

} // namespace

std::span<const Language> languageTable()
{
    return spokenLanguages;
}

const Language& languageOf(const QString& code)
{
    const auto* const row = std::ranges::find_if(spokenLanguages, [&](const Language& language) {
        return code == QStringView(language.code);
    });
    return row == spokenLanguages.end() ? spokenLanguages.front() : *row;
}

void Languages::use(const QString& code, const QString& folder)
{
    const QString locale = QString::fromUtf16(languageOf(code).locale);
    // Qt's first, so that our words for the same text would win.
    QCoreApplication::removeTranslator(&m_toolkit);
    QCoreApplication::removeTranslator(&m_own);
    if (m_toolkit.load(QStringLiteral("qtbase_") + locale,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_toolkit);
    if (m_own.load(QStringLiteral("fennel-gfx_") + locale, folder))
        QCoreApplication::installTranslator(&m_own);
}

} // namespace fennel
