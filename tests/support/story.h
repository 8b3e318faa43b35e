// SPDX-License-Identifier: MIT
// The whole program for a scenario: the real window on the offscreen platform, the real tools, a
// settings file and folders of its own, and a scripted user.
#pragma once

#include "editor/lists/row_cells.h"
#include "editor/window/main_window.h"
#include "editor/window/menus.h"
#include "support/test_shell.h"

#include <QAbstractItemView>
#include <QPoint>

namespace fennel::test {

class Story {
public:
    Story();

    // The widget or action of that name; a missing one fails the test at once.
    template <class T>
    T& find(const QString& name)
    {
        T* found = window.findChild<T*>(name);
        if (found == nullptr)
            qFatal("no %s", qPrintable(name));
        return *found;
    }
    [[nodiscard]] QAction& action(const QString& name);
    // Runs a menu command as a click on its item does; the item must be enabled.
    void choose(const char* item);
    // File / New, and its answer-free way to an open gfxboot.
    void makeNew() { choose("mnuFile_New"); }
    // File / Open, first with the explaining message if nothing is open. A file that is none gives
    // this message.
    void open(const QString& path, const QString& message = {});
    // The end of the run: the window closes and the temporary folders go.
    void close();
    // Save As under this path, compressed or not.
    // An answer to the question what a save may lose, if that comes.
    void saveAs(const QString& path, bool compress, const QString& loss = {});

    // The tab with that caption becomes the current one, as by a click.
    void goToTab(const QString& caption);
    void goToAllTabs();
    // The view of the current list.
    [[nodiscard]] QAbstractItemView& view();
    // The row of the current list with that item text, selected as by a click. 0 if there is none.
    int goToRow(const QString& item);
    // Goes to the row of a tab and presses "edit".
    void editRow(const QString& tab, const QString& item);
    // How a row of a list looks, by default of the current one.
    [[nodiscard]] RowLook look(int row, int tab = 0);
    // Types a value into the row and presses Enter.
    void type(const QString& item, const QString& value);
    // The value cell of a row of the current list.
    [[nodiscard]] QString value(const QString& item);

    // A drag with the left button on Picture1, in its pixels.
    void drag(QPoint from, QPoint to);
    void click(QWidget& widget);
    void click(QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(QPoint place, Qt::KeyboardModifiers keys = {});
    void press(int key, Qt::KeyboardModifiers keys = {});
    // The middle of an object as the stage shows it.
    [[nodiscard]] QPoint middleOf(int object);

    [[nodiscard]] RunState& run() { return shell.run; }
    [[nodiscard]] ParamLists& lists() { return bench.params; }
    [[nodiscard]] ListRows& list() { return *bench.params.list(bench.params.CurrentTab); }
    [[nodiscard]] ScriptedPrompts& user() { return shell.prompts; }

    TestShell shell;
    UserStore store;
    Workbench bench;
    MainWindow window;
};

// The parameters of a level file by number, read by another way than the program's.
std::map<int, int> recordsOf(const QByteArray& levelFile);
// The members of a message file, unwrapped and extracted by gzip and GNU cpio.
std::map<QString, QByteArray> membersOf(const QString& messageFile);
// Debian's openSUSE message with this gfxboot.cfg (null: none) and, behind its engine, the names of
// all parameters; returns its path.
QString messageWith(TestShell& shell, const QByteArray& cfg);
// A message file of these members, packed by GNU cpio; returns its path.
QString messageOf(TestShell& shell, const std::map<QString, QByteArray>& members);

} // namespace fennel::test
