// SPDX-License-Identifier: MIT
// What the commands on backgrounds and on logos have in common: the question for a picture, the
// making of a member from it, the scaling of a whole group, the number of a new member.
#pragma once

#include "base/file_steps.h"
#include "base/words.h"

#include <QSize>

namespace fennel {

// Where picture dialogues begin: pictures come from where people keep them, not from where the
// gfxboot is. Empty without such a folder.
QString picturesFolder();

// What the dialogue offers. The ending is a hint: what a file is, the picture tool finds by its
// content when it is imported.
inline QString anyPictureFilter()
{
    return Words::tr("All picture Files |*.jpg;*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;"
                     "*.ico|jpg-files (*.jpg)|*.jpg|");
}

// The chosen picture's path, or an empty string.
QString askForPicture(const Shell& shell, const QString& filter = anyPictureFilter());

// Scales the picture `source` to `size` pixels and puts it at `target`. The new file is made in
// WorkspaceRoot first, so `source` may be `target` or a kept copy of it. False, with the user told,
// if that failed.
// `more` are further options of the picture tool.
bool importPicture(const Shell& shell, FileSteps& steps, const QString& source, QSize size,
                   const QString& target, const QStringList& more = {});

// The size of a picture, or nothing with the user told why.
std::optional<QSize> knownSize(const Shell& shell, const QString& path);

// Scales every file of the Workspace that fits the pattern; all of them or none.
bool resizeAll(const Shell& shell, const QString& pattern, QSize size,
               const QStringList& more = {});

// The number of a new member among the rows that fit `pattern` (such as "back_??.jpg") and are not
// `apart`: the highest seen plus one, by the rule for numbered members, in which gaps are not
// filled. `first` is the number, 100 added, when there is none. The text has two digits; it is
// empty, with the user told, if 99 is taken.
QString nextNumber(const Shell& shell, const QStringList& rows, const QString& pattern,
                   const QString& apart, int first);

} // namespace fennel
