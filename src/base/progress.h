// SPDX-License-Identifier: MIT
// Long work as its user sees it: what is going on, how far it is, and a way to call it off. Core
// code that takes long is given one; the window implements it, a test or a command line its own.
#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace fennel {

class Progress : public QObject {
    Q_OBJECT
public:
    // Work that ends before this is not worth showing.
    static constexpr int patienceMs = 500;

    // The work begins; `what` is a few words for the user. One work at a time: whoever shows it
    // holds back everything that could begin another.
    virtual void begin(const QString& what) = 0;
    // From 0 to 1; nothing as long as it is unknown, as at the beginning.
    virtual void setShare(std::optional<double> share) = 0;
    // The work is over, whichever way.
    virtual void end() = 0;
    // Whether the user called the work off. May be true from the beginning on, if the program is
    // about to end.
    [[nodiscard]] virtual bool cancelled() const = 0;

Q_SIGNALS:
    // cancelled() is true from now on.
    void cancelRequested();
};

} // namespace fennel
