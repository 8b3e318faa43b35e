// SPDX-License-Identifier: MIT
// The open gfxboot: its parameters and objects, its gfxboot.cfg, the files of the Workspace, and
// every change to them with the way back. One way in, apply() and changeMembers(), and one signal
// out. Knows no widget; views read it and send changes.
#pragma once

#include "base/shell_context.h"
#include "document/change.h"
#include "document/member_versions.h"
#include "fonts/font_table.h"
#include "params/save_form.h"

#include <QObject>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>

namespace fennel {

enum class Generation { One = 1, Two, Three };

// What changed, for the views.
struct DocumentChange {
    enum Cause {
        Applied, // by a change; also of the steps of a gesture that still goes on
        Undone,  // undo or redo: `place` is where to look
        Shown,   // only what is shown: a menu's values or words, the text on an object
    };
    Cause cause = Applied;
    bool live = false; // within a gesture that goes on
    std::set<ParamKey> params;
    std::set<int> objects; // in the order of their rows
    bool cfg = false;
    bool generation = false;      // another one: nothing is as it was
    std::set<QByteArray> members; // names of files that came, went or have other bytes
    StepPlace place;
};

class Document : public QObject {
    Q_OBJECT
public:
    // Both outlive the document. The fonts are those of the Workspace, as they were last scanned.
    Document(const Shell& shell, const FontTable& fonts);
    ~Document() override;

    // --- what is open
    [[nodiscard]] const ParamState& state() const { return m_state; }
    [[nodiscard]] const Shell& shell() const { return m_shell; }
    [[nodiscard]] const RunState& run() const { return m_shell.run; }
    [[nodiscard]] Generation generation() const;
    [[nodiscard]] const PanelRec* object(int row) const { return m_state.object(row); }
    // Of gfxboot.cfg: the value of the first line with that name, or its default.
    [[nodiscard]] QString CfgValue(QStringView name) const;
    // gfxboot.cfg as it is shown and as it lies in the Workspace.
    [[nodiscard]] CfgState config() const { return {m_state.cfg, m_cfgBytes}; }
    // The font (number of its record) that an object's words are drawn in; it may have no file.
    [[nodiscard]] qint64 fontOf(int object) const;
    // The stage shows what the selected menu imposes; the values of the lists rest and are locked.
    [[nodiscard]] bool menuLevelShown() const { return m_menuLevel && run().GfxHasZuk; }

    // --- opening, in this order; nothing of it is a step
    // The settings catalogue, once for the run; see LoadCatalogue().
    void loadCatalogue();
    // Level files of the Workspace (generation 3), then gfxboot.cfg. A file that cannot be read is
    // told and left out; without a gfxboot.cfg GfxHasCfg becomes false.
    void readLevels();
    void readConfigLines();
    // The objects, placed as the generation says; menu slit and fonts follow from what was read.
    void buildObjects();
    // Whether an engine that is not ours counts as older than this program: it lacks a parameter
    // that a tab lists.
    [[nodiscard]] bool needsUpgrade() const;
    // The values that the tabs list; after an upgrade the catalogue's default where the file has
    // none.
    void listValues(bool upgraded);
    // From here on every change is a step. The history of the gfxboot before goes.
    void beginHistory();

    // --- changes
    // Does what the change asks for, as one step, or as a part of the gesture that goes on. False
    // if a file could not be written: the user was told, and nothing but that file is as it was.
    bool apply(const Change& change, const StepInfo& info);
    // Runs `work`, which adds, replaces or removes files of the Workspace. All that it changed is
    // one step; if it returns false, or the user's word stops it, every file is as it was before.
    bool changeMembers(const StepInfo& info, const std::function<bool()>& work);
    // A gfxboot of generation 1 or 2 becomes one of generation 3 with our engine, as one step: the
    // menu stays as it is on the screen (document/upgrade.h), gfxboot.cfg goes, as nothing reads it
    // any more. False if a file could not be read or written: the user was told, and all is as it
    // was.
    bool upgrade();
    // Such a work goes on: the files may be those of half a command.
    [[nodiscard]] bool inMembers() const { return m_inMembers; }
    // Until endGesture() all changes are one step; cancelGesture() takes them back without a trace.
    void beginGesture(const StepInfo& info);
    void endGesture();
    void cancelGesture();
    [[nodiscard]] bool inGesture() const { return m_gesture != nullptr; }

    // --- history
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    // "move of Time"; empty if there is nothing to undo or redo.
    [[nodiscard]] QString undoText() const;
    [[nodiscard]] QString redoText() const;
    // False if a file could not be put back: the user was told, and all is as it was.
    bool undo() { return travel(false); }
    bool redo() { return travel(true); }
    // Differs from what was opened or saved last.
    [[nodiscard]] bool isModified() const;
    // The state is on the disk now.
    void markSaved();
    // The state is on no disk: no undo leads to one that is.
    void markUnsaved();

    // --- saving: brings the parameters into their files in the Workspace. Where these hold what no
    // list shows, the user is asked once for each gfxboot whether it stays. False if that failed,
    // and the user was told, or if the user called it off.
    bool writeParameters();

    // --- what is shown; no step
    // The lists' values (false) or the menu's over them (true).
    void showMenuLevel(bool on);
    // What a menu file imposes goes to the menu layer of the parameters through `impose`.
    void setMenuValues(const std::function<void(ZUKarr&)>& impose);
    // Menu entries, each ending in "|": the first goes to the bar, the rest behind a blank to the
    // menu.
    void setMenuEntries(const QString& entries);
    // The menu's titles as the loader hands them over, for the picture of the boot.
    void setMenuTitles(const QStringList& titles);
    [[nodiscard]] const QStringList& menuTitles() const { return m_menuTitles; }
    // The words on an object.
    void setText(int object, const QString& text);
    // The number of the background that is shown: another may stand in for the one in use. Inside a
    // gesture it becomes the one in use, as a part of that step.
    void noteBackground(int number);
    // The older generations' menu is as high as its font says.
    void fitMenuToFont();

Q_SIGNALS:
    void changed(const fennel::DocumentChange& change);
    // Undo, redo, their texts or isModified() may differ.
    void historyChanged();
    void saved();

private:
    struct Command;

    [[nodiscard]] WholeState whole() const;
    void become(const WholeState& other);
    bool writeUpgrade();
    void setParam(const ParamKey& key, const ParamValue& value, Step& step);
    void setObject(int row, const PanelRec& record, Step& step);
    void recompute(const ParamKey& key, Step& step);
    bool setConfig(const Change& change, Step& step);
    [[nodiscard]] bool configEdited() const;
    [[nodiscard]] QStringList losses() const;
    bool chooseSaveForm();
    bool saveConfig();
    [[nodiscard]] SaveForm saveForm() const { return m_saveForm.value_or(SaveForm::Kept); }
    void keepObject(int row, Step& step) const;
    void noteSavedConfig(const CfgState& saved);
    void push(Step&& step);
    void boundHistory();
    [[nodiscard]] const Command* command(int index) const;
    bool travel(bool forward);
    bool move(const Step& step, bool forward);
    static DocumentChange changeOf(const Step& step);

    Shell m_shell;
    const FontTable& m_fonts;
    ParamState m_state;
    QByteArray m_cfgBytes;              // of gfxboot.cfg in the Workspace
    QByteArray m_savedCfgBytes;         // as it was opened or saved last
    std::optional<SaveForm> m_saveForm; // none: nothing had to be asked yet, and all is kept
    QStringList m_menuTitles;
    bool m_menuLevel = false;
    bool m_inMembers = false; // a command that changes files goes on
    MemberVersions m_history;
    QUndoStack m_stack;
    std::unique_ptr<Step> m_gesture;
};

} // namespace fennel
