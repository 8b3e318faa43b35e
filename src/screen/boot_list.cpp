// SPDX-License-Identifier: MIT
#include "screen/boot_list.h"

#include "screen/boot_canvas.h"
#include "screen/boot_jpeg.h"

#include <QPainter>

#include <algorithm>

namespace fennel {

QRect BootObject::bounds() const
{
    QRect all;
    for (const BootOp& op : ops)
        all |= op.area;
    return all;
}

namespace {

bool sameGround(const BootList& one, const BootList& other)
{
    return one.screen == other.screen && one.bits == other.bits &&
           one.background == other.background && one.bare == other.bare;
}

// What is drawn in colours that come from the pixels below must be drawn as a whole.
bool readsBelow(const BootObject& object)
{
    return std::ranges::any_of(object.ops,
                               [](const BootOp& op) { return op.kind == BootOp::Stroke; });
}

} // namespace

QRegion changedArea(const BootList& before, const BootList& now)
{
    const QRect whole(QPoint(), now.screen);
    if (!sameGround(before, now) || before.objects.size() != now.objects.size())
        return whole;
    QRegion changed;
    for (std::size_t i = 0; i < now.objects.size(); ++i) {
        if (before.objects[i].ops == now.objects[i].ops)
            continue;
        changed += before.objects[i].bounds();
        changed += now.objects[i].bounds();
    }
    return changed & whole;
}

QImage bootGround(const BootList& list, BootMembers& members)
{
    QImage ground(list.screen, QImage::Format_RGB32);
    ground.fill(list.bare);
    QImage picture = list.background.isEmpty() ? QImage() : members.picture(list.background);
    if (list.bits == 16) {
        cutTo16Bits(ground, ground.rect());
        if (!picture.isNull())
            ditherTo16Bits(picture);
    }
    if (picture.isNull())
        return ground;
    if (picture.size() == list.screen)
        return picture;
    QPainter(&ground).drawImage(0, 0, picture);
    return ground;
}

QRegion paintBoot(const BootList& list, BootMembers& members, const QImage& ground,
                  const QRegion& dirty, QImage& screen)
{
    QRect part = dirty.boundingRect() & screen.rect();
    // Twice is enough for rings that do not lie over each other in a row.
    for (int i = 0; i < 2; ++i) {
        for (const BootObject& object : list.objects) {
            if (object.bounds().intersects(part) && readsBelow(object))
                part |= object.bounds() & screen.rect();
        }
    }
    if (part.isEmpty())
        return {};
    BootCanvas canvas(screen, ground, part, list.bits, members);
    canvas.clear();
    for (const BootObject& object : list.objects) {
        for (const BootOp& op : object.ops)
            canvas.draw(op);
    }
    return part;
}

} // namespace fennel
