// SPDX-License-Identifier: MIT
#include "menus/menu_overlay.h"

#include "base/text.h"
#include "menus/menu_file.h"

#include <QList>

namespace fennel {

namespace {

// Places in the text of a data title, such as "[zuk0003] :22=0x00ff00 :5=10".
constexpr qsizetype levelPlace = 4; // of "[zuk0003]"
constexpr qsizetype levelDigits = 4;
constexpr qsizetype itemsPlace = 9;
const QString itemMark = QStringLiteral(" :");

// A level is there if the catalogue or a file of the gfxboot has a parameter of it.
bool levelExists(const ZUKarr& table, int level)
{
    for (int param = 1; param <= zukParamCount; ++param) {
        const ZukCell& cell = table.at(level, param);
        if (cell.DefValue || cell.LevelValue != -1)
            return true;
    }
    return false;
}

// One item without its " :", such as "22=0x00ff00".
void storeItem(QStringView item, int level, ZUKarr& table)
{
    const double param = leadingNumber(item);
    // Passed over in silence: a menu may be written for a newer engine.
    if (param < 1 || param > zukParamCount)
        return;
    const qsizetype equals = item.indexOf(u'=');
    const QStringView value = equals < 0 ? QStringView() : item.mid(equals + 1);
    table.at(level, static_cast<int>(param)).LstValue = numberFromText(trimBlanks(value));
}

// A level that neither the catalogue nor the gfxboot has is passed over as a whole.
void storeTitle(QStringView title, ZUKarr& table)
{
    const double level = leadingNumber(title.mid(levelPlace, levelDigits));
    // A number that is not whole is no level.
    const int number = static_cast<int>(level);
    if (level != number || number < 0 || number >= zukFileCount || !levelExists(table, number))
        return;
    const QString items = title.mid(itemsPlace).toString().replace(itemMark, QStringLiteral("|"));
    // What stands before the first mark is the character that is dropped, as a rule the mark.
    for (const QStringView item : trimBlanks(items).mid(1).split(u'|'))
        storeItem(item, number, table);
}

} // namespace

// Over all levels: a menu counts alone and never adds to the one before.
void MenuOverlayClear(ZUKarr& table)
{
    for (int level = 0; level < zukFileCount; ++level) {
        for (int param = 1; param <= zukParamCount; ++param)
            table.at(level, param).LstValue.reset();
    }
}

void MenuOverlay(const QString& text, bool hasZuk, ZUKarr& table)
{
    if (!hasZuk)
        return;
    MenuOverlayClear(table);
    const MenuLines menu(text);
    for (const QStringView line : menu.lines()) {
        const auto title = titleText(line);
        if (title && isDataTitle(trimBlanks(*title)))
            storeTitle(trimBlanks(*title), table);
    }
}

} // namespace fennel
