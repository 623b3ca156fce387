#pragma once

#include <filesystem>

namespace zv::platform {

// Where the tape, its backup and the program's other files live: $ZAVRELLO_HOME when set,
// otherwise the user's application-data folder (Linux: $XDG_DATA_HOME/zavrello, by default
// ~/.local/share/zavrello; Windows: %APPDATA%\Zavrello). Created if missing.
std::filesystem::path dataFolder();

}  // namespace zv::platform
