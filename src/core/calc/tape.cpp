#include "core/calc/tape.h"

#include <cstdio>
#include <cstring>

#include "core/common/date.h"
#include "core/common/text_encoding.h"

namespace zv::calc {

void Tape::append(std::string_view text) {
    if (text.empty()) {
        return;
    }
    const std::size_t offset = m_text.size();
    m_text.append(text);
    if (!text.ends_with(kLineEnd)) {
        m_text.append(kLineEnd);
    }
    if (m_sink != nullptr) {
        m_sink->replaceTail(offset, std::string_view(m_text).substr(offset));
    }
}

void Tape::replaceTail(std::size_t offset, std::string_view text) {
    if (offset > m_text.size()) {
        offset = m_text.size();
    }
    m_text.resize(offset);
    m_text.append(text);
    if (!text.empty() && !text.ends_with(kLineEnd)) {
        m_text.append(kLineEnd);
    }
    if (m_sink != nullptr) {
        m_sink->replaceTail(offset, std::string_view(m_text).substr(offset));
    }
}

void Tape::reset(std::string text) {
    normaliseLineEndsInPlace(text);
    m_text = std::move(text);
    if (m_sink != nullptr) {
        m_sink->reset(m_text);
    }
}

std::size_t Tape::lastLineStart() const {
    if (m_text.size() < kLineEnd.size()) {
        return 0;
    }
    // Skip the final line break, then look back for the one before it.
    const std::size_t end = m_text.ends_with(kLineEnd) ? m_text.size() - kLineEnd.size() : m_text.size();
    const std::size_t prev = end == 0 ? std::string::npos : m_text.rfind(kLineEnd, end - 1);
    return prev == std::string::npos ? 0 : prev + kLineEnd.size();
}

std::string_view Tape::lastLine() const {
    const std::size_t start = lastLineStart();
    std::string_view line = std::string_view(m_text).substr(start);
    if (line.ends_with(kLineEnd)) {
        line.remove_suffix(kLineEnd.size());
    }
    return line;
}

std::optional<std::size_t> Tape::find(std::string_view needle, std::size_t from) const {
    if (needle.empty() || from >= m_text.size()) {
        return std::nullopt;
    }
    // Upper-casing keeps byte offsets: the letters it changes keep their UTF-8 length.
    const std::string hay = common::utf8ToUpper(std::string_view(m_text).substr(from));
    const std::string upperNeedle = common::utf8ToUpper(needle);
    const std::size_t at = hay.find(upperNeedle);
    if (at == std::string::npos) {
        return std::nullopt;
    }
    return from + at;
}

std::string normaliseLineEnds(std::string_view text) {
    std::string out;
    out.reserve(text.size() + text.size() / 16 + 2);
    const std::size_t n = text.size();
    std::size_t i = 0;
    while (i < n) {
        // Copy up to the next line-end character in one go.
        std::size_t j = i;
        while (j < n && text[j] != '\r' && text[j] != '\n') {
            ++j;
        }
        out.append(text.substr(i, j - i));
        if (j == n) {
            break;
        }
        out.append(kLineEnd);
        i = (text[j] == '\r' && j + 1 < n && text[j + 1] == '\n') ? j + 2 : j + 1;
    }
    if (!out.empty() && !out.ends_with(kLineEnd)) {
        out.append(kLineEnd);
    }
    return out;
}

void normaliseLineEndsInPlace(std::string& text) {
    // Normal: every LF follows a CR, there are as many CRs as LFs, and the text ends with CR LF.
    // Looked for with memchr, which runs through a long tape many times faster than a loop
    // over its characters.
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    bool normal = text.empty() || text.ends_with(kLineEnd);
    std::size_t lineFeeds = 0;
    for (const char* at = begin; normal && at < end;) {
        const auto* lf = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        if (lf == nullptr) {
            break;
        }
        normal = lf > begin && lf[-1] == '\r';
        ++lineFeeds;
        at = lf + 1;
    }
    std::size_t carriageReturns = 0;
    for (const char* at = begin; normal && at < end; ++carriageReturns) {
        const auto* cr = static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at)));
        if (cr == nullptr) {
            break;
        }
        at = cr + 1;
    }
    if (!normal || carriageReturns != lineFeeds) {
        text = normaliseLineEnds(text);
    }
}

std::string backupRecord(std::string_view tapeText, const common::DateTime& now) {
    char stamp[48];
    std::snprintf(stamp, sizeof stamp, "        BKP = %02d:%02d:%02d hs.", now.hour, now.minute, now.second);
    std::string record(tapeText);
    if (!record.empty() && !record.ends_with(kLineEnd)) {
        record.append(kLineEnd);
    }
    record.append(stamp).append(kLineEnd);
    record.append(kSeparatorLine).append(kLineEnd);
    return record;
}

std::string headingLine(const common::DateTime& now, common::DateOrder order,
                        std::string_view dateSeparator) {
    // A clock reading that is not a real day (never from a real clock) shows as zeros.
    const common::Date date = common::dateOf(now).value_or(common::Date{});
    std::string line = common::formatDate(date, order, dateSeparator);
    line.append(kHeadingTail).append(kLineEnd);
    return line;
}

}  // namespace zv::calc
