#pragma once

#include <string>

namespace zv::platform {

struct ShortcutResult {
    bool created = false;
    std::string where;  // the shortcut file written (or attempted), for the message the window shows
};

// Puts an entry named "Zavrello" that starts programPath in workingFolder into the user's
// program menu, replacing an earlier one. Paths are UTF-8.
// Windows: Start menu\Programs\Zavrello\Zavrello.lnk with the hot key Ctrl+Shift+C.
// Linux: $XDG_DATA_HOME/applications/<kApplicationId>.desktop (by default in
// ~/.local/share/applications), with the installed entry's name, icon, categories and window class.
ShortcutResult createProgramShortcut(const std::string& programPath, const std::string& workingFolder);

}  // namespace zv::platform
