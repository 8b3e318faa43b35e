// SPDX-License-Identifier: MIT
#include "menus/menu_list.h"

#include "base/failure_words.h"
#include "base/text.h"
#include "base/words.h"
#include "menus/menu_file.h"
#include "menus/menu_overlay.h"
#include "params/object_table.h"

#include <algorithm>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

ListRow menuRow(RowKind kind, const QString& name, const QStringList& texts)
{
    ListRow row;
    row.kind = kind;
    row.name = name;
    row.texts = texts;
    return row;
}

QString notFound(const MenuDrive& drive, const QString& name)
{
    return drive.letter + u":/"_s + name + Words::tr(" not found!");
}

// The device in front goes, "(hd0,0)/boot/message" as "/boot/message".
QString shownPath(const QString& gfxmenu)
{
    // With backslashes, as it stands beside a drive's letter.
    return gfxmenu.mid(gfxmenu.indexOf(u'/') + 1).replace(u'/', u'\\');
}

// Takes what it reads from `left`.
Result<QString> readForList(const MenuDrive& drive, const QString& name, qint64& left)
{
    const qint64 size = fileSize(drive.folder + name);
    if (size > left)
        return Failure{FailureKind::TooLarge,
                       Words::tr("The menus of this drive are too large to look into all of them.")
                           .toStdString()};
    left -= size;
    return readMenu(drive, name);
}

ListRow fileRowOf(const MenuDrive& drive, const QString& name, qint64& left)
{
    const Result<QString> text = readForList(drive, name, left);
    // A file that cannot be read gets its row all the same, with the reason as its tip.
    ListRow row =
        menuRow(RowKind::Menu, name,
                {name, drive.letter + u":\\"_s, text ? shownPath(MenuPrimary(*text)) : QString()});
    row.folder = drive.folder;
    if (!text)
        row.tip = failureWords(text.failure());
    // Menus that set parameters stand out.
    else
        row.own = !MenuCounts(*text).endsWith(u"/0/0"_s);
    return row;
}

} // namespace

Result<QString> readMenu(const MenuDrive& drive, const QString& name)
{
    // The name alone would mean a file of the folder that the program was started in.
    if (drive.folder.isEmpty())
        return Failure{FailureKind::NotFound, notFound(drive, name).toStdString()};
    const QString path = drive.folder + name;
    const QString root = withSeparator(shortForm(drive.folder));
    // A drive comes from anywhere; a link on it must not make us read files of this machine.
    if (!shortForm(path).startsWith(root))
        return Failure{FailureKind::NoPermission,
                       path.toStdString() + " is a link that leads out of the drive."};
    const Result<QByteArray> bytes = readBytes(path, menuSizeLimit);
    if (!bytes)
        return bytes.failure();
    return decodeText(*bytes).text;
}

void MenuListFill(const Shell& shell, const MenuDrive& drive, ListRows& list)
{
    shell.WriteLog(u"     1_Menu_in_ListView"_s);
    const int kept = list.selected;
    list.rows.clear();
    list.columns = {Words::tr("Menu file"), Words::tr("Path"), Words::tr("Primary gfxmenu")};
    // The menu in the template, which is always there; it is what the stage shows first.
    list.rows.push_back(menuRow(RowKind::Menu, {}, {Words::tr("Embedded"), Words::tr("menu"), {}}));
    list.rows.push_back(
        menuRow(RowKind::MenuLine, {}, {u"__________"_s, u"___"_s, u"__________"_s}));
    if (!drive.folder.isEmpty()) {
        qint64 left = listedMenusLimit;
        for (const QString& name : filesLike(drive.folder, u"*.lst"_s))
            list.rows.push_back(fileRowOf(drive, name, left));
    }
    // The list may be filled again at any time and must not lose its place.
    list.selected = kept >= 1 && kept <= list.count() ? kept : 1;
}

int menuRow(const ListRows& list, const QString& name)
{
    const auto found = std::ranges::find_if(list.rows, [&name](const ListRow& row) {
        return row.kind == RowKind::Menu && !name.isEmpty() && row.name == name;
    });
    return found == list.rows.end() ? 0 : static_cast<int>(found - list.rows.begin()) + 1;
}

int mnuMenu_fromFlash(const Shell& shell, const MenuDrive& drive, const ListRows& list,
                      const QString& name)
{
    if (!shell.run.GfxOpened) {
        shell.prompts.ShowMessage(Words::tr("First, you need to open some gfxboot"));
        return 0;
    }
    const int row = menuRow(list, name);
    if (row == 0)
        shell.prompts.ShowMessage(notFound(drive, name));
    return row;
}

QStringList titlesInForce(const MenuDrive& drive, const QString& CurrentMenuFile)
{
    if (!CurrentMenuFile.isEmpty()) {
        if (const Result<QString> text = readMenu(drive, CurrentMenuFile))
            return menuTitles(*text);
    }
    return embeddedMenu.split(u'|', Qt::SkipEmptyParts);
}

QString MenuApply(const Shell& shell, const MenuDrive& drive, QString& CurrentMenuFile,
                  ZUKarr& table)
{
    // First, so that whatever happens below no value of the menu before stays.
    MenuOverlayClear(table);
    if (CurrentMenuFile.isEmpty())
        return embeddedMenu;
    const Result<QString> text = readMenu(drive, CurrentMenuFile);
    if (!text) {
        // Kept, it would be told again with every gfxboot that is opened.
        CurrentMenuFile.clear();
        shell.prompts.ShowMessage(failureWords(text.failure()));
        return embeddedMenu;
    }
    MenuOverlay(*text, shell.run.GfxHasZuk, table);
    return MenuEntries(*text, shell.run.GfxHasZuk, technicalEntries(table));
}

} // namespace fennel
