// SPDX-License-Identifier: MIT
// What the commands on backgrounds and logos need of the window: the rows of its lists, and to
// show what has changed. The window implements it; a test records the calls.
#pragma once

#include <QSize>
#include <QStringList>

namespace fennel {

class PictureHost {
public:
    virtual ~PictureHost() = default;
    // The first texts of the rows of the list "Background(s)" and of the logo object's list.
    [[nodiscard]] virtual QStringList backgroundRows() const = 0;
    // In the order of the list; rows that are no files may be among them.
    [[nodiscard]] virtual QStringList logoRows() const = 0;

    virtual void refillMembers() = 0;     // the list "Gfxboot"
    virtual void refillBackgrounds() = 0; // the list "Background(s)" and its thumbnails
    virtual void refillLogos() = 0;       // the logo object's list, its pictures and thumbnails
    // BackFile, anew from the file.
    virtual void ShowBackground() = 0;
    // All objects on the stage, anew from their records.
    virtual void refreshPanels() = 0;
    // Menus, toolbars, title and status line follow the run state.
    virtual void UpdateInterface() = 0;
    // The logo object gets this fixed size in its record, in boot-screen pixels.
    virtual void setLogoSize(QSize size) = 0;
    // Scales the stage to the screen.
    virtual void mnuView_fill() = 0;
    virtual void setWaiting(bool on) = 0; // the wait cursor; calls come in pairs
};

// Shows the wait cursor as long as it lives.
class Waiting {
public:
    explicit Waiting(PictureHost& host) : m_host(host) { m_host.setWaiting(true); }
    ~Waiting() { m_host.setWaiting(false); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    PictureHost& m_host;
};

} // namespace fennel
