// SPDX-License-Identifier: MIT
// A message file that is dropped on the window is opened.
#pragma once

#include <QObject>

namespace fennel {

class MainWindow;

class FileDrop : public QObject {
public:
    // Takes drops on the window from now on; the window outlives it.
    explicit FileDrop(MainWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MainWindow& m_window;
};

} // namespace fennel
