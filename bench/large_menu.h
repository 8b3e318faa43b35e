// SPDX-License-Identifier: MIT
// A menu file as large as one may meet.
#pragma once

#include <QByteArray>

namespace fennel {

// 10,000 titles in 1 MB, every tenth with values for the objects.
inline QByteArray largeMenu()
{
    QByteArray menu = "gfxmenu (hd0,0)/boot/message\r\n";
    for (int i = 0; i < 10'000; ++i) {
        const QByteArray number = QByteArray::number(i);
        menu += i % 10 == 0 ? "title [zuk000" + QByteArray::number(i / 10 % 9) + "] :2=" + number +
                                  " :22=0x00ff00 :23=15\r\n"
                            : "title Entry " + number + "\\nIts help text\r\n";
        menu += "find --set-root /boot/image" + number + "\r\nkernel /boot/k\r\n";
        menu += "initrd /boot/initrd.img\r\n";
    }
    return menu;
}

} // namespace fennel
