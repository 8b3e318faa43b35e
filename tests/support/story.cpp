// SPDX-License-Identifier: MIT
#include "support/story.h"

#include "app/startup.h"
#include "base/workspace_root.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/window_progress.h"
#include "params/cfg_table.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

// A new run: nothing is open, and data and tools are those of this build.
Shell& started(TestShell& shell)
{
    shell.install();
    shell.run.Workspace.clear();
    // As the program's start takes it.
    EXPECT_TRUE(shell.files.removeFolder(shell.run.WorkspaceRoot).ok());
    if (const auto taken = takeRoot(shell.files, shell.run.WorkspaceRoot))
        shell.run.rootLock = *taken;
    shell.run.CurrentLang = u"0409"_s;
    return shell.shell;
}

} // namespace

Story::Story() : store(shell.path(u"settings.ini"_s)), bench(started(shell), store), window(bench)
{
    shell.tools.showIn(window.progress());
    // A drag ends where the mouse does.
    window.surface().gestures().setSnapping(false);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

QAction& Story::action(const QString& name)
{
    QAction* found = window.menus().action(name);
    if (found == nullptr)
        qFatal("no %s", qPrintable(name));
    return *found;
}

void Story::choose(const char* item)
{
    ASSERT_TRUE(action(QLatin1String(item)).isEnabled()) << item;
    action(QLatin1String(item)).trigger();
    QCoreApplication::processEvents();
}

void Story::open(const QString& path, const QString& message)
{
    if (!run().GfxOpened)
        user().expectMessage(u"You can choose any of the variants."_s);
    user().expectOpen(path);
    if (!message.isEmpty())
        user().expectMessage(message);
    choose("mnuFile_Open");
}

void Story::close()
{
    window.close();
    QCoreApplication::processEvents();
    (void)bench.journal.flush();
    Form_Unload(shell.shell);
}

void Story::saveAs(const QString& path, bool compress, const QString& loss)
{
    user().expectSave(path);
    user().expectMessage(u"To do this?"_s, compress ? Answer::Yes : Answer::No);
    if (!loss.isEmpty())
        user().expectChoice({}, loss);
    choose("mnuFile_SaveAs");
}

void Story::goToTab(const QString& caption)
{
    for (int tab = 1; tab <= lists().tabCount(); ++tab) {
        if (lists().tabs[static_cast<std::size_t>(tab)].caption != caption)
            continue;
        auto* button = window.findChild<QToolButton*>(u"TabStrip1_%1"_s.arg(tab));
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_EQ(lists().CurrentTab, tab);
        return;
    }
    FAIL() << "no tab " << caption.toStdString();
}

void Story::goToAllTabs()
{
    for (int tab = 1; tab <= lists().tabCount(); ++tab)
        goToTab(lists().tabs[static_cast<std::size_t>(tab)].caption);
}

QAbstractItemView& Story::view()
{
    ListView* shown = window.rightPanel().view(lists().CurrentTab);
    return *qobject_cast<QAbstractItemView*>(shown->currentWidget());
}

void Story::editRow(const QString& tab, const QString& item)
{
    goToTab(tab);
    ASSERT_NE(goToRow(item), 0);
    QTest::mouseClick(&window.rightPanel().editButton(), Qt::LeftButton);
}

int Story::goToRow(const QString& item)
{
    for (int row = 1; row <= list().count(); ++row) {
        if (look(row).text() != item)
            continue;
        window.rightPanel().view(lists().CurrentTab)->select(row);
        QAbstractItemView& shown = view();
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, {},
                          shown.visualRect(shown.currentIndex()).center());
        return row;
    }
    ADD_FAILURE() << "no row " << item.toStdString();
    return 0;
}

RowLook Story::look(int row, int tab)
{
    const ListRows& rows = *lists().list(tab > 0 ? tab : lists().CurrentTab);
    return rowLook(bench.document, rows, *rows.row(row), lists().CurrentMenuFile);
}

void Story::type(const QString& item, const QString& value)
{
    const int row = goToRow(item);
    ASSERT_NE(row, 0);
    QTest::keyClick(&view(), Qt::Key_Return);
    ValueEditor& editor = window.rightPanel().editor();
    ASSERT_TRUE(editor.isVisible()) << item.toStdString();
    editor.setText(value);
    QTest::keyClick(&editor.box(), Qt::Key_Return);
    EXPECT_FALSE(editor.isVisible());
}

QString Story::value(const QString& item)
{
    const int column = lists().CurrentTab >= FirstObjectTab ? int{LevelColumn} : CfgValueColumn;
    for (int row = 1; row <= list().count(); ++row) {
        if (look(row).text() == item)
            return look(row).text(static_cast<std::size_t>(column));
    }
    return {};
}

void Story::drag(QPoint from, QPoint to)
{
    StageSurface& stage = window.surface();
    QTest::mousePress(&stage, Qt::LeftButton, {}, from);
    QTest::mouseMove(&stage, (from + to) / 2);
    QTest::mouseMove(&stage, to);
    QTest::mouseRelease(&stage, Qt::LeftButton, {}, to);
}

void Story::click(QWidget& widget)
{
    QTest::mouseClick(&widget, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void Story::click(QPoint place, Qt::MouseButton button)
{
    QTest::mouseClick(&window.surface(), button, {}, place);
}

void Story::doubleClick(QPoint place, Qt::KeyboardModifiers keys)
{
    QTest::mouseDClick(&window.surface(), Qt::LeftButton, keys, place);
    QTest::mouseRelease(&window.surface(), Qt::LeftButton, keys, place);
}

void Story::press(int key, Qt::KeyboardModifiers keys)
{
    QTest::keyClick(&window.surface(), static_cast<Qt::Key>(key), keys);
}

QPoint Story::middleOf(int object)
{
    return window.stageLink().stage().panel(object).rect.center();
}

std::map<int, int> recordsOf(const QByteArray& levelFile)
{
    std::map<int, int> records;
    for (qsizetype i = 0; i + 3 < levelFile.size(); i += 4) {
        const auto byte = [&](qsizetype k) { return static_cast<unsigned char>(levelFile[i + k]); };
        if (byte(3) != 0)
            records[byte(3)] = byte(0) + 256 * byte(1) + 65536 * byte(2);
    }
    return records;
}

std::map<QString, QByteArray> membersOf(const QString& messageFile)
{
    const QTemporaryDir folder;
    QProcess shell;
    shell.setWorkingDirectory(folder.path());
    shell.start(u"sh"_s,
                {u"-c"_s, u"(gzip -dc -- \"$1\" 2>/dev/null || cat -- \"$1\") | cpio -id --quiet"_s,
                 u"sh"_s, messageFile});
    EXPECT_TRUE(shell.waitForFinished(30'000));
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    std::map<QString, QByteArray> members;
    for (const QString& name : QDir(folder.path()).entryList(QDir::Files))
        members[name] = bytesOf(folder.filePath(name));
    // QTemporaryDir leaves files whose names are not UTF-8.
    EXPECT_TRUE(DiskFiles().removeFolder(folder.path()).ok());
    return members;
}

QString messageWith(TestShell& shell, const QByteArray& cfg)
{
    auto members = membersOf(u"/etc/bootsplash/themes/openSUSE/bootloader/message"_s);
    members.erase(u"gfxboot.cfg"_s);
    for (const CfgParam& param : cfgParams)
        members[u"init"_s] += param.name.toUtf8() + '\0';
    if (!cfg.isNull())
        members[u"gfxboot.cfg"_s] = cfg;
    return messageOf(shell, members);
}

QString messageOf(TestShell& shell, const std::map<QString, QByteArray>& members)
{
    const QTemporaryDir folder;
    QByteArray names;
    for (const auto& [name, bytes] : members) {
        EXPECT_TRUE(shell.files.write(folder.filePath(name), bytes).ok());
        names += name.toUtf8() + "\n";
    }
    QProcess cpio;
    cpio.setWorkingDirectory(folder.path());
    QString message = shell.path(u"message"_s);
    cpio.setStandardOutputFile(message);
    cpio.start(u"cpio"_s, {u"-o"_s, u"-H"_s, u"bin"_s, u"--quiet"_s});
    cpio.write(names);
    cpio.closeWriteChannel();
    EXPECT_TRUE(cpio.waitForFinished(30'000));
    return message;
}

} // namespace fennel::test
