#include "core/tools/interest.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zv::tools {
namespace {

const common::NumberSeparators kBrazil{",", "."};

TEST(Capitalize, CompoundsWholeMonthsAndAddsSimpleInterestForTheDaysLeft) {
    struct Case {
        const char* label;
        double amount;
        double rate;
        long long days;
        double expected;
    };
    const Case cases[] = {
        {"one ordinary month", 100, 1, 30, 101},
        {"a month and 15 days: 101,00 then 0,505 of simple interest", 100, 1, 45, 101.505},
        {"10 days are 10/30 of the month's rate", 300, 3, 10, 303},
        {"twelve months compound: 1000 x 1,02^12", 1000, 2, 360, 1268.241794562545},
        {"no days", 500, 2, 0, 500},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_NEAR(capitalize(c.amount, c.rate, c.days), c.expected, 1e-9);
    }
}

TEST(Capitalize, KeepsFifteenSignificantDigitsBetweenSteps) {
    // 1/3 at 0 % stays the double nearest to 1/3 without the text round trip; through 15 digits
    // it becomes 0,333333333333333.
    EXPECT_EQ(capitalize(1.0 / 3, 0, 30), 0.333333333333333);
    EXPECT_EQ(capitalize(1.0 / 3, 0, 0), 1.0 / 3);
}

TEST(FinalBalance, SignTellsWhetherTheInstalmentIsTooSmall) {
    const LoanTerms terms{750, 10, 30, false};
    EXPECT_GT(finalBalance(terms, 86, 2.6), 0);  // the rate is too high for 86,00
    EXPECT_LT(finalBalance(terms, 86, 2.5), 0);
}

// Spreadsheet RATE(count; -instalment; initial; 0; type): type 0 for a first instalment after 30
// days, type 1 for one paid at once. The search settles the sixth decimal at or just above it.
TEST(RateSearch, FindsTheSpreadsheetRate) {
    struct Case {
        const char* label;
        LoanTerms terms;
        double instalment;
        double spreadsheetRate;
    };
    const Case cases[] = {
        {"750,00 in 10 x 86,00 from 30 days", {750, 10, 30, false}, 86, 2.5690244},
        {"same, first paid at once", {750, 10, 0, true}, 86, 3.1806446},
        {"1000,00 in 12 x 100,00", {1000, 12, 30, false}, 100, 2.9228541},
        {"1000,00 in 99 x 30,00", {1000, 99, 30, false}, 30, 2.8062789},
        {"1000,00 in 24 x 60,00, first at once", {1000, 24, 30, true}, 60, 3.4708796},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        StepSearch search = rateSearch(c.terms, c.instalment);
        search.run();
        ASSERT_FALSE(search.failed());
        EXPECT_GE(search.value(), c.spreadsheetRate - 1e-7);
        EXPECT_LE(search.value(), c.spreadsheetRate + 1.1e-6);
    }
}

TEST(RateSearch, ShowsEveryTrialAndEndsOnTheSettledRate) {
    StepSearch search = rateSearch({750, 10, 30, false}, 86);
    std::vector<double> shown;
    while (search.step()) {
        shown.push_back(search.value());
    }
    ASSERT_GT(shown.size(), 8u);
    EXPECT_NEAR(shown.front(), 90, 1e-9);  // the first step goes down by 10 from 100
    EXPECT_NEAR(search.value(), 2.569025, 1e-9);
}

TEST(RateSearch, ConvergesOverTheWholeRange) {
    for (const int count : {1, 2, 12, 50, 99}) {
        for (const int days : {0, 10, 30, 45, 365}) {
            for (const double rate : {0.01, 1.0, 12.5, 50.0}) {
                if (count == 1 && days == 0) {
                    continue;  // a single instalment on the day owes no interest at any rate
                }
                SCOPED_TRACE(testing::Message() << count << " x, " << days << " days, " << rate << " %");
                const LoanTerms terms{1000, count, days, false};
                // The instalment that this rate calls for, then the rate found back from it.
                StepSearch pay = instalmentSearch(terms, rate);
                pay.run();
                ASSERT_FALSE(pay.failed());
                StepSearch search = rateSearch(terms, pay.value());
                search.run();
                ASSERT_FALSE(search.failed());
                EXPECT_NEAR(search.value(), rate, 0.01);
            }
        }
    }
}

TEST(RateSearch, FailsWhenNoRatePaysTheLoanOff) {
    // One instalment paid at once leaves 750 - 86 owing whatever the rate.
    StepSearch search = rateSearch({750, 1, 0, true}, 86);
    search.run();
    EXPECT_TRUE(search.failed());
    EXPECT_LE(search.trials(), 20u);  // gives up at -100 %, where every month would turn the sign
}

// Spreadsheet PMT(rate; count; -initial; 0; type), to the cent at or below it.
TEST(InstalmentSearch, FindsTheSpreadsheetInstalment) {
    struct Case {
        const char* label;
        LoanTerms terms;
        double rate;
        double expected;
    };
    const Case cases[] = {
        {"PMT(2%;12;-1000) = 94,5596", {1000, 12, 30, false}, 2, 94.55},
        {"PMT(2%;12;-1000;0;1) = 92,7055", {1000, 12, 30, true}, 2, 92.70},
        {"PMT(1,5%;99;-5000) = 97,2780", {5000, 99, 30, false}, 1.5, 97.27},
        {"PMT(0,01%;99;-1000) = 10,1516", {1000, 99, 30, false}, 0.01, 10.15},
        {"PMT(50%;99;-1000) = 500,00", {1000, 99, 30, false}, 50, 500},
        {"PMT(3%;24;-1000000;0;1) = 57327,5883", {1000000, 24, 0, true}, 3, 57327.58},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        StepSearch search = instalmentSearch(c.terms, c.rate);
        search.run();
        ASSERT_FALSE(search.failed());
        EXPECT_NEAR(search.value(), c.expected, 1e-9);
    }
}

TEST(InstalmentSearch, TakesTheFirstPeriodFromTheDays) {
    // 45 days to the first of one instalment: 1000 at 1 % compounds to 1010, then 15 days of
    // simple interest add 5,05.
    StepSearch search = instalmentSearch({1000, 1, 45, false}, 1);
    search.run();
    EXPECT_NEAR(search.value(), 1015.05, 1e-9);
}

TEST(ValidateLoan, ChecksInOrder) {
    struct Case {
        const char* label;
        LoanForm form;
        std::optional<LoanError> error;
    };
    const Case cases[] = {
        {"no initial value (and nothing else)", {"", "", "0", "", "", false}, LoanError::NoInitial},
        {"an initial value of zero", {"0,00", "", "10", "30", "2", false}, LoanError::NoInitial},
        {"count 0, days missing", {"750", "86", "0", "", "", false}, LoanError::NoCount},
        {"count past 99", {"750", "86", "100", "30", "", false}, LoanError::NoCount},
        {"count 1 passes", {"750", "86", "1", "30", "", false}, std::nullopt},
        {"no days", {"750", "", "10", "", "", false}, LoanError::NoDays},
        {"no days, but paid at once", {"750", "86", "10", "", "", true}, std::nullopt},
        {"neither instalment nor rate", {"750", "", "10", "30", "", false}, LoanError::NothingToFind},
        {"instalment equal to the initial value",
         {"750", "750,00", "10", "30", "", false},
         LoanError::InstalmentTooLarge},
        {"instalment above it, rate given too",
         {"750", "800", "10", "30", "2", false},
         LoanError::InstalmentTooLarge},
        {"no usable instalment and no rate", {"750", "0", "10", "30", "", false}, LoanError::NoRate},
        {"a rate that is no number", {"750", "", "10", "30", "abc", false}, LoanError::NoRate},
        {"rate given", {"1.500,00", "", "10", "30", "2,5", false}, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const auto checked = validateLoan(c.form, kBrazil);
        if (c.error) {
            ASSERT_TRUE(std::holds_alternative<LoanError>(checked));
            EXPECT_EQ(std::get<LoanError>(checked), *c.error);
        } else {
            EXPECT_TRUE(std::holds_alternative<LoanRequest>(checked));
        }
    }
}

TEST(ValidateLoan, ReadsTheFieldsWithTheUserSeparators) {
    const auto checked = validateLoan({"1.500,50", "", "12", "45", "2,5", false}, kBrazil);
    ASSERT_TRUE(std::holds_alternative<LoanRequest>(checked));
    const LoanRequest& request = std::get<LoanRequest>(checked);
    EXPECT_DOUBLE_EQ(request.terms.initial, 1500.5);
    EXPECT_EQ(request.terms.count, 12);
    EXPECT_EQ(request.terms.days, 45);
    EXPECT_DOUBLE_EQ(request.rate, 2.5);
    EXPECT_FALSE(request.instalment);
}

TEST(SolveLoan, TotalsComeFromTheInstalmentAndTheCount) {
    const auto solved = solveLoan({{750, 10, 30, false}, 86.0, 0});
    ASSERT_TRUE(std::holds_alternative<LoanResult>(solved));
    const LoanResult& result = std::get<LoanResult>(solved);
    EXPECT_DOUBLE_EQ(result.finalAmount, 860);
    EXPECT_DOUBLE_EQ(result.totalInterest, 110);
}

TEST(SolveLoan, ReportsAFailedCalculation) {
    const auto solved = solveLoan({{750, 1, 0, true}, 86.0, 0});
    ASSERT_TRUE(std::holds_alternative<LoanError>(solved));
    EXPECT_EQ(std::get<LoanError>(solved), LoanError::CalculationFailed);
}

TEST(PaymentSchedule, SplitsEachInstalmentAndTheLastAbsorbsTheRounding) {
    // PMT(2%;12;-1000) = 94,5596, paid as 94,55: the last instalment makes up the difference.
    const std::vector<ScheduleRow> rows = paymentSchedule({1000, 12, 30, false}, 94.55, 2);
    ASSERT_EQ(rows.size(), 12u);
    EXPECT_EQ(rows[0].dueDays, 30);
    EXPECT_EQ(rows[11].dueDays, 360);
    EXPECT_DOUBLE_EQ(rows[0].interest, 20);
    EXPECT_DOUBLE_EQ(rows[0].principal, 74.55);
    EXPECT_DOUBLE_EQ(rows[0].balance, 925.45);
    EXPECT_DOUBLE_EQ(rows[1].interest, 18.51);  // 2 % of 925,45 = 18,509
    double principal = 0;
    for (const ScheduleRow& row : rows) {
        principal += row.principal;
    }
    EXPECT_NEAR(principal, 1000, 1e-6);
    EXPECT_DOUBLE_EQ(rows[11].balance, 0);
    EXPECT_TRUE(rows[11].absorbsRounding);
    EXPECT_FALSE(rows[10].absorbsRounding);
    // Each instalment is 0,0096 short of PMT; FV(2%;12;-0,0096) = 0,1287 more at the end.
    EXPECT_DOUBLE_EQ(rows[11].instalment, 94.68);
}

TEST(PaymentSchedule, DownPaymentFallsDueOnTheDayWithoutInterest) {
    const std::vector<ScheduleRow> rows = paymentSchedule({1000, 3, 30, true}, 340, 2);
    EXPECT_EQ(rows[0].dueDays, 0);
    EXPECT_DOUBLE_EQ(rows[0].interest, 0);
    EXPECT_DOUBLE_EQ(rows[0].balance, 660);
    EXPECT_EQ(rows[1].dueDays, 30);
    EXPECT_DOUBLE_EQ(rows[1].interest, 13.2);
}

TEST(InstalmentNumber, HasTwoDigitsEach) {
    EXPECT_EQ(instalmentNumber(1, 12), "01/12");
    EXPECT_EQ(instalmentNumber(99, 99), "99/99");
}

TEST(ReadCapitalisation, TakesAFinalDateOrADayCountWithinTheLimit) {
    struct Case {
        const char* label;
        CapitalisationForm form;
        long long limit;
        std::optional<long long> days;
    };
    const Case cases[] = {
        {"a day count", {"100,00", "1", "10/01/2026", "45"}, kSavingsMaxDays, 45},
        {"a final date across February", {"100,00", "1", "10/02/2024", "10/03/2024"}, kSavingsMaxDays, 29},
        {"1500 days for savings", {"100", "1", "01/01/2026", "1500"}, kSavingsMaxDays, 1500},
        {"1501 days for savings", {"100", "1", "01/01/2026", "1501"}, kSavingsMaxDays, std::nullopt},
        {"730 days for a cheque", {"100", "1", "01/01/2026", "730"}, kChequeMaxDays, 730},
        {"731 days for a cheque", {"100", "1", "01/01/2026", "731"}, kChequeMaxDays, std::nullopt},
        {"a final date 731 days on", {"100", "1", "01/01/2025", "02/01/2027"}, kChequeMaxDays, std::nullopt},
        {"no days", {"100", "1", "01/01/2026", "0"}, kChequeMaxDays, std::nullopt},
        {"a final date before the start",
         {"100", "1", "10/01/2026", "09/01/2026"},
         kChequeMaxDays,
         std::nullopt},
        {"an amount that is no number", {"cem", "1", "01/01/2026", "30"}, kChequeMaxDays, std::nullopt},
        {"a rate that is no number", {"100", "x", "01/01/2026", "30"}, kChequeMaxDays, std::nullopt},
        {"no such start date", {"100", "1", "31/02/2026", "30"}, kChequeMaxDays, std::nullopt},
        {"days that are no number", {"100", "1", "01/01/2026", "3O"}, kChequeMaxDays, std::nullopt},
        {"a day count without a start date", {"100", "1", std::nullopt, "30"}, kChequeMaxDays, 30},
        {"a final date without a start date",
         {"100", "1", std::nullopt, "30/01/2026"},
         kChequeMaxDays,
         std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::optional<Capitalisation> read = readCapitalisation(c.form, c.limit, kBrazil);
        ASSERT_EQ(read.has_value(), c.days.has_value());
        if (read) {
            EXPECT_EQ(read->days, *c.days);
        }
    }
}

TEST(DiscountCheque, FindsTheLargestNetWhoseCapitalisationDoesNotPassTheCheque) {
    struct Case {
        const char* label;
        double cheque;
        double rate;
        long long days;
        double net;
    };
    const Case cases[] = {
        {"1000,00 in 30 days at 2 %: 1000/1,02 = 980,392", 1000, 2, 30, 980.39},
        {"101,505 in 45 days at 1 % is 100,00 today", 101.505, 1, 45, 100},
        {"5000,00 in 720 days at 1 %: 5000/1,01^24 = 3937,8306", 5000, 1, 720, 3937.83},
        {"5000,00 in 730 days at 1 %: 5000/1,01^24/(1+10/3000) = 3924,7481", 5000, 1, 730, 3924.74},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::optional<double> net = discountCheque(c.cheque, c.rate, c.days);
        ASSERT_TRUE(net);
        EXPECT_NEAR(*net, c.net, 1e-9);
        EXPECT_LE(capitalize(*net, c.rate, c.days), c.cheque);
        EXPECT_GT(capitalize(*net + 0.01, c.rate, c.days), c.cheque);
    }
}

TEST(CapitalisationDetail, NamesTheDaysTheRateAndTheDates) {
    Capitalisation c{100, 1.5, 45, std::nullopt, std::nullopt};
    EXPECT_EQ(capitalisationDetail(c, common::Language::Portuguese, kBrazil), "45 dias (1,50%)");
    c.start = common::Date{std::chrono::year{2026}, std::chrono::month{1}, std::chrono::day{10}};
    c.end = common::Date{std::chrono::year{2026}, std::chrono::month{2}, std::chrono::day{24}};
    EXPECT_EQ(capitalisationDetail(c, common::Language::English, kBrazil),
              "10/01/2026 - 24/02/2026: 45 days (1,50%)");
}

}  // namespace
}  // namespace zv::tools
