// SPDX-License-Identifier: MIT
// What the windows say, as a screen reader finds it: in one language, and never nothing.
#include "base/settings_file.h"
#include "editor/boot/boot_window.h"
#include "editor/fonts/font_window.h"
#include "editor/guide/guide_window.h"
#include "editor/problems/problem_link.h"
#include "editor/window_fixture.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace fennel;
using namespace fennel::test;

namespace {

// Names that are the same in every language, and the user's own data.
const QRegularExpression names(
    u"^(English|Русский|FENNEL-GFX.*|frmMain|(Gfxboot |- "
    u")?@ZUK-MOSA@|OK|Esc|QEMU|NConvert|CPIO|7-Zip \\(7za.exe\\)|"
    u"GFXBOOT|gfxboot:|:ID:|.*\\.(jpg|fnt|gz|cfg|txt)|DejaVu.*|U\\+.*|0x.*|[a-z]|UTF-8.*|F\\d+|"
    u"\\d+x\\d+.*|.*\\d pt)$"_s);

class LanguageTest : public WindowTest {
protected:
    void speak(const QString& code)
    {
        run().CurrentLang = code;
        bench.useLanguage();
        QSignalSpy checked(&window.problemLink(), &ProblemLink::checked);
        EXPECT_TRUE(checked.wait());
        FontDialogStart start;
        start.title = editFontTitle(u"16x16.fnt"_s);
        start.FontStyleName = u"DejaVu Sans"_s;
        start.size = start.wholeSize = 16;
        FontWindow fonts(shell.shell, start, bench.characters, u"DejaVu Sans"_s, nullptr);
        BootWindow boot(nullptr);
        GuideWindow guide(run(), bench.store);
        for (QWidget* shown : std::initializer_list<QWidget*>{&window, &fonts, &boot, &guide}) {
            note(shown->windowTitle(), u"title"_s);
            for (const QAction* item : shown->findChildren<QAction*>())
                note(item->text(), item->objectName());
            for (const QWidget* part : shown->findChildren<QWidget*>())
                note(part->toolTip(), part->objectName());
            walk(QAccessible::queryAccessibleInterface(shown));
        }
    }
    void walk(QAccessibleInterface* part)
    {
        ASSERT_NE(part, nullptr);
        const QString where = part->object() ? part->object()->objectName() : QString();
        const QString name = part->text(QAccessible::Name);
        const QList<QAccessible::Role> data{QAccessible::Cell, QAccessible::ListItem,
                                            QAccessible::TreeItem};
        const bool row = data.contains(part->role());
        if (!row)
            note(name, where);
        const auto* widget = qobject_cast<QWidget*>(part->object());
        // The inner parts of spin and combo boxes are no controls of their own.
        const bool control = widget != nullptr && widget->focusPolicy() != Qt::NoFocus &&
                             part->role() != QAccessible::Window &&
                             !widget->inherits("QComboBoxListView") &&
                             qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) == nullptr;
        if (control && (name.isEmpty() || part->role() == QAccessible::NoRole))
            nameless += where + u' ' + QLatin1String(widget->metaObject()->className()) + u'\n';
        for (int i = 0; !row && i < part->childCount(); ++i)
            walk(part->child(i));
    }
    void note(const QString& said, const QString& where)
    {
        static const QRegularExpression cyrillic(u"\\p{Cyrillic}"_s);
        static const QRegularExpression latin(u"[A-Za-z]{2}"_s);
        const QString plain =
            QString(said).remove(u'&').remove(QRegularExpression(u"</?qt>"_s)).trimmed();
        if (names.match(plain).hasMatch())
            return;
        if (said.contains(cyrillic))
            russian += where + u": "_s + plain + u'\n';
        else if (said.contains(latin))
            english += where + u": "_s + plain + u'\n';
    }

    QString english;
    QString russian;
    QString nameless;
};

} // namespace

TEST_F(LanguageTest, everythingIsSaidInTheLanguageOfTheRunAndEveryControlHasAName)
{
    openTemplate(5);
    speak(u"0419"_s);
    EXPECT_EQ(english.toStdString(), "");
    EXPECT_EQ(nameless.toStdString(), "");
    EXPECT_EQ(bench.params.tabs[TabConfig].caption, u"Настройки");
    russian.clear();
    // The menu changes it, and the next start finds it.
    window.commands().runEntry(u"mnuView_LanguageArr"_s, 0);
    english.clear();
    speak(u"0409"_s);
    EXPECT_EQ(russian.toStdString(), "");
    EXPECT_EQ(bench.store.get(langsSection, languageKey), u"0409");
    EXPECT_TRUE(bytesOf(settingsFile(run())).endsWith("Default Language=0409\r\n"));
}
