#pragma once

class QMenu;

namespace zv::app {

// The flat office look of the menus: pale background, a pale blue bar on the item under the
// mouse. A palette rather than a style sheet: style sheets cost start-up time on every widget.
void applyOfficeMenuLook(QMenu* menu);

}  // namespace zv::app
