// SPDX-License-Identifier: MIT
// Editing of text members in the frame of the value editor.
#include "base/words.h"
#include "container/member_list.h"
#include "editor/commands/handlers.h"
#include "editor/lists/right_panel.h"
#include "editor/stage/stage_link.h"
#include "editor/window/main_window.h"
#include "params/text_edit.h"

#include <QTextDocument>

namespace fennel {

namespace {

QString currentMember(MainWindow& window)
{
    ParamLists& lists = window.workbench().params;
    const ListRows* list = lists.list(lists.CurrentTab);
    const ListRow* row = list == nullptr ? nullptr : list->row(lists.CurrentRow);
    return row == nullptr ? QString() : row->member();
}

// Lists that show the member's length.
void refillLengths(MainWindow& window, const QString& name)
{
    ParamLists& lists = window.workbench().params;
    refillList(window, TabGfxboot);
    for (int tab = FirstObjectTab; tab <= lists.tabCount(); ++tab) {
        if (lists.list(tab)->findMember(name) > 0)
            refillList(window, tab);
    }
    updateRowButtons(window);
}

// Brings the text into its member. False if that failed: the user was told, and it stays in work.
bool keepText(MainWindow& window)
{
    const Shell& shell = window.shell();
    // Another row or tab may be chosen by now; the text goes back to where it came from.
    const QString name = window.workbench().EditedText;
    const int object = window.workbench().EditedObject;
    const QString text = window.rightPanel().editor().text();
    StepInfo info{Words::tr("text of %1").arg(name), {}, {}};
    info.place.object = object;
    info.place.member = name;
    if (!window.document().changeMembers(
            info, [&] { return shell.told(putMember(shell, name, textMemberBytes(text))); }))
        return false;
    window.rightPanel().editor().box().document()->setModified(false);
    refillLengths(window, name);
    showTextMember(window, object, name);
    return true;
}

void saveText(MainWindow& window)
{
    if (window.rightPanel().editor().textEditMode() && keepText(window))
        CloseEditor(window);
}

void open(MainWindow& window, const QString& name, int object)
{
    const Shell& shell = window.shell();
    const Result<TextFile> file = readTextMember(shell.run.Workspace + name);
    if (!file) {
        (void)shell.told(file.failure());
        return;
    }
    window.workbench().TextIsUtf8 = file->TextIsUtf8;
    window.workbench().EditedText = name;
    window.workbench().EditedObject = object;
    window.rightPanel().openTextEditor(window.area(), name, file->text, window.stageView());
}

void reload(MainWindow& window)
{
    CloseEditor(window);
    open(window, window.workbench().EditedText, window.workbench().EditedObject);
}

void convert(MainWindow& window)
{
    if (window.workbench().TextIsUtf8) {
        window.shell().prompts.ShowMessage(Words::tr("File already uses UTF-8 encoding"),
                                           MessageType::Ok, QStringLiteral("UTF-8"));
        return;
    }
    ValueEditor& editor = window.rightPanel().editor();
    editor.setText(readAsUtf8(editor.text()));
    editor.box().document()->setModified(true);
}

} // namespace

bool textModified(MainWindow& window)
{
    const ValueEditor& editor = window.rightPanel().editor();
    return editor.textEditMode() && editor.box().document()->isModified();
}

bool commitText(MainWindow& window)
{
    return !textModified(window) || keepText(window);
}

bool mayLeaveText(MainWindow& window)
{
    return !textModified(window) ||
           window.shell().prompts.ShowMessage(
               Words::tr("The changes of %1 are not saved.\nDiscard them?")
                   .arg(window.workbench().EditedText),
               MessageType::YesNo, window.workbench().EditedText) == Answer::Yes;
}

bool EditTextFile(MainWindow& window)
{
    const QString name = currentMember(window);
    if (!isTextMember(name))
        return false;
    if (mayLeaveText(window))
        open(window, name, window.stageLink().objectOfCurrentTab());
    return true;
}

void connectTextButtons(MainWindow& window)
{
    // A text in work counts among the changes that are not saved.
    QObject::connect(window.rightPanel().editor().box().document(),
                     &QTextDocument::modificationChanged, &window, [&window] {
                         window.setWindowModified(window.document().isModified() ||
                                                  textModified(window));
                     });
    QObject::connect(&window.rightPanel().editor(), &ValueEditor::textButtonClicked, &window,
                     [&window](ValueEditor::TextButton button) {
                         switch (button) {
                         case ValueEditor::CloseText:
                             CloseEditor(window);
                             break;
                         case ValueEditor::SaveText:
                             saveText(window);
                             break;
                         case ValueEditor::ReloadText:
                             reload(window);
                             break;
                         case ValueEditor::ConvertText:
                             convert(window);
                             break;
                         }
                     });
}

} // namespace fennel
