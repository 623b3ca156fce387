#pragma once

#include <string>

namespace zv::common {

// Interface language; the number is the last digit of a text id (code * 10 + language).
enum class Language { Portuguese = 1, English = 2, Spanish = 3 };

// The user's separators. Each is one character, kept as UTF-8 text so that a locale whose
// grouping character is not ASCII (a no-break space, say) still formats correctly.
struct NumberSeparators {
    std::string decimal = ",";
    std::string group = ".";
};

// The locale's separators made fit for the number formats, which always group: a locale that
// groups with nothing (the "C" locale) or with its decimal character groups with "." when the
// decimal separator is "," and with "," otherwise. An empty decimal separator becomes ".".
NumberSeparators withGroupFallback(NumberSeparators seps);

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

// The process-wide values read once at start and passed to whoever needs them.
struct Regional {
    Language language = Language::Portuguese;
    NumberSeparators separators;
    DateOrder dateOrder = DateOrder::DayMonthYear;
    std::string dateSeparator = "/";
};

}  // namespace zv::common
