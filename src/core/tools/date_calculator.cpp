#include "core/tools/date_calculator.h"

#include <array>

#include "core/calc/tape_block.h"
#include "core/calc/tape_line.h"
#include "core/common/text.h"

namespace zv::tools {
namespace {

using common::Date;

constexpr long long kDaysInYear = 365;
constexpr long long kDaysInMonth = 30;
constexpr long long kDaysInWeek = 7;
// More digits than any span inside the years 0001-9999 needs, and few enough that no sum of the
// fields can overflow.
constexpr std::size_t kMostDigits = 9;

// The tape labels of the span, one per language: years, months, weeks, days. Their leading blanks
// are the system's own.
struct SpanLabels {
    std::string_view years, months, weeks, days;
};
constexpr SpanLabels kLabelsPt{"  anos: ", "  meses: ", " semanas: ", " dias: "};
constexpr SpanLabels kLabelsEn{" years: ", " months: ", "   weeks: ", " days: "};
constexpr SpanLabels kLabelsEs{"  a\u00F1os: ", "  meses: ", " semanas: ", " d\u00EDas: "};

// The dates stand in the tape's amount column with "-" and "=" in its operator column; the span's
// numbers end in the amount column.
constexpr std::size_t kDateLineColumns = calc::kAmountColumns + 3;  // "] - " ends in a blank

const SpanLabels& labelsFor(common::Language language) {
    switch (language) {
        case common::Language::English:
            return kLabelsEn;
        case common::Language::Spanish:
            return kLabelsEs;
        case common::Language::Portuguese:
            break;
    }
    return kLabelsPt;
}

std::optional<Date> readDate(std::string_view text) {
    const auto parsed = common::parseDate(text);
    const Date* date = std::get_if<Date>(&parsed);
    return date != nullptr ? std::optional<Date>(*date) : std::nullopt;
}

// A number field: blanks around are ignored and an empty field is 0.
std::optional<long long> readCount(std::string_view text) {
    text = common::trimBlanks(text);
    if (text.empty()) {
        return 0;
    }
    if (!common::allDigits(text) || text.size() > kMostDigits) {
        return std::nullopt;
    }
    long long value = 0;
    for (const char c : text) {
        value = value * 10 + (c - '0');
    }
    return value;
}

// The day a year after `from` as the tool counts it, or nullopt past 31/12/9999.
std::optional<Date> nextYear(const Date& from) {
    std::optional<Date> next = common::addDays(from, kDaysInYear);
    if (next && common::leapDaysBetween(from, *next) > 0) {
        next = common::addDays(*next, 1);
    }
    return next;
}

DateResult resultOf(const Date& initial, const Date& final, const DateSpan& span) {
    return {initial, final, span, common::leapDaysBetween(initial, final),
            common::daysBetween(initial, final)};
}

}  // namespace

int messageCode(DateProblem problem) {
    switch (problem) {
        case DateProblem::NotEarlier:
            return 33;  // "A data inicial tem que ser menor que a data final"
        case DateProblem::BadNumber:
            return 34;  // "Verifique se os campos estão preenchidos corretamente"
        case DateProblem::BadDate:
            break;
    }
    return 32;  // "Data informada incorreta"
}

std::optional<Date> addYears(const Date& from, long long years) {
    std::optional<Date> date = from;
    for (long long i = 0; i < years && date; ++i) {
        date = nextYear(*date);
    }
    return date;
}

std::optional<Date> addSpan(const Date& from, const DateSpan& span) {
    if (span.years < 0 || span.months < 0 || span.weeks < 0 || span.days < 0) {
        return std::nullopt;
    }
    const std::optional<Date> afterYears = addYears(from, span.years);
    if (!afterYears) {
        return std::nullopt;
    }
    return common::addDays(*afterYears, span.months * kDaysInMonth + span.weeks * kDaysInWeek + span.days);
}

DateSpan spanBetween(const Date& from, const Date& to) {
    DateSpan span;
    Date reached = from;
    for (std::optional<Date> next = nextYear(reached); next && *next <= to; next = nextYear(reached)) {
        reached = *next;
        ++span.years;
    }
    long long rest = common::daysBetween(reached, to);
    span.months = rest / kDaysInMonth;
    rest %= kDaysInMonth;
    span.weeks = rest / kDaysInWeek;
    span.days = rest % kDaysInWeek;
    return span;
}

std::variant<DateResult, DateRefusal> calculateFinalDate(std::string_view initial, const SpanFields& fields) {
    const std::optional<Date> from = readDate(initial);
    if (!from) {
        return DateRefusal{DateProblem::BadDate, DateField::Initial};
    }
    const std::array<std::pair<std::string_view, DateField>, 4> numbers = {
        {{fields.years, DateField::Years},
         {fields.months, DateField::Months},
         {fields.weeks, DateField::Weeks},
         {fields.days, DateField::Days}}};
    std::array<long long, 4> counts{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::optional<long long> count = readCount(numbers[i].first);
        if (!count) {
            return DateRefusal{DateProblem::BadNumber, numbers[i].second};
        }
        counts[i] = *count;
    }
    const DateSpan span{counts[0], counts[1], counts[2], counts[3]};
    const std::optional<Date> to = addSpan(*from, span);
    if (!to) {
        // No field is wrong by itself: point at the last one that lengthens the span.
        std::size_t last = 0;
        for (std::size_t i = 0; i < counts.size(); ++i) {
            last = counts[i] > 0 ? i : last;
        }
        return DateRefusal{DateProblem::BadNumber, numbers[last].second};
    }
    return resultOf(*from, *to, span);
}

std::variant<DateResult, DateRefusal> calculateSpan(std::string_view initial, std::string_view final) {
    const std::optional<Date> from = readDate(initial);
    if (!from) {
        return DateRefusal{DateProblem::BadDate, DateField::Initial};
    }
    const std::optional<Date> to = readDate(final);
    if (!to) {
        return DateRefusal{DateProblem::BadDate, DateField::Final};
    }
    if (!(*from < *to)) {
        return DateRefusal{DateProblem::NotEarlier, DateField::Initial};
    }
    return resultOf(*from, *to, spanBetween(*from, *to));
}

std::optional<std::string> weekdayOf(std::string_view text, common::Language language) {
    const std::optional<Date> date = readDate(text);
    if (!date) {
        return std::nullopt;
    }
    return std::string(common::weekdayName(*date, language));
}

std::string tapeBlock(const DateResult& result, common::Language language) {
    const SpanLabels& labels = labelsFor(language);
    auto spanLine = [](std::string_view label, long long count) {
        return std::string(label) + std::to_string(count);
    };
    calc::TapeBlock block;
    block.right("[" + common::formatDate(result.initial) + "] - ", kDateLineColumns)
        .right("[" + common::formatDate(result.final) + "] = ", kDateLineColumns)
        .right(spanLine(labels.years, result.span.years), calc::kAmountColumns)
        .right(spanLine(labels.months, result.span.months), calc::kAmountColumns)
        .right(spanLine(labels.weeks, result.span.weeks), calc::kAmountColumns)
        .right(spanLine(labels.days, result.span.days), calc::kAmountColumns)
        .closing();
    return block.text();
}

}  // namespace zv::tools
