// Constant strings.
#include "platform/foundation/string.hpp"

#include <gtest/gtest.h>

namespace {

using bridge::Pool;

NSString greeting() { return "Hello, home screen"_ns; }

TEST(ConstantString, HasItsText) {
  Pool pool;
  EXPECT_STREQ("Hello"_ns.UTF8String(), "Hello");
  EXPECT_EQ("Hello"_ns.length(), 5u);
  EXPECT_STREQ(""_ns.UTF8String(), "");
  EXPECT_EQ(""_ns.length(), 0u);
}

TEST(ConstantString, IsAString) { EXPECT_TRUE(bridge::isKindOf<NSString>("Hello"_ns)); }

TEST(ConstantString, IsTheSameObjectEachTime) {
  EXPECT_EQ(greeting().raw, greeting().raw);
  EXPECT_EQ(greeting().raw, "Hello, home screen"_ns.raw);
  EXPECT_NE(greeting().raw, "Hello, lock screen"_ns.raw);
}

TEST(ConstantString, EqualsTheSameTextMadeAtRunTime) {
  Pool pool;
  EXPECT_TRUE("Hello"_ns.isEqualToString(NSString::stringWithUTF8String("Hello")));
  EXPECT_FALSE("Hello"_ns.isEqualToString(NSString::stringWithUTF8String("Hullo")));
}

TEST(ConstantString, OutlivesThePoolItWasFirstUsedIn) {
  Pool outer;
  id made;
  {
    Pool pool;
    NSString text = "first used in a pool, and too long to be kept inside a pointer"_ns;
    made = text.raw;
  }
  NSString again = "first used in a pool, and too long to be kept inside a pointer"_ns;
  EXPECT_EQ(again.raw, made);
  EXPECT_STREQ(again.UTF8String(), "first used in a pool, and too long to be kept inside a pointer");
}

TEST(ConstantString, SurvivesBalancedOwners) {
  Pool pool;
  {
    auto owner = bridge::retained("owned by somebody for a while, then by nobody"_ns);
    auto other = owner;
  }
  EXPECT_STREQ("owned by somebody for a while, then by nobody"_ns.UTF8String(),
               "owned by somebody for a while, then by nobody");
}

TEST(ConstantString, HasTheRemainingAsciiCharacters) {
  Pool pool;
  EXPECT_STREQ("\t\n\"\\~\x7f"_ns.UTF8String(), "\t\n\"\\~\x7f");
  EXPECT_EQ("\t\n\"\\~\x7f"_ns.length(), 6u);
}

}  // namespace
