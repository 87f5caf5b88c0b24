// The date that headers are stamped with.
#pragma once

#include <cstdint>
#include <ctime>

#include "datetime/dateformat.h"

namespace vx::dbf {

// Today's date, asked for once in a quarter of an hour: no time zone has its midnight inside of one. Every append
// stamps a header and would else ask for a local date.
class KeptDate {
 public:
    const Date& get() {
        constexpr std::int64_t kQuarterOfAnHour = 15 * 60;  // in seconds
        std::int64_t quarter = std::time(nullptr) / kQuarterOfAnHour;
        if (quarter != quarter_) date_ = today();
        quarter_ = quarter;
        return date_;
    }

 private:
    std::int64_t quarter_ = -1;
    Date date_;
};

}  // namespace vx::dbf
