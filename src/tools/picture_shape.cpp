// SPDX-License-Identifier: MIT
#include "tools/picture_shape.h"

#include "base/picture_tool.h"
#include "base/text.h"
#include "base/words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize glance(256, 256); // enough to tell the shape
constexpr double alike = 0.02;    // proportions that nobody sees to differ
constexpr QSize smallestScreen(320, 200);
constexpr QSize largestScreen(1920, 1200);

QString shapeText()
{
    return Words::tr("%1 is %2 x %3 pixels, but %4 x %5 are needed: another shape.");
}
QString wholeScreenText()
{
    return Words::tr(
        "\n\nWhole screen: every background gets %1 x %2. A boot loader shows only the sizes that\n"
        "the graphics card knows (VESA modes, such as 800 x 600 or 1024 x 768).");
}
QString shapeTitle()
{
    return Words::tr("Picture of another shape");
}

struct ShapeRow {
    const char* caption;    // see Words
    const char16_t* option; // null: nothing of the sort
};
// In the order of the buttons.
constexpr std::array<ShapeRow, 5> shapeRows = {{
    {Words::mark("Stretch"), u"stretch"},
    {Words::mark("Crop"), u"crop"},
    {Words::mark("Fit"), u"fit"},
    {Words::mark("Whole screen"), nullptr},
    {Words::mark("Cancel"), nullptr},
}};
constexpr std::size_t wholeScreenRow = 3;
constexpr std::size_t cancelRow = 4;

bool sameShape(QSize one, QSize other)
{
    const double first = static_cast<double>(one.width()) / std::max(1, one.height());
    const double second = static_cast<double>(other.width()) / std::max(1, other.height());
    return std::abs(first / second - 1) < alike;
}

} // namespace

std::optional<QSize> uprightSize(const Shell& shell, const QString& picture)
{
    const Result<FilePicture> read = shell.readPicture({picture, PictureMode::Inside, glance});
    if (!read || read->image.isNull())
        return std::nullopt;
    const bool lies = read->image.width() > read->image.height();
    const bool liesStored = read->stored.width() > read->stored.height();
    return lies == liesStored ? read->stored : read->stored.transposed();
}

std::optional<ShapeAnswer> askForShape(const Shell& shell, const QString& picture, QSize size,
                                       bool screen)
{
    const std::optional<QSize> own = uprightSize(shell, picture);
    if (!own || own->isEmpty() || size.isEmpty() || sameShape(*own, size))
        return ShapeAnswer();
    const bool whole =
        screen && own->boundedTo(largestScreen) == *own && own->expandedTo(smallestScreen) == *own;
    Choice choice;
    choice.title = shapeTitle();
    choice.text = shapeText()
                      .arg(namePart(picture))
                      .arg(own->width())
                      .arg(own->height())
                      .arg(size.width())
                      .arg(size.height());
    if (whole)
        choice.text += wholeScreenText().arg(own->width()).arg(own->height());
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < shapeRows.size(); ++row) {
        if (row == wholeScreenRow && !whole)
            continue;
        rows.push_back(row);
        choice.answers.append(Words::tr(shapeRows[row].caption));
    }
    choice.usual = 1;
    choice.cancel = static_cast<int>(choice.answers.size()) - 1;
    const int answer = std::clamp(shell.prompts.choose(choice), 0, choice.cancel);
    const std::size_t row = rows[static_cast<std::size_t>(answer)];
    if (row == cancelRow)
        return std::nullopt;
    if (row == wholeScreenRow)
        return ShapeAnswer{{}, own};
    return ShapeAnswer{{u"-shape"_s, QString::fromUtf16(shapeRows[row].option)}, {}};
}

} // namespace fennel
