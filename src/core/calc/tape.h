#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/calc/tape_line.h"
#include "core/calc/tape_sink.h"
#include "core/common/clock.h"
#include "core/common/regional.h"

namespace zv::calc {

// The length at which a tape counts as full: it has no hard limit, but before another tool adds
// its block to a tape this long the user is offered a fresh one.
inline constexpr std::size_t kTapeFullLength = 21000;

// The paper tape: UTF-8 text of lines each ended by CR LF. Every change goes through here and
// is passed on to the sink, if any. No operation copies or rescans the whole text except find,
// reset and the text accessors that return it.
class Tape {
public:
    const std::string& text() const { return m_text; }
    bool empty() const { return m_text.empty(); }
    std::size_t size() const { return m_text.size(); }

    // Adds text at the end. Text that does not end in a line break is completed with CR LF,
    // so that the tape always holds whole lines.
    void append(std::string_view text);
    // Replaces everything from `offset` (a line start) to the end with `text` (whole lines).
    void replaceTail(std::size_t offset, std::string_view text);
    // Replaces the whole tape. Line ends are normalised to CR LF; text that has them already is
    // taken as it is, not copied.
    void reset(std::string text);

    // The last line without its line end, and where it starts; empty/0 on an empty tape.
    std::string_view lastLine() const;
    std::size_t lastLineStart() const;

    // First match of `needle` at or after byte `from`, ignoring case (both sides compared in
    // upper case, accented letters included). Returns the byte offset.
    std::optional<std::size_t> find(std::string_view needle, std::size_t from = 0) const;

    // The sink is not owned; pass nullptr to detach.
    void setSink(TapeSink* sink) { m_sink = sink; }

private:
    std::string m_text;
    TapeSink* m_sink = nullptr;
};

// Tape text with every line end normalised to CR LF and a final line break added if missing.
std::string normaliseLineEnds(std::string_view text);
// The same in place: a text whose line ends are all CR LF already (the usual case) is left as it is.
void normaliseLineEndsInPlace(std::string& text);

// The record appended to the backup file when a tape is cleared: the tape, a line
// "        BKP = hh:mm:ss hs." and the separator line.
std::string backupRecord(std::string_view tapeText, const common::DateTime& now);

// The first line of a fresh tape: the date in the user's order and " ==============".
std::string headingLine(const common::DateTime& now,
                        common::DateOrder order = common::DateOrder::DayMonthYear,
                        std::string_view dateSeparator = "/");

}  // namespace zv::calc
