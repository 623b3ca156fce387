#pragma once

#include <string_view>

#include "core/calc/calculator.h"

namespace zv::calc {

// Keys as the user presses them; beside the characters: '~' the sign key, 'C' clear entry,
// 'B' backspace, 'E' Enter, 'U' undo, 'R' redo.
inline void press(Calculator& calc, std::string_view keys) {
    for (const char k : keys) {
        switch (k) {
            case '~':
                calc.changeSign();
                break;
            case 'C':
                calc.clearEntry();
                break;
            case 'B':
                calc.backspace();
                break;
            case 'E':
                calc.Form_KeyPress(key::kEnter);
                break;
            case 'U':
                calc.undo();
                break;
            case 'R':
                calc.redo();
                break;
            default:
                calc.Form_KeyPress(static_cast<unsigned char>(k));
        }
    }
}

}  // namespace zv::calc
