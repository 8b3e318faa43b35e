// SPDX-License-Identifier: MIT
#include "desktop/agreement.h"

#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/flash_link.h"
#include "editor/window/menu_table.h"
#include "editor/window/menus.h"
#include "editor/window/toolbar_table.h"
#include "params/level_files.h"
#include "params/panel_values.h"

#include <QApplication>
#include <QToolButton>

namespace fennel::test {

using namespace Qt::StringLiterals;

namespace {

class Comparison {
public:
    explicit Comparison(Story& story) : m_story(story) {}

    void window()
    {
        const ParamLists& lists = m_story.lists();
        expect(!m_story.bench.document.inGesture(), u"a gesture does not end"_s);
        expect(QApplication::overrideCursor() == nullptr, u"the waiting pointer stays"_s);
        expect(QApplication::activeModalWidget() == nullptr, u"a dialog stays open"_s);
        expect(lists.lists.size() == lists.tabs.size(), u"tabs and lists differ in number"_s);
        expect(lists.CurrentTab >= 1 && lists.CurrentTab <= lists.tabCount(), u"no such tab"_s);
        const bool flash = m_story.window.flashLink().flashThere();
        for (const MenuItem& item : menuTable()) {
            const QString name = QLatin1String(item.name);
            const QAction* action = m_story.window.menus().action(name);
            if (action == nullptr || item.enabled == Enabled::ByOthers ||
                !m_story.window.commands().has(name))
                continue;
            expect(action->isEnabled() == holds(item.enabled, m_story.run(), flash),
                   u"menu item "_s + name + u" is enabled wrongly"_s);
        }
        for (const ToolbarButton& row : toolbarTable()) {
            // Over the edit buttons the rows of the lists decide.
            if (row.id == NoButton || (row.id >= FontEditButton && row.id <= PictureEditButton))
                continue;
            const auto& button = m_story.find<QToolButton>(u"Toolbar1_%1"_s.arg(row.id));
            const bool enabled = row.id == UndoButton   ? document().canUndo()
                                 : row.id == RedoButton ? document().canRedo()
                                                        : holds(row.enabled, m_story.run(), flash);
            expect(button.isEnabled() == enabled,
                   u"toolbar button %1 is enabled wrongly"_s.arg(row.id));
        }
    }
    void views()
    {
        const ParamLists& lists = m_story.lists();
        for (int tab = 1; tab <= lists.tabCount(); ++tab) {
            ListView* view = m_story.window.rightPanel().view(tab);
            const ListRows& list = *lists.list(tab);
            const auto* inner = qobject_cast<QAbstractItemView*>(view->currentWidget());
            const QAbstractItemModel& model = *inner->model();
            const QString where = u"tab %1: "_s.arg(tab);
            expect(model.rowCount() == list.count(), where + u"list and rows differ in number"_s);
            for (int row = 1; row <= std::min(list.count(), model.rowCount()); ++row) {
                for (int column = 0; column < std::min(2, model.columnCount()); ++column)
                    expect(model.index(row - 1, column).data().toString() ==
                               rowLook(m_story.bench.document, list, *list.row(row),
                                       lists.CurrentMenuFile)
                                   .text(static_cast<std::size_t>(column)),
                           where + u"row %1 shows something else"_s.arg(row));
            }
            expect(list.selected >= 0 && list.selected <= list.count(),
                   where + u"selects row %1 of %2"_s.arg(list.selected).arg(list.count()));
        }
        const int rows = lists.list(lists.CurrentTab)->count();
        expect(lists.CurrentRow >= 0 && lists.CurrentRow <= rows, u"no such row"_s);
    }
    void files()
    {
        const QString& folder = m_story.run().Workspace;
        expect(FileExists(m_story.run().BackFile), u"the shown background is no file"_s);
        QStringList members =
            QString::fromUtf8(bytesOf(folder + u"#.lst"_s)).split(u"\r\n"_s, Qt::SkipEmptyParts);
        QStringList rows;
        for (const ListRow& row : m_story.lists().list(TabGfxboot)->rows) {
            rows.append(row.name);
            expect(FileExists(folder + row.name), row.name + u" is no file"_s);
        }
        expect(rows == members, u"rows and list of members differ: "_s + rows.join(u' ') +
                                    u" / "_s + members.join(u' '));
    }
    void records()
    {
        const ParamLists& lists = m_story.lists();
        expect(static_cast<int>(document().state().PanelArr.size()) == m_story.run().ObjectCount,
               u"too many objects, or too few"_s);
        if (!m_story.run().GfxHasZuk || document().menuLevelShown())
            return;
        for (int object = 0; object < m_story.run().ObjectCount; ++object) {
            const PanelRec& now = *lists.object(object);
            if (lists.TabIndex(object) == 0)
                continue;
            const PanelRec told =
                panelFromValues(document().state(), m_story.bench.fonts.table, object);
            expect(text(now) == text(told),
                   u"object %1 is %2, its rows say %3"_s.arg(object).arg(text(now), text(told)));
        }
    }
    void stage()
    {
        Stage& stage = m_story.window.stageLink().stage();
        if (stage.asItBoots()) // there the picture of the boot tells the places
            return;
        for (int object = 0; object < m_story.run().ObjectCount; ++object) {
            expect(stage.isRow(object), u"object %1 is not on the stage"_s.arg(object));
            if (!stage.isRow(object) || !stage.panel(object).visible)
                continue;
            const QRect shown = stage.panel(object).rect;
            const QRect wanted = stage.scale().shown(stage.record(object));
            expect(near(shown, wanted),
                   u"object %1 stands at %2, its record says %3"_s.arg(object).arg(text(shown),
                                                                                   text(wanted)));
        }
    }
    void savedRecords()
    {
        const auto members = membersOf(m_story.run().GfxPath);
        eachParameter([&](int file, int id, qint64 value, int tab) {
            const auto found = members.find(levelFileName(file));
            const auto saved =
                found == members.end() ? std::map<int, int>() : recordsOf(found->second);
            const auto record = saved.find(id);
            expect(record != saved.end() && record->second == (value & 0xFFFFFF),
                   u"tab %1: parameter %2 of file %3 is %4 but was saved as %5"_s.arg(tab)
                       .arg(id)
                       .arg(file)
                       .arg(value)
                       .arg(record == saved.end() ? -1 : record->second));
        });
    }
    QStringList wrong;

private:
    void expect(bool right, const QString& sentence)
    {
        if (!right)
            wrong.append(sentence);
    }
    // What was dragged keeps its shown place, which no whole number of the record need give.
    static bool near(const QRect& a, const QRect& b)
    {
        const QPoint from = a.topLeft() - b.topLeft();
        const QPoint to = a.bottomRight() - b.bottomRight();
        return std::max({std::abs(from.x()), std::abs(from.y()), std::abs(to.x()),
                         std::abs(to.y())}) <= 2;
    }
    static QString text(const QRect& rect)
    {
        return u"%1,%2 %3x%4"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }
    // Without On, which only a change of its own row sets, and without lengths that no parameter
    // sets but the marker of the menu may pull. A font that is not there counts as the standard
    // one.
    QString text(const PanelRec& rec) const
    {
        const auto& fonts = m_story.bench.fonts.table;
        const bool there = rec.FontIndex >= 0 && rec.FontIndex < std::ssize(fonts) &&
                           !fonts[static_cast<std::size_t>(rec.FontIndex)].FontName.isEmpty();
        return u"%1 back %2 text %3 transparency %4 font %5"_s
            .arg(text(QRect(rec.Left, rec.Top, rec.WidthParam > 0 ? rec.Width : 0,
                            rec.HeightParam > 0 ? rec.Height : 0)))
            .arg(rec.BackColor & 0xFFFFFFU, 0, 16)
            .arg(rec.TextColor & 0xFFFFFFU, 0, 16)
            .arg(rec.Transp)
            .arg(there ? rec.FontIndex : 0);
    }
    template <class Visit>
    void eachParameter(const Visit& visit)
    {
        const ParamLists& lists = m_story.lists();
        for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
            const int file = levelFileOf(*lists.object(lists.objectOfTab(tab)));
            for (const ListRow& row : lists.list(tab)->rows) {
                if (row.kind == RowKind::Parameter)
                    visit(file, row.number,
                          document().state().ZUKarr.at(file, row.number).Value->number, tab);
            }
        }
    }
    const Document& document() { return m_story.bench.document; }
    Story& m_story;
};

} // namespace

QStringList disagreements(Story& story)
{
    Comparison comparison(story);
    comparison.window();
    comparison.views();
    if (story.run().GfxOpened) {
        comparison.files();
        comparison.records();
        comparison.stage();
    }
    return comparison.wrong;
}

QStringList disagreementsWithFile(Story& story)
{
    Comparison comparison(story);
    if (story.run().GfxHasZuk)
        comparison.savedRecords();
    return comparison.wrong;
}

} // namespace fennel::test
