// SPDX-License-Identifier: MIT
// The preview stage without a window: the background at its scale, one panel per boot-screen object
// on it, which of them are seen and in which order, the selection and its marker. What is painted
// and what the mouse does (gestures.h) is decided here; the widget only shows it.
#pragma once

#include "base/shell_context.h"
#include "document/document.h"
#include "editor/stage/boot_view.h"
#include "editor/stage/stage_host.h"
#include "fonts/font_table.h"
#include "params/panel_rec.h"
#include "screen/background.h"
#include "screen/geometry.h"

#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QLine>
#include <QRegion>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace fennel {

// What the stage works on; the referenced objects outlive it.
struct StageData {
    Shell shell;
    fennel::Document& document;
    const fennel::FontTable& FontTable;
    StageHost& host;
    ResizeJpgCall ResizeJpg;
};

// An element of the array Panel: what stands on the stage for a row of PanelArr. Shown pixels.
struct StagePanel {
    QRect rect;
    bool visible = false;
    bool plain = false; // a box of its fill colour, while it is pulled
    bool stale = true;  // `picture` is to be drawn before it is seen
    bool drawn = false; // has ever been drawn since the gfxboot was opened
    QRgb fill = 0;
    QImage picture;   // the part of the panel that lay on the background when it was drawn
    QPoint pictureAt; // where that part begins in the panel
};

// What is painted above all panels.
struct StageOverlay {
    std::optional<QRect> resizeBand; // outline while the marker is pulled
    std::optional<QRect> freeBand;   // the measuring rubber band
    QString measure = {};            // beside it
    std::vector<QLine> guides = {};  // what a dragged object stands in line with
};

// Every index is a row of PanelArr; one that has no row is passed over. A procedure that changes
// what is seen reports the changed area through `repaint`.
class Stage {
public:
    // Black and 400 by 300 until the first background; no panel before adoptPanels().
    explicit Stage(const StageData& data);

    std::function<void(const QRect&)> repaint; // shown pixels
    std::function<void()> pictureChanged;      // Picture1 has another size or background
    std::function<void()> markerChanged;       // the marker came or went: the pulse starts or ends
    // An object that lists or keys chose or moved, to be scrolled into view; shown pixels.
    std::function<void(const QRect&)> placeWanted;
    std::function<void()> tryEnded; // a key ended the trying of the menu

    int SelectedPanel = -1; // the object that marker and controls work on, -1 none
    int ColourPanel = -1;   // the object whose colour is edited, -1 none
    int LogoIndex = 0;      // which of the logos LOGO shows

    // --- background (stage_background.cpp)
    // Makes the scaled picture, loads it, has the window laid out, draws all panels anew. A picture
    // that cannot be shown is told once; Picture1 then keeps what it had.
    void ShowBackground();
    // ShowBackground after a change of PreviewScale; menu and bar of generations 1 and 2 reach
    // from their left edge to the right end of the picture.
    void ApplyScale();
    // The user knows already that the present background cannot be shown.
    void tellNoMore();
    [[nodiscard]] QSize pictureSize() const { return m_background.size(); }
    [[nodiscard]] const QImage& background() const { return m_background; }
    void setBackground(const QImage& picture); // Format_RGB32, not empty

    // --- as it boots (stage_boot.cpp)
    // The picture of the boot takes the place of the schematic one. Off at first.
    void showAsItBoots(bool on);
    [[nodiscard]] bool asItBoots() const { return m_asItBoots; }
    // Draws anew what differs. The stage does it itself when the document changes.
    void updateBoot();
    // What moves is shown as it stands so many seconds after the menu came, of a loader with that
    // timeout (0 none).
    void setBootMoment(int seconds, int timeout);
    [[nodiscard]] const BootChoice& bootChoice() const { return m_boot.choice; }
    // The arrow keys move the menu's bar, until Escape; only as it boots.
    void tryMenu(bool on);
    [[nodiscard]] bool trying() const { return m_trying; }
    void chooseEntry(int entry); // from 0; beyond the ends the last or first one
    bool menuKey(int key);       // true if the trying of the menu used it
    // As it boots nothing moves that would boot elsewhere: why the object stays, empty if it does
    // not; the same in the status line.
    [[nodiscard]] QString whyFixed(int index) const;
    void tellFixed(int index) const;
    // What is seen, without marker and bands.
    [[nodiscard]] const QImage& picture() const
    {
        return m_asItBoots && run().GfxOpened ? m_boot.picture() : m_background;
    }

    // --- panels
    // After PanelArr was built anew: one hidden, undrawn panel per row, nothing selected. The
    // stacking order of the panels that were there stays.
    void adoptPanels();
    // The pictures that LOGO steps through; LogoIndex starts anew if it is beyond them.
    void setLogos(const QStringList& files);
    [[nodiscard]] int logoCount() const { return static_cast<int>(m_logos.size()); }
    // Wraps around; there is at least one logo.
    void stepLogo(int by);
    // The logo of that number on LOGO, raised; a number without picture changes nothing.
    void showLogo(int number);

    // Takes every panel off the stage; records and pictures stay.
    void HideAllPanels();
    // The same, and the background goes too, until something is drawn again.
    void clear();
    void endClear();
    // Colours, place and size from the record, to the front if it is seen and enabled, then drawn.
    void ApplyPanel(int index);
    // All panels from their records; those that are shown only with their tab stay hidden, but for
    // the object of the selected tab.
    void RefreshPanels();
    // Blends and prints one panel anew where it stands, and shows it. The options line of a
    // gfxboot.cfg with an empty boot_show keeps its last look.
    void DrawPanel(int index);
    // As far as the panel may be seen at all; its picture is drawn first if it is stale.
    void showPanel(int index, bool visible);
    // To the top of the stacking order, seen or not.
    void raisePanel(int index);
    // The menu and its bar both, any other panel alone: drawn anew.
    void redraw(int index);

    // True for 0 up to the number of panels that have both a record and a place here.
    [[nodiscard]] bool isRow(int index) const;
    // Only for an index that isRow(); so is record().
    [[nodiscard]] const StagePanel& panel(int index) const { return m_panels[at(index)]; }
    [[nodiscard]] const PanelRec& record(int index) const { return *document().object(index); }
    // Shown pixels. The record does not follow, the picture is not drawn anew.
    void setPanelRect(int index, const QRect& rect);
    void setPlain(int index); // until its next DrawPanel
    [[nodiscard]] const std::vector<int>& stacking() const { return m_order; } // lowest first
    // The topmost panel under a shown point that takes the mouse (seen and enabled), -1 none.
    [[nodiscard]] int panelAt(QPoint point) const;

    // --- selection (stage_select.cpp)
    // The object becomes the selected one; its colours go to the controls. -1: none.
    void SelectPanel(int index);
    // The way in for lists and keys: raises, selects, draws and marks, if a gfxboot is open.
    void ActivatePanel(int index);
    // The next enabled object, or the one before; in generation 3 with a tone and with its tab.
    void SelectNextPanel(bool backwards);
    // Hides the marker first if `keep` is not 0; clears the bands; marks the panel if index is 0 or
    // more and the panel is seen. ShowMarker(-1, -1) only hides.
    void ShowMarker(int index, int keep);
    [[nodiscard]] bool markerVisible() const { return m_markerOn; }
    [[nodiscard]] QRect marker() const { return m_marker; }
    // The pulse runs: the marker is seen, and not on a panel without one (2 and 3).
    [[nodiscard]] bool pulses() const;
    void setPulsePhase(int phase); // 0 to 200
    // Replaces both bands; an empty overlay clears them.
    void setOverlay(const StageOverlay& overlay);
    [[nodiscard]] const StageOverlay& overlay() const { return m_overlay; }

    // --- what everything above is made of
    // Paints the part of the stage that lies in `dirty`; the painter's unit is one shown pixel.
    void paint(QPainter& painter, const QRegion& dirty) const;
    // Whether an item of the button bar (0 to 8) shows: gfxboot.cfg may hide it.
    [[nodiscard]] bool ButtonVisible(int item) const;
    [[nodiscard]] StageScale scale() const { return StageScale(m_data.shell.run.PreviewScale); }
    [[nodiscard]] double menuPitch() const; // boot pixels of a menu line
    [[nodiscard]] const StageData& data() const { return m_data; }
    [[nodiscard]] RunState& run() const { return m_data.shell.run; }
    [[nodiscard]] Document& document() const { return m_data.document; }
    [[nodiscard]] StageHost& host() const { return m_data.host; }

private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    [[nodiscard]] int rows() const;
    [[nodiscard]] bool mayShow(int index) const;
    [[nodiscard]] bool isWanted(int index) const;
    [[nodiscard]] bool isFrozen(int index) const;
    void changed(const QRect& area) const;
    void changedOutline(const std::optional<QRect>& band) const;
    void changedOverlay() const;
    [[nodiscard]] QFont measureFont() const;
    [[nodiscard]] QRect measureRect() const;
    void loadLogo();
    void place(int index);
    QRect reach(int index) const; // what is repainted for it
    void setVisible(int index, bool visible);
    void render(int index);
    void drawContents(int index, QPainter& painter);
    [[nodiscard]] int fontOf(int index) const;
    void updateOnOffCaptions();
    void paintPanel(QPainter& painter, const StagePanel& panel, const QRegion& part) const;
    void paintFrame(QPainter& painter, const QRegion& bare) const;
    void paintOverlay(QPainter& painter) const;
    [[nodiscard]] QRegion frameRegion() const;
    [[nodiscard]] bool bootShows(int index) const;
    void showSizeStatus();
    void paintBoot(QPainter& painter, const QRegion& dirty) const;
    void loadScaledBack();
    void tellOnce(const Failure& failure);
    void rememberBackground();
    void replaceMenu();
    void tone(int tab);

    StageData m_data;
    BootView m_boot;
    bool m_asItBoots = false;
    bool m_trying = false;
    int m_openRow = -1;     // the object of the tab that was open at the last updateBoot()
    QString m_note;         // of the boot's picture, in the status line
    QObject m_listener;     // its end ends the listening to the document
    QStringList m_families; // of the system, when the gfxboot was opened
    QImage m_background;
    bool m_cleared = false;    // nothing of the picture is seen
    double m_shownScale = 1.0; // of the background that is on the stage
    std::vector<StagePanel> m_panels;
    std::vector<int> m_order;
    QStringList m_logos;
    QImage m_logo; // the one that LOGO shows; null if it cannot be read
    int m_logoLoaded = -1;
    bool m_markerOn = false;
    QRect m_marker;
    int m_phase = 0;
    StageOverlay m_overlay;
    QString m_told; // background that the user was last told about, with its time of change
};

} // namespace fennel
