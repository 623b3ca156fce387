#pragma once

#include "core/common/clock.h"

namespace zv::fakes {

class FakeClock final : public common::Clock {
public:
    explicit FakeClock(common::DateTime now = {2026, 11, 21, 14, 5, 9}) : m_now(now) {}
    common::DateTime now() const override { return m_now; }

private:
    common::DateTime m_now;
};

}  // namespace zv::fakes
