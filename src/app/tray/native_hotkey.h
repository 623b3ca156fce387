#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>
#include <memory>

#include "platform/global_hotkey.h"

namespace zv::app {

// Ctrl+Shift+C through the system's own key registration, its presses picked out of the native
// events Qt receives. The filter is installed on the application while the combination is held.
class NativeHotkey final : public platform::GlobalHotkey, private QAbstractNativeEventFilter {
public:
    // `x11Display`: the program's X11 Display* on X11, nullptr elsewhere (on Wayland nothing can
    // be registered).
    explicit NativeHotkey(void* x11Display);
    ~NativeHotkey() override;

    bool registerCtrlShiftC(std::function<void()> pressed) override;

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    void* m_x11Display;
    std::unique_ptr<platform::CtrlShiftCGrab> m_grab;
    std::function<void()> m_pressed;
};

}  // namespace zv::app
