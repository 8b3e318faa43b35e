// SPDX-License-Identifier: MIT
// The list of problems follows the document, leads to where each of them is, and mends.
#include "document/open_fixture.h"
#include "editor/problems/problem_link.h"
#include "editor/window/status_bar.h"
#include "window_fixture.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTreeWidget>

namespace fennel::test {

namespace {

class Problems : public WindowTest {
protected:
    ProblemLink& link() { return window.problemLink(); }
    // The names of what is found once it is known.
    QStringList names()
    {
        QStringList found;
        EXPECT_TRUE(QTest::qWaitFor([&] { return link().current(); }));
        for (const Problem& problem : link().problems())
            found.append(problem.name);
        EXPECT_EQ(window.statusFields().problemsButton().text(), QString::number(found.size()));
        return found;
    }
    QTreeWidget& shown()
    {
        if (window.findChild<QWidget*>(u"ProblemWindow"_s) == nullptr)
            choose("mnuView_Problems");
        return find<QTreeWidget>(u"ProblemList"_s);
    }
    void mendFirst()
    {
        names();
        QTreeWidget& list = shown();
        qobject_cast<QPushButton*>(list.itemWidget(list.topLevelItem(0), 2))->click();
    }
    void set(int file, int number, int value)
    {
        Change change;
        change.params[{file, number}] = ParamValue{value, false, {}};
        ASSERT_TRUE(bench.document.apply(change, {u"value"_s, {}, {}}));
    }
    // Mended, undone, mended again.
    void expectMended(const QString& name)
    {
        EXPECT_EQ(names(), QStringList(name));
        mendFirst();
        EXPECT_EQ(names(), QStringList());
        choose("mnuEdit_Undo");
        EXPECT_EQ(names(), QStringList(name));
        mendFirst();
        EXPECT_EQ(names(), QStringList());
    }
};

QByteArray progressive(QSize size)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    EXPECT_TRUE(writer.write(picture));
    return bytes;
}

TEST_F(Problems, OfGenerationThree)
{
    constexpr int timeRow = 5;
    EXPECT_TRUE(window.statusFields().problemsButton().isHidden());
    openTemplate();
    EXPECT_EQ(names(), QStringList());
    const PanelRec time = record(timeRow);
    const int file = levelFileOf(time);
    set(file, time.LeftParam, 900);
    EXPECT_EQ(names(), QStringList(u"object-outside"_s));
    goToTab(u"Config"_s);
    QTreeWidget& list = shown();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.topLevelItem(0)).center());
    EXPECT_EQ(lists().CurrentTab, lists().TabIndex(timeRow));
    EXPECT_EQ(lists().CurrentRow, rowOf(timeRow, time.LeftParam));
    expectMended(u"object-outside"_s);
    EXPECT_EQ(record(timeRow).Left, 800 - time.Width);
    set(file, time.LeftParam, 790);
    expectMended(u"object-cut"_s);
    set(0, 41, 40);
    expectMended(u"entries-fit"_s);
    const PanelRec glasses = record(GlassesRow);
    set(levelFileOf(glasses), 99, 77);
    expectMended(u"component-missing"_s);
    EXPECT_EQ(cell(GlassesRow, glasses.OnParam).Value->number, 0);
    // A gesture is looked at when it is over.
    bench.document.beginGesture({u"move"_s, {}, {}});
    set(file, time.LeftParam, 900);
    EXPECT_TRUE(link().current());
    bench.document.endGesture();
    EXPECT_EQ(names(), QStringList(u"object-outside"_s));
}

TEST_F(Problems, OfFiles)
{
    const std::string engine = bytesOf(shell.run.AppPath + u"/data/INIT"_s).toStdString();
    RawCpio archive;
    for (const char* const name : {"a program", "init"})
        archive.add({.name = name, .data = engine});
    archive.add({.name = "back.jpg", .data = jpegBytes(400, 300)});
    archive.add({.name = "16x16.fnt",
                 .data = bytesOf(shell.run.AppPath + u"/data/16X16.FNT"_s).toStdString()});
    archive.add({.name = "gfxboot.cfg", .data = "welcome=1\r\nmenu_start_y=60\r\nwelcome=0"});
    archive.add({.name = "Logo.jpg", .data = progressive({40, 30}).toStdString()});
    open(shell.file(u"old"_s, QByteArray::fromStdString(archive.close())));
    const auto count = [&](const QString& name) { return names().count(name); };
    EXPECT_EQ(count(u"picture-black"_s), 1);
    mendFirst();
    EXPECT_EQ(count(u"picture-black"_s), 0);
    choose("mnuEdit_Undo");
    EXPECT_EQ(bytesOf(run().Workspace + u"Logo.jpg"_s), progressive({40, 30}));
    mendFirst();
    EXPECT_EQ(count(u"engine-order"_s), 1);
    mendFirst();
    EXPECT_EQ(count(u"engine-order"_s), 0);
    EXPECT_TRUE(bytesOf(run().Workspace + u"#.lst"_s).startsWith("init\r\na program\r\n"));
    EXPECT_EQ(count(u"screen-size"_s), 1);
    mendFirst();
    EXPECT_EQ(count(u"screen-size"_s), 0);
    mendFirst();
    EXPECT_EQ(count(u"cfg-doubled"_s), 0);
    EXPECT_EQ(bytesOf(run().Workspace + u"gfxboot.cfg"_s),
              "welcome=1\r\nmenu_start_y=60\r\n#welcome=0");
}

} // namespace

} // namespace fennel::test
