// SPDX-License-Identifier: MIT
// The command lines, log lines and messages of the picture commands, run by the real bridge.
#include "picture_judge.h"
#include "tools/image_commands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

struct ImageTool {
    TestShell t;
    RecordingTools recorder;
    FakeClipboard clipboard;
    Shell shell{t.run, t.log, t.files, t.prompts, recorder};
    QString root = t.run.WorkspaceRoot;
    QString logPath = t.path(u"log"_s);

    ImageTool() { t.log.start(logPath); }
    [[nodiscard]] QStringList logLines() const
    {
        return QString::fromUtf8(bytesOf(logPath))
            .split(QRegularExpression(u"[\r\n]+"_s), Qt::SkipEmptyParts);
    }
    QString jpeg(const QString& name, const QSize& size = {320, 200})
    {
        EXPECT_TRUE(QImage(quadrantPicture(t)).scaled(size).save(t.path(name), "jpeg", 90));
        return t.path(name);
    }
};

} // namespace

TEST(ImageTool, ConvertsBesideTheSourceButOverNothing)
{
    ImageTool w;
    const QString source = w.t.path(u"a.b.bmp"_s);
    ASSERT_TRUE(QImage(quadrantPicture(w.t)).save(source));
    w.t.prompts.expectOpen(source);
    mnuT_NConvert_Convert(w.shell);
    EXPECT_EQ(quadrantsOf(w.t.path(u"a.b.jpg"_s)), u"rgby"_s);
    EXPECT_TRUE(FileExists(source));
    EXPECT_FALSE(FileExists(w.root + convertedJpgName));

    w.t.file(u"a.b.jpg"_s, "mine");
    w.t.prompts.expectMessage(u"Jpg file already exist!\n"_s + w.t.path(u"a.b.jpg"_s));
    EXPECT_FALSE(CreateJpg(w.shell, source));
    EXPECT_EQ(w.recorder.lines.size(), 1);
    EXPECT_EQ(bytesOf(w.t.path(u"a.b.jpg"_s)), "mine");

    // A left-over of an earlier run is not taken for the result.
    ASSERT_TRUE(w.t.files.write(w.root + convertedJpgName, "old").ok());
    w.t.prompts.expectMessage(u"Perhaps nconvert error...\n"_s);
    EXPECT_FALSE(CreateJpg(w.shell, w.t.file(u"broken.png"_s, "no picture")));
    EXPECT_FALSE(FileExists(w.t.path(u"broken.jpg"_s)));
    w.t.prompts.expectOpen({});
    w.t.prompts.expectMessage(u"Canceled by user"_s);
    mnuT_NConvert_Convert(w.shell);
}

TEST(ImageTool, ResizesAndSaysWhyItCouldNot)
{
    ImageTool w;
    const QString source = w.jpeg(u"source.jpg"_s);
    const QString target = w.root + u"target.jpg"_s;
    EXPECT_TRUE(ResizeJpg(w.shell, 1024, 768, source, target));
    EXPECT_EQ(outputOf(u"identify"_s,
                       {u"-format"_s, u"%m %wx%h %Q %x %[jpeg:sampling-factor]"_s, target}),
              u"JPEG 1024x768 85 72 2x2,1x1,1x1"_s);
    EXPECT_TRUE(ResizeJpg(w.shell, 80, 0, source, target));
    EXPECT_EQ(QImage(target).size(), QSize(80, 50));

    const QString message = u"Perhaps nconvert error...\n"
                            "Nconvert is sensitive to certain characters in the path.\n"
                            "For example \"#\", \"&\", \"$\""_s;
    w.t.prompts.expectMessage(message + u"\n-resize 0 0"_s);
    EXPECT_FALSE(ResizeJpg(w.shell, 0, 0, source, target));
    EXPECT_FALSE(FileExists(target));
    w.t.prompts.expectMessage(message + u"\nA picture cannot be resized into its own file"_s);
    EXPECT_FALSE(ResizeJpg(w.shell, 10, 10, source, source));
    EXPECT_EQ(quadrantsOf(source), u"rgby"_s);
    w.t.files.failAt = w.t.files.calls + 1; // the old target cannot be removed
    w.t.prompts.expectMessage(u"No space left"_s);
    EXPECT_FALSE(ResizeJpg(w.shell, 10, 10, source, target));

    w.t.run.ToolNConvert = w.t.path(u"gone"_s);
    w.t.prompts.expectMessage(w.t.path(u"gone"_s) + u" not found!"_s);
    EXPECT_FALSE(ResizeJpg(w.shell, 10, 10, source, target));
    EXPECT_EQ(w.logLines().last(), u"      ncovert.resize: "_s + source);
}

TEST(ImageTool, TakesPicturesFromTheClipboard)
{
    ImageTool w;
    w.clipboard.held = QImage(quadrantPicture(w.t)).convertToFormat(QImage::Format_ARGB32);
    for (int x = 0; x < 160; ++x) {
        for (int y = 0; y < 100; ++y)
            w.clipboard.held.setPixel(x, y, 0x00ffffff);
    }
    EXPECT_TRUE(PictureFromClipboard(w.shell, w.clipboard));
    EXPECT_EQ(quadrantsOf(w.root + clipboardJpgName), u"kgby"_s);
    EXPECT_FALSE(FileExists(w.root + clipboardHandoverName));

    w.t.prompts.expectSave(w.t.path(u"saved"_s));
    mnuT_NConvert_Clipboard(w.shell, w.clipboard);
    EXPECT_EQ(outputOf(u"identify"_s, {u"-format"_s, u"%Q"_s, w.t.path(u"saved.jpg"_s)}), u"80"_s);
    EXPECT_EQ(w.t.prompts.fileQuestions.back().proposedName, u"Clipboard.jpg"_s);
    EXPECT_FALSE(FileExists(w.root + clipboardJpgName));

    // The dialog asked about the name that was typed, not about the one with the ending.
    const QString kept = w.t.file(u"kept.JPG"_s, "mine");
    const QString there = w.t.file(u"there.jpg"_s, "mine");
    w.t.prompts.expectSave(w.t.path(u"there"_s));
    w.t.prompts.expectMessage(u"already exists"_s, Answer::No);
    mnuT_NConvert_Clipboard(w.shell, w.clipboard);
    EXPECT_EQ(bytesOf(there), "mine");
    w.clipboard.held = QImage();
    w.t.prompts.expectSave(kept);
    w.t.prompts.expectMessage(u"Perhaps the Clipboard is empty or contains no image data."_s);
    mnuT_NConvert_Clipboard(w.shell, w.clipboard);
    EXPECT_EQ(bytesOf(kept), "mine");
    w.clipboard.held = QImage(20000, 6000, QImage::Format_Mono);
    w.t.prompts.expectMessage(u"too large: 20000x6000"_s);
    EXPECT_FALSE(PictureFromClipboard(w.shell, w.clipboard));
}

TEST(ImageTool, ResizesOntoTheClipboard)
{
    ImageTool w;
    const QString source = w.jpeg(u"source.jpg"_s);
    const auto cancelled = [&](std::initializer_list<std::optional<QString>> answers) {
        w.t.prompts.expectOpen(source);
        for (const auto& answer : answers)
            w.t.prompts.expectInput(answer);
        w.t.prompts.expectMessage(u"Canceled by user"_s);
        mnuT_NConvert_Resize(w.shell, w.clipboard);
    };
    cancelled({std::nullopt});
    cancelled({u"0"_s});
    cancelled({u"80"_s, std::nullopt});
    cancelled({u"80"_s, u"-1"_s});
    EXPECT_TRUE(w.recorder.lines.isEmpty());
    EXPECT_EQ(w.t.prompts.lastInitialInput, u"600"_s);

    w.t.prompts.expectOpen(source);
    w.t.prompts.expectInput(u"80 px"_s);
    w.t.prompts.expectInput(u"0"_s);
    w.t.prompts.expectMessage(u"1. Save the clipboard as jpg-file\n"
                              "   Tools/NConvert/Save Clipboard as jpg..."_s);
    mnuT_NConvert_Resize(w.shell, w.clipboard);
    EXPECT_EQ(w.clipboard.held.size(), QSize(80, 50));
    EXPECT_EQ(quadrantsOf(w.root + clipboardJpgName), u"rgby"_s);
    EXPECT_FALSE(FileExists(w.root + u"tmp.jpg"_s));
}
