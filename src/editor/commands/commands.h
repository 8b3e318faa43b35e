// SPDX-License-Identifier: MIT
// What the names of menu items and buttons run. A name without an entry is a command that does not
// exist, and the window shows it disabled.
#pragma once

#include <QString>

#include <functional>
#include <map>

namespace fennel {

class Commands {
public:
    using Handler = std::function<void()>;
    using IndexHandler = std::function<void(int)>;

    void add(const char* name, Handler handler)
    {
        m_handlers[QLatin1String(name)] = std::move(handler);
    }
    // For the entries of an array, which are told their index.
    void addArray(const char* name, IndexHandler handler)
    {
        m_arrays[QLatin1String(name)] = std::move(handler);
    }
    [[nodiscard]] bool has(const QString& name) const
    {
        return m_handlers.count(name) != 0 || m_arrays.count(name) != 0;
    }
    // Nothing runs while that is true, whoever asks for it.
    void holdWhile(std::function<bool()> held) { m_held = std::move(held); }
    void run(const QString& name) const
    {
        if (isHeld())
            return;
        if (const auto found = m_handlers.find(name); found != m_handlers.end())
            found->second();
    }
    void runEntry(const QString& name, int index) const
    {
        if (isHeld())
            return;
        if (const auto found = m_arrays.find(name); found != m_arrays.end())
            found->second(index);
    }

private:
    [[nodiscard]] bool isHeld() const { return m_held && m_held(); }

    std::function<bool()> m_held;
    std::map<QString, Handler> m_handlers;
    std::map<QString, IndexHandler> m_arrays;
};

} // namespace fennel
