#include "core/common/clock.h"

#include <ctime>

namespace zv::common {

DateTime SystemClock::now() const {
    const std::time_t t = std::time(nullptr);
    // The program runs one user-interface thread, so the shared buffer of localtime is safe.
    const std::tm* tm = std::localtime(&t);
    if (tm == nullptr) {
        return {};
    }
    return {tm->tm_year + 1900, tm->tm_mon + 1, tm->tm_mday, tm->tm_hour, tm->tm_min, tm->tm_sec};
}

}  // namespace zv::common
