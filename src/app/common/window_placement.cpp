#include "app/common/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace zv::app {

QRect keepOnScreen(QRect wanted, const QList<QRect>& areas) {
    if (areas.isEmpty()) {
        return wanted;
    }
    const auto touched =
        std::find_if(areas.begin(), areas.end(), [&](const QRect& area) { return area.intersects(wanted); });
    const QRect area = touched != areas.end() ? *touched : areas.first();
    if (touched == areas.end()) {
        wanted.moveCenter(area.center());
    }
    wanted.setSize(wanted.size().boundedTo(area.size()));
    wanted.moveLeft(std::clamp(wanted.left(), area.left(), area.left() + area.width() - wanted.width()));
    wanted.moveTop(std::clamp(wanted.top(), area.top(), area.top() + area.height() - wanted.height()));
    return wanted;
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
