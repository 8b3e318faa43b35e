// SPDX-License-Identifier: MIT
// The window of the boot test: both pictures, the difference, the keys for the guest. It shows what
// it is given and tells what was pressed.
#pragma once

#include "editor/boot/boot_compare.h"
#include "screen/picture_difference.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace fennel {

class BootWindow : public QWidget {
    Q_OBJECT
public:
    // A window of its own over its parent.
    explicit BootWindow(QWidget* parent);

    void showPreview(const QImage& picture);
    // `stands`: it is the menu's, and can be compared.
    void showBooted(const QImage& picture, bool stands);
    // One line about the boot; `fault`: it is not what was hoped for.
    void showWords(const QString& words, bool fault);
    // What can be pressed: keys reach a guest; the guest is not yet in QEMU's window; a boot runs.
    void enable(bool awake, bool watchable, bool running);
    // Large enough for the pictures, as far as the desktop is.
    void fitToPictures();

Q_SIGNALS:
    void keyPressed(const QString& key);
    void watchWanted();
    void againWanted();
    void closed(); // whatever runs is to end

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeKeys();
    QWidget* makeButtons();
    void showDifference();

    QImage m_preview;
    QImage m_booted;
    bool m_stands = false;
    BootCompare* m_compare;
    QWidget* m_keys;
    QLabel* m_words;
    QLabel* m_share;
    QCheckBox* m_mark;
    QPushButton* m_again;
    QPushButton* m_watch;
    QPushButton* m_cancel;
};

} // namespace fennel
