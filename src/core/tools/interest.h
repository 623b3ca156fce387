#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/common/date.h"
#include "core/common/regional.h"
#include "core/tools/step_search.h"

namespace zv::tools {

// Texts of the instalment tool, by code in the text table.
namespace interest_text {
inline constexpr int kHelp = 21;
inline constexpr int kSavingsResult = 29;   // the final amount, the detail line
inline constexpr int kInvalidAnswer = 30;   // "Dados inválidos! Operação cancelada."
inline constexpr int kDiscountResult = 31;  // the net amount, the detail line
inline constexpr int kAmountPrompt = 59;
inline constexpr int kSavingsTitle = 60;
inline constexpr int kRatePrompt = 61;
inline constexpr int kStartDatePrompt = 62;
inline constexpr int kEndPrompt = 63;  // with the day limit
inline constexpr int kChequePrompt = 64;
inline constexpr int kDiscountTitle = 65;
inline constexpr int kDownPayment = 150;  // "  à vista"
inline constexpr int kInitialLabel = 154;
inline constexpr int kCountLabel = 155;
inline constexpr int kInstalmentLabel = 156;
inline constexpr int kRateLabel = 157;
inline constexpr int kInterestLabel = 158;
inline constexpr int kFinalLabel = 159;
inline constexpr int kDaysLabel = 160;
inline constexpr int kBlockTitle = 280;     // " =============== CÁLCULO ="
inline constexpr int kDaysOpen = 281;       // " dias ("
inline constexpr int kFirst = 282;          // "1ª"
inline constexpr int kTotalsHeading = 210;  // " TOTAL DAS CAPITALIZAÇÕES:"
inline constexpr int kTotalInterest = 211;
inline constexpr int kTotalFinal = 212;
inline constexpr int kTotalInitial = 213;
}  // namespace interest_text

// An amount capitalised at a monthly rate over a number of days: each whole month of 30 days
// compounds (amount + amount × rate ÷ 100), the days left earn simple interest at a thirtieth of
// the rate a day. Between the steps the running amount is taken to the 15 significant digits of
// its decimal text and read back, as the system has always done; this changes the last cents of
// long runs on purpose. `ratePercent` is 1.5 for 1,5 % a month.
double capitalize(double amount, double ratePercent, long long days);

// A loan or a sale on credit paid in equal monthly instalments.
struct LoanTerms {
    double initial = 0;
    int count = 1;             // instalments, 1..99
    int days = 30;             // until the first instalment; ignored with a down payment
    bool downPayment = false;  // the first instalment is paid on the day
};

// What is left owing after the last instalment at a trial rate: the first period is the
// capitalisation over `days` (none with a down payment), then each instalment is paid and every
// further month compounds once. Above zero the instalment is too small for the rate.
double finalBalance(const LoanTerms& terms, double instalment, double ratePercent);

// The rate that pays the loan off with `instalment`: steps of 10, 1, 0.1 ... 0.000001 percent
// from 100 %, so the result is settled to six decimals (at or just above the root).
StepSearch rateSearch(const LoanTerms& terms, double instalment);
// The instalment that pays the loan off at `ratePercent`: steps of 1000, 100 ... 0.01, settled
// to the cent (the last cent at or below the exact instalment). It starts a thousand below the
// closed-form annuity, so large loans take as few steps as small ones.
StepSearch instalmentSearch(const LoanTerms& terms, double ratePercent);

// The fields of the fixed-instalment form, as typed.
struct LoanForm {
    std::string initial;
    std::string instalment;  // empty: to be found
    std::string count;
    std::string days;
    std::string rate;  // empty: to be found
    bool downPayment = false;
};

// Why the form cannot be solved; the value is the code of the message in the text table.
enum class LoanError {
    NoInitial = 22,
    NoCount = 23,
    NoDays = 24,
    NothingToFind = 25,
    InstalmentTooLarge = 26,
    NoRate = 27,
    CalculationFailed = 28,
};

inline int textCode(LoanError error) {
    return static_cast<int>(error);
}

// A form that passed the checks: the rate is to be found when the instalment is given.
struct LoanRequest {
    LoanTerms terms;
    std::optional<double> instalment;
    double rate = 0;  // percent a month; meaningful only when no instalment is given
};

// The checks of the form, in the order the user is told about them. Amounts are read with the
// user's separators; an amount that is no number, or not above zero, counts as not given.
std::variant<LoanRequest, LoanError> validateLoan(const LoanForm& form, const common::NumberSeparators& seps);

struct LoanResult {
    double rate = 0;  // percent a month
    double instalment = 0;
    double totalInterest = 0;  // final amount - initial value
    double finalAmount = 0;    // instalment × count
};

// The totals of a solved loan.
LoanResult loanResult(const LoanTerms& terms, double instalment, double ratePercent);

// Runs the search the request calls for to its end. CalculationFailed when it does not converge
// (no rate pays the loan off with that instalment, say).
std::variant<LoanResult, LoanError> solveLoan(const LoanRequest& request);

// One instalment of a payment schedule. Amounts are settled to the cent, so that interest plus
// principal is the instalment on paper; the last row absorbs what the rounding left over.
struct ScheduleRow {
    int number = 0;         // 1..count
    long long dueDays = 0;  // days from the day of the loan
    double instalment = 0;
    double interest = 0;
    double principal = 0;
    double balance = 0;            // owing after this instalment
    bool absorbsRounding = false;  // the last row, when its instalment differs from the others
};

std::vector<ScheduleRow> paymentSchedule(const LoanTerms& terms, double instalment, double ratePercent);

// "01/12": the row's number and the count, two digits each.
std::string instalmentNumber(int number, int count);

// Savings and cheque discount: the longest periods their dialogues take.
inline constexpr long long kSavingsMaxDays = 1500;
inline constexpr long long kChequeMaxDays = 730;

// The answers of the savings or cheque dialogue, as typed.
struct CapitalisationForm {
    std::string amount;
    std::string rate;
    // Nullopt when not asked (a day count given on the command line); a final date needs it.
    std::optional<std::string> startDate;
    std::string endDateOrDays;  // a final date, or a number of days
};

struct Capitalisation {
    double amount = 0;
    double rate = 0;  // percent a month
    long long days = 0;
    std::optional<common::Date> start;
    std::optional<common::Date> end;  // when the last answer was a date
};

// The answers read and checked: an amount and a rate above zero, a valid start date, and a final
// date after it or a day count, either giving 1..maxDays days. Nullopt: the dialogue is cancelled
// with text 30.
std::optional<Capitalisation> readCapitalisation(const CapitalisationForm& form, long long maxDays,
                                                 const common::NumberSeparators& seps);

// What a cheque of `chequeValue` due in `days` is worth today at `ratePercent` a month: the
// largest amount (to the cent) whose capitalisation does not pass the cheque. Nullopt when the
// search fails.
std::optional<double> discountCheque(double chequeValue, double ratePercent, long long days);
StepSearch chequeSearch(double chequeValue, double ratePercent, long long days);

// The detail line under a savings or cheque result: "45 dias (1,00%)", with the dates in front
// when they were given ("10/01/2026 - 24/02/2026: 45 dias (1,00%)").
std::string capitalisationDetail(const Capitalisation& c, common::Language language,
                                 const common::NumberSeparators& seps);

}  // namespace zv::tools
