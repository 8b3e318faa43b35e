// SPDX-License-Identifier: MIT
#include "editor/stage/stage.h"

#include "params/level_files.h"
#include "params/panel_values.h"
#include "screen/background.h"
#include "screen/panel_text.h"

#include <QFontDatabase>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize emptyStage(400, 300); // before the first background

} // namespace

Stage::Stage(const StageData& data)
    : m_data(data), m_boot(data.document, data.FontTable),
      m_background(emptyStage, QImage::Format_RGB32)
{
    m_background.fill(Qt::black);
    QObject::connect(&data.document, &Document::changed, &m_listener, [this] { updateBoot(); });
}

// The records may have been replaced before the stage has adopted them.
int Stage::rows() const
{
    return static_cast<int>(std::min(m_panels.size(), document().state().PanelArr.size()));
}

bool Stage::isRow(int index) const
{
    return index >= 0 && index < rows();
}

void Stage::changed(const QRect& area) const
{
    if (repaint && !area.isEmpty())
        repaint(area);
}

// Rules that no visibility of a record or a tab overrides.
bool Stage::mayShow(int index) const
{
    if (index == ButtonsPanelRow || index == OptionsPanelRow) {
        if (run().GfxHasZuk)
            return false; // the enhanced engine has no such objects
    }
    return index != OptionsPanelRow || document().CfgValue(u"boot_show") != u'0';
}

// An object that is switched off, or that only its tab shows, is seen while that tab is open.
bool Stage::isWanted(int index) const
{
    const PanelRec& rec = record(index);
    if (!rec.Shown || index == host().objectOfCurrentTab())
        return rec.Shown;
    if (rec.OnlySelected || rec.OnParam <= 0)
        return !rec.OnlySelected;
    const auto& imposed = document().state().ZUKarr.at(levelFileOf(rec), rec.OnParam).LstValue;
    const bool fromMenu = imposed && document().menuLevelShown();
    return (fromMenu ? *imposed : switchValue(document().state(), rec)) > 0;
}

// An empty boot_show says neither yes nor no: the line is left as it was drawn.
bool Stage::isFrozen(int index) const
{
    return index == OptionsPanelRow && run().GfxHasCfg &&
           document().CfgValue(u"boot_show").isEmpty();
}

void Stage::adoptPanels()
{
    HideAllPanels();
    ShowMarker(-1, -1);
    SelectedPanel = -1;
    ColourPanel = -1;
    LogoIndex = 0;
    loadLogo();
    // Asked once for each gfxboot, as the list takes long on some systems.
    m_families = QFontDatabase::families();
    m_panels.resize(std::max(m_panels.size(), document().state().PanelArr.size()));
    for (StagePanel& panel : m_panels)
        panel = StagePanel();
    host().showColourControls(-1);
    // The order of panels outlives an open; new ones come on top.
    while (m_order.size() < m_panels.size())
        m_order.push_back(static_cast<int>(m_order.size()));
}

// Only the one that is seen is decoded, and not larger than any screen shows it: sixty large ones
// would fill the memory.
void Stage::loadLogo()
{
    constexpr QSize room(2560, 1600);
    if (m_logoLoaded == LogoIndex)
        return;
    m_logoLoaded = LogoIndex;
    const QString file = m_logos.value(LogoIndex);
    const Result<QImage> read = file.isEmpty() ? QImage() : loadPicture(m_data.shell, file, room);
    m_logo = read ? *read : QImage();
}

void Stage::stepLogo(int by)
{
    LogoIndex = (LogoIndex + by + logoCount()) % logoCount();
    loadLogo();
    DrawPanel(LogoPanelRow);
}

void Stage::setLogos(const QStringList& files)
{
    m_logos = files;
    m_logoLoaded = -1;
    // The logos of another gfxboot, or one was deleted.
    if (LogoIndex >= logoCount())
        LogoIndex = 0;
    loadLogo();
    if (isRow(LogoPanelRow))
        // Drawn when it is next shown.
        m_panels[LogoPanelRow].stale = true;
}

void Stage::showLogo(int number)
{
    if (number < 0 || number >= logoCount() || !isRow(LogoPanelRow))
        return;
    LogoIndex = number;
    loadLogo();
    raisePanel(LogoPanelRow);
    DrawPanel(LogoPanelRow);
}

// The old places are repainted before any panel gets a new one.
void Stage::HideAllPanels()
{
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        if (m_panels[i].visible)
            changed(reach(static_cast<int>(i)));
        m_panels[i].visible = false;
    }
}

void Stage::clear()
{
    HideAllPanels();
    m_cleared = true;
    changed(QRect(QPoint(), pictureSize()));
}

void Stage::endClear()
{
    if (!m_cleared)
        return;
    m_cleared = false;
    changed(QRect(QPoint(), pictureSize()));
}

void Stage::place(int index)
{
    const PanelRec& rec = record(index);
    StagePanel& panel = m_panels[at(index)];
    panel.fill = rec.BackColor;
    const QRect booted = m_asItBoots ? m_boot.rect(index) : QRect();
    setPanelRect(index, booted.isNull() ? scale().shown(rec) : booted);
    if (panel.visible && rec.Enabled)
        raisePanel(index);
}

void Stage::ApplyPanel(int index)
{
    if (!isRow(index))
        return;
    place(index);
    if (record(index).Shown)
        DrawPanel(index);
}

void Stage::RefreshPanels()
{
    HideAllPanels();
    updateBoot();
    for (int i = 0; i < rows(); ++i) {
        const PanelRec& rec = record(i);
        StagePanel& panel = m_panels[at(i)];
        place(i);
        panel.stale = panel.stale || (rec.Shown && !isFrozen(i));
        panel.plain = false;
        setVisible(i, isWanted(i));
    }
    // The marker goes with its panel, and away if that is no longer seen.
    if (m_markerOn)
        ShowMarker(SelectedPanel, 0);
}

// Pictures are drawn when a panel is first seen, so a hidden object costs nothing.
void Stage::setVisible(int index, bool visible)
{
    StagePanel& panel = m_panels[at(index)];
    const bool seen = m_asItBoots ? bootShows(index)
                                  : visible && mayShow(index) && (!isFrozen(index) || panel.drawn);
    // Drawn before it is shown, so it never flashes up with its old picture.
    if (seen && panel.stale && !m_asItBoots && !isFrozen(index))
        render(index);
    if (panel.visible == seen)
        return;
    panel.visible = seen;
    changed(reach(index));
}

void Stage::showPanel(int index, bool visible)
{
    if (m_asItBoots)
        updateBoot(); // the panel of the open tab comes, that of the one before goes
    if (isRow(index))
        setVisible(index, visible);
}

// Marks the picture stale; it is drawn only if the panel can be seen.
void Stage::DrawPanel(int index)
{
    if (!isRow(index) || (isFrozen(index) && !m_asItBoots))
        return;
    StagePanel& panel = m_panels[at(index)];
    panel.plain = false;
    panel.stale = true;
    if (m_asItBoots)
        return; // the boot's picture follows the document
    panel.fill = record(index).BackColor;
    if (panel.visible)
        changed(panel.rect);
    setVisible(index, isWanted(index));
}

void Stage::redraw(int index)
{
    // The bar prints the menu's first entry, so the two are always drawn together.
    if (!isMenuRow(index)) {
        DrawPanel(index);
        return;
    }
    DrawPanel(MenuPanelRow);
    DrawPanel(MenuBarRow);
}

void Stage::raisePanel(int index)
{
    const auto found = std::find(m_order.begin(), m_order.end(), index);
    if (found == m_order.end() || !isRow(index))
        return;
    std::rotate(found, found + 1, m_order.end());
    if (panel(index).visible)
        changed(panel(index).rect);
}

// The frame of the selected panel lies one pixel outside it.
QRect Stage::reach(int index) const
{
    const int frame = m_markerOn && index == SelectedPanel ? 1 : 0;
    return m_panels[at(index)].rect.adjusted(-frame, -frame, frame, frame);
}

void Stage::setPanelRect(int index, const QRect& rect)
{
    StagePanel& panel = m_panels[at(index)];
    if (panel.rect == rect)
        return;
    // Both the old and the new place are repainted.
    if (panel.visible)
        changed(reach(index));
    panel.rect = rect;
    if (panel.visible)
        changed(reach(index));
}

void Stage::setPlain(int index)
{
    m_panels[at(index)].plain = true;
    changed(panel(index).rect);
}

int Stage::panelAt(QPoint point) const
{
    // From the top, as the user sees them.
    for (auto i = m_order.rbegin(); i != m_order.rend(); ++i) {
        if (isRow(*i) && panel(*i).visible && record(*i).Enabled && panel(*i).rect.contains(point))
            return *i;
    }
    return -1;
}

bool Stage::ButtonVisible(int item) const
{
    // Without a cfg file nothing can hide a button.
    return !run().GfxHasCfg || document().CfgValue(hideKey(item)) == u'0';
}

double Stage::menuPitch() const
{
    if (m_asItBoots)
        return m_boot.screen().menuPitch();
    const std::size_t known = at(fontOf(MenuPanelRow));
    const double size = known < m_data.FontTable.size() ? m_data.FontTable[known].Size : 0;
    return linePitch(size, menuSlit(document().state()));
}

} // namespace fennel
