#pragma once

#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

#include "core/calc/calculator.h"
#include "core/common/regional.h"
#include "fuzz_check.h"

namespace zv::fuzz {

// The separators a user's locale can give, chosen by one byte of the input: the common pairs,
// then any decimal mark with any grouping mark that locales use, made fit as the program makes
// the locale's fit.
inline common::NumberSeparators separatorsFrom(std::uint8_t choice) {
    static constexpr const char* kDecimals[] = {".", ",", "\u066B"};  // the last: Arabic
    static constexpr const char* kGroups[] = {".", ",", " ", "\u00A0", "\u202F", "'", "\u2019", "\u066C"};
    switch (choice % 6) {
        case 0:
            return {",", "."};
        case 1:
            return {".", ","};
        case 2:
            return {",", " "};
        case 3:
            return {",", "\xC2\xA0"};  // a no-break space, as several locales group
        case 4:
            return {".", "'"};
        default: {
            const std::size_t pick = choice / 6u;
            return common::withGroupFallback({kDecimals[pick % std::size(kDecimals)],
                                              kGroups[(pick / std::size(kDecimals)) % std::size(kGroups)]});
        }
    }
}

inline bool sameTotal(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

// Two engines that must agree on everything the window shows of the running total.
inline void checkSameState(const calc::Calculator& got, const calc::Calculator& wanted) {
    ZV_FUZZ_CHECK(sameTotal(got.total(), wanted.total()));
    ZV_FUZZ_CHECK(got.totalText() == wanted.totalText());
    ZV_FUZZ_CHECK(got.state() == wanted.state());
    ZV_FUZZ_CHECK(got.counterText() == wanted.counterText());
}

// The tape read back from its text gives the engine that wrote it: same text, total, state
// and counter.
inline void checkReadsBack(const calc::Calculator& calc, const common::Regional& regional) {
    calc::Calculator reread(regional, calc.options());
    reread.loadTape(calc.tape().text());
    ZV_FUZZ_CHECK(reread.tape().text() == calc.tape().text());
    checkSameState(reread, calc);
}

}  // namespace zv::fuzz
