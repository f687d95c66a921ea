// The receipt's transaction time at the ends of what the clock holds.
#include "ReceiptDate.hpp"

#include <gtest/gtest.h>

#include <ctime>

#include "ToolError.hpp"

namespace vastrel::tool {
namespace {

// The clock counts nanoseconds in 64 bits (1677 to 2262); a 32-bit time_t, as on 32-bit ARM,
// narrows that to 1901 to 2038. Both ends are included.
TEST(ReceiptDateTest, TakesExactlyTheSecondsTheClockHolds) {
    constexpr bool kWideTime = sizeof(std::time_t) >= 8;
    const struct {
        const char* first;
        const char* beforeFirst;
        const char* last;
        const char* afterLast;
    } limits = kWideTime ? decltype(limits){"1677-09-21T00:12:44Z", "1677-09-21T00:12:43Z",
                                            "2262-04-11T23:47:16Z", "2262-04-11T23:47:17Z"}
                         : decltype(limits){"1901-12-13T20:45:52Z", "1901-12-13T20:45:51Z",
                                            "2038-01-19T03:14:07Z", "2038-01-19T03:14:08Z"};
    // The second before 1970 is the one whose count, -1, is also timegm's failure.
    for (const char* held : {limits.first, "1969-12-31T23:59:59Z", limits.last}) {
        EXPECT_EQ(formatUtcDateTime(parseUtcDateTime(held), "%Y-%m-%dT%H:%M:%SZ"), held);
    }
    for (const char* beyond : {limits.beforeFirst, limits.afterLast})
        EXPECT_THROW(parseUtcDateTime(beyond), InputError) << beyond;
}

}  // namespace
}  // namespace vastrel::tool
