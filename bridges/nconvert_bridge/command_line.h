// SPDX-License-Identifier: MIT
// The command lines that the picture bridge understands:
//
//   nconvert_bridge OPTIONS -o FILE SOURCE ,0
//   nconvert_bridge OPTIONS -clipboard -o FILE ,0
//   nconvert_bridge -serve                          (see picture_service.h)
//
// The options may stand in any order; the suffix may be missing.
#pragma once

#include "base/result.h"

#include <optional>
#include <string>
#include <vector>

namespace fennel::nconvert {

enum class OutputFormat { Jpeg, Xpm, Gif, Ico };
// What becomes of a picture of another shape than -resize gives: -shape stretch, crop or fit.
enum class Shape {
    Stretch,
    Crop, // the largest middle part of that shape
    Fit,  // the whole, black beside it
};

// -truecolors, -rexifthumb and -rmeta are taken and need no mention here: a JPEG of this bridge
// always has true colours and never any thumbnail or metadata.
struct Job {
    OutputFormat format = OutputFormat::Jpeg; // -out
    std::string output;                       // -o
    std::string source;                       // empty only with -clipboard
    bool overwrite = false; // without it a file that stands at `output` is kept and the run fails
    bool clipboard = false; // the picture is the file clipboardName beside the output
    int blur = 0;           // percent, 0 none
    int colours = 0;        // at most so many, 0 as many as the format holds
    int dpi = 72;
    int quality = 85; // JPEG, 1 to 100
    bool resize = false;
    int width = 0; // pixels; 0 for one of the two keeps the picture's proportions
    int height = 0;
    Shape shape = Shape::Stretch;
    bool crop = false; // -crop left top width height, pixels of the upright source: nothing else
    int cropLeft = 0;
    int cropTop = 0;
    int cropWidth = 0;
    int cropHeight = 0;
    bool alpha = false;   // -extract alpha: how opaque the source is, white where it is
    bool partial = false; // what there is of a picture that is cut off will do
    bool inside = false;  // only down, and in proportion, until it lies within width and height
};

// Where the editor leaves the picture that it took from the clipboard: only the program that owns a
// window can ask the window system for it.
inline constexpr char clipboardName[] = "~clipboard.png";

Result<Job> parseCommandLine(const std::vector<std::string>& arguments);

// The file to read: the source, or the clipboard's.
std::string sourceOf(const Job& job);

} // namespace fennel::nconvert
