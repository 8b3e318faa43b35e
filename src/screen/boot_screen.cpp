// SPDX-License-Identifier: MIT
#include "screen/boot_screen.h"

#include "screen/boot_layout.h"

#include <algorithm>
#include <array>

namespace fennel {

bool isVideoMode(QSize size)
{
    constexpr std::array<std::pair<int, int>, 25> modes = {
        {{320, 200},   {320, 240},   {400, 300},   {512, 384},   {640, 400},
         {640, 480},   {800, 600},   {1024, 768},  {1152, 864},  {1280, 720},
         {1280, 768},  {1280, 800},  {1280, 960},  {1280, 1024}, {1360, 768},
         {1366, 768},  {1400, 1050}, {1440, 900},  {1600, 900},  {1600, 1200},
         {1680, 1050}, {1920, 1080}, {1920, 1200}, {2560, 1440}, {2560, 1600}}};
    return std::ranges::find(modes, std::pair(size.width(), size.height())) != modes.end();
}

BootMoment previewMoment(int seconds, int timeout)
{
    BootMoment moment;
    moment.ticks = static_cast<int>(seconds * bootTicksPerSecond);
    moment.timeout = timeout;
    moment.allShown = true;
    return moment;
}

QRegion BootScreen::update(const BootRequest& request)
{
    m_members.setFolder(request.folder);
    const bool otherFiles = m_members.refresh();
    m_members.forgetMissingLetters();
    m_engine = engineOf(m_members.bytes(QStringLiteral("init"))).kind;
    BootLayout layout = request.generation == 3 ? layOutOwn(request, m_members)
                                                : layOutCfg(request, m_members, m_engine);
    m_entries = layout.entries;
    m_menuPitch = layout.menuPitch;
    m_objects.clear();
    for (const BootObject& object : layout.list.objects)
        m_objects[object.row] |= object.rect;
    m_rulesKnown = request.generation == 3
                       ? m_engine == BootEngine::Own
                       : m_engine == BootEngine::FlatCfg || m_engine == BootEngine::Sections;
    QRegion dirty = changedArea(m_list, layout.list);
    if (otherFiles)
        dirty = QRect(QPoint(), layout.list.screen);
    m_list = std::move(layout.list);
    if (dirty.isEmpty())
        return {};
    // The whole screen is anew if its ground is.
    if (dirty.boundingRect().size() == m_list.screen)
        m_ground = bootGround(m_list, m_members);
    if (m_picture.size() != m_list.screen)
        m_picture = QImage(m_list.screen, QImage::Format_RGB32);
    return paintBoot(m_list, m_members, m_ground, dirty, m_picture);
}

} // namespace fennel
