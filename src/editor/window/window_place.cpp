// SPDX-License-Identifier: MIT
#include "editor/window/window_place.h"

#include "base/user_store.h"

#include <QStringList>

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

const QString cornerKey = u"Corner"_s;
const QString sizeKey = u"Size"_s;
const QString maximisedKey = u"Maximised"_s;

std::optional<QPoint> pairOf(const QString& text)
{
    const QStringList parts = text.split(u' ');
    bool first = false;
    bool second = false;
    const QPoint pair(parts.value(0).toInt(&first), parts.value(1).toInt(&second));
    return first && second ? std::optional(pair) : std::nullopt;
}

QString textOf(int first, int second)
{
    return u"%1 %2"_s.arg(first).arg(second);
}

} // namespace

WindowPlace readWindowPlace(const UserStore& store, const QString& window)
{
    WindowPlace place;
    place.corner = pairOf(store.get(viewSection, window + cornerKey));
    if (const auto size = pairOf(store.get(viewSection, window + sizeKey)))
        place.size = QSize(size->x(), size->y());
    place.maximised = store.get(viewSection, window + maximisedKey) == u"1";
    return place;
}

void storeWindowPlace(UserStore& store, const WindowPlace& place, const QString& window)
{
    if (place.corner)
        store.save(viewSection, window + cornerKey, textOf(place.corner->x(), place.corner->y()));
    store.save(viewSection, window + sizeKey,
               place.size ? textOf(place.size->width(), place.size->height()) : QString());
    store.save(viewSection, window + maximisedKey, place.maximised ? u"1"_s : u"0"_s);
}

QPoint placeOnDesktop(const QRect& frame, const QRect& desktop)
{
    const QPoint wanted(std::min(frame.left(), desktop.right() + 1 - frame.width()),
                        std::min(frame.top(), desktop.bottom() + 1 - frame.height()));
    return {std::max(wanted.x(), desktop.left()), std::max(wanted.y(), desktop.top())};
}

} // namespace fennel
