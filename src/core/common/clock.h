#pragma once

namespace zv::common {

struct DateTime {
    int year = 2000;
    int month = 1;  // 1..12
    int day = 1;    // 1..31
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Local wall-clock time; tests pass a fake.
class Clock {
public:
    virtual ~Clock() = default;
    virtual DateTime now() const = 0;
};

class SystemClock final : public Clock {
public:
    DateTime now() const override;
};

}  // namespace zv::common
