#include "core/tools/interest.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/text.h"
#include "core/common/text_table.h"

namespace zv::tools {
namespace {

constexpr int kMaxCount = 99;
constexpr long long kMaxFormDays = 999;  // the days field holds three digits
constexpr long long kMonthDays = 30;

// The value written as decimal text of 15 significant digits and read back.
double through15Digits(double value) {
    char text[40];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
    double back = value;
    std::from_chars(text, written.ptr, back);
    return back;
}

// A positive amount typed with the user's separators.
std::optional<double> positiveAmount(std::string_view text, const common::NumberSeparators& seps) {
    const std::optional<double> value = common::parseNumber(text, seps);
    if (!value || !(*value > 0) || !std::isfinite(*value)) {
        return std::nullopt;
    }
    return value;
}

// A whole number of at most `max`, digits only.
std::optional<long long> wholeNumber(std::string_view text, long long max) {
    text = common::trimBlanks(text);
    if (!common::allDigits(text) || text.size() > 6) {
        return std::nullopt;
    }
    long long value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (value > max) {
        return std::nullopt;
    }
    return value;
}

double roundCents(double value) {
    return std::round(through15Digits(value * 100)) / 100;
}

// The amount owed when the first instalment falls due, before it is paid.
double firstPeriod(const LoanTerms& terms, double ratePercent) {
    return terms.downPayment ? terms.initial : capitalize(terms.initial, ratePercent, terms.days);
}

constexpr double kRatePerOne = 1e6;  // millionths of a percent
constexpr long long kRateStart = 100'000'000;
constexpr double kCentsPerOne = 100;
constexpr long long kMaxCents = 1'000'000'000'000'000;

}  // namespace

double capitalize(double amount, double ratePercent, long long days) {
    const long long months = days / kMonthDays;
    const long long rest = days - kMonthDays * months;
    for (long long m = 0; m < months; ++m) {
        const double interest = through15Digits(amount * ratePercent / 100);
        amount = through15Digits(amount + interest);
    }
    if (rest != 0) {
        amount = through15Digits(amount + amount * (static_cast<double>(rest) * (ratePercent / 30) / 100));
    }
    return amount;
}

double finalBalance(const LoanTerms& terms, double instalment, double ratePercent) {
    const double growth = 1 + ratePercent / 100;
    double balance = firstPeriod(terms, ratePercent) - instalment;
    for (int i = 1; i < terms.count; ++i) {
        balance = balance * growth - instalment;
    }
    return balance;
}

StepSearch rateSearch(const LoanTerms& terms, double instalment) {
    // A rate of -100 % or less would turn the balance's sign round at every month.
    return StepSearch([terms, instalment](double rate) { return -finalBalance(terms, instalment, rate); },
                      {kRatePerOne, kRateStart, -99'999'999, 100'000'000'000},
                      {-10'000'000, 1'000'000, -100'000, 10'000, -1'000, 100, -10, 1});
}

StepSearch instalmentSearch(const LoanTerms& terms, double ratePercent) {
    // The closed-form annuity over the amount owed at the first instalment.
    const double growth = 1 + ratePercent / 100;
    double sum = 0;
    double power = 1;
    for (int i = 0; i < terms.count; ++i) {
        sum += power;
        power *= growth;
    }
    const double exact = firstPeriod(terms, ratePercent) * (power / growth) / sum;
    long long start = 0;
    if (std::isfinite(exact) && exact > 1000 && exact < static_cast<double>(kMaxCents) / kCentsPerOne) {
        start = (static_cast<long long>(std::floor(exact)) - 1000) * 100;
    }
    return StepSearch([terms, ratePercent](double value) { return finalBalance(terms, value, ratePercent); },
                      {kCentsPerOne, start, 0, kMaxCents}, {100'000, -10'000, 1'000, -100, 10, -1});
}

std::variant<LoanRequest, LoanError> validateLoan(const LoanForm& form,
                                                  const common::NumberSeparators& seps) {
    LoanRequest request;
    const std::optional<double> initial = positiveAmount(form.initial, seps);
    if (!initial) {
        return LoanError::NoInitial;
    }
    request.terms.initial = *initial;
    const std::optional<long long> count = wholeNumber(form.count, kMaxCount);
    if (!count || *count == 0) {
        return LoanError::NoCount;
    }
    request.terms.count = static_cast<int>(*count);
    request.terms.downPayment = form.downPayment;
    if (!form.downPayment) {
        const std::optional<long long> days = wholeNumber(form.days, kMaxFormDays);
        if (!days) {
            return LoanError::NoDays;
        }
        request.terms.days = static_cast<int>(*days);
    } else {
        request.terms.days = 0;
    }
    const bool instalmentTyped = !common::trimBlanks(form.instalment).empty();
    const bool rateTyped = !common::trimBlanks(form.rate).empty();
    if (!instalmentTyped && !rateTyped) {
        return LoanError::NothingToFind;
    }
    if (const std::optional<double> instalment = positiveAmount(form.instalment, seps)) {
        if (*instalment >= *initial) {
            return LoanError::InstalmentTooLarge;
        }
        request.instalment = instalment;
        return request;
    }
    const std::optional<double> rate = positiveAmount(form.rate, seps);
    if (!rate) {
        return LoanError::NoRate;
    }
    request.rate = *rate;
    return request;
}

LoanResult loanResult(const LoanTerms& terms, double instalment, double ratePercent) {
    LoanResult result;
    result.rate = ratePercent;
    result.instalment = instalment;
    result.finalAmount = instalment * terms.count;
    result.totalInterest = result.finalAmount - terms.initial;
    return result;
}

std::variant<LoanResult, LoanError> solveLoan(const LoanRequest& request) {
    if (request.instalment) {
        StepSearch search = rateSearch(request.terms, *request.instalment);
        search.run();
        if (search.failed()) {
            return LoanError::CalculationFailed;
        }
        return loanResult(request.terms, *request.instalment, search.value());
    }
    StepSearch search = instalmentSearch(request.terms, request.rate);
    search.run();
    if (search.failed() || !(search.value() > 0)) {
        return LoanError::CalculationFailed;
    }
    return loanResult(request.terms, search.value(), request.rate);
}

std::vector<ScheduleRow> paymentSchedule(const LoanTerms& terms, double instalment, double ratePercent) {
    std::vector<ScheduleRow> rows;
    rows.reserve(static_cast<std::size_t>(terms.count));
    const double regular = roundCents(instalment);
    double balance = roundCents(terms.initial);
    long long due = terms.downPayment ? 0 : terms.days;
    for (int number = 1; number <= terms.count; ++number) {
        ScheduleRow row;
        row.number = number;
        row.dueDays = due;
        row.interest = number == 1 ? roundCents(firstPeriod(terms, ratePercent) - terms.initial)
                                   : roundCents(balance * ratePercent / 100);
        row.instalment = regular;
        if (number == terms.count) {
            row.instalment = roundCents(balance + row.interest);
            row.absorbsRounding = row.instalment != regular;
        }
        row.principal = roundCents(row.instalment - row.interest);
        balance = number == terms.count ? 0 : roundCents(balance - row.principal);
        row.balance = balance;
        rows.push_back(row);
        due += kMonthDays;
    }
    return rows;
}

std::string instalmentNumber(int number, int count) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d/%02d", number, count);
    return text;
}

std::optional<Capitalisation> readCapitalisation(const CapitalisationForm& form, long long maxDays,
                                                 const common::NumberSeparators& seps) {
    Capitalisation c;
    const std::optional<double> amount = positiveAmount(form.amount, seps);
    const std::optional<double> rate = positiveAmount(form.rate, seps);
    if (!amount || !rate) {
        return std::nullopt;
    }
    c.amount = *amount;
    c.rate = *rate;
    if (form.startDate) {
        const auto start = common::parseDate(*form.startDate);
        if (!std::holds_alternative<common::Date>(start)) {
            return std::nullopt;
        }
        c.start = std::get<common::Date>(start);
    }
    const auto end = common::parseDate(form.endDateOrDays);
    if (std::holds_alternative<common::Date>(end)) {
        if (!c.start) {
            return std::nullopt;
        }
        c.end = std::get<common::Date>(end);
        c.days = common::daysBetween(*c.start, *c.end);
    } else if (const std::optional<long long> days = wholeNumber(form.endDateOrDays, maxDays)) {
        c.days = *days;
    } else {
        return std::nullopt;
    }
    if (c.days < 1 || c.days > maxDays) {
        return std::nullopt;
    }
    return c;
}

StepSearch chequeSearch(double chequeValue, double ratePercent, long long days) {
    return StepSearch([chequeValue, ratePercent,
                       days](double net) { return chequeValue - capitalize(net, ratePercent, days); },
                      {kCentsPerOne, 0, 0, kMaxCents}, {100'000, -10'000, 1'000, -100, 10, -1});
}

std::optional<double> discountCheque(double chequeValue, double ratePercent, long long days) {
    StepSearch search = chequeSearch(chequeValue, ratePercent, days);
    search.run();
    if (search.failed()) {
        return std::nullopt;
    }
    return search.value();
}

std::string capitalisationDetail(const Capitalisation& c, common::Language language,
                                 const common::NumberSeparators& seps) {
    std::string detail;
    if (c.start && c.end) {
        detail = common::formatDate(*c.start) + " - " + common::formatDate(*c.end) + ": ";
    }
    return detail + std::to_string(c.days) + common::GetText(language, interest_text::kDaysOpen) +
           common::FormatMoney(c.rate, seps) + "%)";
}

}  // namespace zv::tools
