#pragma once

#include <cstddef>
#include <string_view>

namespace zv::calc {

// Receives every change of the tape text, in order, so that a copy elsewhere (the tape file)
// can follow it line by line.
class TapeSink {
public:
    virtual ~TapeSink() = default;
    // The bytes from `offset` to the end were replaced by `text`. An append has offset equal
    // to the old size; an undo has empty text; rewriting the last operator replaces the last line.
    virtual void replaceTail(std::size_t offset, std::string_view text) = 0;
    // The whole tape was replaced (cleared, edited, loaded).
    virtual void reset(std::string_view wholeText) = 0;
};

}  // namespace zv::calc
