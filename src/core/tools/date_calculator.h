#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/common/date.h"
#include "core/common/regional.h"

namespace zv::tools {

// A span in the tool's commercial units. Years are calendar years as the tool counts them (365
// days, one more for each 29 February they cross); months are always 30 days and weeks 7.
struct DateSpan {
    long long years = 0;
    long long months = 0;
    long long weeks = 0;
    long long days = 0;
};

// The fields of the date window, in the order Enter walks them.
enum class DateField { Initial, Final, Years, Months, Weeks, Days };

// Why a calculation was refused, with the field to put right.
enum class DateProblem {
    BadDate,     // a date field that is no date
    NotEarlier,  // the initial date is not before the final date
    BadNumber,   // a number field that is no whole number from 0, or a span that leaves the years 0001-9999
};
struct DateRefusal {
    DateProblem problem;
    DateField field;
};

// The text-table code of the message for `problem`: 32, 33 or 34.
int messageCode(DateProblem problem);

// What the window shows and the tape block records.
struct DateResult {
    common::Date initial;
    common::Date final;
    DateSpan span;     // as given (addition) or the break-down (span between two dates)
    int leapDays = 0;  // 29 Februaries after the initial date, up to the final date included
    long long totalDays = 0;
};

// The span typed in the number fields; an empty field counts as 0.
struct SpanFields {
    std::string_view years;
    std::string_view months;
    std::string_view weeks;
    std::string_view days;
};

// `years` whole years after `from`: 365 days each, one more for each 29 February that year
// crosses, so that a year from 10/05/2003 is 10/05/2004 and one from 29/02/2004 is 28/02/2005.
// Nullopt when that leaves the years 0001 to 9999.
std::optional<common::Date> addYears(const common::Date& from, long long years);

// `from` plus `span`: the whole years as addYears counts them, then months × 30 + weeks × 7 + days,
// never lengthened. Nullopt when that leaves the years 0001 to 9999 or a part is negative.
std::optional<common::Date> addSpan(const common::Date& from, const DateSpan& span);

// The span from `from` to a later or equal `to`, broken down greedily so that addSpan gives `to`
// back: the most whole years addYears reaches without passing `to`, then the rest in 30-day
// months, weeks and days.
DateSpan spanBetween(const common::Date& from, const common::Date& to);

// The calculations of the window, from the text of its fields. Dates are DD/MM/YYYY.
std::variant<DateResult, DateRefusal> calculateFinalDate(std::string_view initial, const SpanFields& fields);
std::variant<DateResult, DateRefusal> calculateSpan(std::string_view initial, std::string_view final);

// The weekday name of the date in `text`, shown beside a date field as soon as it holds a date.
std::optional<std::string> weekdayOf(std::string_view text, common::Language language);

// The block the tool appends to the tape (CR LF line ends): the dates in the tape's amount column
// with "-" and "=" in its operator column, then the span with its numbers in the amount column.
//             [10/05/2003] -
//             [09/05/2004] =
//                  anos: 0
//                meses: 12
//               semanas: 0
//                  dias: 5
//  =========================
std::string tapeBlock(const DateResult& result, common::Language language);

}  // namespace zv::tools
