// SPDX-License-Identifier: MIT
// The window while a tool hangs.
#include "document/open_fixture.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/status_bar.h"
#include "support/story.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

std::map<QString, QByteArray> contentsOf(const QString& folder)
{
    std::map<QString, QByteArray> contents;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        if (name != u"#message"_s) // what a save works with
            contents[name] = bytesOf(QDir(folder).filePath(name));
    return contents;
}

} // namespace

TEST(Waiting, AHungToolIsCalledOffAndNothingHasChanged)
{
    Story w;
    const QString file = w.shell.file(u"boot.gz"_s, bytesOf(w.run().AppPath + u"/data/GFX.GZ"_s));
    const QString other =
        w.shell.file(u"other"_s, QByteArray::fromStdString(smallMessage(400, 300).close()));
    w.open(file);
    w.choose("mnuFile_Save");
    const auto before = contentsOf(w.run().Workspace);
    const QByteArray bytes = bytesOf(file);
    const QImage shown = w.window.surface().grab().toImage();
    const QStringList rooms = QDir(w.run().WorkspaceRoot).entryList();
    w.run().ToolCpio = w.shell.script(u"hung"_s, "trap '' TERM; sleep 60");

    int ticks = 0;
    QElapsedTimer sinceCancel;
    QTimer timer;
    timer.setInterval(50);
    StatusBar& line = w.window.statusFields();
    bool byKey = false;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (++ticks < 14)
            return;
        timer.stop();
        EXPECT_TRUE(line.cancelButton().isVisible() && line.cancelButton().isEnabled());
        EXPECT_TRUE(line.progressBar().isVisible());
        // Each would ask the user something, who expects no question.
        QTest::keyClick(&w.window, Qt::Key_O, Qt::ControlModifier);
        w.window.commands().run(u"mnuFile_Open"_s);
        QTest::mouseClick(&w.find<QWidget>(u"Picture1"_s), Qt::LeftButton);
        sinceCancel.start();
        if (byKey)
            QTest::keyClick(&w.window, Qt::Key_Escape);
        else
            QTest::mouseClick(&line.cancelButton(), Qt::LeftButton);
    });
    const auto runWith = [&](const std::function<void()>& command) {
        ticks = 0;
        timer.start();
        command();
        EXPECT_EQ(ticks, 14);
        EXPECT_LT(sinceCancel.elapsed(), 1000);
        EXPECT_FALSE(line.cancelButton().isVisible() || line.progressBar().isVisible());
        EXPECT_EQ(contentsOf(w.run().Workspace), before);
        EXPECT_EQ(bytesOf(file), bytes);
        EXPECT_EQ(w.run().GfxPath, file);
        EXPECT_EQ(QDir(w.run().WorkspaceRoot).entryList(), rooms);
        EXPECT_EQ(w.window.surface().grab().toImage(), shown);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    };
    const QString told = u"Canceled by user"_s;
    runWith([&] {
        w.user().expectMessage(told);
        w.choose("mnuFile_Save");
    });
    byKey = true;
    runWith([&] { w.open(other, told); });
}
