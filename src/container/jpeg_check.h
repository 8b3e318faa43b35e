// SPDX-License-Identifier: MIT
// Tells whether a JPEG shows on the boot screen. The engine's decoder knows baseline pictures of
// three components in 4:2:0 without restart markers; every other kind stays black there, although
// all desktop programs show it. Marker layout after ITU-T T.81, annex B; density after JFIF 1.02.
#pragma once

#include "base/result.h"

#include <string_view>

namespace fennel {

// What the markers before the first scan say. Sizes in pixels.
struct JpegHead {
    int width = 0;
    int height = 0;
    int components = 0;
    int bits = 0;             // per sample
    bool baseline = false;    // SOF0; false for extended, progressive, lossless, arithmetic
    bool sampling420 = false; // luma 2x2, both chroma 1x1
    int restartInterval = 0;  // MCUs between restart markers; 0 none
    bool metadata = false;    // a comment, or an application segment other than JFIF's
    int dotsPerInch = 0;      // horizontal; 0 if the picture gives no density in inches
};

// Reads up to the first scan; the picture data behind it is not looked at. Malformed if the bytes
// are no JPEG or end before that.
Result<JpegHead> readJpegHead(std::string_view bytes);

// How often the file goes over the picture: 1 to 4 in a baseline JPEG, some ten in a progressive
// one. Stops counting above maxJpegScans.
inline constexpr int maxJpegScans = 100;
int jpegScans(std::string_view bytes);

// A failure's text says what keeps the picture from the boot screen, such as "progressive".
Result<void> checkBootable(const JpegHead& head);

} // namespace fennel
