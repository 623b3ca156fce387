#include "app/common/menu_look.h"

#include <QMenu>

namespace zv::app {

void applyOfficeMenuLook(QMenu* menu) {
    QPalette palette = menu->palette();
    palette.setColor(QPalette::Window, QColor(0xfb, 0xfb, 0xf9));
    palette.setColor(QPalette::Highlight, QColor(0xc1, 0xd2, 0xee));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    menu->setPalette(palette);
}

}  // namespace zv::app
