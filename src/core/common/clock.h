#pragma once

#include "common/date_time.h"

namespace tallymere::common {

// Today and now on the wall clock, so that tests can fix the date.
class Clock {
public:
    virtual ~Clock() = default;
    virtual DateTime now() const = 0;
    Date today() const { return now().date(); }
};

// The machine's local wall clock.
class SystemClock final : public Clock {
public:
    DateTime now() const override;
};

// A clock that stands where the test puts it.
class FixedClock final : public Clock {
public:
    explicit FixedClock(DateTime t) : t_(t) {}
    DateTime now() const override { return t_; }
    void set(DateTime t) { t_ = t; }

private:
    DateTime t_;
};

}  // namespace tallymere::common
