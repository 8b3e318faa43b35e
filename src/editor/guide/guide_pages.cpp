// SPDX-License-Identifier: MIT
#include "editor/guide/guide_pages.h"

#include "base/files.h"
#include "base/languages.h"
#include "base/run_state.h"
#include "editor/lists/param_lists.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString indexPage = u"index.md"_s;

// index.md itself, then what it links to.
QStringList pagesOf(const QString& folder)
{
    static const QRegularExpression link(u"\\]\\(([\\w-]+\\.md)\\)"_s);
    QStringList pages{indexPage};
    auto found = link.globalMatch(guideText(folder + indexPage));
    while (found.hasNext())
        pages.append(found.next().captured(1));
    pages.removeDuplicates();
    return pages;
}

} // namespace

QString guideRoot(const RunState& run)
{
    return run.AppPath + u"/docs/"_s;
}

QString guideFolder(const RunState& run)
{
    const QString guide = guideRoot(run) + u"guide/"_s;
    const QString own = guide + QString::fromUtf16(languageOf(run.CurrentLang).locale) + u'/';
    return QFileInfo::exists(own + indexPage) ? own : guide + u"en/"_s;
}

QString guideText(const QString& path)
{
    const Result<QByteArray> bytes = readBytes(path);
    return bytes ? QString::fromUtf8(bytes.value()) : QString();
}

GuidePlace guidePlace(const RunState& run, const ParamLists& lists)
{
    if (!run.GfxOpened)
        return {indexPage, {}};
    const int tab = lists.CurrentTab;
    const QString page = lists.kind(tab).guide.toString();
    // Objects share a page, with a heading for each.
    return {page, lists.objectOfTab(tab) >= 0 ? lists.tabs[static_cast<std::size_t>(tab)].caption
                                              : QString()};
}

std::vector<GuideHeading> guideContents(const QString& folder)
{
    std::vector<GuideHeading> contents;
    for (const QString& page : pagesOf(folder)) {
        const QStringList lines = guideText(folder + page).split(u'\n');
        for (const QString& line : lines) {
            for (const int level : {1, 2}) {
                const QString mark = QString(level, u'#') + u' ';
                if (line.startsWith(mark))
                    contents.push_back({page, line.mid(mark.size()).trimmed(), level});
            }
        }
    }
    return contents;
}

QString headingAnchor(const QString& heading)
{
    static const QRegularExpression dropped(u"[^\\w -]"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(dropped).replace(u' ', u'-');
}

} // namespace fennel
