#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/common/regional.h"

namespace zv::calc {

// What text copied from another program means to the calculator.
struct ClipboardNumbers {
    enum class Kind {
        NotNumbers,        // ordinary text: ignored
        Amounts,           // one number, or one column of numbers: each is added
        Products,          // two columns of numbers: each row's product is added
        InvalidSelection,  // looks like a table but is not one or two columns of numbers
    };
    Kind kind = Kind::NotNumbers;
    std::vector<double> values;  // the amounts, or the products row by row
};

// Reads copied text. Rows are lines, cells are separated by tabs (as spreadsheets and word
// processors copy tables). A cell reads as a number when, cleaned of blanks, "(" and ")", "-"
// signs and the "." and "," marks, only digits remain; its value is then read with the user's
// separators, a leading "-" or surrounding parentheses making it negative. In time mode a cell
// in the form "#00:00:00" reads as the digits of a duration (01:30:00 is 13000).
ClipboardNumbers readClipboardNumbers(std::string_view text, const common::NumberSeparators& seps,
                                      bool timeMode);

// The products put back on the clipboard: one per line, in the money format's precision.
std::string productsText(const std::vector<double>& products, const common::NumberSeparators& seps);

}  // namespace zv::calc
