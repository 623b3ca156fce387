#include "app/common/tool_window.h"

#include <QShowEvent>

#include "app/common/window_placement.h"

namespace zv::app {

ToolWindow::ToolWindow(const AppContext& app, const char* objectName, int titleCode, QWidget* parent)
    : QDialog(parent), m_app(app), m_captions(new Captions(*app.language, this)) {
    setObjectName(QLatin1String(objectName));
    m_captions->add(this, titleCode);
}

void ToolWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        setGeometry(keepOnScreen(geometry(), screenAreas()));
    }
}

ToolWindows::~ToolWindows() {
    for (const auto& [kind, window] : m_windows) {
        delete window.data();
    }
}

void ToolWindows::bringUp(QWidget* window) {
    window->show();
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

}  // namespace zv::app
