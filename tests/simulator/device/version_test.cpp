// System versions: reading, writing and order.
#include "simulator/device/version.hpp"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(Version, ReadsTwoOrThreeParts) {
  EXPECT_EQ(Version::parse("9.2"), (Version{9, 2, 0}));
  EXPECT_EQ(Version::parse("11.0.1"), (Version{11, 0, 1}));
}

TEST(Version, OtherTextIsNone) {
  for (const char* text : {"", "9", "9.", ".9", "9.2.", "9.2.1.4", "9,2", "9.a", "a.9", " 9.2", "9.2 ",
                           "-9.2", "+9.2", "09.2", "9.02", "9.2b", "9999.2", "9..2"})
    EXPECT_FALSE(Version::parse(text)) << text;
}

TEST(Version, ComparesByNumbers) {
  EXPECT_LT(*Version::parse("9.3.6"), *Version::parse("10.0"));
  EXPECT_LT(*Version::parse("9.2"), *Version::parse("9.2.1"));
  EXPECT_EQ(*Version::parse("12.0"), *Version::parse("12.0.0"));
}

TEST(Version, IsWrittenWithoutAZeroPatch) {
  EXPECT_EQ((Version{12, 0, 0}.text()), "12.0");
  EXPECT_EQ((Version{10, 3, 3}.text()), "10.3.3");
}

TEST(Version, NoSystemHadAMinorVersionBeyondTheLast) {
  EXPECT_TRUE((Version{8, 4}.existed()));
  EXPECT_TRUE((Version{12, 5, 7}.existed()));
  for (const Version version : {Version{7, 1}, Version{8, 5}, Version{9, 4}, Version{10, 4}, Version{11, 5},
                                Version{12, 6}, Version{13, 0}, Version{10, 3, 10}})
    EXPECT_FALSE(version.existed()) << version.text();
}

}  // namespace
}  // namespace sim
