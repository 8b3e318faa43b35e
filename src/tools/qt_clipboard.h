// SPDX-License-Identifier: MIT
// The clipboard of the window system.
#pragma once

#include "tools/image_tool.h"

namespace fennel {

class QtClipboard : public PictureClipboard {
public:
    [[nodiscard]] QImage picture() const override;
    void setPicture(const QImage& picture) override;
};

} // namespace fennel
