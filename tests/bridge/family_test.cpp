// Who owns the object that a selector answers: the rule that compilers apply to Objective-C's automatic
// reference counting. Leading underscores do not count, and a family's word ends before anything but a
// lowercase letter.
#include <gtest/gtest.h>

#include <type_traits>

#include "platform/foundation/object.hpp"

namespace {

using bridge::Family;
using bridge::familyOf;
using bridge::Name;
using bridge::Object;
using bridge::Strong;

struct Case {
  const char* selector;
  Family found, expected;
};

#define CASE(selector, expected) {selector, familyOf(Name(selector)), expected}

void expectAll(std::initializer_list<Case> cases) {
  for (const Case& each : cases) EXPECT_EQ(each.found, each.expected) << each.selector;
}

TEST(Family, OfAWordByItself) {
  expectAll({CASE("init", Family::initialiser), CASE("alloc", Family::made), CASE("new", Family::made),
             CASE("copy", Family::made), CASE("mutableCopy", Family::made)});
}

TEST(Family, OfAWordFollowedByAnother) {
  expectAll({CASE("initWithFrame:", Family::initialiser), CASE("initInFrame", Family::initialiser),
             CASE("newItem", Family::made), CASE("newItem:for:", Family::made),
             CASE("copyItem", Family::made), CASE("allocWithZone:", Family::made),
             CASE("copyWithZone:", Family::made), CASE("mutableCopyWithZone:", Family::made)});
}

TEST(Family, OfAWordFollowedByWhatIsNoLetter) {
  expectAll({CASE("init:", Family::initialiser), CASE("init_", Family::initialiser),
             CASE("init2", Family::initialiser), CASE("new:", Family::made), CASE("new_item", Family::made),
             CASE("copy2", Family::made), CASE("copy:to:", Family::made), CASE("alloc:", Family::made)});
}

TEST(Family, DoesNotCountLeadingUnderscores) {
  expectAll({CASE("_init", Family::initialiser), CASE("__initWithFrame:", Family::initialiser),
             CASE("_copy", Family::made), CASE("__newItem", Family::made), CASE("_mutableCopy", Family::made),
             CASE("_alloc", Family::made), CASE("_initialize", Family::borrowed),
             CASE("_copying", Family::borrowed)});
}

TEST(Family, OfAWordThatGoesOnIsNone) {
  expectAll({CASE("initialize", Family::borrowed), CASE("initialView", Family::borrowed),
             CASE("initials", Family::borrowed), CASE("newspaper", Family::borrowed),
             CASE("news", Family::borrowed), CASE("newer:", Family::borrowed),
             CASE("copying", Family::borrowed), CASE("copyright", Family::borrowed),
             CASE("allocate", Family::borrowed), CASE("allocated:", Family::borrowed),
             CASE("mutableCopying", Family::borrowed)});
}

TEST(Family, IsNoneWhereTheWordDoesNotStartTheSelector) {
  expectAll({CASE("reinit", Family::borrowed), CASE("dealloc", Family::borrowed),
             CASE("makeCopy", Family::borrowed), CASE("item:copy:", Family::borrowed),
             CASE("isNew", Family::borrowed), CASE("Copy", Family::borrowed), CASE("NEW", Family::borrowed),
             CASE("mutablecopy", Family::borrowed)});
}

TEST(Family, OfASelectorShorterThanAnyWordIsNone) {
  expectAll({CASE("", Family::borrowed), CASE("_", Family::borrowed), CASE("___", Family::borrowed),
             CASE("i", Family::borrowed), CASE("ini", Family::borrowed), CASE("ne", Family::borrowed),
             CASE("mutable", Family::borrowed), CASE("mutableCop", Family::borrowed),
             CASE("frame", Family::borrowed)});
}

template <Name Selector, class R>
using Result = typename bridge::Message<Selector, R()>::template Result<>;

TEST(Family, MakesAnOwnerOfAnObjectOnly) {
  static_assert(std::is_same_v<Result<"copy", NSObject>, Strong<NSObject>>);
  static_assert(std::is_same_v<Result<"init", NSObject>, Strong<NSObject>>);
  static_assert(std::is_same_v<Result<"newItem", Object>, Strong<Object>>);
  static_assert(std::is_same_v<Result<"copyCount", int>, int>);
  static_assert(std::is_same_v<Result<"copyAll", void>, void>);
  static_assert(std::is_same_v<Result<"frame", NSObject>, NSObject>);
  static_assert(std::is_same_v<Result<"newspaper", NSObject>, NSObject>);
}

}  // namespace
