#pragma once

#include <string>

#include "core/calc/tape_sink.h"

namespace zv::fakes {

// Applies every change it is told about to its own copy, the way the tape file does.
class MirrorSink final : public calc::TapeSink {
public:
    void replaceTail(std::size_t offset, std::string_view text) override {
        if (offset > copy.size()) {
            offsetBeyondEnd = true;
            offset = copy.size();
        }
        copy.resize(offset);
        copy.append(text);
    }
    void reset(std::string_view wholeText) override { copy.assign(wholeText); }

    std::string copy;
    bool offsetBeyondEnd = false;
};

}  // namespace zv::fakes
