#include "core/common/text_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace zv::common {

namespace {

struct Entry {
    int id;
    std::string_view text;
};

// clang-format off
constexpr Entry kTable[] = {
#include "core/common/text_table_data.inc"
};
// clang-format on

constexpr bool isSortedAndUnique() {
    for (std::size_t i = 1; i < std::size(kTable); ++i) {
        if (kTable[i - 1].id >= kTable[i].id) {
            return false;
        }
    }
    return true;
}
static_assert(isSortedAndUnique(), "text ids must be strictly increasing for the binary search");

// The argument markers U+008D..U+008F in UTF-8: a lead byte 0xC2 and a second byte 0x8D..0x8F.
// Inside valid UTF-8 text 0xC2 is always a lead byte, so the pair cannot be mistaken for part of
// another character.
constexpr char kMarkerLead = '\xC2';
constexpr unsigned char kFirstMarker = 0x8D;
constexpr unsigned char kLastMarker = 0x8F;

constexpr int kMaxCode = 99999;  // keeps code * 10 + language within int

}  // namespace

std::string_view rawText(int id) {
    const auto* it = std::lower_bound(std::begin(kTable), std::end(kTable), id,
                                      [](const Entry& e, int wanted) { return e.id < wanted; });
    if (it == std::end(kTable) || it->id != id) {
        return {};
    }
    return it->text;
}

std::string GetText(Language language, int code, std::string_view arg1, std::string_view arg2,
                    std::string_view arg3) {
    const int lang = static_cast<int>(language);
    if (lang < 1 || lang > 9 || code < 0 || code > kMaxCode) {
        return {};
    }
    const std::string_view raw = rawText(code * 10 + lang);
    const std::array<std::string_view, 3> args{arg1, arg2, arg3};

    // One pass: arguments are inserted as given, so a "|" or a marker inside an argument is
    // not interpreted.
    std::string out;
    out.reserve(raw.size() + arg1.size() + arg2.size() + arg3.size() + 16);
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c == '|') {
            out += "\r\n";
            continue;
        }
        if (c == kMarkerLead && i + 1 < raw.size()) {
            const auto next = static_cast<unsigned char>(raw[i + 1]);
            if (next >= kFirstMarker && next <= kLastMarker) {
                out += args[next - kFirstMarker];
                ++i;
                continue;
            }
        }
        out += c;
    }
    return out;
}

}  // namespace zv::common
