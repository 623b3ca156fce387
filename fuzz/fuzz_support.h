#pragma once

#include <cmath>
#include <cstdint>
#include <string>

#include "core/calc/calculator.h"
#include "core/common/regional.h"
#include "fuzz_check.h"

namespace zv::fuzz {

// The separators a user's locale can give, chosen by one byte of the input: the common ones,
// and a pair of arbitrary punctuation bytes made fit as the program makes the locale's fit.
inline common::NumberSeparators separatorsFrom(std::uint8_t choice) {
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
            // Punctuation only: a digit, a sign or a blank cannot be a separator of a locale.
            static constexpr char kMarks[] = "!\"#$%&'()*,./:;<=>?@[\\]^_`{|}~";
            const std::size_t count = sizeof kMarks - 1;
            const char decimal = kMarks[(choice / 6) % count];
            const char group = kMarks[(choice / 6 / count + choice) % count];
            return common::withGroupFallback({std::string(1, decimal), std::string(1, group)});
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
