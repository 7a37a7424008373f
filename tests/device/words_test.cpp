// How the words of a call are laid out anew between Apple's armv7 and Linux's: which word of the one is which
// of the other's.
#include "device/loader/armv7/words.hpp"

#include <gtest/gtest.h>

namespace {

using device::loader::plainWords;
using device::loader::WordMap;
using device::loader::wordMap;
using enum device::loader::Side;

WordMap outOfSlice(const char* types) { return wordMap(types, apple, linux); }
WordMap intoSlice(const char* types) { return wordMap(types, linux, apple); }

TEST(WordsOfACall, StayWhereTheyAreWithout64Bits) {
  EXPECT_EQ(outOfSlice("v@:@if"), plainWords(5));
  EXPECT_EQ(intoSlice("v@:@if"), plainWords(5));
}

TEST(WordsOfACall, StayWhereTheyAreWith64BitsAtAnEvenPlace) {
  EXPECT_EQ(outOfSlice("d@:d"), plainWords(4));
  EXPECT_EQ(intoSlice("d@:q@"), plainWords(5));
}

// A real behind three words is at the third on Apple's systems, at the fourth on Linux.
TEST(WordsOfACall, LeaveAWordOutBefore64BitsOnLinuxAlone) {
  EXPECT_EQ(outOfSlice("v@:cd"), (WordMap{0, 1, 2, 0, 3, 4}));
  EXPECT_EQ(intoSlice("v@:cd"), (WordMap{0, 1, 2, 4, 5}));
}

TEST(WordsOfACall, ComeBehindThePlaceOfALargeResult) {
  EXPECT_EQ(outOfSlice("{CGRect={CGPoint=ff}{CGSize=ff}}@:"), plainWords(3));
  EXPECT_EQ(outOfSlice("{CGSize=ff}@:d"), (WordMap{0, 1, 2, 0, 3, 4}));
}

TEST(WordsOfACall, HaveNoPlaceForAResultOfAWord) { EXPECT_EQ(outOfSlice("{Flags=I}@:@"), plainWords(3)); }

TEST(WordsOfACall, AreAsManyAsAStructureHas) {
  EXPECT_EQ(outOfSlice("v@:{CGAffineTransform=ffffff}@"), plainWords(9));
  EXPECT_EQ(outOfSlice("c@:@{_NSRange=II}@"), plainWords(6));
  EXPECT_EQ(outOfSlice("v@:{Small=ccs}{Odd=ccc}@"), plainWords(5));
}

TEST(WordsOfACall, AreAsManyAsAllThatAStructureOfBytesHas) {
  EXPECT_EQ(outOfSlice("v@:{Outer={Inner=ccc}c}@"), plainWords(4));
  EXPECT_EQ(outOfSlice("v@:{Outer={Inner=ccc}cc}@"), plainWords(5));
}

TEST(WordsOfACall, HaveAWordForEachShortOne) { EXPECT_EQ(outOfSlice("s@:sS@"), plainWords(5)); }

TEST(WordsOfACall, StartAtAnEvenPlaceForAStructureOf64Bits) {
  EXPECT_EQ(outOfSlice("v@:@{Span=dd}"), (WordMap{0, 1, 2, 0, 3, 4, 5, 6}));
}

// Qualifiers, offsets, names of classes, what a pointer leads to.
TEST(WordsOfACall, AreCountedWithoutWhatIsNoWord) {
  EXPECT_EQ(outOfSlice("Vv24@0:4r*8n^{List={Inner=dd}q}12@\"NSString\"16@?20"), plainWords(6));
  EXPECT_EQ(outOfSlice("v@:^[4d]^(Either=dq)^^d^?[4d]"), plainWords(7));
}

TEST(WordsOfACall, AreCountedWithoutTheQualifiersOfAStructuresFields) {
  EXPECT_EQ(outOfSlice("v@:{Named=r*Ni}r^ri@"), plainWords(6));
}

TEST(WordsOfACall, EndTheProcessWhereTheTwoLayAStructureOutOtherwise) {
  EXPECT_DEATH(outOfSlice("v@:{Mixed=Id}"), "'Mixed=Id\\}' of 'v@:\\{Mixed=Id\\}' cannot cross");
  EXPECT_DEATH(outOfSlice("v@:(Either=id)"), "cannot cross");
}

// On Linux it ends with a word more.
TEST(WordsOfACall, EndTheProcessWhereAStructureEndsOtherwise) {
  EXPECT_DEATH(outOfSlice("v@:{Tail=dI}"), "cannot cross");
}

TEST(WordsOfACall, GoOnBehindAName) { EXPECT_EQ(outOfSlice("v@:@\"A\"i@\"\"f"), plainWords(6)); }

TEST(WordsOfACall, AreNotThoseThatAPointerLeadsTo) {
  EXPECT_EQ(outOfSlice("v@:^r{Mixed=Id}@"), plainWords(4));
}

TEST(WordsOfACall, EndTheProcessWhereANameHasNoEnd) {
  EXPECT_DEATH(outOfSlice("v@:@\"NSString"), "'@\"NSString' of 'v@:@\"NSString' cannot cross");
}

}  // namespace
