// SPDX-License-Identifier: MIT
// The boot screen as it will be seen at boot, without a boot: the members' own pictures and
// letters, placed by the rules of the engine that is in the file. docs/engine.md and
// docs/as-it-boots.md tell the rules.
//
//     BootScreen screen;
//     screen.update(request);
//     screen.picture().save(...);
#pragma once

#include "container/engine_info.h"
#include "params/param_state.h"
#include "screen/boot_list.h"

#include <QDate>
#include <QStringList>
#include <QTime>

#include <map>
#include <optional>

namespace fennel {

inline constexpr double bootTicksPerSecond = 18.2;

// What moves is drawn as it stands then.
struct BootMoment {
    int ticks = 0;         // since the menu came; 18.2 are a second
    int timeout = 0;       // of the loader, seconds; 0 none
    bool allShown = false; // a key was pressed: what waits for the first key is there
    QTime clock = QTime(12, 34, 56);
    QDate date = QDate(2025, 1, 31);
};
// The moment that the preview shows unless it is told another one, on a day that never changes.
inline constexpr int previewSeconds = 4;
inline constexpr int previewTimeout = 10;
BootMoment previewMoment(int seconds = previewSeconds, int timeout = previewTimeout);

// Which of the panels that come and go is open.
enum class BootPanel { AsAtStart, None, Help, Wait, Information };

struct BootRequest {
    const ParamState& state; // parameters, gfxboot.cfg and objects of the open gfxboot
    QString folder;          // of the members; ends in "/"
    int generation = 1;      // 1 to 3
    QStringList titles;      // of the menu, as the loader hands them over, data titles included
    int chosen = 0;          // the entry that the bar is on, of those that are shown
    bool menuValues = false; // what the menu imposes (ZukCell::LstValue) goes over the parameters
    BootMoment moment = {};
    BootPanel panel = BootPanel::AsAtStart;
};

class BootScreen {
public:
    // Lays everything out and paints what looks different from the call before; returns that area.
    // Files that have changed since are read again.
    QRegion update(const BootRequest& request);
    // Of the last update(): Format_RGB32, one pixel of the boot screen each; null before the first.
    [[nodiscard]] const QImage& picture() const { return m_picture; }
    // By the row of PanelArr, boot-screen pixels; of objects that can be seen.
    [[nodiscard]] const std::map<int, QRect>& objects() const { return m_objects; }
    [[nodiscard]] BootEngine engine() const { return m_engine; }
    // Whether that engine's rules are those that the picture was drawn by.
    [[nodiscard]] bool rulesKnown() const { return m_rulesKnown; }
    // How many entries the menu has; the request's `chosen` counts as one of them.
    [[nodiscard]] int entries() const { return m_entries; }
    // A font is missing or broken: letters are those of the stand-in, or there are none.
    [[nodiscard]] bool lettersMissing() const { return m_members.lettersMissing(); }
    // The distance of two entries of the menu.
    [[nodiscard]] int menuPitch() const { return m_menuPitch; }
    [[nodiscard]] BootMembers& members() { return m_members; }

private:
    BootMembers m_members;
    BootList m_list;
    QImage m_ground;
    QImage m_picture;
    std::map<int, QRect> m_objects;
    // What no rules are known of is drawn by those of FlatCfg.
    BootEngine m_engine = BootEngine::Unknown;
    bool m_rulesKnown = false;
    int m_entries = 0;
    int m_menuPitch = 1;
};

} // namespace fennel
