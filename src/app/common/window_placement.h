#pragma once

#include <QList>
#include <QMargins>
#include <QRect>

namespace zv::app {

// Where a window goes, kept whole on a screen: the first of the screens' available areas that the
// wanted rectangle touches (the first area is the primary screen's), or, touching none, the
// primary screen with the rectangle centred on it. The rectangle is cut to the area's size and
// moved inside it. `frame` is what the window manager adds around the window (title bar and
// borders): the framed window is kept whole. No areas: the wanted rectangle as it is.
QRect keepOnScreen(QRect wanted, const QList<QRect>& areas, const QMargins& frame = {});

// The available areas of the screens now attached, the primary screen's first.
QList<QRect> screenAreas();

}  // namespace zv::app
