// SPDX-License-Identifier: MIT
// The fonts' tab: the sample of the selected font, the contents of a font file, and the commands
// that make a new one.
#include "base/words.h"
#include "editor/commands/handlers.h"
#include "editor/fonts/font_info.h"
#include "editor/fonts/font_window.h"
#include "editor/fonts/inspection_list.h"
#include "editor/lists/right_panel.h"
#include "editor/lists/tabs.h"
#include "editor/stage/stage_link.h"
#include "editor/stage/stage_surface.h"
#include "editor/window/main_window.h"
#include "fonts/font_making.h"

#include <QFontDatabase>
#include <QScopeGuard>

namespace fennel {

namespace {

constexpr int pictureSide = 300; // of a character drawn large, logical pixels
constexpr int largestZoom = 24;

// A list that was never clicked has its first row selected all the same.
int fontRow(MainWindow& window)
{
    return std::max(1, window.workbench().params.list(TabFonts)->selected);
}

void scanFor(MainWindow& window, const QString& name)
{
    Workbench& bench = window.workbench();
    ScanFonts(bench.fonts, bench.shell.run, bench.fontSettings, name, fillInspection);
}

QString glyphCaption(const Glyph& glyph, const FntHeader& header)
{
    return Words::tr("%1 x %2 pixels, advance %3, baseline %4\n"
                     "grey: box, blue: baseline, red: pen before and after")
        .arg(glyph.width)
        .arg(glyph.height)
        .arg(glyph.advance)
        .arg(int{header.baseline});
}

void showCharacter(MainWindow& window, int row)
{
    const Shell& shell = window.shell();
    const CharacterView view =
        clickOnCharacter(window.workbench().fonts.inspection, shell.run, row);
    if (!view.glyph) {
        shell.prompts.showPicture(view.message, {}, {});
        return;
    }
    const int side = std::max({1, int{view.header.fontHeight}, view.glyph->height,
                               view.glyph->width, view.glyph->advance});
    const int zoom = std::clamp(pictureSide / side, 1, largestZoom);
    shell.prompts.showPicture(view.message, glyphPicture(*view.glyph, view.header, zoom),
                              glyphCaption(*view.glyph, view.header));
}

void selectFont(MainWindow& window, const QString& component)
{
    ParamLists& lists = window.workbench().params;
    ListRows& list = *lists.list(TabFonts);
    if (const int row = list.findMember(component); row > 0)
        list.selected = row;
    window.rightPanel().view(TabFonts)->select(list.selected);
    if (lists.CurrentTab == TabFonts)
        lists.CurrentRow = list.selected;
    updateRowButtons(window);
    window.fontInfo().changeButton().setEnabled(
        buttonsOfRow(window.shell().run, lists, TabFonts, list.selected).Font_change);
}

// The menu of the older generations is as high as its font says.
void showNewFont(MainWindow& window)
{
    window.document().fitMenuToFont();
    window.ShowBackground();
}

std::optional<FontChoice> askForFont(MainWindow& window, const FontDialogStart& start)
{
    Workbench& bench = window.workbench();
    FontWindow dialog(bench.shell, start, bench.characters, bench.fontSettings.defaultFontName,
                      &window);
    QObject::connect(&dialog, &FontWindow::helpWanted, &window,
                     [&window] { window.commands().run(QStringLiteral("mnuHelp_Guide")); });
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.choice()) : std::nullopt;
}

void changeFont(MainWindow& window, bool AddFontMode)
{
    Workbench& bench = window.workbench();
    if (!bench.shell.run.GfxOpened)
        return;
    closeValueEditor(window);
    window.surface().setTickGate(false);
    const auto opened = qScopeGuard([&window] { window.surface().setTickGate(true); });
    FontCommand command;
    command.row = fontRow(window);
    command.AddFontMode = AddFontMode;
    command.logPixelsY = bench.fontSettings.logPixelsY;
    command.askUser = [&window](const FontDialogStart& start) { return askForFont(window, start); };
    command.characters = [&bench]() -> const CharSelected& { return bench.characters; };
    StepInfo info{AddFontMode ? Words::tr("adding of a font") : Words::tr("font"), {}, {}};
    std::optional<FontChange> change;
    if (!bench.document.changeMembers(info, [&] {
            change = ChangeFont(bench.shell, bench.fonts, command);
            return change.has_value();
        }))
        return;
    refillMembers(window);
    selectFont(window, change->component);
    showNewFont(window);
    showFontSample(window);
}

} // namespace

void showFontSample(MainWindow& window)
{
    if (window.fontInfo().isVisible())
        window.fontInfo().showSample(
            fontSample(window.workbench().fonts, fontRow(window), QFontDatabase::families()));
}

void showFontRow(MainWindow& window, int row)
{
    const ListRow* shown = window.workbench().params.list(TabFonts)->row(row);
    if (const QString name = shown != nullptr ? shown->member() : QString(); !name.isEmpty())
        scanFor(window, name);
    showFontSample(window);
}

void openFontContent(MainWindow& window, const QString& name)
{
    Workbench& bench = window.workbench();
    const OpenInspection opened = openInspection(bench.shell.run, name);
    if (!opened.message.isEmpty())
        bench.shell.prompts.ShowMessage(opened.message);
    if (opened.component.isEmpty())
        return;
    scanFor(window, opened.component);
    window.inspectionList().setRows(bench.fonts.inspection.List1);
    window.inspectionList().ShowListPanel(Words::tr("FNT-file content"));
}

void addFontCommands(MainWindow& window)
{
    Commands& commands = window.commands();
    commands.add("mnuEDIT_NEWFont", [&window] { changeFont(window, false); });
    commands.add("mnuEDIT_ADDFont", [&window] { changeFont(window, true); });
    QObject::connect(&window.fontInfo().changeButton(), &QPushButton::clicked, &window,
                     [&window] { window.commands().run(QStringLiteral("ComEdit")); });
    const InspectionList& list = window.inspectionList();
    QObject::connect(&list, &InspectionList::rowClicked, &window,
                     [&window](int row) { showCharacter(window, row); });
    QObject::connect(&list, &InspectionList::rightClicked, &window, [&window](int row) {
        window.shell().prompts.ShowMessage(rightClickText(row));
    });
    QObject::connect(&list, &InspectionList::middleClicked, &window,
                     [&window] { window.shell().prompts.ShowMessage(middleClickText()); });
    QObject::connect(&list, &InspectionList::rowEntered, &window,
                     [&window](int row) { window.setStatusField(8, QString::number(row)); });
}

} // namespace fennel
