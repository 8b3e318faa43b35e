// SPDX-License-Identifier: MIT
// The background's way to Picture1: copy at 100 %, the resize tool at any other scale, files that
// are no good, and the commands that change the scale.
#include "editor/stage/scale_commands.h"
#include "stage_fixture.h"

#include <QBuffer>

using namespace fennel;
using namespace fennel::test;

namespace {

QByteArray encoded(QSize size, const char* format, Qt::GlobalColor colour = Qt::darkCyan)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

// A PNG that claims 20000 x 20000: the header alone, with a right checksum.
QByteArray hugePng()
{
    return QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200004e2000004e200802000000"
                               "6c12d16e");
}

class BackgroundTest : public StageTest {
protected:
    BackgroundTest()
    {
        openOld();
        resize = [this](int width, int height, const QString&, const QString& target) {
            EXPECT_TRUE(shell.files.write(target, encoded({width, height}, "JPG")).ok());
        };
    }
    void useBack(const QString& name, const QByteArray& bytes)
    {
        run().BackFile = shell.member(name, bytes);
    }
    QString scaled() { return run().WorkspaceRoot + u"~bck_scale~.jpg"_s; }
};

} // namespace

TEST_F(BackgroundTest, FullScaleCopiesByteForByteWithoutATool)
{
    const QByteArray bytes = encoded({640, 480}, "JPG");
    useBack(u"back #1 & $x 'q' фон.jpg"_s, bytes);
    stage.ShowBackground();
    EXPECT_EQ(bytesOf(scaled()), bytes);
    EXPECT_TRUE(resizes.isEmpty());
    EXPECT_EQ(stage.pictureSize(), QSize(640, 480));
    EXPECT_EQ(host.status[4], u"800x600, Scale=100%"_s);
    EXPECT_EQ(host.calls, (QStringList{u"prepare"_s, u"layout"_s}));
}

TEST_F(BackgroundTest, BackgroundNumberGoesToTheLevelData)
{
    openZuk();
    const auto shown = [this] {
        stage.ShowBackground();
        EXPECT_FALSE(document.canUndo()) << "what is shown is no step";
        return document.state().ZUKarr.GetLevelValue(0, backgroundParam, LayerEdit);
    };
    const qint64 inUse = document.state().ZUKarr.at(0, backgroundParam).Value->number;
    useBack(u"back_07.jpg"_s, encoded({800, 600}, "JPG"));
    EXPECT_EQ(shown(), 7);
    document.showMenuLevel(true);
    useBack(u"back.jpg"_s, encoded({800, 600}, "JPG"));
    EXPECT_EQ(shown(), 7) << "the choice is the menu's";
    document.showMenuLevel(false);
    EXPECT_EQ(shown(), 0);
    EXPECT_EQ(document.state().ZUKarr.at(0, backgroundParam).Value->number, inUse);
}

TEST_F(BackgroundTest, MissingFileOrFailedToolKeepsThePicture)
{
    run().BackFile = run().Workspace + u"gone.jpg"_s;
    stage.ShowBackground();
    EXPECT_EQ(stage.pictureSize(), QSize(800, 600));
    EXPECT_EQ(host.status.count(4), 0U);
    EXPECT_TRUE(host.calls.contains(u"layout"_s));
    useBack(u"back.jpg"_s, encoded({800, 600}, "JPG"));
    run().PreviewScale = 0.5;
    resize = nullptr; // leaves no file
    stage.ShowBackground();
    EXPECT_EQ(stage.pictureSize(), QSize(800, 600));
    EXPECT_TRUE(shell.prompts.texts.isEmpty()) << "the tool runner tells";
}

TEST_F(BackgroundTest, BadPicturesAreToldOnceAndKeepThePicture)
{
    const struct {
        const char* what;
        QByteArray bytes;
    } bad[] = {
        {"empty", {}},
        {"noise", QByteArray(3000, 'x')},
        {"huge", hugePng()},
        {"cut in the header", encoded({800, 600}, "JPG").left(100)},
    };
    for (const auto& file : bad) {
        useBack(u"back.jpg"_s, file.bytes);
        shell.prompts.expectMessage(u"back.jpg"_s);
        stage.ShowBackground();
        stage.ShowBackground();
        EXPECT_EQ(stage.pictureSize(), QSize(800, 600)) << file.what;
        // A good file in between: the next bad one is another cause to speak.
        useBack(u"good.jpg"_s, encoded({800, 600}, "JPG"));
        stage.ShowBackground();
    }
    EXPECT_EQ(shell.prompts.texts.size(), 4);
}

TEST_F(BackgroundTest, StrangeButGoodPictures)
{
    useBack(u"back.jpg"_s, encoded({1, 1}, "JPG"));
    stage.ShowBackground();
    EXPECT_EQ(stage.pictureSize(), QSize(1, 1));
    painted();
    useBack(u"back.jpg"_s, encoded({300, 200}, "PNG")); // a wrong ending
    stage.ShowBackground();
    EXPECT_EQ(stage.pictureSize(), QSize(300, 200));
    QImage clear(50, 40, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    clear.save(&buffer, "PNG");
    useBack(u"back.jpg"_s, bytes);
    stage.ShowBackground();
    EXPECT_EQ(stage.background().pixel(5, 5), qRgb(0, 0, 0)) << "transparent parts on black";
    const QByteArray whole = encoded({800, 600}, "JPG");
    useBack(u"back.jpg"_s, whole.left(whole.size() / 2)); // what is there is shown
    stage.ShowBackground();
    EXPECT_EQ(stage.pictureSize(), QSize(800, 600));
}

TEST_F(BackgroundTest, ScalesBeyondTheLimitRunNoTool)
{
    useBack(u"back.jpg"_s, encoded({800, 600}, "JPG"));
    run().BackWidth = 9000;
    run().PreviewScale = 2;
    shell.prompts.expectMessage(u"18000x1200"_s);
    stage.ShowBackground();
    EXPECT_TRUE(resizes.isEmpty());
}

TEST_F(BackgroundTest, CustomScale)
{
    useBack(u"back.jpg"_s, encoded({800, 600}, "JPG"));
    shell.prompts.expectInput(u"37.5"_s);
    mnuView_custom(stage, {1920, 1080});
    EXPECT_EQ(run().PreviewScale, 0.375);
    EXPECT_EQ(stage.pictureSize(), QSize(300, 225));
    EXPECT_EQ(shell.prompts.lastInitialInput, u"100"_s);
    shell.prompts.expectInput(u"20"_s);
    shell.prompts.expectMessage(u"The scale is too small"_s);
    mnuView_custom(stage, {1920, 1080});
    for (const auto& silent : {std::optional<QString>(u"0"_s), std::optional<QString>(u"201"_s),
                               std::optional<QString>(u"abc"_s), std::optional<QString>()}) {
        shell.prompts.expectInput(silent);
        mnuView_custom(stage, {1920, 1080});
    }
    EXPECT_EQ(run().PreviewScale, 0.375);
}
