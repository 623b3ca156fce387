#pragma once

#include <QList>
#include <QRect>

namespace zv::app {

// Where a window goes, kept whole on a screen: the first of the screens' available areas that the
// wanted rectangle touches (the first area is the primary screen's), or, touching none, the
// primary screen with the rectangle centred on it. The rectangle is cut to the area's size and
// moved inside it. No areas: the wanted rectangle as it is.
QRect keepOnScreen(QRect wanted, const QList<QRect>& areas);

// The available areas of the screens now attached, the primary screen's first.
QList<QRect> screenAreas();

}  // namespace zv::app
