#include "core/tools/step_search.h"

#include <gtest/gtest.h>

namespace zv::tools {
namespace {

TEST(StepSearch, StopsOnAnExactRoot) {
    // Up by 1 to 3, down by 0,1 to 2,5, where the signal is zero: no step may move it again.
    StepSearch search([](double x) { return 2.5 - x; }, {100, 0, -1000, 1000}, {100, -10, 1});
    search.run();
    ASSERT_TRUE(search.finished());
    EXPECT_DOUBLE_EQ(search.value(), 2.5);
}

TEST(StepSearch, FailsOnLeavingItsBounds) {
    StepSearch search([](double) { return 1.0; }, {100, 0, 0, 500}, {100});
    search.run();
    EXPECT_TRUE(search.failed());
    EXPECT_EQ(search.trials(), 6u);  // 0, 1, 2, 3, 4, 5; the move to 6 leaves the bounds
}

}  // namespace
}  // namespace zv::tools
