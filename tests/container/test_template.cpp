// SPDX-License-Identifier: MIT
#include "container/template.h"

#include "support/test_shell.h"

#include <QDir>

using namespace fennel;
using namespace fennel::test;
using namespace Qt::StringLiterals;

namespace {

// A shell whose data folder holds small stand-ins, and an empty folder to write into.
class Template : public testing::Test {
protected:
    void SetUp() override
    {
        m_shell.run.AppPath = m_shell.path(u"app"_s);
        for (const auto& name :
             {u"GFX.GZ"_s, u"INIT"_s, u"16X16.FNT"_s, u"0409_SETTINGS"_s, u"0419_SETTINGS"_s}) {
            ASSERT_TRUE(m_disk.makeFolder(m_shell.run.AppPath + u"/data"_s).ok());
            ASSERT_TRUE(
                m_disk.write(m_shell.run.AppPath + u"/data/"_s + name, name.toLatin1()).ok());
        }
        m_folder = m_shell.path(u"out"_s);
        ASSERT_TRUE(m_disk.makeFolder(m_folder).ok());
    }
    bool write(const QString& name, const QString& language = {})
    {
        return WriteResource(m_shell.shell, m_folder, name, language);
    }
    QByteArray written(const QString& name) { return bytesOf(m_folder + u'/' + name); }
    QStringList names() { return QDir(m_folder).entryList(QDir::Files, QDir::Name); }

    TestShell m_shell;
    DiskFiles m_disk;
    QString m_folder;
};

} // namespace

TEST_F(Template, TheCatalogueFollowsTheLanguageAndIsEnglishOtherwise)
{
    for (const auto& [language, expected] :
         std::initializer_list<std::pair<QString, QByteArray>>{{u"0409"_s, "0409_SETTINGS"},
                                                               {u"0419"_s, "0419_SETTINGS"},
                                                               {u"0199"_s, "0409_SETTINGS"},
                                                               {u"04"_s, "0409_SETTINGS"},
                                                               {QString(), "0409_SETTINGS"}}) {
        EXPECT_TRUE(write(u"Settings"_s, language));
        EXPECT_EQ(written(u"Settings.txt"_s), expected) << language.toStdString();
    }
}

TEST_F(Template, AFailureAtAnyStepIsToldAndLeavesTheOldFile)
{
    ASSERT_TRUE(m_disk.write(m_folder + u"/init"_s, "old engine").ok());
    for (int step = 1; step <= 2; ++step) {
        m_shell.files.calls = 0;
        m_shell.files.failAt = step;
        m_shell.prompts.expectMessage(u"No space left"_s);
        EXPECT_FALSE(write(u"init"_s));
        EXPECT_EQ(written(u"init"_s), "old engine");
        EXPECT_EQ(names(), QStringList{u"init"_s}) << "nothing unfinished stays, step " << step;
    }
    m_shell.files.failAt = 0;
    EXPECT_TRUE(write(u"init"_s));
    EXPECT_EQ(written(u"init"_s), "INIT");
}

TEST_F(Template, AMissingResourceIsToldByName)
{
    ASSERT_TRUE(m_disk.remove(m_shell.run.AppPath + u"/data/INIT"_s).ok());
    m_shell.prompts.expectMessage(u"data/INIT"_s);
    EXPECT_FALSE(write(u"INIT"_s));
    EXPECT_TRUE(names().isEmpty());
}
