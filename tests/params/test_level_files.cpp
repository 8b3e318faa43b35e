// SPDX-License-Identifier: MIT
#include "params_fixture.h"

#include "params/level_files.h"

#include <random>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

const QByteArray quoted = QByteArray::fromHex("01000001 3B010002 5A000003 42301806");

} // namespace

class LevelFiles : public test::ParamsTest {
protected:
    int level(int file, int param) { return state.ZUKarr.at(file, param).LevelValue; }
    void read() { ReadLevelFiles(shell.shell, state.ZUKarr); }
    void saveAll(SaveForm form = SaveForm::Listed)
    {
        GatherListValues(state.ZUKarr);
        ASSERT_TRUE(WriteLevelFiles(shell.shell, state.ZUKarr, form));
    }
    QByteArray bytes(const QString& name) { return test::bytesOf(shell.run.Workspace + name); }
};

TEST_F(LevelFiles, ReadRecordsInAnyOrder)
{
    shell.member(u"ZUK0000.CFG"_s, quoted + QByteArray::fromHex("01000063"));
    shell.member(u"ZUK0002.CFG"_s, QByteArray::fromHex("05000009 06000009 FFFFFF01"));
    shell.member(u"ZUK0012.CFG"_s, QByteArray::fromHex("0100000A"));
    state.ZUKarr.at(0, 5).EditValue = 3;
    state.ZUKarr.at(0, 5).LstValue = 4;
    state.ZUKarr.at(0, 5).Value = ParamValue();
    read();
    // Of two records the last one wins; level 7 has no file.
    for (const auto& [file, param, value] : {std::tuple{0, 1, 1},
                                             {0, 2, 315},
                                             {0, 3, 90},
                                             {0, 6, 0x183042},
                                             {0, 99, 1},
                                             {2, 9, 6},
                                             {2, 1, 16777215},
                                             {12, 10, 1},
                                             {7, 1, -1}})
        EXPECT_EQ(level(file, param), value) << file << ':' << param;
    const ZukCell& cell = state.ZUKarr.at(0, 5);
    EXPECT_FALSE(cell.EditValue);
    EXPECT_EQ(cell.LstValue, 4);
    EXPECT_FALSE(cell.Value);
    EXPECT_EQ(cell.DefValue, 7);
}

TEST_F(LevelFiles, TakeBadBytes)
{
    shell.member(u"ZUK0000.CFG"_s, {});
    shell.member(u"ZUK0001.CFG"_s, "\1\2\1");
    shell.member(u"ZUK0002.CFG"_s, QByteArray::fromHex("0500000A 0600"));
    shell.member(u"ZUK0003.CFG"_s, QByteArray(80, '\0'));
    shell.member(u"ZUK0004.CFG"_s, QByteArray::fromHex("01000064 010000FF 02000001"));
    std::mt19937 random(1); // NOLINT(bugprone-random-generator-seed): the same bytes each run
    QByteArray noise(10'000'000, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    shell.member(u"ZUK0005.CFG"_s, noise);
    read();
    for (const auto& [file, param, value] :
         {std::tuple{0, 1, -1}, {1, 1, -1}, {2, 10, 5}, {2, 11, -1}, {3, 1, -1}, {4, 1, 2}})
        EXPECT_EQ(level(file, param), value) << file << ':' << param;
    EXPECT_EQ(level(5, 1), level(5, 1) & 0xFFFFFF);
}

TEST_F(LevelFiles, FallThroughTheLayers)
{
    ZukCell& cell = state.ZUKarr.at(3, 5);
    cell = {};
    const auto value = [&](Layer layer) { return state.ZUKarr.GetLevelValue(3, 5, layer); };
    cell.LevelValue = 9; // a record, but no catalogue line
    EXPECT_EQ(value(LayerCfg), -1);
    EXPECT_EQ(value(LayerLst), std::nullopt);
    cell.LevelValue = -1;
    cell.DefValue = 1;
    EXPECT_EQ(value(LayerCfg), 1);
    EXPECT_EQ(value(LayerLst), 1);
    cell.LevelValue = 2;
    EXPECT_EQ(value(LayerDefault), 1);
    EXPECT_EQ(value(LayerEdit), 2);
    cell.EditValue = 3;
    EXPECT_EQ(value(LayerCfg), 2);
    EXPECT_EQ(value(LayerEdit), 3);
    EXPECT_EQ(value(LayerLst), 3);
    cell.LstValue = 4;
    EXPECT_EQ(value(LayerEdit), 3);
    EXPECT_EQ(value(LayerLst), 4);
    for (const auto& [file, param] : {std::pair{-1, 1}, {16, 1}, {0, 0}, {0, 100}, {0, -5}})
        EXPECT_EQ(state.ZUKarr.GetLevelValue(file, param, LayerEdit), -1);

    cell = {};
    cell.DefValue = -1;
    shell.prompts.expectMessage(u"File: ZUK0003.CFG\nParameter :5: does not exist!\n"_s);
    EXPECT_EQ(GetLevelValue(shell.shell, state.ZUKarr, 3, 5, LayerCfg), -1);
    EXPECT_EQ(shell.prompts.titles.last(), u"FENNEL-GFX"_s);
}

TEST_F(LevelFiles, KeepRecordsThatNoListShows)
{
    const QString name = u"ZUK0006.CFG"_s;
    const QByteArray odd =
        QByteArray::fromHex("01000008 FF000078 05000009 00000000 07000009 2A000063 0102");
    shell.member(name, odd);
    read();
    for (const int param : {8, 9})
        state.ZUKarr.at(6, param).Value =
            ParamValue{state.ZUKarr.at(6, param).LevelValue, false, {}};
    saveAll(SaveForm::Kept);
    EXPECT_EQ(bytes(name), odd);
    EXPECT_EQ(levelLosses(shell.shell, state.ZUKarr)->size(), 3); // 120, 99, two bytes
    EXPECT_TRUE((*levelLosses(shell.shell, state.ZUKarr))[0].startsWith(
        u"ZUK0006.CFG: parameter 120 = 255"));
    // The record that counts changes, a new one comes where it belongs.
    state.ZUKarr.at(6, 9).Value = typedValue(u"6");
    state.ZUKarr.at(6, 38).Value = typedValue(u"1");
    saveAll(SaveForm::Kept);
    EXPECT_EQ(
        bytes(name),
        QByteArray::fromHex("01000008 01000026 FF000078 05000009 00000000 06000009 2A000063 0102"));
    saveAll();
    EXPECT_EQ(bytes(name), QByteArray::fromHex("01000008 06000009 01000026"));
    EXPECT_TRUE(levelLosses(shell.shell, state.ZUKarr)->isEmpty());
}

TEST_F(LevelFiles, ComeBackByteForByte)
{
    shell.member(u"ZUK0005.CFG"_s, QByteArray::fromHex("FFFFFF01 0200000A"));
    shell.member(u"ZUK0009.CFG"_s, QByteArray::fromHex("07000002 07"));
    build();
    GatherListValues(state.ZUKarr);
    // A hexadecimal row, written as typed; 255 in it is decimal.
    for (const auto& [param, typed] :
         {std::pair{6, u"0x183042"}, {8, u"255"}, {2, u"-5"}, {9, u"3000000000"}})
        state.ZUKarr.at(0, param).Value = typedValue(typed);
    saveAll();
    const QByteArray base = bytes(u"ZUK0000.CFG"_s);
    EXPECT_TRUE(base.contains(
        QByteArray::fromHex("01000001 FBFFFF02 03000003 42301806 FF000008 005ED009")));
    EXPECT_TRUE(base.endsWith(QByteArray::fromHex("63000063")));
    // Parameters that no list shows are gone: 1, 2, 3, 8, 9 and 38 of file 6 stay.
    EXPECT_EQ(bytes(u"ZUK0006.CFG"_s),
              QByteArray::fromHex("01000001 02000002 03000003 08000008 09000009 26000026"));
    EXPECT_FALSE(FileExists(shell.run.Workspace + u"ZUK0001.CFG"_s)); // no sparkle tab
    EXPECT_EQ(bytes(u"ZUK0009.CFG"_s), QByteArray::fromHex("07000002 07"));

    read();
    build();
    saveAll();
    EXPECT_EQ(bytes(u"ZUK0000.CFG"_s), base);
}
