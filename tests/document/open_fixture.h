// SPDX-License-Identifier: MIT
// An open without a window, step by step written down; and message files made byte by byte.
#pragma once

#include "container/gzip.h"
#include "container/raw_cpio.h"
#include "document/opening.h"
#include "support/test_shell.h"

#include <vector>

namespace fennel::test {

class RecordingListener : public OpenListener {
public:
    void openBegins() override { ++begun; }
    void reached(OpenStep step) override { steps.push_back(step); }
    void openEnds(bool opened) override { ended.push_back(opened); }

    int begun = 0;
    std::vector<OpenStep> steps;
    std::vector<bool> ended;
};

// What a gfxboot is opened into in a test's shell.
struct OpenBench {
    explicit OpenBench(const Shell& testShell) : shell(testShell) {}
    bool open(const QString& path)
    {
        listener = {};
        return gfxboot_open({shell, document, fonts, settings, false}, shortForm(path), listener);
    }
    const Shell& shell;
    FontState fonts;
    FontScanSettings settings;
    Document document{shell, fonts.table};
    RecordingListener listener;
};

inline std::string jpegBytes(int width, int height)
{
    return jpegOf({width, height}).toStdString();
}

// The least that opens.
inline RawCpio smallMessage(int width = 64, int height = 48)
{
    RawCpio archive;
    archive.add({.name = "init", .data = "engine"});
    archive.add({.name = "back.jpg", .data = jpegBytes(width, height)});
    return archive;
}

inline std::string gzipped(const std::string& bytes, std::string_view innerName = "#message")
{
    const auto packed = gzipCompress(
        {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, innerName, 0, 1);
    return {packed->begin(), packed->end()};
}

// What tells which gfxboot is open, and how.
struct OpenState {
    explicit OpenState(const RunState& run)
        : texts{run.Workspace, run.GfxPath, run.GfxFileName, run.BackFile},
          flags{run.GfxOpened, run.GfxHasCfg, run.GfxHasZuk, run.GfxIsGz}, numbers{run.gfxboot_var,
                                                                                   run.ObjectCount,
                                                                                   run.BackWidth,
                                                                                   run.BackHeight}
    {
    }
    bool operator==(const OpenState&) const = default;
    QStringList texts;
    std::vector<bool> flags;
    std::vector<int> numbers;
};

} // namespace fennel::test
