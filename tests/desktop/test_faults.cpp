// SPDX-License-Identifier: MIT
// Every change of a file and every start of a tool that a command makes, failing one after the
// other: what is on disk stays whole, the user is told, the window works on.
#include "desktop/agreement.h"
#include "editor/fonts/font_window.h"
#include "editor/lists/right_panel.h"
#include "editor/window/menus.h"
#include "params/object_table.h"
#include "support/long_run.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

const QString debian = u"/etc/bootsplash/themes/openSUSE/bootloader/message"_s;

// A gfxboot that is open and saved, and what the commands need.
class Setting {
public:
    // Generation 3 unless the members are changed; `name` says by its ending whether it is packed.
    explicit Setting(int generation = 3)
    {
        story.user().answerRest = [](const QString&, MessageType type) {
            return type == MessageType::YesNo || type == MessageType::YesNoCancel ? Answer::Yes
                                                                                  : Answer::Ok;
        };
        EXPECT_TRUE(files().makeFolder(out()).ok());
        story.shell.picture(u"picture.png"_s, {300, 200}, qRgb(0, 99, 0));
        EXPECT_TRUE(files().makeFolder(apart()).ok());
        story.shell.file(u"apart/init"_s, "old engine");
        story.shell.file(u"apart/note.gz"_s, runProgram(u"gzip"_s, {u"-cn"_s}, {}, "a note").out);
        story.makeNew();
        if (generation == 2)
            openSecond();
        else
            story.saveAs(out() + u"boot"_s, true);
        EXPECT_TRUE(story.run().GfxOpened);
        story.user().forget();
    }
    [[nodiscard]] QString out() { return story.shell.path(u"out/"_s); }
    // The parts of a message, outside of the Workspace.
    [[nodiscard]] QString apart() { return story.shell.path(u"apart/"_s); }
    [[nodiscard]] QString picture() { return story.shell.path(u"picture.png"_s); }
    FaultyFiles& files() { return story.shell.files; }
    FaultyTools& tools() { return story.shell.tools; }
    // The members in the Workspace and in every message file, by name; working files are no
    // members.
    std::map<QString, QByteArray> onDisk()
    {
        std::map<QString, QByteArray> found;
        for (const QString& name : filesLike(story.run().Workspace, u"*"_s)) {
            if (!name.startsWith(u'#') || name == u"#.lst"_s)
                found[name] = bytesOf(story.run().Workspace + name);
        }
        for (const QString& file : filesLike(out(), u"*"_s)) {
            for (const auto& [name, bytes] : membersOf(out() + file))
                found[file + u'/' + name] = bytes;
        }
        for (const QString& file : filesLike(apart(), u"*"_s)) {
            const QByteArray bytes = bytesOf(apart() + file);
            found[u"apart/"_s + file] =
                file.endsWith(u".gz") ? runProgram(u"gzip"_s, {u"-dc"_s}, {}, bytes).out : bytes;
        }
        return found;
    }

    Story story;

private:
    void openSecond()
    {
        const QString made = messageWith(story.shell, "menu_start_x=100\r\n");
        EXPECT_TRUE(files().rename(made, out() + u"boot"_s).ok());
        story.user().expectOpen(out() + u"boot"_s);
        story.choose("mnuFile_Open");
    }
};

void typeValue(Story& story)
{
    story.goToTab(u"Time"_s);
    story.type(u":02:="_s, u"77"_s);
}

void withPicture(Setting& set, const char* item)
{
    set.story.user().expectOpen(set.picture());
    set.story.choose(item);
}

void withInput(Setting& set, const char* item, const QString& text)
{
    set.story.user().expectInput(text);
    set.story.choose(item);
}

void editRow(Setting& set, const QString& tab, const QString& row)
{
    set.story.user().expectOpen(set.picture());
    set.story.editRow(tab, row);
}

// Chooses what the font dialog proposes. `command`: ComEdit or ComADD, as the buttons run them.
void font(Setting& set, const QString& command)
{
    set.story.goToTab(u"Font(s)"_s);
    set.story.goToRow(u"16x16.fnt"_s);
    QTimer::singleShot(0, &set.story.window, [] {
        auto* dialog = qobject_cast<FontWindow*>(QApplication::activeModalWidget());
        // Without a place for what undo needs nobody chooses characters for nothing.
        if (dialog == nullptr)
            return;
        QTest::mouseClick(dialog->findChild<QPushButton*>(u"butОК"_s), Qt::LeftButton);
    });
    set.story.window.commands().run(command);
}

void changeFont(Setting& set)
{
    font(set, u"ComEdit"_s);
}

struct Operation {
    const char* name;
    int generation;
    std::function<void(Setting&)> run;
    // Writes members or a list first and the message file then, which may be done one without the
    // other; all other commands are done or not done.
    bool inParts = false;
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

const Operation operations[] = {
    {"Save", 3,
     [](Setting& set) {
         typeValue(set.story);
         set.story.choose("mnuFile_Save");
     },
     true},
    {"SaveConfig", 2,
     [](Setting& set) {
         set.story.goToTab(u"Config"_s);
         set.story.type(u"menu_start_x"_s, u"77"_s);
         set.story.choose("mnuFile_Save");
     },
     true},
    {"SaveAs", 3,
     [](Setting& set) {
         typeValue(set.story);
         set.story.user().expectSave(set.out() + u"copy"_s);
         set.story.choose("mnuFile_SaveAs");
     },
     true},
    {"New", 3, [](Setting& set) { set.story.choose("mnuFile_New"); }},
    {"Open", 3,
     [](Setting& set) {
         set.story.user().expectOpen(debian);
         set.story.choose("mnuFile_Open");
     }},
    {"ChangeBackground", 3, [](Setting& set) { withPicture(set, "mnuEdit_ChangeBack"); }},
    {"ChangeBackgroundOfGeneration2", 2,
     [](Setting& set) { withPicture(set, "mnuEdit_ChangeBack"); }},
    {"AddBackground", 3, [](Setting& set) { withPicture(set, "mnuEDIT_ADDBack"); }},
    {"EditBackground", 3, [](Setting& set) { editRow(set, u"Background(s)"_s, u"back.jpg"_s); }},
    {"ResizeBackgrounds", 3, [](Setting& set) { withInput(set, "mnuEdit_Resize", u"2"_s); }},
    {"Clipboard", 3,
     [](Setting& set) {
         QGuiApplication::clipboard()->setImage(QImage(set.picture()));
         set.story.choose("mnuEdit_ge_Clipboard");
     }},
    {"AddLogo", 3, [](Setting& set) { withPicture(set, "mnuEDIT_ADDLogo"); }},
    {"EditLogo", 3, [](Setting& set) { editRow(set, u"LOGO"_s, u"Logo_00.jpg"_s); }},
    {"ResizeLogos", 3, [](Setting& set) { withInput(set, "mnuEdit_ResizeLOGO", u"50x40"_s); }},
    {"AddFont", 3, [](Setting& set) { font(set, u"ComADD"_s); }},
    {"ChangeFont", 3, changeFont},
    {"ChangeFontOfGeneration2", 2, changeFont},
    {"Extract", 3,
     [](Setting& set) {
         set.story.user().expectOpen(debian);
         set.story.user().expectFolder(set.apart());
         set.story.choose("mnuEdit_Extract");
     }},
    {"Assemble", 3,
     [](Setting& set) {
         set.story.user().expectFolder(set.apart());
         set.story.user().expectSave(set.out() + u"made"_s);
         set.story.choose("mnuEdit_Assemble");
     },
     true},
    {"Pack", 3,
     [](Setting& set) {
         set.story.user().expectOpen(set.apart() + u"init"_s);
         set.story.choose("mnuT_GZip_Pack");
     }},
    {"Unpack", 3,
     [](Setting& set) {
         set.story.user().expectOpen(set.apart() + u"note.gz"_s);
         set.story.choose("mnuT_GZip_Extract");
     }},
};

class Faults : public testing::TestWithParam<Operation> {
protected:
    using Disk = std::map<QString, QByteArray>;

    // What the command does if nothing fails.
    void SetUp() override
    {
        Setting& set = fresh();
        m_old = set.onDisk();
        set.files().calls = set.tools().calls = 0;
        GetParam().run(set);
        m_fileSteps = set.files().calls;
        m_toolSteps = set.tools().calls;
        m_usual = set.story.user().texts;
        m_new = set.onDisk();
        EXPECT_NE(m_new, m_old);
        m_set.reset();
    }
    Setting& fresh()
    {
        m_set = std::make_unique<Setting>(GetParam().generation);
        m_set->story.user().texts.clear();
        return *m_set;
    }
    // One run of the command with the fault that `inject` prepares.
    template <class Inject>
    void tryOut(const Inject& inject)
    {
        Setting& set = m_set ? *m_set : fresh();
        Story& story = set.story;
        story.user().texts.clear();
        set.files().calls = set.tools().calls = 0;
        inject(set);
        GetParam().run(set);
        set.files().failAt = set.tools().failAt = 0;
        story.user().forget();
        ++m_tried;
        const Disk now = set.onDisk();
        checkWhole(now);
        EXPECT_TRUE(GetParam().inParts || now == m_old || now == m_new) << "half of it is done";
        QStringList told = story.user().texts;
        for (const QString& text : m_usual)
            told.removeOne(text);
        EXPECT_TRUE(now == m_new || !told.isEmpty()) << "nobody was told";
        const QStringList wrong = disagreements(story);
        EXPECT_TRUE(wrong.isEmpty()) << wrong.join(u'\n').toStdString();
        if (now != m_old)
            m_set.reset(); // that is another state to start from
    }
    void checkWhole(const Disk& now)
    {
        const auto is = [](const Disk& disk, const QString& name, const QByteArray& bytes) {
            const auto found = disk.find(name);
            return found != disk.end() && found->second == bytes;
        };
        for (const auto& [name, bytes] : now)
            EXPECT_TRUE(is(m_old, name, bytes) || is(m_new, name, bytes)) << name.toStdString();
        for (const auto& [name, bytes] : m_old)
            EXPECT_TRUE(now.count(name) + (1 - m_new.count(name)) > 0)
                << name.toStdString() << " is lost";
    }

    Disk m_old;
    Disk m_new;
    QStringList m_usual;
    int m_fileSteps = 0;
    int m_toolSteps = 0;
    int m_tried = 0;
    std::unique_ptr<Setting> m_set;
};

} // namespace

TEST_P(Faults, OfDiskAndRightsLeaveEverythingWholeAndAreTold)
{
    for (const FailureKind kind : {FailureKind::NoSpace, FailureKind::NoPermission}) {
        if (kind == FailureKind::NoPermission && !longRun())
            break;
        for (int step = 1; step <= m_fileSteps; ++step) {
            SCOPED_TRACE("kind " + std::to_string(static_cast<int>(kind)) + ", change " +
                         std::to_string(step));
            tryOut([&](Setting& set) {
                set.files().kind = kind;
                set.files().failAt = step;
            });
        }
    }
    RecordProperty("faults", m_tried);
    std::cout << GetParam().name << ": " << m_tried << " faults of files\n";
}

TEST_P(Faults, OfToolsLeaveEverythingWholeAndAreTold)
{
    const std::vector<ToolFault> faults =
        longRun()
            ? std::vector{ToolFault::NotStarted, ToolFault::KilledAtOnce, ToolFault::KilledHalfWay,
                          ToolFault::FullDisk,   ToolFault::Hung,         ToolFault::Silent}
            : std::vector{ToolFault::NotStarted, ToolFault::KilledAtOnce, ToolFault::KilledHalfWay};
    for (const ToolFault fault : faults) {
        for (int step = 1; step <= m_toolSteps; ++step) {
            SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + ", tool " +
                         std::to_string(step));
            tryOut([&](Setting& set) {
                set.tools().fault = fault;
                set.tools().failAt = step;
            });
        }
    }
    RecordProperty("faults", m_tried);
    std::cout << GetParam().name << ": " << m_tried << " faults of tools\n";
}

INSTANTIATE_TEST_SUITE_P(Commands, Faults, testing::ValuesIn(operations),
                         [](const auto& one) { return std::string(one.param.name); });
