// SPDX-License-Identifier: MIT
// The guide: what it links to is there, in every language, and the window shows what was asked for.
#include "editor/fonts/font_window.h"
#include "editor/guide/guide_pages.h"
#include "editor/guide/guide_view.h"
#include "editor/guide/guide_window.h"
#include "editor/lists/tabs.h"
#include "editor/window_fixture.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>

using namespace fennel;
using namespace fennel::test;

namespace {

class GuideTest : public WindowTest {
protected:
    QString folder(const QString& language)
    {
        run().CurrentLang = language;
        bench.useLanguage();
        return guideFolder(run());
    }
    static GuideWindow* shownGuide()
    {
        for (QWidget* shown : QApplication::topLevelWidgets()) {
            if (auto* guide = qobject_cast<GuideWindow*>(shown); guide && guide->isVisible())
                return guide;
        }
        return nullptr;
    }
};

// Pages and pictures that a page names and that are not there, or have no such heading.
QStringList brokenLinks(const QString& folder, const QString& page)
{
    static const QRegularExpression link(u"\\]\\(([^)#]*)#?([^)]*)\\)"_s);
    QStringList broken;
    auto found = link.globalMatch(guideText(folder + page));
    while (found.hasNext()) {
        const QRegularExpressionMatch to = found.next();
        const QString path = folder + (to.captured(1).isEmpty() ? page : to.captured(1));
        bool there = QFileInfo::exists(path) && to.captured(2).isEmpty();
        for (const QString& line : guideText(path).split(u'\n'))
            there = there || (line.startsWith(u'#') &&
                              headingAnchor(line.mid(line.indexOf(u' ') + 1)) == to.captured(2));
        if (!there)
            broken << page + u": "_s + to.captured(0);
    }
    return broken;
}

TEST_F(GuideTest, IsReadWhileTheFontDialogIsOpen)
{
    openTemplate();
    QTimer::singleShot(0, &window, [] {
        auto* dialog = qobject_cast<FontWindow*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }));
        QTest::keyClick(dialog, Qt::Key_F1);
        GuideWindow* guide = shownGuide();
        if (guide != nullptr) {
            auto& view = *guide->findChild<GuideView*>();
            EXPECT_EQ(view.source().fileName(), u"fonts.md");
            auto& words = *guide->findChild<QLineEdit*>(u"GuideSearch"_s);
            EXPECT_NE(guide->focusWidget(), &words);
            QTest::mouseClick(guide->windowHandle(), Qt::LeftButton, {},
                              words.mapTo(guide, words.rect().center()));
            EXPECT_EQ(guide->focusWidget(), &words);
            guide->close();
        }
        EXPECT_NE(guide, nullptr);
        dialog->reject();
    });
    runCommand("mnuEDIT_NEWFont");
}

} // namespace

TEST_F(GuideTest, EveryLanguageHasThePagesThatItsLinksAndTheTabsName)
{
    openTemplate(5);
    const std::vector<GuideHeading> english = guideContents(folder(u"0409"_s));
    for (const QString& language : {u"0409"_s, u"0419"_s}) {
        const QString pages = folder(language);
        const std::vector<GuideHeading> contents = guideContents(pages);
        ASSERT_EQ(contents.size(), english.size());
        for (std::size_t i = 0; i < contents.size(); ++i) {
            EXPECT_EQ(contents[i].page, english[i].page);
            EXPECT_EQ(contents[i].level, english[i].level) << contents[i].text.toStdString();
            EXPECT_EQ(brokenLinks(pages, contents[i].page).join(u'\n').toStdString(), "");
        }
        BuildTabs(shell.shell, bench.params);
        for (int tab = TabMenu; tab <= bench.params.tabCount(); ++tab) {
            bench.params.CurrentTab = tab;
            const GuidePlace place = guidePlace(run(), bench.params);
            EXPECT_TRUE(std::ranges::any_of(
                contents,
                [&](const GuideHeading& heading) {
                    return heading.page == place.page &&
                           heading.level == (tab < FirstObjectTab ? 1 : 2) &&
                           (tab < FirstObjectTab || place.heading.startsWith(heading.text));
                }))
                << place.page.toStdString() << ' ' << place.heading.toStdString();
        }
    }
}

TEST_F(GuideTest, HelpOpensThePageOfTheTabInTheLanguageOfTheRun)
{
    openTemplate(5);
    runCommand("mnuHelp_Guide");
    GuideWindow* guide = shownGuide();
    ASSERT_NE(guide, nullptr);
    auto& view = *guide->findChild<GuideView*>();
    EXPECT_EQ(view.textCursor().block().text(), u"Time");
    // Nothing but the guide is shown, and no page is left for what is not there.
    view.setSource(QUrl(u"file:///etc/passwd"_s));
    view.setSource(QUrl(u"https://example.org/index.md"_s));
    EXPECT_EQ(view.source().fileName(), u"objects.md");
    view.setSource(QUrl(u"fonts.md#choose-letters"_s));
    EXPECT_EQ(view.textCursor().block().text(), u"Choose letters");
    window.commands().runEntry(u"mnuView_LanguageArr"_s, 1);
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(view.toPlainText().startsWith(u"Шрифты и буквы"_s));
    // The search goes on in the pages that follow.
    auto& words = *guide->findChild<QLineEdit*>(u"GuideSearch"_s);
    words.setText(u"Grub4DOS reads"_s);
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(view.source().fileName(), u"fonts.md");
    words.setText(u"sfdisk"_s);
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(view.source().fileName(), u"loader.md");
    view.backward();
    EXPECT_EQ(view.source().fileName(), u"fonts.md");
    window.commands().runEntry(u"mnuView_LanguageArr"_s, 0);
    guide->close();
    EXPECT_EQ(shownGuide(), nullptr);
}
