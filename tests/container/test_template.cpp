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
