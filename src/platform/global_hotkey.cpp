#include "platform/global_hotkey.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>
#include <xcb/xcb.h>
#endif

namespace zv::platform {

#ifdef _WIN32

namespace {

// An application's hot key ids lie in 0x0000-0xBFFF; the program registers only this one.
constexpr int kHotkeyId = 0x5A56;

#ifndef MOD_NOREPEAT
constexpr UINT MOD_NOREPEAT = 0x4000;
#endif

}  // namespace

std::unique_ptr<CtrlShiftCGrab> CtrlShiftCGrab::take(void* /*x11Display*/) {
    // No window: WM_HOTKEY goes to this (the GUI) thread's queue, where the event filter sees it.
    // Holding the key down sends one message, not one per repeat.
    if (!RegisterHotKey(nullptr, kHotkeyId, MOD_CONTROL | MOD_SHIFT | MOD_NOREPEAT, 'C')) {
        return nullptr;
    }
    return std::unique_ptr<CtrlShiftCGrab>(new CtrlShiftCGrab(nullptr, 0, 0, 0));
}

CtrlShiftCGrab::~CtrlShiftCGrab() {
    UnregisterHotKey(nullptr, kHotkeyId);
}

bool CtrlShiftCGrab::isPress(const void* nativeEvent) const {
    const auto* message = static_cast<const MSG*>(nativeEvent);
    return message->message == WM_HOTKEY && message->wParam == static_cast<WPARAM>(kHotkeyId);
}

#else

namespace {

// Xlib reports a refused grab only to its process-wide error handler, which carries no data of
// its own; the flag lives only while take() has the handler installed.
bool g_refused = false;

int noteRefusal(Display* /*display*/, XErrorEvent* /*error*/) {
    // BadAccess when another client holds the combination; any other error refuses it too.
    g_refused = true;
    return 0;
}

constexpr unsigned int kCtrlShift = ControlMask | ShiftMask;

}  // namespace

std::unique_ptr<CtrlShiftCGrab> CtrlShiftCGrab::take(void* x11Display) {
    auto* display = static_cast<Display*>(x11Display);
    if (display == nullptr) {
        return nullptr;
    }
    const KeyCode keycode = XKeysymToKeycode(display, XK_c);
    if (keycode == 0) {
        return nullptr;
    }
    const Window root = DefaultRootWindow(display);
    // NumLock is whichever modifier the keymap binds it to (usually Mod2).
    const unsigned int numLock = XkbKeysymToModifiers(display, XK_Num_Lock);
    // Errors of earlier requests are not this grab's to catch.
    XSync(display, False);
    g_refused = false;
    const XErrorHandler previous = XSetErrorHandler(noteRefusal);
    const unsigned int lockStates[] = {0U, LockMask, numLock, LockMask | numLock};
    for (const unsigned int locks : lockStates) {
        XGrabKey(display, keycode, kCtrlShift | locks, root, False, GrabModeAsync, GrabModeAsync);
    }
    XSync(display, False);
    XSetErrorHandler(previous);
    // Built before the check, so that a refusal gives back the grabs that were taken.
    std::unique_ptr<CtrlShiftCGrab> grab(new CtrlShiftCGrab(display, keycode, LockMask | numLock, root));
    if (g_refused) {
        return nullptr;
    }
    return grab;
}

CtrlShiftCGrab::~CtrlShiftCGrab() {
    auto* display = static_cast<Display*>(m_display);
    // Releases only this client's grabs of the key, whatever their modifiers.
    XUngrabKey(display, static_cast<int>(m_keycode), AnyModifier, m_root);
    XFlush(display);
}

bool CtrlShiftCGrab::isPress(const void* nativeEvent) const {
    const auto* event = static_cast<const xcb_generic_event_t*>(nativeEvent);
    // The high bit marks an event another client sent.
    if ((event->response_type & 0x7f) != XCB_KEY_PRESS) {
        return false;
    }
    const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event);
    // The state's low byte holds the keyboard modifiers; the lock keys are ignored.
    const unsigned int modifiers = press->state & 0xffU & ~m_locks;
    return press->detail == m_keycode && press->event == m_root && modifiers == kCtrlShift;
}

#endif

}  // namespace zv::platform
