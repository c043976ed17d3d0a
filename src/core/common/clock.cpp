#include "common/clock.h"

#include <ctime>

namespace tallymere::common {

DateTime SystemClock::now() const {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return DateTime::fromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                               local.tm_sec);
}

}  // namespace tallymere::common
