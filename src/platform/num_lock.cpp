#include "platform/num_lock.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>
#endif

namespace zv::platform {

#ifdef _WIN32

bool KeepNumLockOn(bool optionChecked, void* /*x11Display*/) {
    if (!optionChecked || (GetKeyState(VK_NUMLOCK) & 1) != 0) {
        return false;
    }
    // Writing the keyboard state bytes does not switch the light on: press the key instead.
    constexpr BYTE kNumLockScan = 0x45;
    keybd_event(VK_NUMLOCK, kNumLockScan, KEYEVENTF_EXTENDEDKEY, 0);
    keybd_event(VK_NUMLOCK, kNumLockScan, KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP, 0);
    return true;
}

#else

bool KeepNumLockOn(bool optionChecked, void* x11Display) {
    auto* display = static_cast<Display*>(x11Display);
    if (!optionChecked || display == nullptr) {
        return false;
    }
    // NumLock is whichever modifier the keymap binds the Num_Lock keysym to (usually Mod2).
    const unsigned int mask = XkbKeysymToModifiers(display, XK_Num_Lock);
    if (mask == 0) {
        return false;
    }
    XkbLockModifiers(display, XkbUseCoreKbd, mask, mask);
    XFlush(display);
    return false;
}

#endif

}  // namespace zv::platform
