#include "core/tools/rule_of_three.h"

#include <gtest/gtest.h>

#include <vector>

namespace zv::tools {
namespace {

const common::NumberSeparators kBrazil{",", "."};
constexpr Proportion D = Proportion::Direct;
constexpr Proportion I = Proportion::Inverse;

// The grid of the guided examples: carpenters, days, hours a day, closets.
std::vector<RuleRow> carpenters(const char* carpentersNew, const char* daysNew, const char* hoursNew,
                                const char* closetsNew) {
    return {{"8", carpentersNew}, {"5", daysNew}, {"6", hoursNew}, {"12", closetsNew}};
}

std::optional<double> solve(const std::vector<RuleRow>& rows, std::size_t unknown,
                            const std::vector<Proportion>& answers) {
    const auto setup = checkRule(rows, unknown, kBrazil);
    if (!std::holds_alternative<RuleSetup>(setup)) {
        ADD_FAILURE() << "checks refused the grid";
        return std::nullopt;
    }
    return solveRule(std::get<RuleSetup>(setup), answers);
}

TEST(RuleOfThree, SolvesTheGuidedExamples) {
    // 12 x (5/8) x (10/5) x (8/6) = 20 closets; 6 x (8/3) x (5/12) x (18/12) = 10 hours.
    EXPECT_DOUBLE_EQ(*solve(carpenters("5", "10", "8", ""), 3, {D, D, D}), 20);
    EXPECT_DOUBLE_EQ(*solve(carpenters("3", "12", "", "18"), 2, {I, I, D}), 10);
}

TEST(RuleOfThree, AsksAboutTheKnownRowsInRowOrder) {
    const auto setup = checkRule(carpenters("3", "12", "", "18"), 2, kBrazil);
    ASSERT_TRUE(std::holds_alternative<RuleSetup>(setup));
    const RuleSetup& s = std::get<RuleSetup>(setup);
    EXPECT_EQ(s.unknown, 2U);
    EXPECT_EQ(s.unknownBase, 6);
    ASSERT_EQ(s.known.size(), 3U);
    EXPECT_EQ(s.known[0].row, 0U);
    EXPECT_EQ(s.known[1].row, 1U);
    EXPECT_EQ(s.known[2].row, 3U);
    EXPECT_EQ(s.known[2].newValue, 18);
}

TEST(RuleOfThree, SimpleRuleUsesTwoRows) {
    struct Case {
        const char* label;
        Proportion answer;
        double result;
    };
    // 3 kg cost 15,00: 7 kg cost 35,00. 4 workers take 15 days: 7 workers take 60/7 days.
    const Case cases[] = {{"direct", D, 35}, {"inverse", I, 15.0 * 3 / 7}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_DOUBLE_EQ(*solve({{"15", ""}, {"3", "7"}}, 0, {c.answer}), c.result);
    }
}

// One division at the end: 1 x (1/49) x (49/1) worked ratio by ratio is 0.9999999999999999.
TEST(RuleOfThree, DividesOnceAtTheEnd) {
    EXPECT_EQ(*solve({{"1", ""}, {"49", "1"}, {"1", "49"}}, 0, {D, D}), 1.0);
}

TEST(RuleOfThree, ChecksInTheirOrder) {
    struct Case {
        const char* label;
        std::vector<RuleRow> rows;
        std::optional<std::size_t> unknown;
        RuleError error;
    };
    const Case cases[] = {
        {"negative base in row 0", {{"-1", "2"}, {"3", ""}}, 1, RuleError::NegativeBase},
        {"negative base in row 1, before a missing value",
         {{"1", ""}, {"-3", ""}},
         0,
         RuleError::NegativeBase},
        {"negative base before no unknown", {{"1", "2"}, {"-3", "4"}}, std::nullopt, RuleError::NegativeBase},
        {"known row without new value", {{"1", "2"}, {"3", ""}, {"5", ""}}, 2, RuleError::NewValueMissing},
        {"missing value before too few rows", {{"3", ""}}, std::nullopt, RuleError::NewValueMissing},
        {"one row", {{"3", ""}}, 0, RuleError::TooFewRows},
        {"nothing", {}, std::nullopt, RuleError::TooFewRows},
        {"blank rows are not in use", {{"3", ""}, {" ", " "}}, 0, RuleError::TooFewRows},
        {"no unknown", {{"1", "2"}, {"3", "4"}}, std::nullopt, RuleError::NoUnknown},
        {"letters in a base", {{"1", ""}, {"x", "4"}}, 0, RuleError::InvalidData},
        {"letters in a new value", {{"1", ""}, {"3", "4a"}}, 0, RuleError::InvalidData},
        {"unknown's base empty", {{"", "9"}, {"3", "4"}, {"5", "6"}}, 0, RuleError::InvalidData},
        {"unknown's base not a number", {{"1,2,3", ""}, {"3", "4"}}, 0, RuleError::InvalidData},
        {"new value without base", {{"1", ""}, {"", "4"}}, 0, RuleError::InvalidData},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const auto result = checkRule(c.rows, c.unknown, kBrazil);
        ASSERT_TRUE(std::holds_alternative<RuleError>(result));
        EXPECT_EQ(std::get<RuleError>(result), c.error);
    }
}

TEST(RuleOfThree, TakesWhatTheChecksLetThrough) {
    struct Case {
        const char* label;
        std::vector<RuleRow> rows;
        double result;
    };
    const Case cases[] = {
        {"zero base in row 0 is no negative", {{"0", ""}, {"2", "4"}}, 0},
        {"negative base past row 1", {{"12", ""}, {"2", "4"}, {"-3", "-6"}}, 48},
        {"grouped and decimal values", {{"1.000", ""}, {"0,5", "1.250,25"}}, 2500500},
        {"unknown's own new value is ignored", {{"15", "99"}, {"3", "7"}}, 35},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_DOUBLE_EQ(*solve(c.rows, 0, std::vector<Proportion>(c.rows.size() - 1, D)), c.result);
    }
}

TEST(RuleOfThree, LooksOnlyAtTheFirstSixRows) {
    std::vector<RuleRow> rows(8, {"1", "2"});
    rows[6] = {"x", ""};
    rows[7] = {"-1", ""};
    const auto setup = checkRule(rows, 0, kBrazil);
    ASSERT_TRUE(std::holds_alternative<RuleSetup>(setup));
    EXPECT_EQ(std::get<RuleSetup>(setup).known.size(), 5U);
}

TEST(RuleOfThree, DivisionByZeroIsInvalidData) {
    struct Case {
        const char* label;
        std::vector<RuleRow> rows;
        Proportion answer;
    };
    const Case cases[] = {
        {"zero base in a direct row", {{"15", ""}, {"0", "7"}}, D},
        {"zero new value in an inverse row", {{"15", ""}, {"3", "0"}}, I},
        {"overflow", {{"1" + std::string(300, '0'), ""}, {"1", "1" + std::string(300, '0')}}, D},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(solve(c.rows, 0, {c.answer}), std::nullopt);
    }
}

TEST(RuleOfThree, NeedsOneAnswerPerKnownRow) {
    EXPECT_EQ(solve({{"15", ""}, {"3", "7"}}, 0, {D, D}), std::nullopt);
    EXPECT_EQ(solve({{"15", ""}, {"3", "7"}}, 0, {}), std::nullopt);
}

TEST(RuleOfThree, NamesTheMessageOfEachCheck) {
    struct Case {
        const char* label;
        RuleError error;
        int code;
    };
    const Case cases[] = {
        {"negative base", RuleError::NegativeBase, 197},
        {"missing new value", RuleError::NewValueMissing, 199},
        {"too few rows", RuleError::TooFewRows, 200},
        {"no unknown", RuleError::NoUnknown, 201},
        {"invalid data", RuleError::InvalidData, 30},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(messageCode(c.error), c.code);
    }
}

}  // namespace
}  // namespace zv::tools
