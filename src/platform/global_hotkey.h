#pragma once

#include <functional>
#include <memory>

namespace zv::platform {

// Ctrl+Shift+C for the whole desktop: the key combination that brings the calculator back
// whichever program has the focus.
class GlobalHotkey {
public:
    virtual ~GlobalHotkey() = default;  // gives the combination back
    // Takes the combination; from then on `pressed` runs on the GUI thread at every press. False,
    // holding nothing, when the system refuses: another program holds it, or the desktop lets no
    // program take one (Wayland, offscreen).
    virtual bool registerCtrlShiftC(std::function<void()> pressed) = 0;
};

// The system's half of GlobalHotkey; the window program's native event filter is the other.
// On X11 passive grabs on the root window, one for each state of NumLock and CapsLock, since a
// grab matches only its exact modifiers; on Windows RegisterHotKey for the GUI thread.
class CtrlShiftCGrab {
public:
    // Held, or nullptr when refused. `x11Display` is the program's X11 Display* (nullptr where
    // there is none: nothing is taken); unused on Windows.
    static std::unique_ptr<CtrlShiftCGrab> take(void* x11Display);
    ~CtrlShiftCGrab();
    CtrlShiftCGrab(const CtrlShiftCGrab&) = delete;
    CtrlShiftCGrab& operator=(const CtrlShiftCGrab&) = delete;

    // Whether a native event is a press of the combination: an xcb_generic_event_t* on X11, a
    // MSG* on Windows.
    bool isPress(const void* nativeEvent) const;

private:
    CtrlShiftCGrab(void* display, unsigned int keycode, unsigned int locks, unsigned long root)
        : m_display(display), m_keycode(keycode), m_locks(locks), m_root(root) {}

    // X11 only: the key C, the modifiers of CapsLock and NumLock, the window the grabs are on.
    void* m_display;
    unsigned int m_keycode;
    unsigned int m_locks;
    unsigned long m_root;
};

}  // namespace zv::platform
