#pragma once

namespace zv::platform {

// Keeps NumLock switched on while the option "NumLock always on" is checked; does nothing
// otherwise. x11Display is the program's X11 Display* when it runs on X11, else nullptr
// (Wayland and offscreen have no NumLock state a client may set, so nothing happens there).
//
// Returns true when a synthetic NumLock key press was queued (Windows, NumLock was off): the
// calculator's key handler must then ignore the next NumLock key event instead of striking the
// total. Nothing is dispatched before this returns, so the caller can raise its flag afterwards.
// On X11 the lock is set directly and no key event is produced.
bool KeepNumLockOn(bool optionChecked, void* x11Display);

}  // namespace zv::platform
