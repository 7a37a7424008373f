// One of two files that include all of the bridge and become one program.
#include "tests/bridge/two_files.hpp"

#include <gtest/gtest.h>

namespace {

using test::Shared;
using test::SharedClass;

TEST(TwoFiles, ShareAClass) {
  test::defineShared();
  ASSERT_NE(SharedClass::cls, nullptr);
  EXPECT_EQ(SharedClass::cls, test::sharedClassSeenByOther());
  EXPECT_EQ(Shared::count(), 10);
}

TEST(TwoFiles, ShareAnObjectsState) {
  test::defineShared();
  auto object = bridge::make<Shared, &NSObject::init>();
  EXPECT_EQ(&SharedClass::state(object.get()), test::stateSeenByOther(object.get()));
}

TEST(TwoFiles, ShareAReplacement) {
  test::defineShared();
  auto object = bridge::make<Shared, &NSObject::init>();
  test::installMore();
  EXPECT_EQ(&bridge::slot<test::morevalue>, test::slotSeenByOther());
  EXPECT_EQ(object->value(), 101);
}

TEST(TwoFiles, ShareConstantStrings) { EXPECT_EQ("seen by both files"_ns.raw, test::stringSeenByOther()); }

TEST(TwoFiles, ShareSelectors) {
  EXPECT_TRUE(sel_isEqual(bridge::Descriptor<&Shared::value>::selector(), test::selectorSeenByOther()));
}

TEST(TwoFiles, PassBlocks) {
  auto block = test::blockOfOther();
  EXPECT_EQ(block({2, 3}), (CGRect{{2, 3}, {1, 1}}));
}

}  // namespace
