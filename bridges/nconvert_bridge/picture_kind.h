// SPDX-License-Identifier: MIT
// Tells the format of a picture file from its bytes. Only where the bytes leave it open does the
// ending of the file name have a say: people rename pictures, and cameras write odd names.
#pragma once

#include <string_view>

namespace fennel::nconvert {

enum class PictureKind { Unknown, Jpeg, Png, Bmp, Gif, Ico, Xpm, Tiff, Webp, Pcx, Tga };

// `path` is used for its ending alone. A cursor file (.cur) is an Ico.
PictureKind pictureKind(std::string_view bytes, std::string_view path);

} // namespace fennel::nconvert
