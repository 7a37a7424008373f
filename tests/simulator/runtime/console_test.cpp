// CFLog: lines of the system log.
#include "simulator/runtime/console.hpp"

#include <gtest/gtest.h>

#include "platform/corefoundation/log.hpp"
#include "platform/foundation/number.hpp"
#include "platform/foundation/string.hpp"

namespace {

using Lines = std::vector<std::string>;

class SystemLog : public testing::Test {
 protected:
  bridge::Pool pool;
};

TEST_F(SystemLog, IsEmptyAtFirst) { EXPECT_EQ(sim::console(), Lines{}); }

TEST_F(SystemLog, TakesTextsNumbersAndObjects) {
  CFLog(5, "%s has %d of %@"_ns.raw, "drawer", -12, "spoons"_ns.raw);
  EXPECT_EQ(sim::console(), Lines{"drawer has -12 of spoons"});
}

TEST_F(SystemLog, ShowsObjectsByTheirDescriptions) {
  CFLog(5, "%@ %@"_ns.raw, NSNumber::numberWithInt(42).raw, id{});
  EXPECT_EQ(sim::console(), Lines{"42 (null)"});
}

TEST_F(SystemLog, KeepsPercentSignsEscapesAndOtherLetters) {
  CFLog(5, "\033[1;36m%d%%\033[m %@"_ns.raw, 100,
        NSString::stringWithUTF8String("l\xC3\xB6"
                                       "ffel")
            .raw);
  EXPECT_EQ(sim::console(), Lines{"\033[1;36m100%\033[m l\xC3\xB6"
                                  "ffel"});
}

TEST_F(SystemLog, KeepsAPercentSignWithinAnArgument) {
  CFLog(5, "%@"_ns.raw, "%d%@"_ns.raw);
  EXPECT_EQ(sim::console(), Lines{"%d%@"});
}

TEST_F(SystemLog, KeepsTheOrderWhateverTheLevelAndTheLevels) {
  CFLog(7, "one"_ns.raw);
  CFLog(0, "two"_ns.raw);
  CFLog(3, "three"_ns.raw);
  EXPECT_EQ(sim::console(), (Lines{"one", "two", "three"}));
  EXPECT_EQ(sim::consoleLevels(), (std::vector<int>{7, 0, 3}));
}

}  // namespace
