#include "platform/system_registry.h"

#include <gtest/gtest.h>

namespace zv::platform {
namespace {

// Without a system registry the tray must not offer "Proteger": both answers have to agree.
TEST(SystemRegistry, ExistsOnlyWhereThePoliciesDo) {
#ifdef _WIN32
    EXPECT_NE(makeSystemRegistry(), nullptr);
    EXPECT_TRUE(hasWorkstationPolicies());
#else
    EXPECT_EQ(makeSystemRegistry(), nullptr);
    EXPECT_FALSE(hasWorkstationPolicies());
#endif
}

}  // namespace
}  // namespace zv::platform
