// SPDX-License-Identifier: MIT
// Sample pictures and what other programs say of them. ImageMagick's programs make the samples and
// are the judges; the marker walk for JPEGs is written a second time here on purpose.
#pragma once

#include "support/test_shell.h"
#include "tools/image_tool.h"

#include <QImage>

namespace fennel::test {

// What a program writes to standard output, trimmed; the test fails if it cannot be run.
QString outputOf(const QString& program, const QStringList& arguments);

// Four quadrants: red, green above blue, yellow. Saved as PNG; 320x200.
QString quadrantPicture(TestShell& t);

// The colours in the middle of the four quadrants, each as one letter: "rgby" is upright. "k" is
// black, "?" none of them.
QString quadrantsOf(const QString& path);

// "SOF marker, its components' sampling, other markers before the scan", such as
// "C0 22 11 11 | E0 DB C4": what the bytes of a JPEG say.
QString markersOf(const QByteArray& jpeg);

// A runner that remembers the command lines.
class RecordingTools : public ToolRunner {
public:
    QList<QStringList> lines;
    Result<void> RunToolAndWait(const QStringList& commandLine) override;
    Result<void> runIntoFile(const QStringList& commandLine, const QString& outputFile) override;
    [[nodiscard]] QString lastErrorOutput() const override { return m_real.lastErrorOutput(); }

private:
    ProcessToolRunner m_real;
};

class FakeClipboard : public PictureClipboard {
public:
    QImage held;
    [[nodiscard]] QImage picture() const override { return held; }
    void setPicture(const QImage& picture) override { held = picture; }
};

} // namespace fennel::test
