// SPDX-License-Identifier: MIT
// `fennel` as scripts run it. GNU cpio, gzip, identify and the editor's own save are the judges.
#include "container/raw_cpio.h"
#include "document/open_fixture.h"
#include "document/session.h"
#include "editor/stage/stage_link.h"
#include "fonts/installed_fonts.h"
#include "support/bin_folder.h"
#include "support/run_program.h"
#include "support/story.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace {

class FennelCommand : public testing::Test {
protected:
    FennelCommand() { EXPECT_EQ(fennel({u"new"_s, path(u"new"_s)}).code, 0); }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    Ran fennel(const QStringList& words, const QByteArray& input = {})
    {
        return runProgram(binFolder() + u"/fennel"_s, words, m_folder.path(), input);
    }
    // What it says where everything goes well.
    QByteArray said(const QStringList& words)
    {
        const Ran ran = fennel(words);
        EXPECT_EQ(ran.code, 0) << words.join(u' ').toStdString() << ": " << ran.err.toStdString();
        EXPECT_EQ(ran.err, "");
        return ran.out;
    }
    // Nothing but one sentence on standard error, and every file as it was.
    void expectRefused(const QStringList& words, int code, const QByteArray& part = {})
    {
        const auto before = contentsOf(m_folder.path());
        const Ran ran = fennel(words);
        EXPECT_EQ(ran.code, code) << words.join(u' ').toStdString();
        EXPECT_TRUE(ran.err.startsWith("fennel: ") && ran.err.count('\n') == 1)
            << ran.err.toStdString();
        EXPECT_TRUE(ran.err.contains(part)) << ran.err.toStdString();
        EXPECT_EQ(contentsOf(m_folder.path()), before) << words.join(u' ').toStdString();
    }
    QString file(const QString& name, const QByteArray& bytes)
    {
        EXPECT_TRUE(DiskFiles().write(path(name), bytes).ok());
        return path(name);
    }
    // The member as GNU cpio takes it out.
    QByteArray memberOf(const QByteArray& archive, const QString& name)
    {
        return runProgram(u"cpio"_s, {u"-i"_s, u"--quiet"_s, u"--to-stdout"_s, name}, {}, archive)
            .out;
    }

private:
    QTemporaryDir m_folder;
};

// Where two equally long texts differ: the number of bytes.
qsizetype differing(const QByteArray& a, const QByteArray& b)
{
    EXPECT_EQ(a.size(), b.size());
    qsizetype count = 0;
    for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i)
        count += a[i] != b[i] ? 1 : 0;
    return count;
}

} // namespace

TEST_F(FennelCommand, ExtractedAndPackedMessagesComeBackByteForByte)
{
    int number = 0;
    for (const QString& message : debianMessages() + QStringList(path(u"new"_s))) {
        const QString folder = path(u"folder%1"_s.arg(++number));
        said({u"extract"_s, message, folder});
        EXPECT_EQ(fennel({u"pack"_s, folder, u"-"_s}).out, bytesOf(message));
        const QByteArray wrapped = fennel({u"pack"_s, folder, u"-"_s, u"--gzip"_s}).out;
        EXPECT_EQ(runProgram(u"gzip"_s, {u"-dc"_s}, {}, wrapped).out, bytesOf(message));
        expectRefused({u"extract"_s, message, folder}, 2);
        // The list of members names what GNU cpio lists.
        const QByteArray listed =
            runProgram(u"cpio"_s, {u"-it"_s, u"--quiet"_s}, {}, bytesOf(message)).out;
        QByteArray names;
        for (const QByteArray& line : said({u"list"_s, message}).split('\n'))
            names += line.isEmpty() ? "" : line.mid(line.lastIndexOf(' ') + 1) + '\n';
        EXPECT_EQ(names, listed);
    }
    EXPECT_GT(number, 1);
}

TEST_F(FennelCommand, SetChangesOneLineOrOneRecordAndWhatGetPrintsCanBeSet)
{
    const QByteArray before = bytesOf(path(u"new"_s));
    said({u"set"_s, path(u"new"_s), u"s.clock.x=77"_s, u"--output"_s, path(u"set"_s)});
    EXPECT_EQ(bytesOf(path(u"new"_s)), before);
    EXPECT_EQ(differing(memberOf(bytesOf(path(u"set"_s)), u"ZUK0000.CFG"_s),
                        memberOf(before, u"ZUK0000.CFG"_s)),
              2); // 315 has two bytes
    EXPECT_EQ(said({u"get"_s, path(u"set"_s), u"s.clock.x"_s, u"0:2"_s}), "s.clock.x=77\n0:2=77\n");

    const QString old =
        file(u"old"_s, QByteArray::fromStdString(
                           smallMessage()
                               .add({.name = "gfxboot.cfg",
                                     .data = "; x\r\nmenu_start_x=10 # left\r\n#welcome=1\r\n"})
                               .close()));
    said({u"set"_s, old, u"menu_start_x=-25"_s, u"welcome=0"_s, u"penguin=3"_s});
    EXPECT_EQ(memberOf(bytesOf(old), u"gfxboot.cfg"_s),
              "; x\r\nmenu_start_x=-25 # left\r\nwelcome=0\r\npenguin=3\r\n");

    const QString real = debianMessages().first();
    const QByteArray values = said({u"get"_s, real});
    EXPECT_TRUE(values.contains("mainmenu.pos=-1,170\n"));
    QStringList words{u"set"_s, real, u"-o"_s, path(u"same"_s)};
    for (const QByteArray& line : values.trimmed().split('\n'))
        words.append(QString::fromUtf8(line));
    said(words);
    EXPECT_EQ(bytesOf(path(u"same"_s)), bytesOf(real));
}

TEST_F(FennelCommand, TheEditorAndFennelMakeTheSameFileFromTheSameChange)
{
    for (const auto& [name, key, value] : {std::tuple{u"s.clock.x"_s, ParamKey{0, 2}, u"101"_s},
                                           {u"s.menu.text.normal"_s, {0, 48}, u"0x12AB34"_s},
                                           {u"s.glass.n"_s, {3, 19}, u"4"_s},
                                           {u"s.timer.LN.h"_s, {4, 5}, u"9"_s}}) {
        ASSERT_EQ(fennel({u"get"_s, path(u"new"_s), name}).code, 0) << name.toStdString();
        said({u"set"_s, path(u"new"_s), name + u'=' + value, u"-o"_s, path(u"ours"_s)});
        KeptPrompts prompts;
        Session session(prompts, binFolder());
        ASSERT_TRUE(session.open(path(u"new"_s)));
        Change change;
        change.params[key] = typedValue(value);
        ASSERT_TRUE(session.document().apply(change, {}));
        ASSERT_TRUE(session.saveAs(path(u"editor's"_s)));
        EXPECT_THAT(prompts.told(), IsEmpty());
        QByteArray differing = fennel({u"diff"_s, path(u"ours"_s), path(u"editor's"_s)}).out;
        EXPECT_EQ(differing.replace("the order of the members differs\n", ""), "")
            << name.toStdString();
    }
}

TEST_F(FennelCommand, PicturesAndFontsBootAndOtherMembersAreTakenAsTheyAre)
{
    ASSERT_EQ(runProgram(u"convert"_s,
                         {u"-size"_s, u"320x200"_s, u"gradient:red-blue"_s, path(u"p.png"_s)})
                  .code,
              0);
    file(u"text with blanks"_s, "text\n");
    const QString message = path(u"new"_s);
    said({u"replace"_s, message, u"back.jpg=p.png"_s, u"ZUK_Read.txt=text with blanks"_s});
    said({u"add"_s, message, u"back_02.jpg=p.png"_s, u"note"_s + u"=text with blanks"_s});
    EXPECT_EQ(memberOf(bytesOf(message), u"note"_s), "text\n");
    EXPECT_EQ(memberOf(bytesOf(message), u"ZUK_Read.txt"_s), "text\n");
    for (const QString& name : {u"back.jpg"_s, u"back_02.jpg"_s}) {
        const QByteArray picture = memberOf(bytesOf(message), name);
        EXPECT_EQ(runProgram(u"identify"_s,
                             {u"-format"_s, u"%w %h %[jpeg:sampling-factor]"_s, u"-"_s}, {},
                             picture)
                      .out,
                  "800 600 2x2,1x1,1x1");
    }
    const QByteArray list = said({u"list"_s, message});
    EXPECT_TRUE(list.endsWith(" picture back_02.jpg\n        5 other   note\n"));
    said({u"font"_s, message, u"--face"_s, u"DejaVu Sans Bold"_s, u"--size"_s, u"20"_s});
    EXPECT_TRUE(said({u"info"_s, message}).contains("16x16.fnt, 161 characters"));
    said({u"remove"_s, message, u"note"_s});
    EXPECT_EQ(fennel({u"check"_s, message}).code, 0);
}

TEST_F(FennelCommand, ProblemsAreFoundWhereTheyAreAndNowhereElse)
{
    const auto namesIn = [this](const QString& message, const QStringList& more = {}) {
        const Ran ran = fennel(QStringList{u"check"_s, u"--json"_s, message} + more);
        QStringList names;
        bool bad = false;
        for (const QJsonValue& value :
             QJsonDocument::fromJson(ran.out).object()[u"problems"].toArray()) {
            names.append(value[u"name"].toString());
            bad = bad || value[u"severity"].toString() != u"note";
        }
        EXPECT_EQ(ran.code, bad ? 1 : 0);
        return names;
    };
    EXPECT_THAT(namesIn(path(u"new"_s)), IsEmpty());
    // Each with the problem, and as near to it as can be without.
    struct Case {
        QString name;
        QString with;
        QString without;
    };
    const Case cases[] = {
        {u"object-hidden"_s, u"s.date.x=200 s.date.y=540"_s, u"s.date.x=200 s.date.y=541"_s},
        {u"object-outside"_s, u"s.clock.x=800"_s, u"s.clock.x=728"_s},
        {u"object-cut"_s, u"s.clock.x=729"_s, u"s.clock.x=728"_s},
        {u"same-place"_s, u"s.date.x=315"_s, u"s.date.x=316"_s},
        {u"entries-fit"_s, u"s.menu.max.entries=40"_s, u"s.menu.max.entries=21"_s},
        {u"component-missing"_s, u"s.glass.jpg.num=3"_s, u"s.glass.jpg.num=2"_s},
        {u"contrast"_s, u"s.clock.color=0x202830"_s, u"s.clock.color=0x909090"_s},
        {u"level-value"_s, u"s.f1.back.transp=256"_s, u"s.f1.back.transp=255"_s},
    };
    for (const auto& c : cases) {
        const QString changed = path(u"changed"_s);
        const auto set = [&](const QString& values) {
            said(QStringList{u"set"_s, path(u"new"_s), u"-o"_s, changed} + values.split(u' '));
            return namesIn(changed);
        };
        EXPECT_EQ(set(c.with), QStringList(c.name)) << c.with.toStdString();
        EXPECT_THAT(set(c.without), IsEmpty()) << c.without.toStdString();
    }
    const QByteArray ours = bytesOf(path(u"new"_s));
    const QByteArray font = memberOf(ours, u"16x16.fnt"_s);
    const auto fontOf = [&](const QByteArray& face, const QByteArray& size) {
        return QByteArray(font).replace("DejaVu Sans\t", face + '\t').replace("14 px", size);
    };
    const auto picture = [&](int width, int height) {
        return QByteArray::fromStdString(jpegBytes(width, height));
    };
    const QByteArray help = memberOf(ours, u"ZUK_Read.txt"_s);
    const QByteArray levels = memberOf(ours, u"ZUK0004.CFG"_s);
    const struct {
        QString name;
        QString member;
        QByteArray with;
        QByteArray without;
    } members[] = {
        {u"font-tag"_s, u"16x16.fnt"_s, fontOf("DejaVu Sans Mono", "14 px"),
         fontOf("No Such Face", "14 px")},
        {u"font-tag"_s, u"16x16.fnt"_s, fontOf("DejaVu Sans", "16 px"),
         fontOf("DejaVu Sans", "15 px")},
        {u"text-cut"_s, u"ZUK_Read.txt"_s, help + QByteArray("\n").repeated(13) + ".",
         help + QByteArray("\n").repeated(12) + "."},
        {u"level-record"_s, u"ZUK0004.CFG"_s, levels + levels.first(4).repeated(3), levels},
        {u"memory"_s, u"note"_s, QByteArray(2'600'000, 'x'), QByteArray(2'590'000, 'x')},
    };
    for (const auto& c : members) {
        const auto put = [&](const QByteArray& bytes) {
            const bool there = ours.contains(c.member.toLatin1() + '\0');
            said({there ? u"replace"_s : u"add"_s, path(u"new"_s), u"-o"_s, path(u"changed"_s),
                  c.member + u'=' + file(u"member"_s, bytes)});
            return namesIn(path(u"changed"_s));
        };
        EXPECT_EQ(put(c.with), QStringList(c.name));
        EXPECT_THAT(put(c.without), IsEmpty()) << c.name.toStdString();
    }
    const auto menuNames = [&](const QByteArray& menu) {
        return namesIn(path(u"new"_s), {u"--menu"_s, file(u"menu.lst"_s, menu)});
    };
    const QByteArray technical = QByteArray("title [x]\n").repeated(15);
    EXPECT_THAT(menuNames("title One\ntitle \u0416\n"), IsEmpty());
    EXPECT_THAT(menuNames("title A\ntitle [zuk0000] :2=5\n" + technical), IsEmpty());
    EXPECT_EQ(menuNames("title A\ntitle [zuk0000] :2=5\n"), QStringList(u"menu-technical"_s));
    EXPECT_EQ(menuNames("title A\n" + technical + "title B\n"), QStringList(u"menu-technical"_s));
    EXPECT_EQ(menuNames("title [zuk0000] :102=5\n" + technical), QStringList(u"menu-data"_s));
    EXPECT_EQ(menuNames("title A\\n" + QByteArray("long ").repeated(20) + '\n'),
              QStringList(u"text-cut"_s));
    // Debian's own: what is found is true, and none of it keeps the screen from being as meant.
    for (const QString& message : debianMessages()) {
        const QByteArray engine = memberOf(bytesOf(message), u"init"_s);
        const Ran ran = fennel({u"check"_s, message});
        EXPECT_EQ(ran.code, 0);
        EXPECT_EQ(ran.out.count("[cfg-unknown]"), 2);
        EXPECT_EQ(ran.out.count('\n'), 2);
        EXPECT_FALSE(engine.contains("theme") || engine.contains("panel.fg"));
    }
    // The loader takes the first program for the engine, and the picture is never scaled.
    const QByteArray init = memberOf(ours, u"init"_s);
    std::string engine = init.toStdString();
    const auto flat = [&](const std::string& first, const std::string& last, int width,
                          const std::string& cfg = "#menu_start_x=7\r\n#menu_start_y=170") {
        RawCpio archive;
        for (const std::string& name : {first, last})
            archive.add({.name = name, .data = engine});
        archive.add({.name = "16x16.fnt", .data = font.toStdString()});
        archive.add({.name = "back.jpg", .data = picture(width, 600).toStdString()});
        archive.add({.name = "gfxboot.cfg", .data = cfg});
        return namesIn(file(u"flat"_s, QByteArray::fromStdString(archive.close())));
    };
    EXPECT_EQ(flat("a", "init", 800), QStringList({u"engine-order"_s, u"cfg-off"_s}));
    EXPECT_EQ(flat("init", "z", 802), QStringList({u"screen-size"_s, u"cfg-off"_s}));
    EXPECT_EQ(flat("init", "z", 800), QStringList(u"cfg-off"_s));
    engine = QByteArray(init)
                 .replace("FENNEL-GFX engine", "menu_start_x menu_start_y menu_max_entries")
                 .toStdString();
    const std::string low = "menu_start_y=470\nmenu_max_entries=";
    EXPECT_EQ(flat("init", "z", 800, low + "5"), QStringList(u"entries-fit"_s));
    EXPECT_THAT(flat("init", "z", 800, low + "4"), IsEmpty());
    const QString broken = file(
        u"broken"_s, QByteArray::fromStdString(
                         RawCpio()
                             .add({.name = "back.jpg", .data = "no picture"})
                             .add({.name = "gfxboot.cfg", .data = "welcome=2\nwelcome=1\nmenu=3\n"})
                             .add({.name = "16x16.fnt", .data = std::string(600000, 'x')})
                             .close()));
    EXPECT_EQ(namesIn(broken), QStringList({u"required-missing"_s, u"picture-black"_s,
                                            u"font-large"_s, u"cfg-value"_s, u"cfg-doubled"_s}));
}

TEST_F(FennelCommand, WrongUseAndBadFilesWriteNothing)
{
    const QString message = path(u"new"_s);
    const QString second = file(u"second"_s, bytesOf(message));
    expectRefused({u"sett"_s}, 2, "near are set");
    expectRefused({u"set"_s, message, second, u"s.clocks.x=1"_s}, 2, "s.clock.x");
    expectRefused({u"set"_s, message, u"s.clock.x=1"_s, u"s.clock.y=blue"_s}, 2, "blue");
    expectRefused({u"set"_s, message, u"s.clock.x=16777216"_s}, 2);
    expectRefused({u"get"_s, message, u"menu_start"_s}, 2);
    expectRefused({u"replace"_s, message, u"bakc.jpg=x"_s}, 2, "back.jpg");
    expectRefused({u"replace"_s, message, u"back.jpg="_s + second}, 3);
    expectRefused({u"replace"_s, message, u"back.jpg=absent"_s}, 4);
    expectRefused({u"add"_s, message, u"../x="_s + second}, 3);
    expectRefused({u"remove"_s, message, u"init"_s}, 2, "required");
    expectRefused({u"font"_s, message, u"--face"_s, u"No Such Face"_s}, 2);
    expectRefused({u"set"_s, message, u"s.clock.x=1"_s, u"-o"_s, path({})}, 4);
    expectRefused({u"set"_s, message, u"s.clock.x=1"_s, u"-o"_s, u"/dev/full"_s}, 4);
    const QByteArray good = bytesOf(debianMessages().first());
    file(u"cut"_s, good.left(good.size() / 2));
    file(u"-dash \n"_s, "text");
    file(u"empty"_s, {});
    file(u"no background"_s,
         QByteArray::fromStdString(RawCpio().add({.name = "init", .data = "x"}).close()));
    file(u"outside"_s,
         QByteArray::fromStdString(smallMessage().add({.name = "../x", .data = "x"}).close()));
    for (const QString& bad :
         {u"cut"_s, u"./-dash \n"_s, u"empty"_s, u"no background"_s, u"outside"_s}) {
        for (const QString& command : {u"info"_s, u"list"_s, u"get"_s, u"check"_s})
            expectRefused({command, bad}, 3);
        expectRefused({u"set"_s, bad, u"s.clock.x=1"_s}, 3);
        expectRefused({u"replace"_s, bad, u"init="_s + second}, 3);
        expectRefused({u"extract"_s, bad, u"out"_s}, 3);
        expectRefused({u"diff"_s, bad, message}, 3);
    }
}

TEST_F(FennelCommand, StandardInputAndOutputStandInForFiles)
{
    const QByteArray message = bytesOf(path(u"new"_s));
    const Ran set = fennel({u"set"_s, u"-"_s, u"s.clock.x=5"_s}, message);
    EXPECT_EQ(fennel({u"get"_s, u"-"_s, u"s.clock.x"_s}, set.out).out, "s.clock.x=5\n");
    EXPECT_EQ(fennel({u"check"_s, u"-"_s}, message).code, 0);
    file(u"set"_s, set.out);
    const Ran diff = fennel({u"diff"_s, u"--json"_s, u"new"_s, u"set"_s});
    EXPECT_EQ(diff.code, 1);
    EXPECT_EQ(
        QJsonDocument::fromJson(diff.out).object()[u"parameters"].toArray().first().toObject(),
        (QJsonObject{{u"name"_s, u"s.clock.x"_s}, {u"a"_s, u"315"_s}, {u"b"_s, u"5"_s}}));
    // A gzipped file stays one.
    said({u"new"_s, u"--gzip"_s, path(u"gz"_s)});
    said({u"set"_s, path(u"gz"_s), u"s.clock.x=5"_s});
    EXPECT_EQ(runProgram(u"gzip"_s, {u"-t"_s}, {}, bytesOf(path(u"gz"_s))).code, 0);
}

TEST_F(FennelCommand, AScreenIsDrawnWithoutADisplay)
{
    const auto drawn = [this](const QStringList& more) {
        const Ran ran = fennel(QStringList{u"render"_s, path(u"new"_s), u"-o"_s, u"-"_s} + more);
        EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
        return QImage::fromData(ran.out, "png");
    };
    const QImage screen = drawn({});
    EXPECT_EQ(screen.size(), QSize(800, 600));
    EXPECT_EQ(drawn({}), screen);
    EXPECT_EQ(drawn({u"--scale"_s, u"25"_s}).size(), QSize(200, 150));
    const QImage second = drawn({u"--select"_s, u"2"_s});
    const QRect menu(253, 170, 300, 200);
    EXPECT_NE(second.copy(menu), screen.copy(menu));
    EXPECT_EQ(second.copy(0, 0, 250, 600), screen.copy(0, 0, 250, 600));
    const QString lst = file(u"menu.lst"_s, "title [zuk0000] :02=500\ntitle A\ntitle B\n");
    EXPECT_NE(drawn({u"--menu"_s, lst}).copy(menu), screen.copy(menu));
    expectRefused({u"render"_s, path(u"new"_s)}, 2);
    expectRefused({u"boot"_s, path(u"new"_s), u"-o"_s, u"x"_s, u"--keys"_s, u"foo"_s}, 2);
    said({u"set"_s, path(u"new"_s), u"s.clock.x=500"_s, u"-o"_s, path(u"moved"_s)});
    const Ran diff = fennel({u"diff"_s, path(u"new"_s), path(u"moved"_s), u"-o"_s, u"both.png"_s});
    EXPECT_EQ(diff.code, 1);
    EXPECT_EQ(QImage(path(u"both.png"_s)).size(), QSize(1600, 600));
}

TEST_F(FennelCommand, DrawsWhatTheStageShows)
{
    // The stage shows today's date.
    said({u"set"_s, path(u"new"_s), u"s.date.is.ON=0"_s});
    said({u"set"_s, path(u"new"_s), u"s.clock.x=500"_s, u"s.menu.text.normal=0x00FF00"_s, u"-o"_s,
          path(u"moved"_s)});
    Story w;
    w.bench.fontSettings.defaultFontName = DefaultFontName(w.shell.shell, installedFontList());
    for (const QString& message : {path(u"new"_s), path(u"moved"_s), debianMessages().first()}) {
        w.open(message);
        for (const int percent : {50, 100, 133, -50, -100, -133}) {
            if (std::abs(percent) == 100)
                w.choose("mnuView_scale1");
            else
                w.window.commands().runEntry(u"mnuView_scale"_s, std::abs(percent));
            QStringList words{u"render"_s, message,      u"-o"_s,
                              u"-"_s,      u"--scale"_s, QString::number(std::abs(percent))};
            Stage& stage = w.window.stageLink().stage();
            stage.showAsItBoots(percent > 0);
            if (percent < 0)
                words.append(u"--schematic"_s);
            QImage shown(stage.pictureSize(), QImage::Format_RGB32);
            QPainter painter(&shown);
            stage.paint(painter, shown.rect());
            EXPECT_EQ(QImage::fromData(said(words), "png").convertToFormat(QImage::Format_RGB32),
                      shown)
                << words.join(u' ').toStdString();
        }
    }
}

TEST_F(FennelCommand, AnOlderScreenIsUpgradedAndKeepsItsPictures)
{
    const QString old = debianMessages().first();
    said({u"upgrade"_s, old, u"-o"_s, path(u"upgraded"_s)});
    const QByteArray info = said({u"info"_s, path(u"upgraded"_s)});
    EXPECT_TRUE(info.startsWith("generation  3") && info.contains("engine      FENNEL-GFX"));
    EXPECT_EQ(memberOf(bytesOf(path(u"upgraded"_s)), u"back.jpg"_s),
              memberOf(bytesOf(old), u"back.jpg"_s));
    expectRefused({u"upgrade"_s, path(u"upgraded"_s)}, 2);
}

TEST_F(FennelCommand, HelpManPageAndCompletionsNameEveryCommand)
{
    const QByteArray help = said({u"help"_s});
    EXPECT_EQ(said({u"--help"_s}), help);
    const QByteArray bash = said({u"completion"_s, u"bash"_s});
    EXPECT_EQ(runProgram(u"bash"_s, {u"-n"_s}, {}, bash).code, 0);
    for (const QByteArray& line : help.split('\n')) {
        if (!line.startsWith("  "))
            continue;
        const QByteArray name = line.trimmed().split(' ').first();
        EXPECT_FALSE(said({u"help"_s, QString::fromUtf8(name)}).isEmpty());
        for (const QStringList& words : {QStringList{u"help"_s, u"--man"_s},
                                         {u"completion"_s, u"bash"_s},
                                         {u"completion"_s, u"zsh"_s},
                                         {u"completion"_s, u"fish"_s}})
            EXPECT_TRUE(said(words).contains(name)) << name.toStdString();
    }
}
