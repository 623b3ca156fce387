#include "app/tray/native_hotkey.h"

#include <QCoreApplication>

namespace zv::app {

NativeHotkey::NativeHotkey(void* x11Display) : m_x11Display(x11Display) {}

NativeHotkey::~NativeHotkey() {
    if (QCoreApplication* app = QCoreApplication::instance(); app != nullptr && m_grab != nullptr) {
        app->removeNativeEventFilter(this);
    }
}

bool NativeHotkey::registerCtrlShiftC(std::function<void()> pressed) {
    if (m_grab == nullptr) {
        m_grab = platform::CtrlShiftCGrab::take(m_x11Display);
        if (m_grab == nullptr) {
            return false;
        }
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    m_pressed = std::move(pressed);
    return true;
}

bool NativeHotkey::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
#ifdef _WIN32
    const bool native = eventType == "windows_generic_MSG";
#else
    const bool native = eventType == "xcb_generic_event_t";
#endif
    if (!native || !m_grab->isPress(message)) {
        return false;
    }
    if (m_pressed) {
        m_pressed();
    }
    // The press was for the whole desktop, not for whichever of our windows has the focus.
    return true;
}

}  // namespace zv::app
