#include "app/common/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace zv::app {

QRect keepOnScreen(QRect wanted, const QList<QRect>& areas, const QMargins& frame) {
    if (areas.isEmpty()) {
        return wanted;
    }
    QRect framed = wanted.marginsAdded(frame);
    const auto touched =
        std::find_if(areas.begin(), areas.end(), [&](const QRect& area) { return area.intersects(framed); });
    const QRect area = touched != areas.end() ? *touched : areas.first();
    if (touched == areas.end()) {
        framed.moveCenter(area.center());
    }
    framed.setSize(framed.size().boundedTo(area.size()));
    framed.moveLeft(std::clamp(framed.left(), area.left(), area.left() + area.width() - framed.width()));
    framed.moveTop(std::clamp(framed.top(), area.top(), area.top() + area.height() - framed.height()));
    return framed.marginsRemoved(frame);
}

QList<QRect> screenAreas() {
    QList<QRect> areas;
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (primary != nullptr) {
        areas << primary->availableGeometry();
    }
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen != primary) {
            areas << screen->availableGeometry();
        }
    }
    return areas;
}

}  // namespace zv::app
