#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zv::calc {

// The columns of the tools' blocks: labels right-aligned in 26, values in 25, so that a label
// and the value under it line up with the tape's amounts.
inline constexpr std::size_t kLabelColumns = 26;
inline constexpr std::size_t kValueColumns = 25;

// A block of lines that a tool writes onto the tape in one go (and that Undo takes back in one
// step): a title, labelled values in columns, a closing line. Every line ends in CR LF; widths
// count characters, not bytes.
class TapeBlock {
public:
    // A line as given.
    TapeBlock& line(std::string_view text);
    TapeBlock& title(std::string_view text) { return line(text); }
    // A line right-aligned in `columns`.
    TapeBlock& right(std::string_view text, std::size_t columns);
    // The label right-aligned in `labelColumns` on one line and the value right-aligned in
    // `valueColumns` on the next.
    TapeBlock& stacked(std::string_view label, std::string_view value,
                       std::size_t labelColumns = kLabelColumns, std::size_t valueColumns = kValueColumns);
    // The label right-aligned in `labelColumns` and the value right-aligned in `valueColumns`
    // after it, on one line.
    TapeBlock& pair(std::string_view label, std::string_view value, std::size_t labelColumns,
                    std::size_t valueColumns);
    // The tape's separator " =========================".
    TapeBlock& closing();

    const std::string& text() const { return m_text; }
    bool empty() const { return m_text.empty(); }

private:
    std::string m_text;
};

}  // namespace zv::calc
