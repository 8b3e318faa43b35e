// SPDX-License-Identifier: MIT
// How large a picture may be that this program and its picture bridge take on. A file of a few
// hundred bytes can announce a picture that fills all memory, so the announced size is checked
// before anything is decoded.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <string>

namespace fennel {

inline constexpr int maxPictureSide = 16384;                       // pixels, width and height
inline constexpr std::int64_t maxPicturePixels = 100'000'000;      // width times height
inline constexpr std::int64_t maxPictureBytes = 512 * 1024 * 1024; // of a source

// `what` begins the sentence, such as "The picture".
inline Result<void> checkPictureSize(const std::string& what, std::int64_t width,
                                     std::int64_t height)
{
    if (width < 1 || height < 1)
        return Failure{FailureKind::Malformed, what + " has no width or no height."};
    if (width <= maxPictureSide && height <= maxPictureSide && width * height <= maxPicturePixels)
        return {};
    return Failure{FailureKind::TooLarge, what + " is too large: " + std::to_string(width) + "x" +
                                              std::to_string(height) + " pixels; the limits are " +
                                              std::to_string(maxPictureSide) + " a side and " +
                                              std::to_string(maxPicturePixels / 1'000'000) +
                                              " million in all."};
}

} // namespace fennel
