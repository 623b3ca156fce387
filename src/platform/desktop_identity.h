#pragma once

#include <string_view>

namespace zv::platform {

// How the desktop knows the program: the name of its desktop entry (without ".desktop"), of its
// icon in the icon theme and of its AppStream component, one reverse-domain name for all three;
// and the window class its windows carry, which the entry names in StartupWMClass. The installed
// files under data/ use the same names; every entry the program writes itself says the same.
inline constexpr std::string_view kApplicationId = "br.com.zavrello.Zavrello";
inline constexpr std::string_view kWindowClass = "Zavrello";
inline constexpr std::string_view kMenuCategories = "Office;Calculator;";

}  // namespace zv::platform
