// SPDX-License-Identifier: MIT
// The main of every test program: a QApplication on the offscreen platform, settings and temporary
// files in a folder of its own that goes with the process.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    const QByteArray folder = home.path().toLocal8Bit();
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "Temp"})
        qputenv(name, folder);
    qputenv("XDG_RUNTIME_DIR", folder);
    const QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
