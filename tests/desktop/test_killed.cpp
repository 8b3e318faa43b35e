// SPDX-License-Identifier: MIT
// A process that is killed in the middle of its work: what is restored is at most two seconds old,
// and the file that it saves to is whole.
#include "document/session.h"
#include "editor/commands/handlers.h"
#include "support/bin_folder.h"
#include "support/long_run.h"
#include "support/unsaved.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTest>

#include <chrono>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 allowedLoss = 2000;                        // ms
constexpr const char* workVariable = "FENNEL_KILLED_WORK";  // the file that the child works on
constexpr const char* saveVariable = "FENNEL_KILLED_SAVES"; // set: it does nothing but save

// The same clock in every process.
qint64 now()
{
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}

QByteArray noteOf(Story& story)
{
    const SavableState state = savableState(story);
    return checksumOf(state.values + state.members);
}

// Writes down every state of the work, and when it began.
class Diary {
public:
    Diary(Story& story, const QString& path) : m_story(story), m_file(path)
    {
        EXPECT_TRUE(m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const Document& document = story.bench.document;
        QObject::connect(&document, &Document::changed, &story.window, [this] { note(); });
        QObject::connect(&document, &Document::historyChanged, &story.window, [this] { note(); });
        note();
    }
    void note()
    {
        m_file.write(QByteArray::number(now()) +
                     (m_story.bench.document.isModified() ? " unsaved " : " saved ") +
                     noteOf(m_story) + '\n');
    }

private:
    Story& m_story;
    QFile m_file;
};

void act(Story& story, Dice& dice)
{
    Document& document = story.bench.document;
    const int what = dice.between(0, 99);
    if (what < 35)
        (void)changeValue(story, dice.between(0, 500));
    else if (what < 60)
        story.drag(story.middleOf(dice.between(0, 3)),
                   {dice.between(0, 600), dice.between(0, 500)});
    else if (what < 72)
        (void)document.undo();
    else if (what < 80)
        (void)document.redo();
    else if (what < 92)
        (void)changeMember(story, dice.between(0, 1000));
    else if (what < 95)
        story.choose("mnuFile_Save");
}

struct Entry {
    qint64 since;
    bool saved;
    QByteArray note;
};

std::vector<Entry> diaryAt(const QString& path)
{
    std::vector<Entry> entries;
    for (const QByteArray& line : bytesOf(path).split('\n')) {
        const QByteArrayList words = line.split(' ');
        if (words.size() == 3 && words[2].size() == 64)
            entries.push_back({words[0].toLongLong(), words[1] == "saved", words[2]});
    }
    return entries;
}

// How long the work went on behind the restored state, in ms; -1: there never was such a state.
qint64 lossOf(const std::vector<Entry>& diary, const std::optional<QByteArray>& restored,
              qint64 killed)
{
    for (std::size_t i = diary.size(); i-- > 0;) {
        const bool same = restored ? diary[i].note == *restored : diary[i].saved;
        if (same)
            return i + 1 == diary.size() ? 0 : std::max<qint64>(0, killed - diary[i + 1].since);
    }
    return -1;
}

class KilledWork : public testing::Test {
protected:
    // Lets a child work for that long and kills it; what it lost.
    void killOnce(bool second, unsigned seed, int afterMs)
    {
        Story story;
        story.user().answerRest = [](const QString&, MessageType) { return Answer::Yes; };
        const QString source =
            second
                ? messageWith(story.shell, "menu_start_x=100\r\nmenu_start_y=60\r\n")
                : story.shell.file(u"boot.gz"_s, bytesOf(story.run().AppPath + u"/data/GFX.GZ"_s));
        const qint64 killed = runChild(story, source, seed, afterMs);
        EXPECT_TRUE(membersOf(source).contains(u"back.jpg"_s));
        std::optional<QByteArray> restored;
        showLeftWork(story.window);
        if (!story.bench.leftWork.empty()) {
            story.window.commands().runEntry(u"mnuFile_RestoreArr"_s, 0);
            EXPECT_EQ(story.run().GfxPath, source);
            EXPECT_TRUE(story.user().texts.isEmpty())
                << story.user().texts.join(u'\n').toStdString();
            restored = noteOf(story);
        }
        const qint64 loss = lossOf(diaryAt(source + u".diary"_s), restored, killed);
        EXPECT_GE(loss, 0) << "never was so; seed " << seed;
        EXPECT_LE(loss, allowedLoss) << "seed " << seed;
        m_worst = std::max(m_worst, loss);
    }
    // Returns when it was killed.
    static qint64 runChild(Story& story, const QString& source, unsigned seed, int afterMs)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(workVariable), source);
        environment.insert(u"FENNEL_SEED"_s, QString::number(seed));
        environment.insert(u"TMPDIR"_s, story.shell.folder(u"tmp"_s));
        QProcess child;
        child.setProcessEnvironment(environment);
        child.setStandardOutputFile(QProcess::nullDevice());
        child.start(QCoreApplication::applicationFilePath(),
                    {u"--gtest_filter=WorkUntilKilled.*"_s});
        EXPECT_TRUE(child.waitForStarted());
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(source + u".diary"_s); }, 30'000));
        QTest::qWait(afterMs);
        EXPECT_EQ(child.state(), QProcess::Running);
        child.kill();
        const qint64 killed = now();
        child.waitForFinished();
        // Its state folder becomes the one of who restores.
        const QString folder = story.shell.path(u"tmp/"_s);
        for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            (void)QFile::rename(folder + name + u"/state"_s, story.shell.path(u"state"_s));
        return killed;
    }
    qint64 m_worst = 0;
};

} // namespace

TEST_F(KilledWork, IsAtMostTwoSecondsOldWhenItIsRestored)
{
    const int kills = rounds(3, 50);
    Dice dice(seed());
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        const Watchdog watchdog(90);
        killOnce(i % 3 == 2, seed() + static_cast<unsigned>(i), dice.between(300, 5000));
    }
    std::printf("%d kills; at most %lld ms of work were lost\n", kills,
                static_cast<long long>(m_worst));
}

TEST_F(KilledWork, WhileItSavesLeavesAWholeFileAndNothingStaleBehindTheNextSave)
{
    const int kills = rounds(5, 500);
    int stale = 0;
    Dice dice(seed());
    qputenv(saveVariable, "1");
    Story story;
    story.shell.folder(u"saved"_s);
    const QString source =
        story.shell.file(u"saved/boot"_s, bytesOf(story.run().AppPath + u"/data/GFX.GZ"_s));
    const auto members = membersOf(source).size();
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        const Watchdog watchdog(90);
        (void)QFile::remove(source + u".diary"_s);
        runChild(story, source, seed() + static_cast<unsigned>(i), dice.between(0, 300));
        EXPECT_EQ(membersOf(source).size(), members);
        const auto files = [&] {
            return QDir(story.shell.path(u"saved"_s))
                .entryList(QDir::Files | QDir::Hidden | QDir::System)
                .size();
        };
        stale += files() > 2 ? 1 : 0; // the message and the diary
        KeptPrompts prompts;
        Session session(prompts, binFolder());
        EXPECT_TRUE(session.open(source) && session.save())
            << prompts.told().join(u' ').toStdString();
        EXPECT_EQ(files(), 2) << "seed " << seed();
    }
    qunsetenv(saveVariable);
    std::printf("%d kills; %d of them left a file that the next save removed\n", kills, stale);
}

// The child of the tests above.
TEST(WorkUntilKilled, Child)
{
    const QString source = qEnvironmentVariable(workVariable);
    if (source.isEmpty())
        GTEST_SKIP() << "the tests above start it";
    Dice dice(seed());
    Story story;
    story.user().answerRest = [](const QString&, MessageType) { return Answer::Yes; };
    story.open(source);
    Diary diary(story, source + u".diary"_s);
    for (;;) {
        if (qEnvironmentVariableIsSet(saveVariable)) {
            (void)changeValue(story, dice.between(0, 500));
            story.choose("mnuFile_Save");
            continue;
        }
        act(story, dice);
        diary.note();
        QTest::qWait(static_cast<int>(dice.below(80)));
    }
}
