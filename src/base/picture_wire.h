// SPDX-License-Identifier: MIT
// How the editor and the picture bridge speak while the bridge stands by. A request is a
// PictureRequest and the bytes of a path; the answer a PictureReply and, behind it, either the
// pixels (four bytes each, as Format_RGB32, without padding) or the sentence of a failure. Both run
// on one machine, so numbers have its byte order.
#pragma once

#include <cstdint>

namespace fennel {

enum class PictureMode : std::uint32_t {
    Measure, // the stored size, nothing is decoded
    Whole,   // every pixel
    Inside,  // scaled down to lie inside the size; smaller pictures stay as they are
};

struct PictureRequest {
    PictureMode mode = PictureMode::Measure;
    std::uint32_t width = 0; // pixels, for Inside
    std::uint32_t height = 0;
    std::uint32_t mostPixels = 0; // TooLarge if more would be handed over
    std::uint32_t pathBytes = 0;
};

struct PictureReply {
    std::uint32_t failure = 0; // 0: none, else the FailureKind and one
    std::uint32_t storedWidth = 0;
    std::uint32_t storedHeight = 0; // as the file tells it, before it is turned upright; 0 unknown
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t textBytes = 0;
};

inline constexpr std::uint32_t mostPathBytes = 16 * 1024;
// A picture that takes longer ends the bridge.
inline constexpr unsigned pictureSeconds = 10;

} // namespace fennel
