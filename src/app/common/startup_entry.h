#pragma once

namespace zv::app {

// Starts the program in the notification area when the user logs on, or stops doing so: on
// Windows the value "Quorvati" under HKCU\Software\Microsoft\Windows\CurrentVersion\Run; on
// other desktops an autostart entry ($XDG_CONFIG_HOME/autostart/zavrello.desktop). Both run the
// program with the word "systray".
void setStartWithSystem(bool enabled);

}  // namespace zv::app
