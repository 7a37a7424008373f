// Comparing encodings by what they tell of a call.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "bridge/encoding.hpp"

namespace {

// Both strings in allocations of exactly their size, so that a read past either end is noticed.
bool same(const char* one, const char* other) {
  auto copy = [](const char* text) {
    size_t size = std::strlen(text) + 1;
    auto bytes = std::make_unique<char[]>(size);
    std::memcpy(bytes.get(), text, size);
    return bytes;
  };
  auto first = copy(one), second = copy(other);
  bool forth = bridge::sameShape(first.get(), second.get());
  EXPECT_EQ(bridge::sameShape(second.get(), first.get()), forth) << one << " and " << other;
  return forth;
}

#define EXPECT_SAME(one, other) EXPECT_TRUE(same(one, other)) << one << " and " << other
#define EXPECT_DIFFERENT(one, other) EXPECT_FALSE(same(one, other)) << one << " and " << other

TEST(SameShape, HoldsForEqualEncodings) {
  for (const char* each : {"", "v@:", "@@:@", "{CGRect={CGPoint=dd}{CGSize=dd}}@:", "v@:^{CGRect=}d",
                           "v@:d@?@?", "v@:[4i]b3", "v@:(u=id)", "^?", "C@:r*"})
    EXPECT_SAME(each, each);
}

TEST(SameShape, DoesNotCountOffsets) {
  EXPECT_SAME("v@:", "v16@0:8");
  EXPECT_SAME("v@:d@", "v32@0:8d16@24");
  EXPECT_SAME("v@:f", "v12@0:+4f-8");
  EXPECT_SAME("{CGRect={CGPoint=dd}{CGSize=dd}}@:d", "{CGRect={CGPoint=dd}{CGSize=dd}}24@0:8d16");
}

TEST(SameShape, DoesNotCountQualifiers) {
  for (const char* each : {"r", "n", "N", "o", "O", "R", "V", "A", "rn"}) {
    std::string qualified = std::string("v@:") + each + "^v";
    EXPECT_SAME("v@:^v", qualified.c_str());
  }
  EXPECT_SAME("v@:", "Vv16@0:8");
  EXPECT_SAME("*@:", "r*16@0:8");
}

TEST(SameShape, DoesNotCountStructureNames) {
  EXPECT_SAME("{CGRect={CGPoint=dd}{CGSize=dd}}@:", "{_NSRect={_NSPoint=dd}{_NSSize=dd}}@:");
  EXPECT_SAME("v@:{CGPoint=dd}", "v@:{?=dd}");
  EXPECT_SAME("v@:(One=id)", "v@:(Other=id)");
}

TEST(SameShape, DoesNotCountClassNames) {
  EXPECT_SAME("@@:@", "@\"NSString\"@:@\"NSArray\"");
  EXPECT_SAME("v@:@d", "v@:@\"NSString\"d");
}

TEST(SameShape, TakesABlockForAnObject) { EXPECT_SAME("v@:@?@?", "v@:@@"); }

TEST(SameShape, DoesNotCountTheSignOfARegistersInteger) {
  EXPECT_SAME("q@:q", "Q@:Q");
  EXPECT_SAME("i@:i", "I@:I");
  EXPECT_SAME("q@:", "l@:");
  EXPECT_SAME("Q@:", "L@:");
}

TEST(SameShape, TakesThePlatformsBoolsForOne) {
  EXPECT_SAME("B@:", "c@:");
  EXPECT_SAME("C@:", "c@:");
  EXPECT_SAME("B@:B", "C@:C");
}

TEST(SameShape, DoesNotCountWhatAPointerPointsTo) {
  EXPECT_SAME("v@:^v", "v@:^i");
  EXPECT_SAME("v@:*", "v@:^v");
  EXPECT_SAME("v@:^^v", "v@:^@");
  EXPECT_SAME("v@:^^{CGRect=}d", "v@:^vd");
  EXPECT_SAME("v@:^{CGRect={CGPoint=dd}{CGSize=dd}}d", "v@:^{CGPoint=dd}d");
  EXPECT_SAME("v@:^@\"NSError\"d", "v@:^@d");
  EXPECT_SAME("v@:^@?d", "v@:^vd");
  EXPECT_SAME("v@:^[4i]d", "v@:^id");
  EXPECT_SAME("v@:r^vd", "v@:^r{CGRect=}d");
}

TEST(SameShape, TellsOtherTypesApart) {
  EXPECT_DIFFERENT("v@:", "@@:");
  EXPECT_DIFFERENT("d@:", "f@:");
  EXPECT_DIFFERENT("i@:", "q@:");
  EXPECT_DIFFERENT("s@:", "i@:");
  EXPECT_DIFFERENT("B@:", "i@:");
  EXPECT_DIFFERENT("v@:@", "v@:#");
  EXPECT_DIFFERENT("v@::", "v@:@");
  EXPECT_DIFFERENT("v@:^v", "v@:@");
  EXPECT_DIFFERENT("v@:*", "v@:q");
}

TEST(SameShape, TellsOtherNumbersOfArgumentsApart) {
  EXPECT_DIFFERENT("v@:", "v@:@");
  EXPECT_DIFFERENT("v@:@", "v@:@@");
  EXPECT_DIFFERENT("", "v");
  EXPECT_DIFFERENT("v@:^i", "v@:^ii");
}

TEST(SameShape, TellsOtherStructuresApart) {
  EXPECT_DIFFERENT("v@:{CGPoint=dd}", "v@:{CGPoint=ff}");
  EXPECT_DIFFERENT("v@:{CGPoint=dd}", "v@:{CGPoint=ddd}");
  EXPECT_DIFFERENT("v@:{CGPoint=dd}", "v@:dd");
  EXPECT_DIFFERENT("v@:{CGRect={CGPoint=dd}{CGSize=dd}}", "v@:{CGRect=dddd}");
  EXPECT_DIFFERENT("v@:{One=dd}", "v@:(One=dd)");
}

TEST(SameShape, TellsArraysAndBitFieldsOfOtherLengthsApart) {
  EXPECT_DIFFERENT("{m=[4d]}@:", "{m=[9d]}@:");
  EXPECT_DIFFERENT("{m=[4d]}@:", "{m=[44d]}@:");
  EXPECT_SAME("{m=[4d]}@:", "{m=[4d]}16@0:8");
  EXPECT_DIFFERENT("{m=b3}@:", "{m=b4}@:");
}

TEST(SameShape, ReadsNoFurtherThanAStringThatStopsHalfway) {
  for (const char* each : {"{",           "{CG",  "{CGRect=", "{CGRect={CGPoint=dd}",
                           "^",           "^^",   "^{",       "^{CG",
                           "^{CGRect=dd", "@\"",  "@\"NSStr", "@?",
                           "[",           "[4",   "b",        "(",
                           "^(",          "^[",   "}",        "]",
                           ")",           "^}",   "r",        "16",
                           "+",           "v@:^r"}) {
    EXPECT_SAME(each, each);
    same(each, "v@:");
    same(each, "{CGRect={CGPoint=dd}{CGSize=dd}}@:^{CGRect=}");
    same(each, "^{CGRect={CGPoint=dd}}");
    same(each, "@\"NSString\"");
  }
}

TEST(SameShape, TellsAStringThatStopsHalfwayFromAWholeOne) {
  EXPECT_DIFFERENT("{CGPoint=dd}", "{CGPoint=dd");
  EXPECT_DIFFERENT("{CGPoint=dd}", "{CGPoint=");
  EXPECT_DIFFERENT("v@:^{CGPoint=dd}d", "v@:^{CGPoint=dd");
}

}  // namespace
