// SPDX-License-Identifier: MIT
// The first tab: the menus of the Current Flash, and the one that the stage shows.
#pragma once

#include "base/shell_context.h"
#include "params/list_rows.h"
#include "params/zuk_table.h"

namespace fennel {

// Whose menus are shown. `folder` is what "X:\" stands for, with "/" at its end; both are empty
// without a Current Flash.
struct MenuDrive {
    QString letter;
    QString folder;
};

// Above this a *.lst is no menu. Titles of 10 MB still are.
inline constexpr qint64 menuSizeLimit = 32LL * 1024 * 1024;
// What is read of a drive for its list, all menus together: far more than a drive that boots holds,
// and read while the user waits.
inline constexpr qint64 listedMenusLimit = 8LL * 1024 * 1024;

// The text of a menu file of the drive. A file that a link leads to outside of the drive is
// refused, and so is any file of a drive without a folder: it was pulled out.
Result<QString> readMenu(const MenuDrive& drive, const QString& name);

// Fills the rows: Embedded, a separator, then every *.lst in the root of the drive. The selected
// row stays selected, 1 if there was none or it is gone. A file that cannot be read, or is beyond
// listedMenusLimit, has no primary and says why in its tip.
void MenuListFill(const Shell& shell, const MenuDrive& drive, ListRows& list);

// Row (from 1) of a menu file, 0 if the list has none.
int menuRow(const ListRows& list, const QString& name);

// mnuMenu_fromFlash: the row to select and to click on, or 0 after the user was told that no
// gfxboot is open or that the list has no such file.
int mnuMenu_fromFlash(const Shell& shell, const MenuDrive& drive, const ListRows& list,
                      const QString& name);

// The titles of the menu in force: those of the file, or of the Embedded one if there is none that
// can be read.
QStringList titlesInForce(const MenuDrive& drive, const QString& CurrentMenuFile);

// Makes the menu named by CurrentMenuFile (empty: the Embedded one) the one in force: its data
// titles go to the menu layer of the parameters, its entries are returned for the stage, each
// followed by a "|". A menu that cannot be read is told and CurrentMenuFile emptied, so that the
// Embedded one is in force.
QString MenuApply(const Shell& shell, const MenuDrive& drive, QString& CurrentMenuFile,
                  ZUKarr& table);

} // namespace fennel
