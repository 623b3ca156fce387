#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace zv::fakes {

// One row of a test's table: what the code gave, summarised as one string, and what it should give.
struct Row {
    const char* label;
    std::string got;
    std::string want;
};

inline void expectRows(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.got, row.want);
    }
}

}  // namespace zv::fakes
