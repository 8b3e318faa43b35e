// SPDX-License-Identifier: MIT
// The background comes to its scale, and the panels with it.
#include "base/failure_words.h"
#include "editor/stage/stage.h"
#include "screen/scale_rules.h"

#include <QFileInfo>

namespace fennel {

using namespace Qt::StringLiterals;

void Stage::setBackground(const QImage& picture)
{
    if (picture.isNull())
        return;
    m_background = picture.convertToFormat(QImage::Format_RGB32);
    m_cleared = false;
    // Their pictures are mixed with what lies below.
    for (StagePanel& panel : m_panels)
        panel.stale = true;
    if (pictureChanged)
        pictureChanged();
    changed(QRect(QPoint(), pictureSize()));
}

void Stage::tellNoMore()
{
    const QFileInfo file(run().BackFile);
    m_told = u"%1|%2|%3"_s.arg(run().BackFile, file.lastModified().toString(Qt::ISODateWithMs))
                 .arg(run().PreviewScale);
}

// ShowBackground runs at every move of a splitter; the same broken file is told once.
void Stage::tellOnce(const Failure& failure)
{
    if (failure.told)
        return;
    const QString before = m_told;
    tellNoMore();
    if (m_told == before)
        return;
    // The user knows the background by its own name, not by that of the work file.
    QString text = failureWords(failure);
    text.replace(run().WorkspaceRoot + scaledBackName, run().BackFile);
    m_data.shell.prompts.ShowMessage(text);
}

void Stage::loadScaledBack()
{
    // The claimed size is looked at before any tool gets to decode the file.
    if (const Result<void> checked = checkPicture(m_data.shell, run().BackFile); !checked)
        return tellOnce(checked.failure());
    if (const Result<void> made = makeScaledBack(m_data.shell, m_data.ResizeJpg); !made) {
        // The picture keeps its size, and what stands on it must keep its places.
        if (made.failure().kind == FailureKind::Canceled)
            run().PreviewScale = m_shownScale;
        return tellOnce(made.failure());
    }
    const QString scaled = run().WorkspaceRoot + scaledBackName;
    // Whenever one cannot be had the old background stays on the stage.
    const Result<QImage> picture = loadPicture(m_data.shell, scaled);
    if (!picture)
        return tellOnce(picture.failure());
    m_told.clear();
    m_shownScale = run().PreviewScale;
    setBackground(*picture);
}

void Stage::rememberBackground()
{
    // While a menu's values are shown the choice is the menu's and must not go into the list.
    if (run().GfxHasZuk && !document().menuLevelShown())
        document().noteBackground(backgroundNumber(run().BackFile));
}

void Stage::ShowBackground()
{
    m_data.shell.WriteLog(u" Picture1.Show "_s);
    endClear();
    host().prepareBackground();
    if (FileExists(run().BackFile)) {
        loadScaledBack();
        showSizeStatus();
        rememberBackground();
    }
    // The picture has its new size by now, and the window is fitted to it.
    host().layOutWindow();
    ShowMarker(-1, -1);
    RefreshPanels();
    raisePanel(SelectedPanel);
    if (SelectedPanel == MenuPanelRow)
        raisePanel(MenuBarRow); // the bar never goes under its menu
    ShowMarker(SelectedPanel, 0);
    changed(QRect(QPoint(), pictureSize()));
}

void Stage::replaceMenu()
{
    for (const int index : {MenuPanelRow, MenuBarRow}) {
        const QRect rect = scale().shown(record(index));
        showPanel(index, false);
        raisePanel(index);
        // To the right edge of the picture as it is shown, which rounding may put a pixel off the
        // scaled width.
        setPanelRect(index, {rect.x(), rect.y(), std::max(0, pictureSize().width() - rect.x()),
                             rect.height()});
    }
    ShowMarker(-1, -1);
    redraw(MenuPanelRow);
    ShowMarker(SelectedPanel, 0);
}

void Stage::ApplyScale()
{
    ShowBackground();
    // In generation 3 the menu has a width of its own.
    if (rows() >= 2 && run().gfxboot_var != 3 && !m_asItBoots)
        replaceMenu();
    host().scaleApplied();
}

} // namespace fennel
