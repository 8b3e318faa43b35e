// SPDX-License-Identifier: MIT
// The user's guide as files: docs/guide holds a folder for each language, with pages of the same
// names. index.md lists them in their order. Which page belongs to what the user works on is
// decided here.
#pragma once

#include <QString>

#include <vector>

namespace fennel {

struct ParamLists;
struct RunState;

// The folder that holds the guide's text and its pictures; nothing else is ever shown.
QString guideRoot(const RunState& run);
// The pages in the language of the run, of English where there are none; ends in "/".
QString guideFolder(const RunState& run);

// The text of a page; empty if it cannot be read.
QString guideText(const QString& path);

struct GuidePlace {
    QString page;    // the name of a file of the folder
    QString heading; // the text that a heading begins; empty: the page's top
};
// What the guide says of the tab in front. The object of a tab has the tab's own caption as
// heading.
GuidePlace guidePlace(const RunState& run, const ParamLists& lists);

struct GuideHeading {
    QString page;
    QString text;
    int level = 1; // 1: the title of its page
};
// The titles of all pages and their sections, in the order of index.md, which is the first.
std::vector<GuideHeading> guideContents(const QString& folder);

// What follows "#" in a link to a heading, as pages of text on the web have it.
QString headingAnchor(const QString& heading);

} // namespace fennel
