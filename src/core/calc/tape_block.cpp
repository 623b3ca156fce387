#include "core/calc/tape_block.h"

#include "core/calc/tape_line.h"
#include "core/common/text.h"

namespace zv::calc {

TapeBlock& TapeBlock::line(std::string_view text) {
    m_text.append(text).append(kLineEnd);
    return *this;
}

TapeBlock& TapeBlock::right(std::string_view text, std::size_t columns) {
    return line(common::padLeft(text, columns));
}

TapeBlock& TapeBlock::stacked(std::string_view label, std::string_view value, std::size_t labelColumns,
                              std::size_t valueColumns) {
    return right(label, labelColumns).right(value, valueColumns);
}

TapeBlock& TapeBlock::pair(std::string_view label, std::string_view value, std::size_t labelColumns,
                           std::size_t valueColumns) {
    return line(common::padLeft(label, labelColumns) + common::padLeft(value, valueColumns));
}

TapeBlock& TapeBlock::closing() {
    return line(kSeparatorLine);
}

}  // namespace zv::calc
