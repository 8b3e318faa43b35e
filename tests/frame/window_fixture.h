// SPDX-License-Identifier: MIT
// A whole main window on the offscreen platform with a scripted user and folders of its own, and
// the template opened in it as a gfxboot of generation 3.
#pragma once

#include "frame/main_window.h"
#include "frame/stage_link.h"
#include "params/level_files.h"
#include "params/right_panel.h"
#include "shell/user_store.h"
#include "support/test_shell.h"

#include <QTest>

namespace fennel::test {

using namespace Qt::StringLiterals;

class WindowTest : public testing::Test {
protected:
    WindowTest()
    {
        shell.install();
        shell.run.CurrentLang = u"0409"_s;
        window = std::make_unique<MainWindow>(bench);
    }
    // Opens a copy of the template and selects the tab of the object.
    void openTemplate(int object = 0)
    {
        const QString path =
            shell.file(u"boot.gz"_s, bytesOf(shell.run.AppPath + u"/data/GFX.GZ"_s));
        ASSERT_TRUE(window->openGfxboot(path));
        window->show();
        selectObject(object);
    }
    void selectObject(int object)
    {
        Q_EMIT window->rightPanel().tabClicked(record(object).TabIndex);
    }
    PanelRec& record(int object) { return *bench.params.object(object); }
    Stage& stage() { return window->stageLink().stage(); }
    template <class Widget>
    Widget& child(const QString& name)
    {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    // The row that shows a parameter of the object, and its value as the list shows it.
    ListRow& rowOf(int object, int param)
    {
        const ZukCell& cell = bench.params.ZUKarr.at(levelFileOf(record(object)), param);
        ListRow* row = bench.params.list(cell.TabPos)->row(cell.RowPos);
        EXPECT_NE(row, nullptr);
        return *row;
    }
    QString shown(int object, int param) { return rowOf(object, param).text(1); }
    // Opens the value editor on the row of a parameter.
    void editRow(int object, int param)
    {
        const ZukCell& cell = bench.params.ZUKarr.at(levelFileOf(record(object)), param);
        RightPanel& panel = window->rightPanel();
        panel.view(cell.TabPos)->select(cell.RowPos);
        Q_EMIT panel.rowSelected(cell.TabPos, cell.RowPos, false);
        Q_EMIT panel.rowActivated(cell.TabPos, cell.RowPos);
    }
    void runCommand(const char* name) { window->commands().run(QString::fromLatin1(name)); }
    // The three bytes of a parameter's record in a level file, last record first; empty for none.
    QByteArray savedBytes(int file, int param)
    {
        const QByteArray bytes = bytesOf(shell.run.Workspace + levelFileName(file));
        for (qsizetype at = bytes.size() - 4; at >= 0; at -= 4) {
            if (bytes[at + 3] == static_cast<char>(param))
                return bytes.mid(at, 3);
        }
        return {};
    }

    TestShell shell;
    UserStore store{shell.path(u"settings.ini"_s)};
    Workbench bench{shell.shell, store};
    std::unique_ptr<MainWindow> window;
};

} // namespace fennel::test
