// SPDX-License-Identifier: MIT
// A main window of a test's own, with run state, settings file and user of its own. Two can stand
// side by side.
#pragma once

#include "frame/main_window.h"
#include "frame/menus.h"
#include "support/test_shell.h"

namespace fennel::test {

class TestWindow {
public:
    TestWindow();

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
    // Chooses an item of the menu as a click does, and lets what it queued happen.
    void choose(const QString& item);
    void click(QWidget& widget);
    // Opens through the File menu. A file that is none gives this message.
    void open(const QString& path, const QString& message = {});
    // The text of a field of the status line, counted from 1.
    [[nodiscard]] QString field(int number);

    TestShell t;
    UserStore store;
    Workbench bench;
    MainWindow window;
};

} // namespace fennel::test
