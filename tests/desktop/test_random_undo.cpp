// SPDX-License-Identifier: MIT
// Whatever a user did, undo leads back to the first byte, and redo to the last.
#include "desktop/random_user.h"

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// What counts of an open gfxboot: values, lines, and the files of the Workspace.
struct Contents {
    std::map<std::pair<int, int>, QString> values;
    CfgLines cfg;
    std::map<QString, QByteArray> files;
    bool operator==(const Contents&) const = default;
};

Contents contentsOf(Story& story)
{
    const ParamState& state = story.bench.document.state();
    Contents contents;
    contents.cfg = state.cfg;
    for (int file = 0; file < zukFileCount; ++file) {
        for (int param = 1; param <= zukParamCount; ++param) {
            if (const auto& value = state.ZUKarr.at(file, param).Value)
                contents.values[{file, param}] = value->text();
        }
    }
    // A save writes it anew, from the members that are there.
    for (const QString& name : filesLike(story.run().Workspace, u"*"_s)) {
        if (name != u"#.lst")
            contents.files[name] = bytesOf(story.run().Workspace + name);
    }
    return contents;
}

// What two of them differ in, by name.
std::string difference(const Contents& one, const Contents& other)
{
    std::string names = one.cfg == other.cfg ? "" : "gfxboot.cfg's lines ";
    for (const auto& [key, value] : one.values) {
        const auto found = other.values.find(key);
        if (found == other.values.end() || found->second != value)
            names += std::to_string(key.first) + ':' + std::to_string(key.second) + ' ';
    }
    for (const auto& [name, bytes] : one.files) {
        const auto found = other.files.find(name);
        if (found == other.files.end() || found->second != bytes)
            names += name.toStdString() + ' ';
    }
    return names;
}

// What a save right after opening would have written.
std::map<QString, QByteArray> savedAtOnce(const QString& message)
{
    Story story;
    const QString copy = story.shell.path(u"copy"_s);
    EXPECT_TRUE(story.shell.files.copy(message, copy).ok());
    story.open(copy);
    story.choose("mnuFile_Save");
    return membersOf(copy);
}

} // namespace

TEST(RandomUser, UndoesEverythingToTheFirstByteAndBack)
{
    const unsigned first = seed();
    for (const int which : {0, 3}) { // of generation 3 and 2
        RandomUser user(first);
        Story& story = user.story;
        Document& document = story.bench.document;
        const QString message = user.messages()[which];
        const auto opened = savedAtOnce(message);
        story.open(message);
        const int count = rounds(120, 5000);
        for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
            const Watchdog dog(hangTime);
            SCOPED_TRACE("seed " + std::to_string(first) + ", action " + std::to_string(i));
            user.actInside();
        }
        story.press(Qt::Key_Escape);
        while (document.redo()) {
        }
        story.choose("mnuFile_Save");
        const QString path = story.run().GfxPath;
        const Contents top = contentsOf(story);
        int steps = 0;
        while (document.undo())
            ++steps;
        while (document.redo())
            --steps;
        EXPECT_EQ(steps, 0)
            << document.canUndo() << ' '
            << story.user().texts.value(story.user().texts.size() - 1).toStdString();
        const Contents again = contentsOf(story);
        EXPECT_TRUE(again == top) << "seed " << first << ": " << difference(top, again) << "/ "
                                  << difference(again, top);
        while (document.undo())
            ++steps;
        EXPECT_GT(steps, 0);
        story.choose("mnuFile_Save");
        const auto saved = membersOf(path);
        for (const auto& [name, bytes] : opened)
            EXPECT_TRUE(saved.contains(name) && saved.at(name) == bytes)
                << name.toStdString() << ", seed " << first << ", " << steps << " steps";
        EXPECT_EQ(saved.size(), opened.size());
        story.close();
    }
}
