// SPDX-License-Identifier: MIT
// A message file on a stick or in a disk image: where the loader wants it, and the old one kept.
#include "support/long_run.h"
#include "support/run_program.h"
#include "support/test_shell.h"
#include "tools/image_drive.h"
#include "tools/stick_save.h"

#include <sys/stat.h>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

TEST(StickSave, TheConfigurationNamesThePlace)
{
    const struct {
        const char16_t* config;
        const char16_t* line;
        const char16_t* message;
    } rows[] = {
        {u"boot/syslinux/syslinux.cfg", u"UI gfxboot message", u"boot/syslinux/message"},
        {u"isolinux/isolinux.cfg", u"ui gfxboot.c32 /boot/Message", u"boot/Message"},
        {u"syslinux.cfg", u"gfxboot bootlogo\r", u"bootlogo"},
        {u"menu.lst", u"gfxmenu (hd0,0)/boot/grub/message", u"boot/grub/message"},
        {u"boot/grub/menu.lst", u"  gfxmenu /message", u"message"},
        {u"syslinux.cfg", u"# gfxboot old", u""},
        {u"syslinux.cfg", u"gfxboot ../../etc/passwd", u""},
        {u"menu.lst", u"title gfxmenu", u""},
    };
    for (const auto& row : rows) {
        const auto places = loaderPlaces(QString::fromUtf16(row.config),
                                         u"default 0\n"_s + QString::fromUtf16(row.line));
        const QString found = places.empty() ? QString() : places.front().message;
        EXPECT_EQ(found, QString::fromUtf16(row.message));
    }
}

TEST(StickSave, AnImageGetsTheMessageAndKeepsTheOldOnes)
{
    TestShell shell;
    const QString path = shell.path(u"stick.img"_s);
    (void)runProgram(u"mformat"_s, {u"-C"_s, u"-f"_s, u"1440"_s, u"-i"_s, path, u"::"_s});
    (void)shell.file(u"message"_s, "first");
    (void)shell.file(u"menu.lst"_s, "gfxmenu /message\n");
    for (const QString& name : {u"message"_s, u"menu.lst"_s})
        (void)runProgram(u"mcopy"_s, {u"-i"_s, path, shell.path(name), u"::"_s});
    for (const QByteArray& message : {QByteArray("second"), QByteArray("third")}) {
        const Result<ImageDrive> image = openImageDrive(shell.shell, path);
        ASSERT_TRUE(image) << image.failure().text;
        const auto places = loaderPlacesOf(image->folder);
        ASSERT_EQ(places.size(), 1U);
        const Result<QString> kept = saveToStick(shell.shell, image->folder, places[0], message);
        ASSERT_TRUE(kept && !kept->isEmpty());
        ASSERT_TRUE(writeToImage(shell.shell, *image, {*kept, places[0].message}).ok());
    }
    const auto there = [&](const QString& name) {
        return runProgram(u"mtype"_s, {u"-i"_s, path, u"::/"_s + name}).out;
    };
    EXPECT_EQ(there(u"message"_s), "third");
    EXPECT_EQ(there(u"message.old"_s), "first");
    EXPECT_EQ(there(u"message.old2"_s), "second");
    EXPECT_FALSE(openImageDrive(shell.shell, shell.path(u"message"_s)));
    // A name that a dangling link has is not free.
    const QString folder = shell.folder(u"stick"_s);
    (void)shell.file(u"stick/message"_s, "old");
    ASSERT_TRUE(QFile::link(shell.path(u"outside"_s), shell.path(u"stick/message.old"_s)));
    EXPECT_EQ(*saveToStick(shell.shell, withSeparator(folder), {{}, u"message"_s, false}, "new"),
              u"message.old2"_s);
    EXPECT_FALSE(FileExists(shell.path(u"outside"_s)));
    const Watchdog dog(60);
    ASSERT_EQ(::mkfifo(qPrintable(shell.path(u"pipe"_s)), 0600), 0);
    EXPECT_FALSE(openImageDrive(shell.shell, shell.path(u"pipe"_s)));
    shell.tools.failAt = shell.tools.calls + 1; // as if called off
    EXPECT_FALSE(openImageDrive(shell.shell, path));
}
