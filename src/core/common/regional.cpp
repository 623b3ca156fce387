#include "core/common/regional.h"

namespace zv::common {

NumberSeparators withGroupFallback(NumberSeparators seps) {
    if (seps.decimal.empty()) {
        seps.decimal = ".";
    }
    if (seps.group.empty() || seps.group == seps.decimal) {
        seps.group = seps.decimal == "," ? "." : ",";
    }
    return seps;
}

}  // namespace zv::common
